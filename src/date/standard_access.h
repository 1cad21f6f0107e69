#pragma once

#include "d_time.h"

#include <cmath>

/// What the rows may see of the standard classes beyond their interface: fields as they are
/// stored, and day numbers.

namespace zntms {

struct StandardAccess {
  static int AbsDay(d_Date const & date) { return date.getAbsDate(); }
  static d_Date FromAbsDay(int dayNumber) {
    d_Date date(0, 1, 1);
    date.setAbsDate(dayNumber);
    return date;
  }
  static float & Seconds(d_Interval & interval) { return interval.seconds_; }
  static float Seconds(d_Interval const & interval) { return interval.seconds_; }
  static constexpr d_Interval FromSeconds(float seconds) {
    return d_Interval::FromSeconds(seconds);
  }
  /// On the fields as they are stored, in whole seconds.
  static d_Interval SinceMidnight(d_Time const & time) {
    return d_Interval(0, time.hour_, time.minute_, time.second_);
  }
};

/// Towards zero; what an int cannot hold gives the nearest int, what is no number 0.
inline int Truncate(double number) {
  if (number >= 2147483647.0)
    return 2147483647;
  if (number <= -2147483648.0)
    return -2147483647 - 1;
  return std::isnan(number) ? 0 : static_cast<int>(number);
}

/// The whole days of so many seconds.
inline int WholeDays(float seconds) { return Truncate(seconds / 86400.0F); }

} // namespace zntms
