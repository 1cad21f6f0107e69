#include "zndatetime.h"

#include "zanbs.h"

/// `ZnDateTime`: constants, clocks and the shift between zones.

namespace {

constinit ZnDateTime const kNull({-32768, -128, -128}, {-128, -128, -128});
constinit ZnDateTime const kDefault({-4713, 11, 24}, {0, 0, 0});
constinit ZnDateTime const kZero({0, 1, 1}, {0, 0, 0});
constinit ZnDateTime const kClear({0, 0, 0}, {0, 0, 0});

} // namespace

ZnDateTime const & ZnDateTime::NullValue() { return kNull; }
ZnDateTime const & ZnDateTime::Null() { return kClear; }
ZnDateTime const & ZnDateTime::DefaultValue() { return kDefault; }
ZnDateTime const & ZnDateTime::ZeroValue() { return kZero; }
ZnDateTime const & ZnDateTime::ClearValue() { return kClear; }

ZnDateTime & ZnDateTime::Now() {
  time.Now();
  date.Today();
  return *this;
}

ZnDateTime & ZnDateTime::NowUTC() {
  btime now{};
  bdate today{};
  bksgetsystemtime(&now, &today);
  date = ZnDate(today.year, today.month, today.day);
  time = ZnTime(now.hour, now.minute, now.second);
  return *this;
}

/// A zone moves a time by less than a day, so that at most one day is carried.
void ZnDateTime::ShiftMinutes(int minutes) {
  int m = time.hour * 60 + time.minute + minutes;
  if (m >= 1440) {
    ++date;
    m -= 1440;
  } else if (m < 0) {
    --date;
    m += 1440;
  }
  time.hour = static_cast<signed char>(m / 60);
  time.minute = static_cast<signed char>(m % 60);
}

int ZnDateTime::ToLocalTime() {
  int const zone = bksgettimezone();
  if (zone == ZnNoTimeZone)
    return zone;
  ShiftMinutes(zone);
  return 0;
}

int ZnDateTime::ToUTCTime() {
  int const zone = bksgettimezone();
  if (zone == ZnNoTimeZone)
    return zone;
  ShiftMinutes(-zone);
  return 0;
}
