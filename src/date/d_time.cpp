#include "date/standard_access.h"
#include "zanbs.h"

#include <cmath>
#include <cstring>

/// `d_Time`: a time of day that keeps its hour and minute shifted by its zone.
///
/// Worked example: with a default zone of 2, `d_Time(10, 30, 0.25F)` stores hour 12, minute 30,
/// second 0, hundredths 25, and reads `hour` 10. Sums run on the stored hour and minute, so that
/// they stay shifted, once.

constinit int d_Time::default_Time_Zone = 0;

void d_Time::set_default_Time_Zone(Time_Zone zone) { default_Time_Zone = zone; }

void d_Time::set_default_Time_Zone_to_local() {
  btime now{};
  bksgettime(&now);
  if (now.zone != 0)
    default_Time_Zone = now.zone / 3600;
}

void d_Time::Reset() {
  tzHour_ = static_cast<signed char>(default_Time_Zone);
  tzMinute_ = hour_ = minute_ = second_ = hundredths_ = 0;
}

void d_Time::SetSecond(float second) {
  int const whole = zntms::Truncate(second);
  second_ = static_cast<signed char>(whole);
  hundredths_ =
      static_cast<signed char>(zntms::Truncate((second - static_cast<float>(whole)) * 100.0F));
}

d_Time::d_Time() {
  Reset();
  btime now{0, 0, 0, 1};
  bksgettime(&now);
  hour_ = static_cast<signed char>(now.hour + tzHour_);
  minute_ = static_cast<signed char>(now.minute);
  second_ = static_cast<signed char>(now.second);
}

d_Time::d_Time(unsigned short hour, unsigned short minute, float second) {
  Reset();
  hour_ = static_cast<signed char>(hour + tzHour_);
  minute_ = static_cast<signed char>(minute);
  SetSecond(second);
}

d_Time::d_Time(unsigned short hour, unsigned short minute, float second, short tzHour,
               short tzMinute)
    : tzHour_(static_cast<signed char>(tzHour)), tzMinute_(static_cast<signed char>(tzMinute)),
      hour_(static_cast<signed char>(hour + tzHour)),
      minute_(static_cast<signed char>(minute + tzMinute)) {
  SetSecond(second);
}

d_Time::d_Time(int seconds) {
  Reset();
  if (seconds < 0) {
    seconds %= 86400;
    if (seconds < 0)
      seconds += 86400;
  }
  hour_ = static_cast<signed char>(seconds / 3600 + tzHour_);
  minute_ = static_cast<signed char>(seconds % 3600 / 60);
  second_ = static_cast<signed char>(seconds % 60);
}

d_Time::d_Time(ZnTime const & time) {
  *this = time;
  hour_ = static_cast<signed char>(hour_ + tzHour_);
}

d_Time::d_Time(d_Timestamp const & value) { *this = value; }

d_Time & d_Time::operator=(ZnTime const & time) {
  Reset();
  hour_ = time.hour;
  minute_ = time.minute;
  second_ = time.second;
  return *this;
}

d_Time & d_Time::operator=(d_Timestamp const & value) { return *this = value.time(); }

d_Time & d_Time::SetSeconds(d_Interval const & sinceMidnight) {
  float v = zntms::StandardAccess::Seconds(sinceMidnight);
  // Far below zero the days would go on for ever, or be lost in the float one by one.
  if (v < -86400.0F * 400)
    v = std::fmod(v, 86400.0F);
  while (v < 0)
    v += 86400.0F;
  d_Interval const wrapped = zntms::StandardAccess::FromSeconds(v);
  hour_ = static_cast<signed char>(wrapped.hour());
  minute_ = static_cast<signed char>(wrapped.minute());
  SetSecond(wrapped.second());
  return *this;
}

d_Time & d_Time::operator+=(d_Interval const & interval) {
  return SetSeconds(d_Interval(0, hour_, minute_, second()) + interval);
}

d_Time & d_Time::operator-=(d_Interval const & interval) { return *this = *this + -interval; }

d_Time operator+(d_Time const & time, d_Interval const & interval) {
  d_Time sum = time;
  return sum.SetSeconds(zntms::StandardAccess::SinceMidnight(time) + interval);
}
d_Time operator+(d_Interval const & interval, d_Time const & time) { return time + interval; }
d_Time operator-(d_Time const & time, d_Interval const & interval) { return time + -interval; }

d_Interval operator-(d_Time const & a, d_Time const & b) {
  return zntms::StandardAccess::SinceMidnight(a) - zntms::StandardAccess::SinceMidnight(b);
}

int operator==(d_Time const & a, d_Time const & b) { return std::memcmp(&a, &b, sizeof a) == 0; }

int operator!=(d_Time const & a, d_Time const & b) {
  auto const hours = [](d_Time const & time) { return static_cast<unsigned short>(time.hour()); };
  auto const minutes = [](d_Time const & time) {
    return static_cast<unsigned short>(time.minute());
  };
  if (hours(a) != hours(b))
    return hours(a) - hours(b);
  if (minutes(a) != minutes(b))
    return minutes(a) - minutes(b);
  float const difference = a.second() - b.second();
  int const whole = zntms::Truncate(difference);
  return whole != 0 ? whole : (difference > 0) - (difference < 0);
}
int operator<(d_Time const & a, d_Time const & b) { return (a != b) < 0; }
int operator<=(d_Time const & a, d_Time const & b) { return (a != b) <= 0; }
int operator>(d_Time const & a, d_Time const & b) { return (a != b) > 0; }
int operator>=(d_Time const & a, d_Time const & b) { return (a != b) >= 0; }
