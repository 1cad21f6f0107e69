#pragma once

#include "d_time.h"
#include "zndatetimen.h"
#include "znstring.h"

/// What dates and times write into boxed strings and read from them, for `kClassBox`.
///
/// Worked example: the `ZnDateTime` 2000-01-01 01:00:00 has the text '2451545:3600', its day number
/// and its seconds since midnight. Reading takes the day number that the text begins with, cuts the
/// text behind the colon, in the box, and takes the seconds that it begins with then.
///
/// A kind without null says what an element without a string becomes (`SetBlank`), and every kind
/// whose default is not what a new value holds says that (`SetDefault`): it is the value of an
/// empty string.

namespace zntms {

struct DateText {
  using Value = ZnDate;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
  static void SetDefault(Value & value) { value = ZnDate(0); }
};

struct TimeText {
  using Value = ZnTime;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
  static void SetDefault(Value & value) { value = ZnTime(0); }
};

struct DateTimeText {
  using Value = ZnDateTime;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
  static void SetDefault(Value & value) { value = ZnDateTime(ZnDate(0), ZnTime(0)); }
};

/// The text of `ZnDateTime` and, if there are nanoseconds, "." and their number.
struct DateTimeNText {
  using Value = ZnDateTimeN;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
};

/// Seconds as a number with a fraction; a length of 0 comes back as null.
struct TimeSpanText {
  using Value = ZnTimeSpan;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
};

struct StdDateText {
  using Value = d_Date;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
  static void SetBlank(Value & value) { value = d_Date(0, 0, 0); }
  static void SetDefault(Value & value);
};

struct StdTimeText {
  using Value = d_Time;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
  static void SetBlank(Value & value) { value = d_Time(0, 0, 0.0F); }
  static void SetDefault(Value & value) { SetBlank(value); }
};

struct StdTimestampText {
  using Value = d_Timestamp;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
  static void SetBlank(Value & value) { value = d_Timestamp(d_Date(0, 0, 0), d_Time(0, 0, 0.0F)); }
  static void SetDefault(Value & value);
};

/// Writes whole seconds, but reads days.
struct StdIntervalText {
  using Value = d_Interval;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString & in);
  static void SetBlank(Value & value) { value = d_Interval(); }
};

} // namespace zntms
