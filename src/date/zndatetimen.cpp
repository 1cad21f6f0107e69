#include "zndatetimen.h"

#include "date/carry.h"
#include "zanbs.h"

/// `ZnDateTimeN`: constants, clocks and sums over the carry chain.

namespace {

constinit ZnDateTimeN const kNull(-32768, -128, -128, -128, -128, -128, 0);
constinit ZnDateTimeN const kDefault(-4713, 11, 24, 0, 0, 0, 0);
constinit ZnDateTimeN const kZero(0, 1, 1, 0, 0, 0, 0);
constinit ZnDateTimeN const kClear(0, 0, 0, 0, 0, 0, 0);

ZnDateTimeN FromClock(bdate const & date, btime const & time, int nanoseconds) {
  ZnDateTimeN value(ZnDate(date.year, date.month, date.day),
                    ZnTime(time.hour, time.minute, time.second));
  value.nanoseconds = nanoseconds;
  return value;
}

} // namespace

ZnDateTimeN const & ZnDateTimeN::NullValue() { return kNull; }
ZnDateTimeN const & ZnDateTimeN::DefaultValue() { return kDefault; }
ZnDateTimeN const & ZnDateTimeN::ZeroValue() { return kZero; }
ZnDateTimeN const & ZnDateTimeN::ClearValue() { return kClear; }

void ZnDateTimeN::AddDays(int days) { zntms::AddDays(*this, days); }
void ZnDateTimeN::AddHours(int hours) { zntms::AddHours(*this, hours); }
void ZnDateTimeN::AddMinutes(int minutes) { zntms::AddMinutes(*this, minutes); }
void ZnDateTimeN::AddSeconds(int seconds) {
  zntms::AddSeconds(*this, static_cast<__int64>(seconds));
}
void ZnDateTimeN::AddSeconds(__int64 seconds) { zntms::AddSeconds(*this, seconds); }
void ZnDateTimeN::AddSeconds(double seconds) { zntms::AddSeconds(*this, seconds); }
void ZnDateTimeN::AddNanoSeconds(int ns) { zntms::AddNanoSeconds(*this, ns); }
void ZnDateTimeN::AddNanoSeconds(__int64 ns) { zntms::AddNanoSeconds(*this, ns); }

int ZnDateTimeN::GetTotalDays() const { return zntms::DatePart(*this) - ZnDate(0, 1, 1); }
__int64 ZnDateTimeN::GetTotalSeconds() const { return zntms::TotalSeconds(*this); }
double ZnDateTimeN::GetTotalSeconds_f() const {
  return static_cast<double>(GetTotalSeconds()) + nanoseconds / 1e9;
}
__int64 ZnDateTimeN::GetTotalNanoSeconds() const { return zntms::TotalNanoSeconds(*this); }

void ZnDateTimeN::SetZero() { *this = kZero; }
void ZnDateTimeN::SetTotalDays(int days) {
  SetZero();
  AddDays(days);
}
void ZnDateTimeN::SetTotalSeconds(double seconds) {
  SetZero();
  AddSeconds(seconds);
}
void ZnDateTimeN::SetTotalSeconds(__int64 seconds) {
  SetZero();
  AddSeconds(seconds);
}
void ZnDateTimeN::SetTotalNanoSeconds(__int64 ns) {
  SetZero();
  AddNanoSeconds(ns);
}

ZnDateTimeN & ZnDateTimeN::Now() {
  bdate date{};
  btime time{0, 0, 0, 1};
  int ns = 0;
  bksGetHiresTime(date, time, ns);
  return *this = FromClock(date, time, ns);
}

ZnDateTimeN & ZnDateTimeN::NowUTC() {
  bdate date{};
  btime time{};
  int ns = 0;
  bksGetHiresTimeUTC(date, time, ns);
  return *this = FromClock(date, time, ns);
}

int ZnDateTimeN::ToLocalTime() {
  int const zone = bksgettimezone();
  if (zone == ZnNoTimeZone)
    return zone;
  AddMinutes(zone);
  return 0;
}

int ZnDateTimeN::ToUTCTime() {
  int const zone = bksgettimezone();
  if (zone == ZnNoTimeZone)
    return zone;
  AddMinutes(-zone);
  return 0;
}
