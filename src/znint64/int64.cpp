#include "znint64.h"

#include "zanbs.h"

#include <charconv>
#include <cmath>
#include <limits>

/// Numbers that a `ZnInt64` takes from outside: doubles and the clock.
///
/// A double comes by way of its decimal text with seven significant digits. Worked example:
/// 1234.5678 reads 1.234568e+03; the exponent takes in three of the digits behind the point, and
/// the rest is dropped: 1234.

namespace {

constexpr double kLargestMagnitude = 9223372036854774784.0;

unsigned long long MagnitudeOf(double magnitude) {
  if (magnitude > kLargestMagnitude)
    return std::numeric_limits<__int64>::max();
  if (!(magnitude >= 1.0))
    return 0;

  char text[32]; // one digit, a point, six digits, e+, two digits of exponent
  char const * const end =
      std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific, 6).ptr;
  constexpr int kExponentAt = 10;
  int exponent = 0;
  std::from_chars(text + kExponentAt, end, exponent);

  unsigned long long value = static_cast<unsigned long long>(text[0] - '0');
  for (char const * digit = text + 2; *digit != 'e' && exponent > 0; ++digit, --exponent)
    value = value * 10 + static_cast<unsigned long long>(*digit - '0');
  for (; exponent > 0; --exponent)
    value *= 10;
  return value;
}

} // namespace

ZnInt64::ZnInt64(double number) : ZnInt64(MagnitudeOf(std::fabs(number))) {
  if (number < 0)
    *this = -*this;
}

ZnInt64 ZnInt64::DivisionByZero() {
  ZANT_assert("ZnInt64 divide by zero", "src\\znint64", 746);
  return 0;
}

int GetSystemTimeInMSSinceTheEpoch(ZnInt64 & result) {
  long long seconds;
  int nanoseconds;
  bksGetInstant(seconds, nanoseconds);
  result = ZnInt64(seconds) * 1000 + nanoseconds / 1000000;
  return 0;
}
