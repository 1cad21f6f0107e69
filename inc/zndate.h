#pragma once

#include "_zncalendar.h"
#include "znexport.h"

class ZnString;

enum ZnDaysOfTheWeek { Monday, Tuesday, Wednesday, Thursday, Friday, Saturday, Sunday };

/// A calendar date: Gregorian for all past and future, with the Julian Day Number as its day
/// number.
///
/// Worked example: `ZnDate(2000, 2, 28) + 1` is 2000-02-29; `ZnDate(2451545)` is 2000-01-01.
///
/// Fields are signed and never checked: `IsDate` is the test. Year 0 exists and comes before year
/// 1. A field of -1 is a wildcard: in `Compare` it matches anything, and it prints as `*`. Null is
/// the one value of `NullValue`. No operator looks for nulls, wildcards or bad fields. Day numbers
/// are exact for all 16-bit years; a result outside of them is cut to 16 bits.
class ZANTMS_EXPORT ZnDate {
public:
  short year;
  signed char month; ///< 1 to 12
  signed char day;   ///< 1 to 31

  /// Today, local, by the clock of the base services.
  ZnDate() { Today(); }
  /// The date of a day number.
  constexpr ZnDate(int dayNumber) : year(0), month(0), day(0) { dateabs(dayNumber); }
  /// The fields as given, cut to their widths.
  constexpr ZnDate(int y, int m, int d)
      : year(static_cast<short>(y)), month(static_cast<signed char>(m)),
        day(static_cast<signed char>(d)) {}
  constexpr ZnDate(ZnDate const &) = default;
  constexpr ZnDate & operator=(ZnDate const &) = default;

  constexpr int GetYear() const { return year; }
  constexpr int GetMonth() const { return month; }
  constexpr int GetDay() const { return day; }

  // ---- Day numbers. Sums wrap at 32 bits.

  constexpr operator int() const { return dayabs(); }
  constexpr int dayabs() const { return zntms::DayNumber(year, month, day); }
  constexpr ZnDate & dateabs(int dayNumber) {
    zntms::CalendarDate const date = zntms::DateOfDayNumber(dayNumber);
    year = static_cast<short>(date.year);
    month = static_cast<signed char>(date.month);
    day = static_cast<signed char>(date.day);
    return *this;
  }
  ZnDate & Today();
  constexpr ZnDate & operator++() { return *this += 1; }
  constexpr ZnDate & operator--() { return *this -= 1; }
  constexpr ZnDate operator+(int days) const { return ZnDate(*this) += days; }
  constexpr ZnDate operator-(int days) const { return ZnDate(*this) -= days; }
  constexpr ZnDate & operator+=(int days) {
    // Every month has 28 days: within them a date need not go through its number.
    unsigned int const moved = static_cast<unsigned int>(day - 1) + static_cast<unsigned int>(days);
    if (moved < 28 && static_cast<unsigned int>(day - 1) < 28 &&
        static_cast<unsigned int>(month - 1) < 12) {
      day = static_cast<signed char>(moved + 1);
      return *this;
    }
    return dateabs(
        static_cast<int>(static_cast<unsigned int>(dayabs()) + static_cast<unsigned int>(days)));
  }
  constexpr ZnDate & operator-=(int days) {
    return *this += static_cast<int>(0U - static_cast<unsigned int>(days));
  }
  /// Days from the other date to this one.
  constexpr int operator-(ZnDate const & other) const { return dayabs() - other.dayabs(); }

  // ---- Order: year, month, day, as signed numbers.

