#pragma once

#include "zndatetime.h"

/// The date and time classes of the published object-database standard.
///
/// They live beside `ZnDate` and its family and differ on purpose: `d_Date` has the change from
/// the Julian to the Gregorian calendar in October 1582, and its day number is one less than the
/// Julian Day Number; `d_Time` carries a time zone and keeps its hour and minute shifted by it;
/// `d_Interval` is one float of seconds. Nothing goes over from one family to the other without
/// being asked for, and then the fields are copied, with no conversion of the calendar.
///
/// Worked example: `d_Date d(1582, 10, 4); d++;` leaves 1582-10-15 in d.
///
/// None of the four has a null value, and none checks its fields. `operator!=` gives a three-way
/// difference.

class d_Interval;
class d_Time;
class d_Timestamp;

namespace zntms {
struct StandardAccess;
}

/// A length of time in seconds, as a float: exact to a hundredth of a second within a day, to the
/// second within about 190 days. Days, hours and minutes are views of it.
class ZANTMS_EXPORT d_Interval {
public:
  constexpr d_Interval() : seconds_(0) {}
  /// The sum of the magnitudes, negative if any of the four is negative.
  d_Interval(int day, int hour, int minute, float second);

  constexpr d_Interval operator-() const { return FromSeconds(-seconds_); }
  constexpr d_Interval & operator+=(d_Interval const & other) {
    seconds_ += other.seconds_;
    return *this;
  }
  constexpr d_Interval & operator-=(d_Interval const & other) {
    seconds_ -= other.seconds_;
    return *this;
  }
  constexpr d_Interval & operator*=(int factor) {
    seconds_ *= static_cast<float>(factor);
    return *this;
  }
  /// A division by 0 changes nothing.
  constexpr d_Interval & operator/=(int divisor) {
    if (divisor != 0)
      seconds_ /= static_cast<float>(divisor);
    return *this;
  }

  /// Whole days, and hours, minutes and seconds of the rest; truncated towards zero, seconds with
  /// their fraction.
  int day() const;
  int hour() const;
  int minute() const;
  float second() const;

private:
  friend struct zntms::StandardAccess;
  static constexpr d_Interval FromSeconds(float seconds) {
    d_Interval result;
    result.seconds_ = seconds;
    return result;
  }

  float seconds_;
};

static_assert(sizeof(d_Interval) == 4);

ZANTMS_EXPORT d_Interval operator+(d_Interval const & a, d_Interval const & b);
ZANTMS_EXPORT d_Interval operator-(d_Interval const & a, d_Interval const & b);
ZANTMS_EXPORT d_Interval operator*(d_Interval const & interval, int factor);
ZANTMS_EXPORT d_Interval operator*(int factor, d_Interval const & interval);
ZANTMS_EXPORT d_Interval operator/(d_Interval const & interval, int divisor);
ZANTMS_EXPORT int operator==(d_Interval const & a, d_Interval const & b);
ZANTMS_EXPORT int operator!=(d_Interval const & a, d_Interval const & b);
ZANTMS_EXPORT int operator<(d_Interval const & a, d_Interval const & b);
ZANTMS_EXPORT int operator<=(d_Interval const & a, d_Interval const & b);
ZANTMS_EXPORT int operator>(d_Interval const & a, d_Interval const & b);
ZANTMS_EXPORT int operator>=(d_Interval const & a, d_Interval const & b);

/// A calendar date with the cut-over of October 1582. Day numbers are inverse to dates from 1
/// March of year 0 on.
class ZANTMS_EXPORT d_Date {
public:
#if defined(__clang__) // the names are those of `ZnDaysOfTheWeek` too, with other numbers
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wshadow"
#endif
  enum Weekday { Sunday, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };
#if defined(__clang__)
#pragma clang diagnostic pop
#endif

  /// Today, local, by the clock of the base services.
  d_Date();
  static d_Date current() { return {}; }
  /// The fields as given, cut to their widths.
  d_Date(short y, unsigned short m, unsigned short d)
      : year_(y), month_(static_cast<signed char>(m)), day_(static_cast<signed char>(d)) {}
  /// Day 1 is 1 January.
  d_Date(short y, unsigned short dayOfYear);
  /// Copies of the fields; a date before the cut-over then names another day.
  explicit d_Date(ZnDate const & date) { *this = date; }
  explicit d_Date(ZnDateTime const & value) { *this = value; }
  explicit d_Date(d_Timestamp const & value);
  d_Date(d_Date const &) = default;
  d_Date & operator=(d_Date const &) = default;
  d_Date & operator=(ZnDate const & date);
  d_Date & operator=(ZnDateTime const & value) { return *this = value.date; }
  d_Date & operator=(d_Timestamp const & value);

  int year() const { return year_; }
  int month() const { return month_; }
  int day() const { return day_; }
  unsigned short day_of_year() const;
  Weekday day_of_week() const;
  int is_leap_year() const { return is_leap_year(year_); }
  /// Every fourth year, before 1600 without exception.
  static int is_leap_year(short year);
  int days_in_month() const { return days_in_month(year_, static_cast<unsigned short>(month_)); }
  /// 0 for a month that there is not.
  static int days_in_month(short year, unsigned short month);

