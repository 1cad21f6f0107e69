#include "zntypes/number_format.h"

#include <charconv>
#include <cmath>
#include <cstring>

/// Printing numbers by a format. A number is taken apart into a sign or prefix, its digits, zeros
/// that only a large precision asks for, and an exponent; padding then stands before or behind all
/// of it, or as zeros behind the prefix.

namespace zntms {

namespace {

struct Parts {
  std::string_view prefix;
  std::string_view digits;
  std::uint64_t zeros = 0; ///< behind the digits, or before those of an integer
  bool zerosFirst = false;
  std::string_view exponent;
  bool padWithZeros = false;
};

void AppendPadded(PrintBuffer & out, Conversion const & conversion, Parts const & parts) {
  std::uint64_t const length =
      parts.prefix.size() + parts.digits.size() + parts.zeros + parts.exponent.size();
  auto const width = static_cast<std::uint64_t>(conversion.width);
  std::uint64_t const padding = width > length ? width - length : 0;
  bool const zeroPadding = parts.padWithZeros && conversion.zeros && !conversion.left;
  if (!conversion.left && !zeroPadding)
    out.Append(padding, ' ');
  out.Append(parts.prefix);
  if (zeroPadding)
    out.Append(padding, '0');
  if (parts.zerosFirst)
    out.Append(parts.zeros, '0');
  out.Append(parts.digits);
  if (!parts.zerosFirst)
    out.Append(parts.zeros, '0');
  out.Append(parts.exponent);
  if (conversion.left)
    out.Append(padding, ' ');
}

std::string_view SignPrefix(Conversion const & conversion, bool negative) {
  return negative ? "-" : conversion.plus ? "+" : conversion.blank ? " " : "";
}

void MakeUpper(char * first, char const * last) {
  for (; first != last; ++first)
    if (*first >= 'a' && *first <= 'z')
      *first = static_cast<char>(*first - 'a' + 'A');
}

// ---- Integers -----------------------------------------------------------------------------------

constexpr bool IsSigned(Conversion const & conversion) {
  return conversion.letter == 'd' || conversion.letter == 'i';
}

/// The number that a conversion sees in the passed bytes, widened to 64 bits.
std::uint64_t BitsOf(Conversion const & conversion, PrintArgument const & argument) {
  unsigned int const unused = 64 - 8 * std::min(conversion.size, argument.size);
  std::uint64_t const bits = argument.bits << unused;
  return IsSigned(conversion)
             ? static_cast<std::uint64_t>(static_cast<std::int64_t>(bits) >> unused)
             : bits >> unused;
}

void AppendInteger(PrintBuffer & out, Conversion const & conversion,
                   PrintArgument const & argument) {
  if (conversion.letter == 'c') {
    Parts parts;
    char const c = static_cast<char>(argument.bits);
    parts.digits = {&c, 1};
    AppendPadded(out, conversion, parts);
    return;
  }
  char const letter = conversion.letter;
  bool const hex = letter == 'x' || letter == 'X';
  std::uint64_t const bits = BitsOf(conversion, argument);
  bool const negative = IsSigned(conversion) && bits >> 63 != 0;
  std::uint64_t const magnitude = negative ? 0 - bits : bits;
  int const base = hex ? 16 : letter == 'o' ? 8 : 10;
  char text[24];
  char * const digits = text + 1; // behind the place of a sign
  char * const end = std::to_chars(digits, text + sizeof text, magnitude, base).ptr;
  if (letter == 'X')
    MakeUpper(digits, end);
  if (conversion.IsPlain()) {
    text[0] = '-';
    char const * const first = negative ? text : digits;
    out.Append({first, static_cast<std::size_t>(end - first)});
    return;
  }
  Parts parts;
  parts.digits = {digits, static_cast<std::size_t>(end - digits)};
  if (magnitude == 0 && conversion.precision == 0)
    parts.digits = {};
  if (IsSigned(conversion))
    parts.prefix = SignPrefix(conversion, negative);
  else if (hex && conversion.alternate && magnitude != 0)
    parts.prefix = letter == 'X' ? "0X" : "0x";
  parts.zerosFirst = true;
  if (conversion.precision > static_cast<int>(parts.digits.size()))
    parts.zeros = conversion.precision - parts.digits.size();
  else if (letter == 'o' && conversion.alternate && !parts.digits.starts_with('0'))
    parts.zeros = 1;
  parts.padWithZeros = conversion.precision < 0;
  AppendPadded(out, conversion, parts);
}

// ---- Floats -------------------------------------------------------------------------------------

/// No double has more digits behind the point; what a precision asks for beyond are zeros.
constexpr int kMostDigits = 1100;

/// The digits of a finite number that is not negative, without trailing exponent, and the latter.
struct FloatDigits {
  char text[kMostDigits + 400];
  char * end;      ///< of the digits
  char * exponent; ///< of what follows, up to `last`
  char * last;

