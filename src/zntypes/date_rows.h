#pragma once

#include "date/scan_value.h"
#include "query/date_query.h"
#include "zncodes.h"
#include "zntypes/class_box.h"
#include "zntypes/date_form.h"
#include "zntypes/date_text.h"
#include "zntypes/empty_rows.h"
#include "zntypes/number_rows.h"

/// Groups of the date and time rows.

namespace zntms {

// ---- Text ---------------------------------------------------------------------------------------

template <class Value>
ZnString & PrintDateRow(ZnString & out, void * value, char const * format, unsigned int) {
  static_cast<Value const *>(value)->PrintToZnString(out, format);
  return out;
}

/// Null if the text ended before the format.
template <class Value>
void * ScanDateRow(void * value, ZnString & in, char const * format, unsigned int) {
  return value != nullptr && ScanValue(*static_cast<Value *>(value), in, format) ? value : nullptr;
}

template <class Value>
constexpr RowText DateRowText(char const * format) {
  return {format, &PrintDateRow<Value>, &ScanDateRow<Value>};
}

// The standard classes print and scan as a `ZnDateTime` made of their fields; their scan always
// gives the target back.

/// A date at 00:00:00.
ZnDateTime ToDateTime(d_Date const & value);
/// On 1 January of year 0, without the zone, in whole seconds.
ZnDateTime ToDateTime(d_Time const & value);
ZnDateTime ToDateTime(d_Timestamp const & value);
/// The views of the interval, in month 1 of year 0.
ZnDateTime ToDateTime(d_Interval const & value);
void FromDateTime(d_Date & value, ZnDateTime const & fields);
void FromDateTime(d_Time & value, ZnDateTime const & fields);
void FromDateTime(d_Timestamp & value, ZnDateTime const & fields);
void FromDateTime(d_Interval & value, ZnDateTime const & fields);

template <class Value>
ZnString & PrintStdRow(ZnString & out, void * value, char const * format, unsigned int) {
  ToDateTime(*static_cast<Value const *>(value)).PrintToZnString(out, format);
  return out;
}

template <class Value>
void * ScanStdRow(void * value, ZnString & in, char const * format, unsigned int) {
  if (value == nullptr)
    return nullptr;
  auto & target = *static_cast<Value *>(value);
  ZnDateTime fields = ToDateTime(target);
  ScanValue(fields, in, format);
  FromDateTime(target, fields);
  return value;
}

template <class Value>
constexpr RowText StdRowText(char const * format) {
  return {format, &PrintStdRow<Value>, &ScanStdRow<Value>};
}

// ---- Steps --------------------------------------------------------------------------------------

int StepDate(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepTime(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepDateTime(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepDateTimeN(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepTimeSpan(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepStdDate(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepStdTime(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepStdTimestamp(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepStdInterval(void * value, unsigned int length, unsigned char format, unsigned char what);

// ---- Groups -------------------------------------------------------------------------------------

template <class Value, DateLayout layout>
inline constexpr RowStorage kDateRowStorage = kFixedStorage<DateCodec<Value, layout>>;

// ZnDate
inline constexpr RowText kDateText = DateRowText<ZnDate>("%a %e.%b %Y");
inline constexpr RowLife kDateLife = kClassLife<ZnDate>;
inline constexpr RowStorage kDateStorage = kDateRowStorage<ZnDate, kDateLayout>;
inline constexpr RowQuery kDateQuery = {&ZnDateCompare, &BoundDates, &HashDates};
inline constexpr RowBox kDateBox = kClassBox<DateText>;
inline constexpr RowNull kDateNull = kClassNull<ZnDate>;
inline constexpr ZnTypeRow::StepFunc kDateStep = &StepDate;

// ZnTime
inline constexpr RowText kTimeText = DateRowText<ZnTime>("%I:%M:%S %p");
inline constexpr RowLife kTimeLife = kClassLife<ZnTime>;
inline constexpr RowStorage kTimeStorage = kDateRowStorage<ZnTime, kTimeLayout>;
inline constexpr RowQuery kTimeQuery = {&ZnTimeCompare, &BoundTimes, &HashTimes};
inline constexpr RowBox kTimeBox = kClassBox<TimeText>;
inline constexpr RowNull kTimeNull = kClassNull<ZnTime>;
inline constexpr ZnTypeRow::StepFunc kTimeStep = &StepTime;

// ZnDateTime
inline constexpr RowText kDateTimeText = DateRowText<ZnDateTime>("%a %e.%b %Y %I:%M:%S %p");
inline constexpr RowLife kDateTimeLife = kClassLife<ZnDateTime>;
inline constexpr RowStorage kDateTimeStorage = kDateRowStorage<ZnDateTime, kDateTimeLayout>;
inline constexpr RowQuery kDateTimeQuery = {&ZnDateTimeCompare, &BoundDateTimes, &HashDateTimes};
inline constexpr RowBox kDateTimeBox = kClassBox<DateTimeText>;
inline constexpr RowNull kDateTimeNull = kClassNull<ZnDateTime>;
inline constexpr ZnTypeRow::StepFunc kDateTimeStep = &StepDateTime;

// ZnDateTimeN
inline constexpr RowText kDateTimeNText = DateRowText<ZnDateTimeN>("%X");
inline constexpr RowLife kDateTimeNLife = kClassLife<ZnDateTimeN>;
inline constexpr RowStorage kDateTimeNStorage = kDateRowStorage<ZnDateTimeN, kDateTimeNLayout>;
inline constexpr RowQuery kDateTimeNQuery = {&ZnDateTimeNCompare, &BoundDateTimeNs,
                                             &HashDateTimeNs};
inline constexpr RowBox kDateTimeNBox = kClassBox<DateTimeNText>;
inline constexpr RowNull kDateTimeNNull = kClassNull<ZnDateTimeN>;
inline constexpr ZnTypeRow::StepFunc kDateTimeNStep = &StepDateTimeN;

// ZnTimeSpan
inline constexpr RowText kTimeSpanText = DateRowText<ZnTimeSpan>("%V");
inline constexpr RowLife kTimeSpanLife = kClassLife<ZnTimeSpan>;
inline constexpr RowStorage kTimeSpanStorage = kDateRowStorage<ZnTimeSpan, kDateTimeNLayout>;
inline constexpr RowQuery kTimeSpanQuery = {&ZnTimeSpanCompare, &BoundDateTimeNs, &HashDateTimeNs};
inline constexpr RowBox kTimeSpanBox = kClassBox<TimeSpanText>;
inline constexpr RowNull kTimeSpanNull = kClassNull<ZnTimeSpan>;
inline constexpr ZnTypeRow::StepFunc kTimeSpanStep = &StepTimeSpan;

// d_Date
inline constexpr RowText kStdDateText = StdRowText<d_Date>("%a %b %e");
inline constexpr RowLife kStdDateLife = kClassLife<d_Date>;
inline constexpr RowStorage kStdDateStorage = kDateRowStorage<d_Date, kDateLayout>;
inline constexpr RowQuery kStdDateQuery = {&d_DateCompare, &BoundStdDates, &HashStdDates};
inline constexpr RowBox kStdDateBox = kClassBox<StdDateText>;
inline constexpr ZnTypeRow::StepFunc kStdDateStep = &StepStdDate;

// d_Time
inline constexpr RowText kStdTimeText = StdRowText<d_Time>("%I:%M:%S %p");
inline constexpr RowLife kStdTimeLife = kClassLife<d_Time>;
inline constexpr RowStorage kStdTimeStorage = kDateRowStorage<d_Time, kStdTimeLayout>;
inline constexpr RowQuery kStdTimeQuery = {&d_TimeCompare, &BoundStdTimes, &HashStdTimes};
inline constexpr RowBox kStdTimeBox = kClassBox<StdTimeText>;
inline constexpr ZnTypeRow::StepFunc kStdTimeStep = &StepStdTime;

// d_Timestamp
inline constexpr RowText kStdTimestampText = StdRowText<d_Timestamp>("%a %b %e %I:%M:%S %p");
inline constexpr RowLife kStdTimestampLife = kClassLife<d_Timestamp>;
inline constexpr RowStorage kStdTimestampStorage =
    kDateRowStorage<d_Timestamp, kStdTimestampLayout>;
inline constexpr RowQuery kStdTimestampQuery = {&d_TimestampCompare, &BoundStdTimestamps,
                                                &HashStdTimestamps};
inline constexpr RowBox kStdTimestampBox = kClassBox<StdTimestampText>;
inline constexpr ZnTypeRow::StepFunc kStdTimestampStep = &StepStdTimestamp;

// d_Interval; its stored form and its queries are those of the float row
inline constexpr RowText kStdIntervalText =
    StdRowText<d_Interval>("%e days, %I hours, %M minutes, %S seconds");
inline constexpr RowLife kStdIntervalLife = kClassLife<d_Interval>;
inline constexpr RowStorage kStdIntervalStorage = kFloatStorage;
inline constexpr RowBox kStdIntervalBox = kClassBox<StdIntervalText>;
inline constexpr ZnTypeRow::StepFunc kStdIntervalStep = &StepStdInterval;

} // namespace zntms
