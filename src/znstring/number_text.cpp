#include "znstring/number_text.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace zntms {

namespace {

constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }

bool EqualsIgnoringCase(std::string_view text, std::string_view lowerWord) {
  if (text.size() != lowerWord.size())
    return false;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (Lower(text[i]) != lowerWord[i])
      return false;
  return true;
}

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool IsHexDigit(char c) { return IsDigit(c) || (Lower(c) >= 'a' && Lower(c) <= 'f'); }

/// Tells for a number that no double can hold whether it is too large: whether its first digit
/// other than 0, moved by the exponent, stands before the point. `first` to `last` is a number
/// that `std::from_chars` has accepted.
bool IsTooLarge(char const * first, char const * last, bool hex) {
  long long place = 0; // digits from the first one other than 0 to the point
  bool significant = false;
  bool fraction = false;
  char const * p = first;
  for (; p != last; ++p) {
    if (*p == '.')
      fraction = true;
    else if (hex ? IsHexDigit(*p) : IsDigit(*p)) {
      significant = significant || *p != '0';
      if (significant && !fraction)
        ++place;
      else if (!significant && fraction)
        --place;
    } else
      break;
  }
  if (hex)
    place *= 4;
  long long exponent = 0;
  if (p != last) {
    ++p; // the exponent's mark
    bool const negative = p != last && *p == '-';
    if (p != last && (*p == '-' || *p == '+'))
      ++p;
    for (; p != last && exponent < std::numeric_limits<int>::max(); ++p)
      exponent = exponent * 10 + (*p - '0');
    if (negative)
      exponent = -exponent;
  }
  return place + exponent > 0;
}

} // namespace

void NumberText::End(char * end) {
  *end = 0;
  length_ = static_cast<unsigned int>(end - text_);
}

NumberText::NumberText(long long number) {
  End(std::to_chars(text_, text_ + sizeof text_ - 1, number).ptr);
}

NumberText::NumberText(unsigned long long number) {
  End(std::to_chars(text_, text_ + sizeof text_ - 1, number).ptr);
}

NumberText::NumberText(double number) {
  if (std::isfinite(number)) {
    End(std::to_chars(text_, text_ + sizeof text_ - 1, number, std::chars_format::general, 17).ptr);
    return;
  }
  std::string_view const word = std::isnan(number) ? "NaN" : number > 0 ? "Infinity" : "-Infinity";
  std::memcpy(text_, word.data(), word.size());
  End(text_ + word.size());
}

double LowestNaN() { return std::bit_cast<double>(kNaNBits); }

DoubleRead ReadDouble(std::string_view text) {
  char const * p = text.data();
  char const * const last = p + text.size();
  while (p != last && IsBlank(*p))
    ++p;
  bool const negative = p != last && *p == '-';
  if (p != last && (*p == '-' || *p == '+'))
    ++p;
  auto const startsNumber = [last](char const * at, auto isDigit) {
    return at != last && (isDigit(*at) || (*at == '.' && at + 1 != last && isDigit(at[1])));
  };
  if (!startsNumber(p, IsDigit))
    return {0.0, text.data()};
  bool const hex =
      last - p > 2 && p[0] == '0' && Lower(p[1]) == 'x' && startsNumber(p + 2, IsHexDigit);
  if (hex)
    p += 2;
  double value = 0;
  auto const [end, error] =
      std::from_chars(p, last, value, hex ? std::chars_format::hex : std::chars_format::general);
  if (error == std::errc::result_out_of_range)
    value = IsTooLarge(p, end, hex) ? std::numeric_limits<double>::infinity() : 0.0;
  return {negative ? -value : value, end};
}

double ScanDouble(std::string_view text) {
  auto const [value, end] = ReadDouble(text);
  if (end != text.data())
    return value;
  if (EqualsIgnoringCase(text, "infinity"))
    return std::numeric_limits<double>::infinity();
  if (EqualsIgnoringCase(text, "-infinity"))
    return -std::numeric_limits<double>::infinity();
  return EqualsIgnoringCase(text, "nan") ? LowestNaN() : 0.0;
}

} // namespace zntms
