#include "date/standard_access.h"

#include <cmath>

/// `d_Interval`: one float of seconds and its views.

namespace {

float Product(int count, int seconds) {
  return static_cast<float>(std::abs(static_cast<long long>(count)) * seconds);
}

} // namespace

d_Interval::d_Interval(int day, int hour, int minute, float second)
    : seconds_(Product(minute, 60) + std::abs(second)) {
  seconds_ += Product(hour, 3600);
  seconds_ += Product(day, 86400);
  if (day < 0 || hour < 0 || minute < 0 || second < 0)
    seconds_ = -seconds_;
}

int d_Interval::day() const { return zntms::WholeDays(seconds_); }
int d_Interval::hour() const { return zntms::Truncate(seconds_) % 86400 / 3600; }
int d_Interval::minute() const { return zntms::Truncate(seconds_) % 3600 / 60; }
float d_Interval::second() const {
  int const whole = zntms::Truncate(seconds_);
  return seconds_ - static_cast<float>(whole) + static_cast<float>(whole % 60);
}

d_Interval operator+(d_Interval const & a, d_Interval const & b) { return d_Interval(a) += b; }
d_Interval operator-(d_Interval const & a, d_Interval const & b) { return d_Interval(a) -= b; }
d_Interval operator*(d_Interval const & interval, int factor) {
  return d_Interval(interval) *= factor;
}
d_Interval operator*(int factor, d_Interval const & interval) { return interval * factor; }
d_Interval operator/(d_Interval const & interval, int divisor) {
  return d_Interval(interval) /= divisor;
}

namespace {
float Of(d_Interval const & interval) { return zntms::StandardAccess::Seconds(interval); }
} // namespace

int operator==(d_Interval const & a, d_Interval const & b) { return Of(a) == Of(b); }
int operator!=(d_Interval const & a, d_Interval const & b) {
  return (Of(a) > Of(b)) - (Of(a) < Of(b));
}
int operator<(d_Interval const & a, d_Interval const & b) { return Of(a) < Of(b); }
int operator<=(d_Interval const & a, d_Interval const & b) { return Of(a) <= Of(b); }
int operator>(d_Interval const & a, d_Interval const & b) { return Of(a) > Of(b); }
int operator>=(d_Interval const & a, d_Interval const & b) { return Of(a) >= Of(b); }
