#pragma once

#include "zndatetimen.h"

/// Sums of `ZnDateTimeN` and `ZnTimeSpan`: one carry chain from nanoseconds up to the year.
///
/// Worked example: 23:59:59 plus 1 second. Seconds: 60 = 1 x 60 + 0, so second 0 and a carry of 1
/// into the minutes; the same there and in the hours, so that `AddDays` gets 1.
///
/// A carry is rounded down, so that fields below the day end at 0 or above for either sign. The
/// two classes differ at the top alone: a date-time whose date part is a date counts real days, a
/// span counts months of 30 days and years of 12 months. A short negative span keeps its minus in
/// the highest field that is not 0.

namespace zntms {

template <class Value>
inline constexpr bool kIsSpan = false;
template <>
inline constexpr bool kIsSpan<ZnTimeSpan> = true;

template <class Value>
ZnDate DatePart(Value const & v) {
  return {v.year, v.month, v.day};
}
template <class Value>
ZnTime TimePart(Value const & v) {
  return {v.hour, v.minute, v.second};
}

template <class Value>
void SetDatePart(Value & v, ZnDate const & date) {
  v.year = date.year;
  v.month = date.month;
  v.day = date.day;
}

template <class Value>
void SetTimePart(Value & v, ZnTime const & time) {
  v.hour = time.hour;
  v.minute = time.minute;
  v.second = time.second;
}

/// A sum as quotient and remainder; the remainder is 0 or above.
struct Carry {
  __int64 carry;
  __int64 rest;
};

inline Carry SplitDown(__int64 sum, __int64 radix) {
  Carry result{sum / radix, sum % radix};
  if (result.rest < 0) {
    result.rest += radix;
    --result.carry;
  }
  return result;
}

inline __int64 WrapAdd(__int64 a, __int64 b) {
  return static_cast<__int64>(static_cast<unsigned long long>(a) +
                              static_cast<unsigned long long>(b));
}

/// Days into months of 30 days and years of 12 months.
template <class Value>
void AddSpanDays(Value & v, int n) {
  __int64 const days = static_cast<__int64>(v.day) + n;
  int carry = static_cast<int>(days / 30);
  int rest = static_cast<int>(days % 30);
  if (rest < 0 && !(carry == 0 && v.month == 0 && v.year == 0)) {
    rest += 30;
    --carry;
  }
  v.day = static_cast<signed char>(rest);
  if (carry == 0)
    return;

  int const months = v.month + carry;
  carry = months / 12;
  rest = months % 12;
  if (rest < 0 && !(carry == 0 && v.year == 0)) {
    rest += 12;
    --carry;
  }
  v.month = static_cast<signed char>(rest);
  int const years = v.year + carry;
  v.year = static_cast<short>(years > 32767 ? 32767 : years < -32768 ? -32768 : years);
}

template <class Value>
void AddDays(Value & v, int n) {
  if (n == 0)
    return;
  if constexpr (!kIsSpan<Value>) {
    if (ZnDate const date = DatePart(v); date.IsDate()) {
      SetDatePart(v, date + n);
      return;
    }
  }
  AddSpanDays(v, n);
}

template <class Value>
void AddHours(Value & v, int n) {
  if (n == 0)
    return;
  Carry const sum = SplitDown(static_cast<__int64>(v.hour) + n, 24);
  v.hour = static_cast<signed char>(sum.rest);
  AddDays(v, static_cast<int>(sum.carry));
}

template <class Value>
void AddMinutes(Value & v, int n) {
  if (n == 0)
    return;
  Carry const sum = SplitDown(static_cast<__int64>(v.minute) + n, 60);
  v.minute = static_cast<signed char>(sum.rest);
  AddHours(v, static_cast<int>(sum.carry));
}

/// The carry into the minutes is cut to 32 bits.
template <class Value>
void AddSeconds(Value & v, __int64 n) {
  if (n == 0)
    return;
  Carry const sum = SplitDown(WrapAdd(v.second, n), 60);
  v.second = static_cast<signed char>(sum.rest);
  AddMinutes(v, static_cast<int>(sum.carry));
}

/// Makes `sum` the nanoseconds, with what is above a second carried.
template <class Value>
void SetNanoSeconds(Value & v, __int64 sum) {
  Carry const split = SplitDown(sum, 1000000000);
  v.nanoseconds = static_cast<int>(split.rest);
  AddSeconds(v, split.carry);
}

template <class Value>
void AddNanoSeconds(Value & v, __int64 n) {
  if (n != 0)
    SetNanoSeconds(v, WrapAdd(v.nanoseconds, n));
}

/// Counts down to the nanosecond; a number that 64 bits of nanoseconds do not hold saturates, and
/// one that is no number adds nothing.
template <class Value>
void AddSeconds(Value & v, double seconds) {
  constexpr double kLimit = 9223372036854775807.0;
  double const ns = seconds * 1e9;
  if (seconds == 0.0 || ns != ns)
    return;
  __int64 const count = ns >= kLimit    ? 0x7FFFFFFFFFFFFFFF
                        : ns <= -kLimit ? -0x7FFFFFFFFFFFFFFF
                                        : static_cast<__int64>(ns);
  SetNanoSeconds(v, WrapAdd(v.nanoseconds, count));
}

template <class Value>
__int64 TotalSeconds(Value const & v) {
  return v.GetTotalDays() * 86400LL + static_cast<int>(TimePart(v));
}

template <class Value>
__int64 TotalNanoSeconds(Value const & v) {
  return static_cast<__int64>(static_cast<unsigned long long>(TotalSeconds(v)) * 1000000000ULL +
                              static_cast<unsigned long long>(v.nanoseconds));
}

} // namespace zntms
