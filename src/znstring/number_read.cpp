#include "znstring/number_read.h"

#include <limits>

#include "znstring/number_text.h"
#include "znstring/units.h"

namespace zntms {

namespace {

/// The value of a digit in bases to 16; 16 for anything else.
constexpr unsigned int DigitValue(char c) {
  if (c >= '0' && c <= '9')
    return static_cast<unsigned int>(c - '0');
  char const lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? static_cast<unsigned int>(lower - 'a' + 10) : 16;
}

/// The characters with the property White_Space.
constexpr bool IsWideBlank(unsigned short c) {
  return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x85 || c == 0xA0 || c == 0x1680 ||
         (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
         c == 0x3000;
}

} // namespace

template <class Number>
Number ReadInteger(char const * text, int base) {
  while (IsBlank(*text))
    ++text;
  bool const negative = *text == '-';
  if (negative || *text == '+')
    ++text;
  unsigned int radix = 10;
  if (base == 0 && *text == '0') {
    bool const hex = (text[1] | 0x20) == 'x' && DigitValue(text[2]) < 16;
    radix = hex ? 16 : 8;
    text += hex ? 2 : 0;
  }
  using Limits = std::numeric_limits<Number>;
  unsigned long long const most = static_cast<unsigned long long>(Limits::max()) + negative;
  unsigned long long value = 0;
  for (; DigitValue(*text) < radix; ++text) {
    unsigned int const digit = DigitValue(*text);
    if (value > (most - digit) / radix)
      return negative ? Limits::min() : Limits::max();
    value = value * radix + digit;
  }
  return static_cast<Number>(negative ? 0 - value : value);
}

template int ReadInteger<int>(char const *, int);
template long long ReadInteger<long long>(char const *, int);

NarrowNumber::NarrowNumber(char const * wide) {
  while (IsWideBlank(ReadUnit(wide)))
    wide += 2;
  unsigned int kept = 0;
  bool significant = false; // seen anything but signs and zeros
  unsigned int zeros = 0;   // in the present run
  for (; kept < sizeof text - 1; wide += 2) {
    unsigned short const c = ReadUnit(wide);
    if (c == 0 || c >= 256)
      break;
    if (!significant && c == '0') {
      if (++zeros > 1)
        continue;
    } else if (!significant && (c == '+' || c == '-')) {
      zeros = 0;
    } else if (!significant) {
      // Zeros before an x stay two, or else they would make a prefix of it.
      if (zeros > 1 && (c == 'x' || c == 'X') && kept < sizeof text - 2)
        text[kept++] = '0';
      significant = true;
    }
    text[kept++] = static_cast<char>(c);
  }
  text[kept] = 0;
}

} // namespace zntms