  constexpr int operator==(ZnDate const & other) const { return !(*this != other); }
  constexpr int operator<(ZnDate const & other) const { return (*this != other) < 0; }
  constexpr int operator<=(ZnDate const & other) const { return (*this != other) <= 0; }
  constexpr int operator>(ZnDate const & other) const { return (*this != other) > 0; }
  constexpr int operator>=(ZnDate const & other) const { return (*this != other) >= 0; }
  /// 0 when equal, else this minus the other of the first field that differs.
  constexpr int operator!=(ZnDate const & other) const { return Compare(other, 0x10); }
  /// The same, where fields that are a wildcard on either side count as equal, unless `flags`
  /// holds `ZnCmpNoWildcards`.
  constexpr int Compare(ZnDate const & other, unsigned short flags) const {
    bool const exact = (flags & 0x10) != 0;
    if (year != other.year && (exact || (year != -1 && other.year != -1)))
      return year - other.year;
    if (month != other.month && (exact || (month != -1 && other.month != -1)))
      return month - other.month;
    if (day != other.day && (exact || (day != -1 && other.day != -1)))
      return day - other.day;
    return 0;
  }

  // ---- Calendar

  constexpr ZnDaysOfTheWeek GetDayOfTheDate() const {
    return static_cast<ZnDaysOfTheWeek>(zntms::WeekdayOfDate(year, month, day));
  }
  constexpr ZnDaysOfTheWeek DayOfTheDate() const { return GetDayOfTheDate(); }
  /// The weekday's English name.
  ZnString PrintDayOfTheDate() const;
  /// The weekday's number in decimal, "0" to "6".
  ZnString PrintDayOfTheDate();
  /// 1 if the fields name a date that exists, in any year.
  constexpr int IsDate() const {
    if (static_cast<unsigned char>(day - 1) >= 31 || static_cast<unsigned char>(month - 1) >= 12)
      return 0;
    return day <= 28 || daynxtmonth() > 0;
  }
  constexpr int IsLastDayOfTheMonth() const { return daynxtmonth() == 1; }
  /// Days from this date to the first of the next month.
  constexpr int daynxtmonth() const { return zntms::DayNumber(year, month + 1, 1) - dayabs(); }

  // ---- Text. A null format stands for "%Y-%m-%d".

  void PrintToZnString(ZnString & out, char const * format) const;
  void ScanFromZnString(ZnString & in, char const * format);

  // ---- Constants

  static ZnDate const & NullValue();
  static ZnDate const & DefaultValue(); ///< day number 0
  static ZnDate const & ZeroValue();    ///< 1 January of year 0
  static ZnDate const & ClearValue();   ///< all fields 0; not a date
  constexpr int IsNullValue() const { return *this == ZnDate(-32768, -128, -128); }
  int IsDefaultValue() const { return *this == DefaultValue(); }
  int IsZeroValue() const { return *this == ZeroValue(); }
  /// The setters give 0.
  int SetNullValue() { return *this = NullValue(), 0; }
  int SetDefaultValue() { return *this = DefaultValue(), 0; }
  int SetZeroValue() { return *this = ZeroValue(), 0; }

protected:
  /// |a| / |b| and |a| mod |b|, negated when a and b differ in sign. b must not be 0.
  int divide(int a, int b) const;
  int modulo(int a, int b) const;
};

static_assert(sizeof(ZnDate) == 4 && alignof(ZnDate) == 2);
static_assert(__builtin_offsetof(ZnDate, month) == 2 && __builtin_offsetof(ZnDate, day) == 3);

/// A time of day to the second, without a zone. An array has a stride of 3 bytes.
///
/// Worked example: `ZnTime(23, 59, 59) + 1` is 00:00:00; `ZnTime(90000)` has hour 25.
///
/// Fields, wildcards and null are as in `ZnDate`; `IsTime` is the test. Sums wrap at midnight.
class ZANTMS_EXPORT ZnTime {
public:
  signed char hour;   ///< 0 to 23
  signed char minute; ///< 0 to 59
  signed char second; ///< 0 to 59

  /// Now, local, by the clock of the base services.
  ZnTime() { Now(); }
  /// Seconds since midnight, as `SetSecondsAbs`.
  constexpr ZnTime(int seconds) : hour(0), minute(0), second(0) { SetSecondsAbs(seconds); }
  /// The fields as given, cut to their widths.
  constexpr ZnTime(int h, int m, int s)
      : hour(static_cast<signed char>(h)), minute(static_cast<signed char>(m)),
        second(static_cast<signed char>(s)) {}
  constexpr ZnTime(ZnTime const &) = default;
  constexpr ZnTime & operator=(ZnTime const &) = default;

