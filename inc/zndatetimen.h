#pragma once

#include "zndatetime.h"

/// A point in time to the nanosecond, null until it is set.
///
/// Worked example: 2000-02-28 23:59:59.9 after `AddSeconds(0.2)` is 2000-02-29 00:00:00.1.
///
/// Fields, wildcards (also nanoseconds of -1) and the lack of any check are as in `ZnDate` and
/// `ZnTime`. Null is the null date with the null time and 0 nanoseconds. The `Add` group carries
/// upward into the date by real months, as long as the date part is a date; else by months of 30
/// days, with a year that saturates.
class ZANTMS_EXPORT ZnDateTimeN {
public:
  short year;
  signed char month;
  signed char day;
  signed char hour;
  signed char minute;
  signed char second;
  int nanoseconds; ///< 0 to 999999999

  /// Null.
  constexpr ZnDateTimeN() : ZnDateTimeN(-32768, -128, -128, -128, -128, -128, 0) {}
  /// Fields that the source does not have are 0.
  constexpr ZnDateTimeN(ZnDate const & d) : ZnDateTimeN(d, ZnTime(0, 0, 0)) {}
  constexpr ZnDateTimeN(ZnTime const & t) : ZnDateTimeN(ZnDate(0, 0, 0), t) {}
  constexpr ZnDateTimeN(ZnDateTime const & value) : ZnDateTimeN(value.date, value.time) {}
  constexpr ZnDateTimeN(ZnDate const & d, ZnTime const & t)
      : year(d.year), month(d.month), day(d.day), hour(t.hour), minute(t.minute), second(t.second),
        nanoseconds(0) {}
  /// The fields as given.
  constexpr ZnDateTimeN(short y, char m, char d, char h, char min, char s, int ns)
      : year(y), month(static_cast<signed char>(m)), day(static_cast<signed char>(d)),
        hour(static_cast<signed char>(h)), minute(static_cast<signed char>(min)),
        second(static_cast<signed char>(s)), nanoseconds(ns) {}
  /// Seconds from 1 January of year 0.
  explicit ZnDateTimeN(double seconds) { SetTotalSeconds(seconds); }
  constexpr ZnDateTimeN(ZnDateTimeN const &) = default;
  constexpr ZnDateTimeN & operator=(ZnDateTimeN const &) = default;
  constexpr ZnDateTimeN & operator=(ZnDateTime const & value) { return *this = ZnDateTimeN(value); }

  constexpr int GetYear() const { return year; }
  constexpr int GetMonth() const { return month; }
  constexpr int GetDay() const { return day; }
  constexpr int GetHour() const { return hour; }
  constexpr int GetMinute() const { return minute; }
  constexpr int GetSecond() const { return second; }
  constexpr int GetNanoSeconds() const { return nanoseconds; }

  // ---- Sums, of either sign. `AddSeconds` of a double counts down to the nanosecond, within
  // about 292 years; the carry of one call of `AddSeconds` holds about 4000 years.

  void AddDays(int days);
  void AddHours(int hours);
  void AddMinutes(int minutes);
  void AddSeconds(int seconds);
  void AddSeconds(__int64 seconds);
  void AddSeconds(long seconds) { AddSeconds(static_cast<__int64>(seconds)); }
  void AddSeconds(double seconds);
  void AddNanoSeconds(int ns);
  void AddNanoSeconds(__int64 ns);
  void AddNanoSeconds(long ns) { AddNanoSeconds(static_cast<__int64>(ns)); }

  // ---- Distance from 1 January of year 0, 00:00:00

  int GetTotalDays() const;
  __int64 GetTotalSeconds() const;
  double GetTotalSeconds_f() const;
  /// Fits within about 292 years of year 0; wraps beyond.
  __int64 GetTotalNanoSeconds() const;
  void SetTotalDays(int days);
  void SetTotalSeconds(double seconds);
  void SetTotalSeconds(__int64 seconds);
  void SetTotalSeconds(long seconds) { SetTotalSeconds(static_cast<__int64>(seconds)); }
  void SetTotalSeconds(int seconds) { SetTotalSeconds(static_cast<__int64>(seconds)); }
  void SetTotalNanoSeconds(__int64 ns);
  /// 1 January of year 0.
  void SetZero();

  // ---- Order

