#include "zntypes/date_rows.h"

#include "date/standard_access.h"

#include <limits>

namespace zntms {

// ---- Standard classes as `ZnDateTime` -----------------------------------------------------------

namespace {

ZnDate Fields(d_Date const & date) { return {date.year(), date.month(), date.day()}; }
ZnTime Fields(d_Time const & time) {
  return {time.hour(), time.minute(), static_cast<int>(time.second())};
}

} // namespace

ZnDateTime ToDateTime(d_Date const & value) { return {Fields(value), ZnTime(0, 0, 0)}; }
ZnDateTime ToDateTime(d_Time const & value) { return {ZnDate(0, 1, 1), Fields(value)}; }
ZnDateTime ToDateTime(d_Timestamp const & value) {
  return {Fields(value.date()), Fields(value.time())};
}
ZnDateTime ToDateTime(d_Interval const & value) {
  return {ZnDate(0, 1, value.day()),
          ZnTime(value.hour(), value.minute(), Truncate(value.second()))};
}

void FromDateTime(d_Date & value, ZnDateTime const & fields) { value = fields.date; }
void FromDateTime(d_Time & value, ZnDateTime const & fields) { value = fields.time; }
void FromDateTime(d_Timestamp & value, ZnDateTime const & fields) { value = fields; }
void FromDateTime(d_Interval & value, ZnDateTime const & fields) {
  value = d_Interval(fields.date.day, fields.time.hour, fields.time.minute, fields.time.second);
}

// ---- Steps --------------------------------------------------------------------------------------

namespace {

/// "M" and "N" step to the next value, where there is a greater one, "O" to the present, and the
/// number 2 to the lowest value. `next` changes the value it is given; `compare` is three-way.
template <class Value, class Next, class Compare, class Now>
int Step(void * at, unsigned char format, unsigned char what, Value const & lowest, Next next,
         Compare compare, Now now) {
  if (format != ZnFormatMemory)
    return ZnErrNotSupported;
  Value & value = *static_cast<Value *>(at);
  switch (what) {
  case 'M':
  case 'N': {
    Value candidate = value;
    next(candidate);
    if (!(compare(value, candidate) < 0))
      return ZnErrNoNextValue;
    value = candidate;
    return 0;
  }
  case 'O':
    now(value);
    return 0;
  case kSetLowest:
    value = lowest;
    return 0;
  default:
    return ZnErrNotSupported;
  }
}

/// The distance of neighbours among the standard classes with seconds.
d_Interval const & Hundredth() {
  static constinit d_Interval const hundredth = StandardAccess::FromSeconds(0.01F);
  return hundredth;
}

constexpr auto kDifference = [](auto const & a, auto const & b) -> int { return a != b; };
constexpr auto kExact = [](auto const & a, auto const & b) { return a.Compare(b, 0xFFFF); };
constexpr auto kAddHundredth = [](auto & value) { value += Hundredth(); };
constexpr auto kAddNanosecond = [](auto & value) { value.AddNanoSeconds(1); };
constexpr auto kNow = [](auto & value) { value.Now(); };
constexpr auto kCurrent = [](auto & value) { value = value.current(); };
constexpr auto kStay = [](auto &) {};

} // namespace

int StepDate(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(
      value, format, what, ZnDate::NullValue(), [](ZnDate & date) { ++date; }, kDifference,
      [](ZnDate & date) { date.Today(); });
}

int StepTime(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(
      value, format, what, ZnTime::NullValue(), [](ZnTime & time) { ++time; }, kDifference, kNow);
}

int StepDateTime(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(
      value, format, what, ZnDateTime::NullValue(), [](ZnDateTime & time) { time.AddSeconds(1); },
      kExact, kNow);
}

int StepDateTimeN(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(value, format, what, ZnDateTimeN::NullValue(), kAddNanosecond, kExact, kNow);
}

int StepTimeSpan(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(value, format, what, ZnTimeSpan::NullValue(), kAddNanosecond, kExact, kStay);
}

int StepStdDate(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(
      value, format, what, d_Date(-32768, 1, 1), [](d_Date & date) { date++; }, kDifference,
      kCurrent);
}

int StepStdTime(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(value, format, what, d_Time(0), kAddHundredth, kDifference, kCurrent);
}

int StepStdTimestamp(void * value, unsigned int, unsigned char format, unsigned char what) {
  return Step(value, format, what, d_Timestamp(d_Date(-32768, 1, 1), d_Time(0)), kAddHundredth,
              kDifference, kCurrent);
}

int StepStdInterval(void * value, unsigned int, unsigned char format, unsigned char what) {
  auto const lowest = StandardAccess::FromSeconds(-std::numeric_limits<float>::quiet_NaN());
  return Step(value, format, what, lowest, kAddHundredth, kDifference, kStay);
}

} // namespace zntms
