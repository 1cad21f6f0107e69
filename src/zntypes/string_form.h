#pragma once

#include <algorithm>
#include <cstring>

#include "zanbs.h"
#include "zanin.h"
#include "zncodes.h"
#include "znstring/units.h"

/// The stored form of a string, in two generations.
///
///     new   07 00 01 02 61 62 63 00 FF    length, code set, language, text, end mark
///     old   04 00 61 62 63 00             length, text with its zero byte
///
/// The length counts what follows it, in the byte order of the format; the last byte tells the
/// generation. An index key is the new form with code set 254 and order numbers for text; its
/// language byte holds the script class. A key that an index cut short tells its whole length, but
/// ends early.

namespace zntms {

inline constexpr unsigned char kOrderText = 254;
inline constexpr unsigned char kMixedClass =
    0x80; ///< in the class of a key: the text changed its class
inline constexpr unsigned int kLengthField = 2;
inline constexpr unsigned int kStringHead = 4;    ///< length, code set, language
inline constexpr unsigned int kStringEndMark = 2; ///< 00 FF in either byte order

constexpr bool IsKeyFormat(unsigned char format) { return (format & ZnFormatIndexKey) != 0; }

inline unsigned int ReadLength(char const * at, unsigned char format) {
  unsigned short length;
  ShortStoreOne(&length, at, format & 15);
  return length;
}

inline void WriteLength(char * at, unsigned int length, unsigned char format) {
  auto const number = static_cast<unsigned short>(length);
  ShortStoreOne(at, &number, format & 15);
}

inline void WriteEndMark(char * at) {
  at[0] = 0;
  at[1] = static_cast<char>(0xFF);
}

/// The code set that text of code set `c` takes in the target format `format`.
inline unsigned char TargetCodeSet(unsigned char c, unsigned char format) {
  if (c == kOrderText)
    return c;
  if ((format & ZnFormatRawText) != 0 && c != 0)
    return 0;
  if ((format & ZnFormatNativeText) != 0 && c == 0)
    return ZnLanguageContext::GetNativeCodeSet();
  return c;
}

/// Whether text of code set `c` goes over to order numbers in the target format.
inline bool BecomesKey(unsigned char c, unsigned char format) {
  unsigned char const target = TargetCodeSet(c, format);
  return IsKeyFormat(format) && target != 0 && target != kOrderText;
}

/// The head of the element at the start of an area of `room` bytes.
struct StringForm {
  unsigned int length = 0; ///< bytes that are to follow the length field
  unsigned char codeSet = 0;
  unsigned char language = 0;
  bool isOld = false;
  char const * text = nullptr;
  unsigned int textBytes = 0; ///< those that are there; of the old form up to the zero byte
  bool isComplete = false;    ///< whether the text is all there, and something behind it

  StringForm(char const * at, unsigned int room, unsigned char format) : text(at) {
    if (room < kLengthField)
      return;
    length = ReadLength(at, format);
    unsigned int const there = std::min(length, room - kLengthField);
    isOld = there == length && length != 0 && at[kLengthField + length - 1] == 0;
    if (isOld) {
      text = at + kLengthField;
      textBytes = TextLengthWithin(text, 1, length);
      isComplete = true;
      return;
    }
    if (there < 2)
      return;
    codeSet = static_cast<unsigned char>(at[2]);
    language = static_cast<unsigned char>(at[3]);
    text = at + kStringHead;
    unsigned int const whole = length < kStringHead ? 0 : length - kStringHead;
    textBytes = std::min(whole, there - 2);
    isComplete = there > whole + 2;
  }

  unsigned int Size() const { return length + kLengthField; }
};

} // namespace zntms