  /// Steps by one day; gives the date as it was.
  d_Date operator++(int);
  d_Date operator--(int);
  /// The nearest such weekday strictly after or before this date.
  d_Date & next(Weekday day);
  d_Date & previous(Weekday day);
  /// By the whole days of the interval.
  d_Date & operator+=(d_Interval const & interval);
  d_Date & operator-=(d_Interval const & interval);

private:
  friend struct zntms::StandardAccess;
  friend class d_Timestamp;
  friend int operator!=(d_Date const & a, d_Date const & b);

  int getAbsDate() const;
  d_Date & setAbsDate(int dayNumber);
  /// The day number plus `days`, modulo 2 to the power 32.
  d_Date & AddDays(int days);

  short year_;
  signed char month_;
  signed char day_;
};

static_assert(sizeof(d_Date) == 4 && alignof(d_Date) == 2);

ZANTMS_EXPORT d_Date operator+(d_Date const & date, d_Interval const & interval);
ZANTMS_EXPORT d_Date operator+(d_Interval const & interval, d_Date const & date);
ZANTMS_EXPORT d_Date operator-(d_Date const & date, d_Interval const & interval);
/// Equal fields.
ZANTMS_EXPORT int operator==(d_Date const & a, d_Date const & b);
/// Day number of a less that of b, by which the orders go too.
ZANTMS_EXPORT int operator!=(d_Date const & a, d_Date const & b);
ZANTMS_EXPORT int operator<(d_Date const & a, d_Date const & b);
ZANTMS_EXPORT int operator<=(d_Date const & a, d_Date const & b);
ZANTMS_EXPORT int operator>(d_Date const & a, d_Date const & b);
ZANTMS_EXPORT int operator>=(d_Date const & a, d_Date const & b);

/// A time of day to the hundredth of a second, with a time zone.
class ZANTMS_EXPORT d_Time {
public:
  /// Offsets from Greenwich in hours.
  enum Time_Zone : int {
    GMT = 0,
    GMT1 = 1,
    GMT2 = 2,
    GMT3 = 3,
    GMT4 = 4,
    GMT5 = 5,
    GMT6 = 6,
    GMT7 = 7,
    GMT8 = 8,
    GMT9 = 9,
    GMT10 = 10,
    GMT11 = 11,
    GMT12 = 12,
    GMT_1 = -1,
    GMT_2 = -2,
    GMT_3 = -3,
    GMT_4 = -4,
    GMT_5 = -5,
    GMT_6 = -6,
    GMT_7 = -7,
    GMT_8 = -8,
    GMT_9 = -9,
    GMT_10 = -10,
    GMT_11 = -11,
    GMT_12 = -12,
    USeastern = -5,
    UScentral = -6,
    USmountain = -7,
    USpacific = -8
  };

  // Constructors and assignments without a zone take the default zone. The constructors then
  // shift the hour, the assignments keep the fields as they come.

  /// Now, by the clock of the base services.
  d_Time();
  static d_Time current() { return {}; }
  d_Time(unsigned short hour, unsigned short minute, float second);
  d_Time(unsigned short hour, unsigned short minute, float second, short tzHour, short tzMinute);
  /// Seconds since midnight; a negative number is raised by whole days, one of a day or more stays.
  explicit d_Time(int seconds);
  explicit d_Time(ZnTime const & time);
  explicit d_Time(ZnDateTime const & value) : d_Time(value.time) {}
  explicit d_Time(d_Timestamp const & value);
  d_Time(d_Time const &) = default;
  d_Time & operator=(d_Time const &) = default;
  d_Time & operator=(ZnTime const & time);
  d_Time & operator=(ZnDateTime const & value) { return *this = value.time; }
  d_Time & operator=(d_Timestamp const & value);

  /// Without the zone.
  int hour() const { return hour_ - tzHour_; }
  int minute() const { return minute_ - tzMinute_; }
  /// With the hundredths.
  float second() const {
    return static_cast<float>(second_) + static_cast<float>(hundredths_) / 100.0F;
  }
  int tz_hour() const { return tzHour_; }
  int tz_minute() const { return tzMinute_; }

  /// Process-wide, 0 at load, not locked: for program start.
  static void set_default_Time_Zone(Time_Zone zone);
  /// The zone of the clock of the base services; no change if that is 0.
  static void set_default_Time_Zone_to_local();

  /// In a float of seconds since midnight, wrapped into one day; the zone stays.
  d_Time & operator+=(d_Interval const & interval);
  d_Time & operator-=(d_Interval const & interval);

private:
  friend struct zntms::StandardAccess;
  friend class d_Timestamp;
  friend d_Time operator+(d_Time const & time, d_Interval const & interval);

  /// Zone fields from the default zone, all others 0.
  void Reset();
  void SetSecond(float second);
  /// The time of day at so many seconds since midnight.
  d_Time & SetSeconds(d_Interval const & sinceMidnight);

  static int default_Time_Zone;

  signed char tzHour_;
  signed char tzMinute_;
  signed char hour_;   ///< with the zone added
  signed char minute_; ///< with the zone added
  signed char second_;
  signed char hundredths_;
};