  /// Exact.
  constexpr int operator==(ZnDateTimeN const & other) const { return !(*this != other); }
  /// Three-way, exact.
  constexpr int operator!=(ZnDateTimeN const & other) const { return Compare(other, 0xFFFF); }
  /// The order of date and time as in `ZnDateTime`, then that of the nanoseconds as -1, 0 or 1.
  /// Wildcards on either side match unless `flags` holds `ZnCmpNoWildcards`.
  int constexpr Compare(ZnDateTimeN const & other, unsigned short flags) const {
    ZnDateTime const mine({year, month, day}, {hour, minute, second});
    ZnDateTime const theirs({other.year, other.month, other.day},
                            {other.hour, other.minute, other.second});
    if (int const order = mine.Compare(theirs, flags); order != 0)
      return order;
    if (!(flags & 0x10) && (nanoseconds == -1 || other.nanoseconds == -1))
      return 0;
    return (nanoseconds > other.nanoseconds) - (nanoseconds < other.nanoseconds);
  }
  /// Date and time are valid; nanoseconds are not tested.
  constexpr int IsValidDateTime() const {
    return ZnDate(year, month, day).IsDate() && ZnTime(hour, minute, second).IsTime();
  }

  /// Local time, or UTC, with nanoseconds, read at one instant.
  ZnDateTimeN & Now();
  ZnDateTimeN & NowUTC();
  /// Shift between UTC and the present zone: 0, or `ZnNoTimeZone` (-2171) and no change where
  /// there is no zone.
  int ToLocalTime();
  int ToUTCTime();

  // ---- Text. A null format stands for "%X".

  void PrintToZnString(ZnString & out, char const * format) const;
  void ScanFromZnString(ZnString & in, char const * format);

  // ---- Constants: those of `ZnDateTime` with 0 nanoseconds

  static ZnDateTimeN const & NullValue();
  static ZnDateTimeN const & DefaultValue();
  static ZnDateTimeN const & ZeroValue();
  static ZnDateTimeN const & ClearValue();
  constexpr int IsNullValue() const { return *this == ZnDateTimeN(); }
  int IsDefaultValue() const { return *this == DefaultValue(); }
  int IsZeroValue() const { return *this == ZeroValue(); }
  int SetNullValue() { return *this = NullValue(), 0; }
  int SetDefaultValue() { return *this = DefaultValue(), 0; }
  int SetZeroValue() { return *this = ZeroValue(), 0; }
};

static_assert(sizeof(ZnDateTimeN) == 12 && alignof(ZnDateTimeN) == 4);
static_assert(__builtin_offsetof(ZnDateTimeN, hour) == 4 &&
              __builtin_offsetof(ZnDateTimeN, second) == 6 &&
              __builtin_offsetof(ZnDateTimeN, nanoseconds) == 8);

/// A length of time in years of 12 months, months of 30 days, days and a time of day.
///
/// Worked example: `ZnTimeSpan::ZeroValue()` after `AddSeconds(-1)` holds day -1, hour 23, minute
/// 59, second 59; `GetTotalSeconds` gives -1.
///
/// There is no sign field: a negative span keeps its minus in the highest field that is not 0, and
/// the `Add` group leaves hours and below at 0 or above. Only the `Add` group normalises. Null and
/// wildcards are as in `ZnDateTimeN`, so that a day of -1 is skipped by a comparison with
/// wildcards.
class ZANTMS_EXPORT ZnTimeSpan {
public:
  short year;
  signed char month;
  signed char day;
  signed char hour;
  signed char minute;
  signed char second;
  int nanoseconds;

  /// Null.
  constexpr ZnTimeSpan() : ZnTimeSpan(-32768, -128, -128, -128, -128, -128, 0) {}
  /// The fields as given, cut to their widths.
  constexpr ZnTimeSpan(int years, int months, int days, int hours, int minutes, int seconds, int ns)
      : year(static_cast<short>(years)), month(static_cast<signed char>(months)),
        day(static_cast<signed char>(days)), hour(static_cast<signed char>(hours)),
        minute(static_cast<signed char>(minutes)), second(static_cast<signed char>(seconds)),
        nanoseconds(ns) {}
  /// The same for the fields below the day; the days are added.
  ZnTimeSpan(int days, int hours, int minutes, int seconds, int ns)
      : ZnTimeSpan(0, 0, 0, hours, minutes, seconds, ns) {
    AddDays(days);
  }
  explicit ZnTimeSpan(double seconds) { SetTotalSeconds(seconds); }
  constexpr ZnTimeSpan(ZnTimeSpan const &) = default;
  constexpr ZnTimeSpan & operator=(ZnTimeSpan const &) = default;

  constexpr int GetYear() const { return year; }
  constexpr int GetMonth() const { return month; }
  constexpr int GetDay() const { return day; }
  constexpr int GetHour() const { return hour; }
  constexpr int GetMinute() const { return minute; }
  constexpr int GetSecond() const { return second; }
  constexpr int GetNanoSeconds() const { return nanoseconds; }
  constexpr void SetYears(int years) { year = static_cast<short>(years); }
  constexpr void SetMonths(int months) { month = static_cast<signed char>(months); }
  constexpr void SetDays(int days) { day = static_cast<signed char>(days); }
  constexpr void SetHours(int hours) { hour = static_cast<signed char>(hours); }
  constexpr void SetMinutes(int minutes) { minute = static_cast<signed char>(minutes); }
  constexpr void SetSeconds(int seconds) { second = static_cast<signed char>(seconds); }
  constexpr void SetNanoSeconds(int ns) { nanoseconds = ns; }

