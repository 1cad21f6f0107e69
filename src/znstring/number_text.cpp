#include "znstring/number_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
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

/// "00" to "99", one after the other.
constexpr auto kPairs = [] {
  std::array<char, 200> pairs{};
  for (unsigned int i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

void WritePair(char * at, std::uint32_t below100) { std::memcpy(at, &kPairs[2 * below100], 2); }

constexpr std::uint64_t e8 = 100000000;

/// Eight digits, zeros in front: two numbers of four digits are parted into pairs and those into
/// digits, each step by one multiplication for all.
void WriteEight(char * at, std::uint64_t belowE8) {
  std::uint64_t const fours = belowE8 / 10000 | belowE8 % 10000 << 32;
  std::uint64_t const hundreds = (fours * 10486 >> 20) & 0x0000007F0000007F;
  std::uint64_t const pairs = hundreds | (fours - hundreds * 100) << 16;
  std::uint64_t const tens = (pairs * 103 >> 10) & 0x000F000F000F000F;
  std::uint64_t const digits = tens | (pairs - tens * 10) << 8;
  std::uint64_t const text = digits | 0x3030303030303030;
  std::memcpy(at, &text, sizeof text);
}

/// The powers of ten that 64 bits hold, but 0 first: 0 has a digit too.
constexpr auto kPowers = [] {
  std::array<std::uint64_t, 20> powers{};
  for (std::uint64_t power = 1; auto & each : powers) {
    each = power;
    power *= 10;
  }
  powers[0] = 0;
  return powers;
}();

} // namespace

unsigned int DecimalNumber::Length() const {
  // 1233 / 4096 is the logarithm of 2 to the base 10, near enough for 64 bits.
  auto const guess = static_cast<unsigned int>(std::bit_width(magnitude)) * 1233 >> 12;
  return isNegative + guess + (magnitude >= kPowers[guess]);
}

void DecimalNumber::Write(char * at) const {
  char * end = at + Length();
  if (isNegative)
    *at = '-';
  std::uint64_t number = magnitude;
  for (; number >= e8; number /= e8)
    WriteEight(end -= 8, number % e8);
  auto rest = static_cast<std::uint32_t>(number);
  for (; rest >= 100; rest /= 100)
    WritePair(end -= 2, rest % 100);
  if (rest >= 10)
    WritePair(end - 2, rest);
  else
    end[-1] = static_cast<char>('0' + rest);
}

NumberText::NumberText(long long number) : NumberText(DecimalNumber::Of(number)) {}

NumberText::NumberText(unsigned long long number) : NumberText(DecimalNumber{number, false}) {}

/// Writes all places, with zeros in front: no branch depends on the length, which no processor can
/// guess where numbers of all sizes follow one another.
NumberText::NumberText(DecimalNumber number) {
  std::uint64_t const upper = number.magnitude / e8;
  WriteEight(text_, upper / e8);
  WriteEight(text_ + 8, upper % e8);
  WriteEight(text_ + 16, number.magnitude % e8);
  length_ = number.Length();
  start_ = kPlaces - length_;
  text_[start_ + number.isNegative - 1] = '-'; // in front of the digits, where it may not count
}

NumberText::NumberText(double number) {
  if (std::isfinite(number)) {
    auto const [end, error] =
        std::to_chars(text_, text_ + sizeof text_ - 1, number, std::chars_format::general, 17);
    length_ = static_cast<unsigned int>(end - text_);
    return;
  }
  std::string_view const word = std::isnan(number) ? "NaN" : number > 0 ? "Infinity" : "-Infinity";
  length_ = static_cast<unsigned int>(word.copy(text_, word.size()));
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
