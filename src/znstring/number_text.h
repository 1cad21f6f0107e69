#pragma once

/// Plain numbers as text and back: what strings, rows and formats share.
///
/// Worked example: `NumberText(0.1).View()` is "0.10000000000000001"; `ScanDouble("12.5km")` gives
/// 12.5, `ScanDouble("-infinity")` negative infinity, `ScanDouble("abc")` 0.
///
/// Nothing here depends on the locale, allocates or reads behind the text.

#include <cstdint>
#include <string_view>

namespace zntms {

/// A whole number on its way to decimal text.
struct DecimalNumber {
  std::uint64_t magnitude;
  bool isNegative;

  static constexpr DecimalNumber Of(long long number) {
    auto const bits = static_cast<std::uint64_t>(number);
    return {number < 0 ? 0 - bits : bits, number < 0};
  }

  /// Characters that it takes, at most 20.
  unsigned int Length() const;
  /// Writes them, without a terminator. Eight digits at a time, which do not wait for one
  /// another, take half the time of `std::to_chars`, in which each pair waits for the division
  /// before it.
  void Write(char * at) const;
};

/// The decimal text of one number, ended by a zero byte.
class NumberText {
public:
  /// From `CStr()` on this many bytes may be read. They hold the text of every whole number with
  /// its terminator, and to copy them all takes no branch that depends on its length.
  static constexpr unsigned int kRoom = 24;

  explicit NumberText(long long number);
  explicit NumberText(unsigned long long number);
  explicit NumberText(DecimalNumber number);
  explicit NumberText(int number) : NumberText(static_cast<long long>(number)) {}
  explicit NumberText(unsigned int number) : NumberText(static_cast<unsigned long long>(number)) {}
  /// The text by the format "%.17g", from which the same double reads back, but "NaN" for every
  /// NaN and "Infinity" or "-Infinity".
  explicit NumberText(double number);

  char const * CStr() const { return text_ + start_; }
  unsigned int Length() const { return length_; }
  std::string_view View() const { return {CStr(), length_}; }

private:
  static constexpr unsigned int kPlaces = 24;

  char text_[kPlaces + kRoom] = {}; // the longest is -2.2250738585072014e-308
  unsigned int start_ = 0;          // a whole number ends with the last of the places
  unsigned int length_ = 0;
};

/// The NaN that scans give, and the lowest value in the order of doubles.
inline constexpr std::uint64_t kNaNBits = 0xFFF8000000000000;
double LowestNaN();

/// What a reader took: `end` points behind it, to the start of the text if it took nothing.
struct DoubleRead {
  double value;
  char const * end;
};

/// Reads white space, a sign and a decimal number or a hexadecimal one ("0x1.8p3") from the start
/// of `text`, as the C library's `strtod` does; the words for infinity and NaN are no numbers
/// here. What is too large gives an infinity of its sign, what is too small the nearest subnormal
/// or 0.
DoubleRead ReadDouble(std::string_view text);

/// The value of a text: the number that it begins with, whatever follows; else, if the whole text
/// is "Infinity", "-Infinity" or "NaN" in any case, that; else 0.
double ScanDouble(std::string_view text);

/// The white space of the C locale.
constexpr bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

} // namespace zntms