  void Make(double number, std::chars_format form, int precision) {
    last = precision < 0 ? std::to_chars(text, text + sizeof text, number, form).ptr
                         : std::to_chars(text, text + sizeof text, number, form, precision).ptr;
    end = exponent = Find(form == std::chars_format::hex ? 'p' : 'e');
  }

  bool HasPoint() const { return std::memchr(text, '.', end - text) != nullptr; }

private:
  char * Find(char mark) {
    void * const at = std::memchr(text, mark, last - text);
    return at != nullptr ? static_cast<char *>(at) : last;
  }
};

/// The form and the precision by which "%g" with trailing zeros prints.
std::chars_format GeneralForm(double number, int & precision) {
  FloatDigits trial;
  trial.Make(number, std::chars_format::scientific, precision - 1);
  int exponent = 0;
  std::from_chars(trial.exponent + (trial.exponent[1] == '+' ? 2 : 1), trial.last, exponent);
  bool const fixed = exponent >= -4 && exponent < precision;
  precision -= fixed ? exponent + 1 : 1;
  return fixed ? std::chars_format::fixed : std::chars_format::scientific;
}

void AppendFloat(PrintBuffer & out, Conversion const & conversion, double number) {
  Parts parts;
  char const lower = static_cast<char>(conversion.letter | 0x20);
  bool const upper = lower != conversion.letter;
  parts.prefix = SignPrefix(conversion, std::signbit(number));
  if (!std::isfinite(number)) {
    parts.digits = std::isnan(number) ? upper ? "NAN" : "nan" : upper ? "INF" : "inf";
    AppendPadded(out, conversion, parts);
    return;
  }
  int precision = conversion.precision;
  auto form = std::chars_format::hex;
  if (lower != 'a') {
    if (precision < 0)
      precision = 6;
    if (lower == 'g')
      precision = std::max(precision, 1);
    int const beyond = std::max(precision - kMostDigits, 0);
    precision -= beyond;
    form = lower == 'e'   ? std::chars_format::scientific
           : lower == 'f' ? std::chars_format::fixed
                          : std::chars_format::general;
    if (lower == 'g' && conversion.alternate)
      form = GeneralForm(std::fabs(number), precision);
    if (form != std::chars_format::general)
      parts.zeros = beyond;
  } else if (precision > kMostDigits) {
    parts.zeros = precision - kMostDigits;
    precision = kMostDigits;
  }
  FloatDigits digits;
  digits.Make(std::fabs(number), form, precision);
  if (conversion.alternate && !digits.HasPoint()) {
    std::memmove(digits.exponent + 1, digits.exponent, digits.last - digits.exponent);
    *digits.end++ = '.';
    ++digits.exponent;
    ++digits.last;
  }
  if (upper)
    MakeUpper(digits.text, digits.last);
  char prefix[3];
  std::size_t prefixLength = parts.prefix.copy(prefix, 1);
  if (lower == 'a') {
    prefix[prefixLength++] = '0';
    prefix[prefixLength++] = upper ? 'X' : 'x';
  }
  parts.prefix = {prefix, prefixLength};
  parts.digits = {digits.text, static_cast<std::size_t>(digits.end - digits.text)};
  parts.exponent = {digits.exponent, static_cast<std::size_t>(digits.last - digits.exponent)};
  parts.padWithZeros = true;
  AppendPadded(out, conversion, parts);
}

} // namespace

void PrintByFormat(PrintBuffer & out, char const * format, PrintArgument const * arguments,
                   unsigned int count) {
  unsigned int used = 0;
  while (*format != 0) {
    char const * const text = format;
    while (*format != 0 && *format != '%')
      ++format;
    if (format != text)
      out.Append({text, static_cast<std::size_t>(format - text)});
    if (*format++ == 0)
      return;
    if (*format == '%') {
      out.Append('%');
      ++format;
      continue;
    }
    Conversion conversion;
    char const * const behind = used < count ? ReadPrintConversion(format, conversion) : nullptr;
    if (behind == nullptr || conversion.IsInteger() != (arguments[used].size != 0)) {
      out.Append('%');
      continue;
    }
    if (conversion.IsInteger())
      AppendInteger(out, conversion, arguments[used]);
    else
      AppendFloat(out, conversion, arguments[used].number);
    ++used;
    format = behind;
  }
}

std::optional<DecimalNumber> ReadDecimalFormat(char const * format,
                                               PrintArgument const & argument) {
  Conversion conversion;
  char const * const end = *format == '%' ? ReadPrintConversion(format + 1, conversion) : nullptr;
  if (end == nullptr || *end != 0 || !conversion.IsPlain() ||
      !(IsSigned(conversion) || conversion.letter == 'u'))
    return std::nullopt;
  std::uint64_t const bits = BitsOf(conversion, argument);
  return IsSigned(conversion) ? DecimalNumber::Of(static_cast<long long>(bits))
                              : DecimalNumber{bits, false};
}

} // namespace zntms
