#pragma once

#include "znstring/number_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

/// The formats of numbers: the language of the C library's formatted print and scan, read here and
/// never passed on, so that no format can reach memory that is not its own.
///
/// Worked example: printing 0xFFFF8000 by "<%6hd>" gives "<-32768>", by "%lx" "ffff8000". Scanning
/// " 12xyz" by "%d" gives 12 and leaves the rest.
///
/// Integers take the conversions d, i, u, o, x, X and c, floats e, f, g and a in both cases, each
/// with flags, width and precision as the C library knows them. Sizes: hh 8 bits, h 16, none and
/// `l` and I32 32, `ll` and I64 64: `l` means 32 bits on every platform. A double percent sign
/// stands for one. Everything else is text: other letters, and conversions that have no value left
/// or one of the other kind.

namespace zntms {

/// A value that a format takes: an integer as it is passed, of 4 or 8 bytes, or a double.
struct PrintArgument {
  std::uint64_t bits = 0;
  double number = 0;
  unsigned char size = 4; ///< bytes of an integer; 0 for a double

  static constexpr PrintArgument Of(int value) { return {static_cast<std::uint32_t>(value), 0, 4}; }
  static constexpr PrintArgument Of(long long value) {
    return {static_cast<std::uint64_t>(value), 0, 8};
  }
  static constexpr PrintArgument Of(double value) { return {0, value, 0}; }
};

/// What a print writes into: a text of at most 511 characters, always ended by a zero byte. What
/// is longer is cut.
class PrintBuffer {
public:
  PrintBuffer() { text_[0] = 0; }

  void Append(std::string_view part) {
    auto const taken = std::min<std::size_t>(part.size(), kRoom - length_);
    part.copy(text_ + length_, taken);
    length_ += static_cast<unsigned int>(taken);
    text_[length_] = 0;
  }
  void Append(std::uint64_t number, char c) {
    auto const taken = std::min<std::uint64_t>(number, kRoom - length_);
    std::memset(text_ + length_, c, taken);
    length_ += static_cast<unsigned int>(taken);
    text_[length_] = 0;
  }
  void Append(char c) { Append(std::string_view(&c, 1)); }
  char const * CStr() const { return text_; }
  std::string_view View() const { return {text_, length_}; }

private:
  static constexpr unsigned int kRoom = 511;

  unsigned int length_ = 0;
  char text_[kRoom + 1];
};

/// Prints by `format`; each conversion takes the next of the `count` arguments.
void PrintByFormat(PrintBuffer & out, char const * format, PrintArgument const * arguments,
                   unsigned int count);

inline void PrintByFormat(PrintBuffer & out, char const * format, PrintArgument argument) {
  PrintByFormat(out, format, &argument, 1);
}

/// What a format prints that is nothing but one decimal conversion, such as "%ld".
std::optional<DecimalNumber> ReadDecimalFormat(char const * format, PrintArgument const & argument);

/// Where a scan stores a value, which needs no alignment.
struct ScanTarget {
  enum Kind : unsigned char { integer, singleFloat, doubleFloat };

  void * value;
  Kind kind;
  unsigned char size; ///< bytes at `value`; no scan stores more
};

/// Scans `text` from its start by `format`, storing into the `count` targets in turn, until
/// something does not match. Floats are stored as what the target holds, integers in the size that
/// the conversion tells, of which a smaller target takes the low bytes. Numbers out of range take
/// the nearest 64-bit number, cut to that size.
///
/// White space in the format takes any white space, other text takes itself, and conversions other
/// than c pass white space. An asterisk behind the percent sign reads without storing. The result
/// is the number of values stored.
unsigned int ScanByFormat(std::string_view text, char const * format, ScanTarget const * targets,
                          unsigned int count);

inline unsigned int ScanByFormat(std::string_view text, char const * format, ScanTarget target) {
  return ScanByFormat(text, format, &target, 1);
}

// ---- The language -------------------------------------------------------------------------------

/// One conversion of a format.
struct Conversion {
  bool left = false;      ///< -
  bool plus = false;      ///< +
  bool blank = false;     ///< a blank
  bool alternate = false; ///< #
  bool zeros = false;     ///< 0
  bool suppress = false;  ///< *, of scans
  int width = 0;          ///< 0: none
  int precision = -1;     ///< -1: none
  unsigned char size = 4; ///< bytes of an integer
  char letter = 0;

  constexpr bool IsInteger() const {
    switch (letter) {
    case 'd':
    case 'i':
    case 'u':
    case 'o':
    case 'x':
    case 'X':
    case 'c':
      return true;
    default:
      return false;
    }
  }
  constexpr bool IsFloat() const {
    switch (letter | 0x20) {
    case 'e':
    case 'f':
    case 'g':
    case 'a':
      return true;
    default:
      return false;
    }
  }
  /// Whether the letter and the size are all there is.
  constexpr bool IsPlain() const {
    return width == 0 && precision < 0 && !(left || plus || blank || alternate || zeros);
  }
};

/// Widths and precisions above this count as this.
inline constexpr int kLargestFormatNumber = 1'000'000;

/// Reads what stands behind a percent sign. Gives the place behind the conversion, or null if it
/// is none that numbers know.
char const * ReadPrintConversion(char const * at, Conversion & conversion);
char const * ReadScanConversion(char const * at, Conversion & conversion);

} // namespace zntms
