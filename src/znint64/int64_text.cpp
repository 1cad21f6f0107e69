#include "znint64.h"

#include "znstring/narrow_text.h"
#include "znstring/number_text.h"
#include "znstring/text_buffer.h"

#include <cstdint>

/// Print and scan of `ZnInt64`.
///
/// A format is text with directives; a directive is `%` and one of the letters of `DirectiveOf`.
/// Worked example: by "<%x>" the value -31 prints as "<-0x1f>", and that text scans back by the
/// same format: the text has the prefix 0x, so its base is 16, which `%x` insists on; digits end
/// at the character that follows the directive in the format, here `>`.

namespace zntms {
namespace {

/// What a directive prints and takes; base 0 marks what is no directive.
struct Directive {
  unsigned int base;
  std::string_view prefix;
  bool anyBase; ///< a scan takes every base
};

constexpr Directive DirectiveOf(char letter) {
  switch (letter) {
  case 'S':
    return {10, "", true};
  case 'd':
  case 'i':
    return {10, "", false};
  case 'o':
    return {8, "0", false};
  case 'x':
    return {16, "0x", false};
  case 'X':
    return {16, "0X", false};
  default:
    return {0, "", false};
  }
}

/// The smallest value has no magnitude: its digits in octal and hexadecimal are those of its bits,
/// without a sign.
void PrintNumber(TextBuffer & text, ZnInt64 number, Directive const & directive, bool capitals) {
  __int64 const value = number.Get8b();
  if (directive.base == 10)
    return text.PutNumber(value);
  ZnInt64 const magnitude = number.Abs();
  if (value < 0 && magnitude > 0)
    text.Put('-');
  text.Put(directive.prefix);
  TextBuffer digits;
  digits.PutNumber(magnitude.GetU8b(), static_cast<int>(directive.base));
  for (char const digit : std::string_view(digits.CStr()))
    text.Put(capitals && digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit);
}

/// A string without text takes the digits into a buffer of its own at once, if it is native or ISO
/// 8859-1. That buffer is the smallest that an allocator gives out anyway; `capacity` is that of
/// the text.
ZnString & PrintDecimal(ZnString & out, __int64 number) {
  if (out.text || out.codeSet > 1)
    return out << number;
  NumberText const text(number);
  out.text = new char[NumberText::kRoom];
  std::memcpy(out.text, text.CStr(), NumberText::kRoom);
  out.capacity = static_cast<unsigned short>(text.Length() + 1);
  return out;
}

constexpr unsigned int kNoDigit = 99;

constexpr unsigned int DigitOf(char c) {
  if (c >= '0' && c <= '9')
    return static_cast<unsigned int>(c - '0');
  if (c >= 'a' && c <= 'z')
    return static_cast<unsigned int>(c - 'a' + 10);
  if (c >= 'A' && c <= 'Z')
    return static_cast<unsigned int>(c - 'A' + 10);
  return kNoDigit;
}

/// Eight decimal digits at a time: pairs of digits, then of pairs, then of fours are joined by one
/// multiplication each. Stops in front of the first eight characters that are not all digits.
unsigned long long ReadEights(std::string_view & text, unsigned long long value) {
  while (text.size() >= 8) {
    std::uint64_t eight;
    std::memcpy(&eight, text.data(), sizeof eight);
    eight -= 0x3030303030303030;
    if (((eight + 0x7676767676767676) | eight) & 0x8080808080808080)
      break;
    eight = eight * 10 + (eight >> 8);
    eight = ((eight & 0x000000FF000000FF) * 0x000F424000000064 +
             ((eight >> 16) & 0x000000FF000000FF) * 0x0000271000000001) >>
            32;
    value = value * 100000000 + (eight & 0xFFFFFFFF);
    text.remove_prefix(8);
  }
  return value;
}

/// Reads one number; `text` moves behind it. False if the text does not fit the directive.
bool ScanNumber(ZnInt64 & result, std::string_view & text, Directive const & directive, char stop) {
  bool const negative = text.starts_with('-');
  if (negative || text.starts_with('+'))
    text.remove_prefix(1);

  unsigned int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    base = 16;
    text.remove_prefix(2);
  } else if (text.starts_with('0')) {
    base = 8;
  }
  if (!directive.anyBase && base != directive.base)
    return false;

  unsigned long long value = 0;
  if (base == 10 && DigitOf(stop) >= 10)
    value = ReadEights(text, value);
  while (!text.empty() && text.front() != stop) {
    unsigned int const digit = DigitOf(text.front());
    if (digit >= base)
      return false;
    value = value * base + digit;
    text.remove_prefix(1);
  }
  result = negative ? 0 - value : value;
  return !text.empty() || stop == '\0';
}

/// Walks format and text in step. False if they do not fit.
bool ScanFormat(ZnInt64 & result, std::string_view text, char const * format) {
  while (*format && !text.empty()) {
    Directive const directive = *format == '%' ? DirectiveOf(format[1]) : Directive{};
    if (directive.base) {
      format += 2;
      if (!ScanNumber(result, text, directive, *format))
        return false;
    } else {
      if (*format++ != text.front())
        return false;
      text.remove_prefix(1);
    }
  }
  return true;
}

constexpr char const * kDefaultFormat = "%S";

} // namespace
} // namespace zntms

ZnString & ZnInt64::PrintToZnString(ZnString & out, char const * format) const {
  using namespace zntms;
  if (!format || std::string_view(format) == kDefaultFormat)
    return PrintDecimal(out, Get8b());
  constexpr unsigned int kLongestStep = 32; // a sign, a prefix and 22 digits
  TextBuffer text;
  ZnInt64 left = *this; // the first directive takes it all, further ones print 0
  for (char const * at = format; *at; ++at) {
    if (text.Room() < kLongestStep)
      text.AppendTo(out);
    if (*at != '%') {
      text.Put(*at);
    } else if (Directive const directive = DirectiveOf(at[1]); directive.base) {
      PrintNumber(text, left, directive, *++at == 'X');
      left = 0;
    } else { // the percent sign, and the next character as it stands
      text.Put('%');
      if (at[1])
        text.Put(*++at);
    }
  }
  text.AppendTo(out);
  return out;
}

void ZnInt64::ScanFromZnString(ZnString const & in, char const * format) {
  zntms::NarrowText const text(in);
  if (!zntms::ScanFormat(*this, text.View(), format ? format : zntms::kDefaultFormat))
    *this = -1;
}