  // ---- Sums, as in `ZnDateTimeN`

  void AddDays(int days);
  void AddHours(int hours);
  void AddMinutes(int minutes);
  void AddSeconds(int seconds);
  void AddSeconds(__int64 seconds);
  void AddSeconds(long seconds) { AddSeconds(static_cast<__int64>(seconds)); }
  void AddSeconds(double seconds);
  void AddNanoSeconds(int ns);
  void AddNanoSeconds(__int64 ns);
  void AddNanoSeconds(long ns) { AddNanoSeconds(static_cast<__int64>(ns)); }

  // ---- Length in one unit

  int GetTotalDays() const;
  __int64 GetTotalSeconds() const;
  double GetTotalSeconds_f() const;
  __int64 GetTotalNanoSeconds() const;
  void SetTotalDays(int days);
  void SetTotalSeconds(double seconds);
  void SetTotalSeconds(__int64 seconds);
  void SetTotalSeconds(long seconds) { SetTotalSeconds(static_cast<__int64>(seconds)); }
  void SetTotalSeconds(int seconds) { SetTotalSeconds(static_cast<__int64>(seconds)); }
  void SetTotalNanoSeconds(__int64 ns);
  void SetZero();

  /// The distance of two instants, never negative, whatever their order. The arguments hold the
  /// fields of the instants; a null one counts as all zeros.
  static ZnTimeSpan Difference(ZnTimeSpan const & a, ZnTimeSpan const & b);
  static ZnTimeSpan Difference(ZnDateTimeN const & a, ZnDateTimeN const & b);

  // ---- Order, field by field, as in `ZnDateTimeN`

  constexpr int operator==(ZnTimeSpan const & other) const { return !(*this != other); }
  constexpr int operator!=(ZnTimeSpan const & other) const { return Compare(other, 0xFFFF); }
  constexpr int Compare(ZnTimeSpan const & other, unsigned short flags) const {
    return AsDateTimeN().Compare(other.AsDateTimeN(), flags);
  }

  // ---- Text. A null format stands for "%V".

  void PrintToZnString(ZnString & out, char const * format) const;
  void ScanFromZnString(ZnString & in, char const * format);

  // ---- Constants: null and default have the fields of `ZnDateTimeN`; zero and clear are all 0

  static ZnTimeSpan const & NullValue();
  static ZnTimeSpan const & DefaultValue();
  static ZnTimeSpan const & ZeroValue();
  static ZnTimeSpan const & ClearValue();
  constexpr int IsNullValue() const { return *this == ZnTimeSpan(); }
  int IsDefaultValue() const { return *this == DefaultValue(); }
  int IsZeroValue() const { return *this == ZeroValue(); }
  int SetNullValue() { return *this = NullValue(), 0; }
  int SetDefaultValue() { return *this = DefaultValue(), 0; }
  int SetZeroValue() { return *this = ZeroValue(), 0; }

  /// The same fields in the sister class, by which spans print, scan and compare.
  constexpr ZnDateTimeN AsDateTimeN() const {
    return {year,
            static_cast<char>(month),
            static_cast<char>(day),
            static_cast<char>(hour),
            static_cast<char>(minute),
            static_cast<char>(second),
            nanoseconds};
  }
  static constexpr ZnTimeSpan FromDateTimeN(ZnDateTimeN const & fields) {
    return {fields.year,   fields.month,  fields.day,        fields.hour,
            fields.minute, fields.second, fields.nanoseconds};
  }
};

static_assert(sizeof(ZnTimeSpan) == 12 && alignof(ZnTimeSpan) == 4);
static_assert(__builtin_offsetof(ZnTimeSpan, nanoseconds) == 8);

// ---- The format engines, by which all date and time classes print and scan. The format language
// stands in doc/formats.md. A null format stands for "%X"; the count is not used.

/// Writes the value into `target`, whose text it replaces, and gives `target`. A null value gives
/// the null print string. A result of 2560 bytes or more is cut.
ZANTMS_EXPORT ZnString & PrintDateTime(ZnString & target, ZnDateTimeN const & value,
                                       char const * format, unsigned int count);
/// Reads the value from `text`: fields that the format does not name become 0. Gives `target`, or
/// null if the text ended before the format; the fields read so far are stored all the same.
ZANTMS_EXPORT void * ScanDateTime(ZnDateTimeN * target, ZnString & text, char const * format,
                                  unsigned int count);
