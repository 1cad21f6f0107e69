#include "zntypes/number_rows.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

/// The next value of a number.
///
/// Integers add 1 until they would wrap. Floats walk the normal numbers: a step is one unit in the
/// last place, half of it where a negative number leaves its power of two; so 1.0 goes to
/// 1.0 + 2^-52 and -1.0 to -1.0 + 2^-53. The leap from 0 goes to the smallest normal number.

namespace zntms {

namespace {

bool IsNext(unsigned char what) { return what == 'M' || what == 'N'; }

template <class Number>
Number Read(void const * value) {
  Number number;
  std::memcpy(&number, value, sizeof number);
  return number;
}

template <class Number>
void Write(void * value, Number number) {
  std::memcpy(value, &number, sizeof number);
}

template <class Number>
struct FloatBits;
template <>
struct FloatBits<double> {
  static constexpr std::uint64_t lowestNaN = 0xFFF8000000000000;
};
template <>
struct FloatBits<float> {
  static constexpr std::uint32_t lowestNaN = 0xFFC00000;
};

/// A NaN and the infinities give the lowest finite number, which the caller compares.
template <class Number>
Number NextFloat(Number number) {
  using Limits = std::numeric_limits<Number>;
  if (!std::isfinite(number))
    return -Limits::max();
  if (number == Limits::max())
    return number;
  if (number == 0)
    return Limits::min();
  if (number > 0 && number < Limits::min())
    return Limits::min();
  if (number < 0 && number >= -Limits::min())
    return 0;
  int exponent;
  std::frexp(number, &exponent);
  Number const next = number + std::ldexp(Limits::epsilon(), exponent - 1);
  if (number > 0)
    return next;
  int nextExponent;
  std::frexp(next, &nextExponent);
  return nextExponent == exponent ? next : number + std::ldexp(Limits::epsilon(), exponent - 2);
}

} // namespace

template <class Number>
int StepInteger(void * value, unsigned int, unsigned char format, unsigned char what) {
  if (format != ZnFormatMemory)
    return ZnErrNotSupported;
  if (what == 'O')
    return 0;
  if (what == kSetLowest) {
    Write(value, std::numeric_limits<Number>::min());
    return 0;
  }
  if (!IsNext(what))
    return ZnErrNotSupported;
  auto const number = Read<Number>(value);
  if (number == std::numeric_limits<Number>::max())
    return ZnErrNoNextValue;
  Write(value, static_cast<Number>(number + 1));
  return 0;
}

template <class Number>
int StepFloat(void * value, unsigned int, unsigned char format, unsigned char what) {
  if (format != ZnFormatMemory)
    return ZnErrNotSupported;
  if (what == kSetLowest) {
    Write(value, FloatBits<Number>::lowestNaN);
    return 0;
  }
  if (!IsNext(what))
    return ZnErrNotSupported;
  auto const number = Read<Number>(value);
  auto const next = NextFloat(number);
  if (!(next > number))
    return ZnErrNoNextValue;
  Write(value, next);
  return 0;
}

template int StepInteger<signed char>(void *, unsigned int, unsigned char, unsigned char);
template int StepInteger<unsigned char>(void *, unsigned int, unsigned char, unsigned char);
template int StepInteger<short>(void *, unsigned int, unsigned char, unsigned char);
template int StepInteger<unsigned short>(void *, unsigned int, unsigned char, unsigned char);
template int StepInteger<int>(void *, unsigned int, unsigned char, unsigned char);
template int StepInteger<unsigned int>(void *, unsigned int, unsigned char, unsigned char);
template int StepInteger<long long>(void *, unsigned int, unsigned char, unsigned char);
template int StepInteger<unsigned long long>(void *, unsigned int, unsigned char, unsigned char);
template int StepFloat<float>(void *, unsigned int, unsigned char, unsigned char);
template int StepFloat<double>(void *, unsigned int, unsigned char, unsigned char);

} // namespace zntms
