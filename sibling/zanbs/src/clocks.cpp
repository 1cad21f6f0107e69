#include "zanbs.h"

#include <ctime>

/// Clocks: every function reads the installed clock once and turns the instant into a date and a
/// time of day by plain arithmetic, in the proleptic Gregorian calendar.
///
/// Example: with the zone at +120 minutes the instant 1700000000 is 2023-11-15, 00:13:20 local
/// time and 2023-11-14, 22:13:20 in UTC.

namespace {

constexpr long long kSecondsOfDay = 86400;

void SystemNow(long long & seconds, int & nanoseconds) {
  std::timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  seconds = now.tv_sec;
  nanoseconds = static_cast<int>(now.tv_nsec);
}

int SystemZone(long long seconds) {
  tzset(); // a change of TZ counts from the next call on
  std::time_t const instant = seconds;
  std::tm local{};
  if (localtime_r(&instant, &local) == nullptr)
    return ZnNoTimeZone;
  return static_cast<int>(local.tm_gmtoff / 60);
}

constexpr BksClock kSystemClock = {&SystemNow, &SystemZone};
constinit BksClock const * currentClock = nullptr;

BksClock const & Clock() { return currentClock != nullptr ? *currentClock : kSystemClock; }

/// An instant of the current clock.
struct Instant {
  long long seconds = 0;
  int nanoseconds = 0;
};

Instant Now() {
  Instant instant;
  Clock().now(instant.seconds, instant.nanoseconds);
  return instant;
}

/// Seconds to add to UTC at `seconds`; 0 where there is no zone.
int ZoneSeconds(long long seconds) {
  int const minutes = Clock().zone(seconds);
  return minutes == ZnNoTimeZone ? 0 : minutes * 60;
}

long long Shifted(long long seconds, int by) {
  return static_cast<long long>(static_cast<unsigned long long>(seconds) +
                                static_cast<unsigned long long>(static_cast<long long>(by)));
}

long long FloorDiv(long long a, long long b) { return a / b - (a % b < 0); }

/// The date of a number of days since 1970-01-01. Years are counted from March, so that the leap
/// day ends a year (H. Hinnant, "chrono-compatible low-level date algorithms").
bdate DateOfDay(long long day) {
  day += 719468; // from 0000-03-01
  long long const era = FloorDiv(day, 146097);
  unsigned const dayOfEra = static_cast<unsigned>(day - era * 146097);
  unsigned const yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  unsigned const dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  unsigned const monthFromMarch = (5 * dayOfYear + 2) / 153;
  unsigned const month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
  long long const year = era * 400 + yearOfEra + (month <= 2);
  return {static_cast<unsigned short>(year), static_cast<unsigned char>(month),
          static_cast<unsigned char>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1)};
}

void SetDate(bdate & date, long long seconds) {
  date = DateOfDay(FloorDiv(seconds, kSecondsOfDay));
}

/// Sets the three fields of the clock and leaves `zone`.
void SetTime(btime & time, long long seconds) {
  int const ofDay = static_cast<int>(seconds - FloorDiv(seconds, kSecondsOfDay) * kSecondsOfDay);
  time.hour = static_cast<unsigned char>(ofDay / 3600);
  time.minute = static_cast<unsigned char>(ofDay / 60 % 60);
  time.second = static_cast<unsigned char>(ofDay % 60);
}

} // namespace

void bksgetdate(bdate * date) {
  Instant const now = Now();
  SetDate(*date, Shifted(now.seconds, ZoneSeconds(now.seconds)));
}

void bksgettime(btime * time) {
  Instant const now = Now();
  int const zone = ZoneSeconds(now.seconds);
  SetTime(*time, Shifted(now.seconds, zone));
  if (time->zone == 0)
    time->zone = zone;
}

void bksgetsystemtime(btime * time, bdate * date) {
  Instant const now = Now();
  SetTime(*time, now.seconds);
  SetDate(*date, now.seconds);
}

void bksGetHiresTime(bdate & date, btime & time, int & nanoseconds) {
  Instant const now = Now();
  long long const local = Shifted(now.seconds, ZoneSeconds(now.seconds));
  SetDate(date, local);
  SetTime(time, local);
  nanoseconds = now.nanoseconds;
}

void bksGetHiresTimeUTC(bdate & date, btime & time, int & nanoseconds) {
  Instant const now = Now();
  SetDate(date, now.seconds);
  SetTime(time, now.seconds);
  nanoseconds = now.nanoseconds;
}

int bksgettimezone() { return Clock().zone(Now().seconds); }

BksClock const * bksSetClock(BksClock const * clock) {
  BksClock const * const before = currentClock;
  currentClock = clock;
  return before;
}

void bksGetInstant(long long & seconds, int & nanoseconds) { Clock().now(seconds, nanoseconds); }
