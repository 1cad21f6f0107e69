#include "date/standard_access.h"

#include <cstring>
#include <utility>

/// `d_Timestamp`, and the overlap of periods.
///
/// Worked example of a sum: the 31st at 23:59:59 plus 2 seconds. The day of the month, the time
/// and the interval make one float of seconds, 31 x 86400 + 86399 + 2 = 32 x 86400 + 1; the day
/// number becomes that of day 0 of the month plus 32, the time 00:00:01.

d_Timestamp::d_Timestamp() : date_(0, 1, 1), time_() { date_ = d_Date::current(); }

d_Timestamp & d_Timestamp::operator=(d_Date const & date) {
  date_ = date;
  return *this;
}

d_Timestamp & d_Timestamp::operator=(ZnDateTime const & value) {
  date_ = value.date;
  time_ = value.time;
  return *this;
}

d_Timestamp & d_Timestamp::operator+=(d_Interval const & interval) {
  d_Interval v = d_Interval(date_.day(), time_.hour(), time_.minute(), time_.second()) + interval;
  float const seconds = zntms::StandardAccess::Seconds(v);
  long long days = zntms::WholeDays(seconds);
  if (seconds < 0) {
    long long const back = 1 - days;
    v += zntms::StandardAccess::FromSeconds(static_cast<float>(back) * 86400.0F);
    days = -back;
  }
  long long const dayNumber = date_.getAbsDate() - date_.day() + days;
  date_.setAbsDate(static_cast<int>(static_cast<unsigned int>(dayNumber)));
  time_ = d_Time(static_cast<unsigned short>(v.hour()), static_cast<unsigned short>(v.minute()),
                 v.second(), time_.tzHour_, time_.tzMinute_);
  return *this;
}

d_Timestamp & d_Timestamp::operator-=(d_Interval const & interval) { return *this += -interval; }

d_Timestamp operator+(d_Timestamp const & value, d_Interval const & interval) {
  return d_Timestamp(value) += interval;
}
d_Timestamp operator+(d_Interval const & interval, d_Timestamp const & value) {
  return value + interval;
}
d_Timestamp operator-(d_Timestamp const & value, d_Interval const & interval) {
  return d_Timestamp(value) -= interval;
}

int operator==(d_Timestamp const & a, d_Timestamp const & b) {
  return a.date() == b.date() && a.time() == b.time();
}
int operator!=(d_Timestamp const & a, d_Timestamp const & b) {
  int const days = a.date() != b.date();
  return days != 0 ? days : a.time() != b.time();
}
int operator<(d_Timestamp const & a, d_Timestamp const & b) {
  return a.date() < b.date() || (a.date() == b.date() && a.time() < b.time());
}
int operator<=(d_Timestamp const & a, d_Timestamp const & b) { return a < b || a == b; }
int operator>(d_Timestamp const & a, d_Timestamp const & b) { return b < a; }
int operator>=(d_Timestamp const & a, d_Timestamp const & b) { return a > b || a == b; }

namespace {

/// Whether the period from `lo` to `hi` and that of c and d, in either order, share an instant.
template <class Value>
int OverlapOrdered(Value const & lo, Value const & hi, Value const & c, Value const & d) {
  auto const inside = [&](Value const & x) { return x >= lo && x <= hi; };
  return inside(c) || inside(d) || (c <= lo && d >= hi) || (d <= lo && c >= hi);
}

template <class Value>
int Overlap(Value const & a, Value const & b, Value const & c, Value const & d) {
  return a <= b ? OverlapOrdered(a, b, c, d) : OverlapOrdered(b, a, c, d);
}

} // namespace

int overlaps(d_Date const & a, d_Date const & b, d_Date const & c, d_Date const & d) {
  return Overlap(a, b, c, d);
}
int overlaps(d_Time const & a, d_Time const & b, d_Time const & c, d_Time const & d) {
  return Overlap(a, b, c, d);
}
int overlaps(d_Timestamp const & a, d_Timestamp const & b, d_Timestamp const & c,
             d_Timestamp const & d) {
  return Overlap(a, b, c, d);
}
int overlaps(d_Date const & a, d_Date const & b, d_Timestamp const & c, d_Timestamp const & d) {
  return Overlap(a, b, c.date(), d.date());
}
int overlaps(d_Time const & a, d_Time const & b, d_Timestamp const & c, d_Timestamp const & d) {
  return Overlap(a, b, c.time(), d.time());
}

// A first period of timestamps is put in order as such; only then do its parts count.

int overlaps(d_Timestamp const & a, d_Timestamp const & b, d_Date const & c, d_Date const & d) {
  return a <= b ? OverlapOrdered(a.date(), b.date(), c, d)
                : OverlapOrdered(b.date(), a.date(), c, d);
}
int overlaps(d_Timestamp const & a, d_Timestamp const & b, d_Time const & c, d_Time const & d) {
  return a <= b ? OverlapOrdered(a.time(), b.time(), c, d)
                : OverlapOrdered(b.time(), a.time(), c, d);
}