  constexpr int GetHour() const { return hour; }
  constexpr int GetMinute() const { return minute; }
  constexpr int GetSecond() const { return second; }

  /// Splits seconds since midnight; nothing is reduced to one day.
  constexpr void SetSecondsAbs(int seconds) {
    hour = static_cast<signed char>(seconds / 3600);
    minute = static_cast<signed char>(seconds % 3600 / 60);
    second = static_cast<signed char>(seconds % 60);
  }
  constexpr operator int() const { return (hour * 60 + minute) * 60 + second; }
  ZnTime & Now();
  /// The time in UTC.
  ZnTime & NowUTC();

  constexpr ZnTime & operator++() { return *this += 1; }
  constexpr ZnTime & operator--() { return *this -= 1; }
  constexpr ZnTime operator+(int seconds) const { return ZnTime(*this) += seconds; }
  constexpr ZnTime operator-(int seconds) const { return ZnTime(*this) -= seconds; }
  /// This time less the seconds of the other, wrapped into one day.
  constexpr ZnTime operator-(ZnTime const & other) const { return *this - static_cast<int>(other); }
  constexpr ZnTime & operator+=(int seconds) {
    SetSecondsAbs(zntms::FloorMod(static_cast<int>(*this) + seconds % 86400, 86400));
    return *this;
  }
  constexpr ZnTime & operator-=(int seconds) { return *this += -(seconds % 86400); }

  // ---- Order: hour, minute, second, as signed numbers; as in `ZnDate`.

  constexpr int operator==(ZnTime const & other) const { return !(*this != other); }
  constexpr int operator<(ZnTime const & other) const { return (*this != other) < 0; }
  constexpr int operator<=(ZnTime const & other) const { return (*this != other) <= 0; }
  constexpr int operator>(ZnTime const & other) const { return (*this != other) > 0; }
  constexpr int operator>=(ZnTime const & other) const { return (*this != other) >= 0; }
  constexpr int operator!=(ZnTime const & other) const { return Compare(other, 0x10); }
  constexpr int Compare(ZnTime const & other, unsigned short flags) const {
    bool const exact = (flags & 0x10) != 0;
    if (hour != other.hour && (exact || (hour != -1 && other.hour != -1)))
      return hour - other.hour;
    if (minute != other.minute && (exact || (minute != -1 && other.minute != -1)))
      return minute - other.minute;
    if (second != other.second && (exact || (second != -1 && other.second != -1)))
      return second - other.second;
    return 0;
  }

  constexpr int IsTime() const {
    return static_cast<unsigned char>(hour) < 24 && static_cast<unsigned char>(minute) < 60 &&
           static_cast<unsigned char>(second) < 60;
  }
  /// Shift between UTC and the present zone, wrapped into one day: 0, or `ZnNoTimeZone` (-2171)
  /// and no change where there is no zone.
  int ToLocalTime();
  int ToUTCTime();

  // ---- Text. A null format stands for "%H:%M:%S".

  void PrintToZnString(ZnString & out, char const * format) const;
  void ScanFromZnString(ZnString & in, char const * format);

  // ---- Constants

  static ZnTime const & NullValue();
  static ZnTime const & DefaultValue(); ///< 00:00:00, as the next two
  static ZnTime const & ZeroValue();
  static ZnTime const & ClearValue();
  constexpr int IsNullValue() const { return *this == ZnTime(-128, -128, -128); }
  int IsDefaultValue() const { return *this == DefaultValue(); }
  int IsZeroValue() const { return *this == ZeroValue(); }
  int SetNullValue() { return *this = NullValue(), 0; }
  int SetDefaultValue() { return *this = DefaultValue(), 0; }
  int SetZeroValue() { return *this = ZeroValue(), 0; }
};

static_assert(sizeof(ZnTime) == 3 && alignof(ZnTime) == 1);
static_assert(__builtin_offsetof(ZnTime, minute) == 1 && __builtin_offsetof(ZnTime, second) == 2);