static_assert(sizeof(d_Time) == 6 && alignof(d_Time) == 1);

/// These drop the hundredths of the time, which `+=` keeps.
ZANTMS_EXPORT d_Time operator+(d_Time const & time, d_Interval const & interval);
ZANTMS_EXPORT d_Time operator+(d_Interval const & interval, d_Time const & time);
ZANTMS_EXPORT d_Time operator-(d_Time const & time, d_Interval const & interval);
/// From b to a, on the hours and minutes as they are stored and on whole seconds.
ZANTMS_EXPORT d_Interval operator-(d_Time const & a, d_Time const & b);
/// All six fields, the zones included.
ZANTMS_EXPORT int operator==(d_Time const & a, d_Time const & b);
/// The difference of the first of hour, minute and second that differs, without the zones.
ZANTMS_EXPORT int operator!=(d_Time const & a, d_Time const & b);
ZANTMS_EXPORT int operator<(d_Time const & a, d_Time const & b);
ZANTMS_EXPORT int operator<=(d_Time const & a, d_Time const & b);
ZANTMS_EXPORT int operator>(d_Time const & a, d_Time const & b);
ZANTMS_EXPORT int operator>=(d_Time const & a, d_Time const & b);

/// A date and a time of day.
class ZANTMS_EXPORT d_Timestamp {
public:
  /// Now: the time, then the date.
  d_Timestamp();
  static d_Timestamp current() { return {}; }
  d_Timestamp(d_Date const & date, d_Time const & time) : date_(date), time_(time) {}
  d_Timestamp(short year, unsigned short month, unsigned short day, unsigned short hour,
              unsigned short minute, float second)
      : date_(year, month, day), time_(hour, minute, second) {}
  d_Timestamp(d_Timestamp const &) = default;
  d_Timestamp & operator=(d_Timestamp const &) = default;
  /// Replaces the date and keeps the time.
  d_Timestamp & operator=(d_Date const & date);
  d_Timestamp & operator=(ZnDateTime const & value);

  d_Date const & date() const { return date_; }
  d_Time const & time() const { return time_; }
  int year() const { return date_.year(); }
  int month() const { return date_.month(); }
  int day() const { return date_.day(); }
  int hour() const { return time_.hour(); }
  int minute() const { return time_.minute(); }
  float second() const { return time_.second(); }
  int tz_hour() const { return time_.tz_hour(); }
  int tz_minute() const { return time_.tz_minute(); }

  /// In a float that counts from the start of the month: exact to about a quarter of a second.
  d_Timestamp & operator+=(d_Interval const & interval);
  d_Timestamp & operator-=(d_Interval const & interval);

private:
  d_Date date_;
  d_Time time_;
};

static_assert(sizeof(d_Timestamp) == 10 && alignof(d_Timestamp) == 2);

ZANTMS_EXPORT d_Timestamp operator+(d_Timestamp const & value, d_Interval const & interval);
ZANTMS_EXPORT d_Timestamp operator+(d_Interval const & interval, d_Timestamp const & value);
ZANTMS_EXPORT d_Timestamp operator-(d_Timestamp const & value, d_Interval const & interval);
/// All fields, the zones included.
ZANTMS_EXPORT int operator==(d_Timestamp const & a, d_Timestamp const & b);
/// That of the dates, or else that of the times.
ZANTMS_EXPORT int operator!=(d_Timestamp const & a, d_Timestamp const & b);
/// By the dates, and between equal dates by the times; `<=` and `>=` add equality of all fields.
ZANTMS_EXPORT int operator<(d_Timestamp const & a, d_Timestamp const & b);
ZANTMS_EXPORT int operator<=(d_Timestamp const & a, d_Timestamp const & b);
ZANTMS_EXPORT int operator>(d_Timestamp const & a, d_Timestamp const & b);
ZANTMS_EXPORT int operator>=(d_Timestamp const & a, d_Timestamp const & b);

// ---- Whether two periods share an instant, ends included: 1 or 0. The ends of a period may come
// in either order. Where dates or times meet timestamps, the date or time part of these counts.

ZANTMS_EXPORT int overlaps(d_Date const & a, d_Date const & b, d_Date const & c, d_Date const & d);
ZANTMS_EXPORT int overlaps(d_Time const & a, d_Time const & b, d_Time const & c, d_Time const & d);
ZANTMS_EXPORT int overlaps(d_Timestamp const & a, d_Timestamp const & b, d_Timestamp const & c,
                           d_Timestamp const & d);
ZANTMS_EXPORT int overlaps(d_Date const & a, d_Date const & b, d_Timestamp const & c,
                           d_Timestamp const & d);
ZANTMS_EXPORT int overlaps(d_Time const & a, d_Time const & b, d_Timestamp const & c,
                           d_Timestamp const & d);
ZANTMS_EXPORT int overlaps(d_Timestamp const & a, d_Timestamp const & b, d_Date const & c,
                           d_Date const & d);
ZANTMS_EXPORT int overlaps(d_Timestamp const & a, d_Timestamp const & b, d_Time const & c,
                           d_Time const & d);
