#pragma once

#include "zndate.h"

/// A point in time to the second: a date and a time of day, without a zone.
///
/// Worked example: 2000-12-31 23:59:59 after `AddSeconds(1)` is 2001-01-01 00:00:00.
///
/// 8 bytes in memory, of which the last is spare. Null when both parts are null.
class ZANTMS_EXPORT ZnDateTime {
public:
  ZnDate date;
  ZnTime time;

  /// Today and the current local time, read one after the other.
  ZnDateTime() = default;
  /// That date and the current local time, not midnight.
  ZnDateTime(ZnDate const & d) : date(d) {}
  /// Today and that time.
  ZnDateTime(ZnTime const & t) : time(t) {}
  constexpr ZnDateTime(ZnDate const & d, ZnTime const & t) : date(d), time(t) {}
  constexpr ZnDateTime(ZnDateTime const &) = default;
  constexpr ZnDateTime & operator=(ZnDateTime const &) = default;
  /// Replaces the time and keeps the date.
  constexpr ZnDateTime & operator=(ZnTime const & t) {
    time = t;
    return *this;
  }

  /// Exact: wildcards are ordinary values.
  constexpr int operator==(ZnDateTime const & other) const { return Compare(other) == 0; }
  /// 0 when equal, else this minus the other of the first field that differs.
  constexpr int operator!=(ZnDateTime const & other) const { return Compare(other); }
  constexpr int Compare(ZnDateTime const & other) const { return Compare(other, 0xFFFF); }
  /// The order of the dates, then of the times, under their rules for wildcards.
  constexpr int Compare(ZnDateTime const & other, unsigned short flags) const {
    int const order = date.Compare(other.date, flags);
    return order != 0 ? order : time.Compare(other.time, flags);
  }

  /// Any number of seconds, of either sign; the carry goes through the day number.
  constexpr void AddSeconds(int seconds) {
    int days = seconds / 86400;
    int const rest = seconds % 86400;
    ZnTime const moved = time + rest;
    if (rest < 0 && moved > time)
      --days;
    else if (rest >= 0 && moved < time)
      ++days;
    date += days;
    time = moved;
  }

  constexpr int IsDateTime() const { return date.IsDate() && time.IsTime(); }
  constexpr int IsDaTime() const { return IsDateTime(); }
  /// Local date and time, read one after the other.
  ZnDateTime & Now();
  /// Date and time in UTC, read at one instant.
  ZnDateTime & NowUTC();
  /// Shift between UTC and the present zone, by whole minutes: 0, or `ZnNoTimeZone` (-2171) and
  /// no change where there is no zone.
  int ToLocalTime();
  int ToUTCTime();

  // ---- Text. A null format stands for "%Y-%m-%dT%H:%M:%S".

  void PrintToZnString(ZnString & out, char const * format) const;
  void ScanFromZnString(ZnString & in, char const * format);

  // ---- Constants: those of the parts

  static ZnDateTime const & NullValue();
  static ZnDateTime const & Null(); ///< all fields 0, as `ClearValue`; not the null value
  static ZnDateTime const & DefaultValue();
  static ZnDateTime const & ZeroValue();
  static ZnDateTime const & ClearValue();
  constexpr int IsNullValue() const { return date.IsNullValue() && time.IsNullValue(); }
  /// Looks at the date alone.
  int IsDefaultValue() const { return date.IsDefaultValue(); }
  int IsZeroValue() const { return Compare(ZeroValue()) == 0; }
  int SetNullValue() { return *this = NullValue(), 0; }
  int SetDefaultValue() { return *this = DefaultValue(), 0; }
  int SetZeroValue() { return *this = ZeroValue(), 0; }

private:
  void ShiftMinutes(int minutes);
};

static_assert(sizeof(ZnDateTime) == 8 && __builtin_offsetof(ZnDateTime, time) == 4);
