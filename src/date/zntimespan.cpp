#include "date/carry.h"
#include "zndatetimen.h"

#include <utility>

/// `ZnTimeSpan`: constants, sums over the carry chain and the distance of two instants.

namespace {

constinit ZnTimeSpan const kNull(-32768, -128, -128, -128, -128, -128, 0);
constinit ZnTimeSpan const kDefault(-4713, 11, 24, 0, 0, 0, 0);
constinit ZnTimeSpan const kZero(0, 0, 0, 0, 0, 0, 0);

} // namespace

ZnTimeSpan const & ZnTimeSpan::NullValue() { return kNull; }
ZnTimeSpan const & ZnTimeSpan::DefaultValue() { return kDefault; }
ZnTimeSpan const & ZnTimeSpan::ZeroValue() { return kZero; }
ZnTimeSpan const & ZnTimeSpan::ClearValue() { return kZero; }

void ZnTimeSpan::AddDays(int days) { zntms::AddDays(*this, days); }
void ZnTimeSpan::AddHours(int hours) { zntms::AddHours(*this, hours); }
void ZnTimeSpan::AddMinutes(int minutes) { zntms::AddMinutes(*this, minutes); }
void ZnTimeSpan::AddSeconds(int seconds) {
  zntms::AddSeconds(*this, static_cast<__int64>(seconds));
}
void ZnTimeSpan::AddSeconds(__int64 seconds) { zntms::AddSeconds(*this, seconds); }
void ZnTimeSpan::AddSeconds(double seconds) { zntms::AddSeconds(*this, seconds); }
void ZnTimeSpan::AddNanoSeconds(int ns) { zntms::AddNanoSeconds(*this, ns); }
void ZnTimeSpan::AddNanoSeconds(__int64 ns) { zntms::AddNanoSeconds(*this, ns); }

int ZnTimeSpan::GetTotalDays() const { return (year * 12 + month) * 30 + day; }
__int64 ZnTimeSpan::GetTotalSeconds() const { return zntms::TotalSeconds(*this); }
double ZnTimeSpan::GetTotalSeconds_f() const {
  return static_cast<double>(GetTotalSeconds()) + nanoseconds / 1e9;
}
__int64 ZnTimeSpan::GetTotalNanoSeconds() const { return zntms::TotalNanoSeconds(*this); }

void ZnTimeSpan::SetZero() { *this = kZero; }
void ZnTimeSpan::SetTotalDays(int days) {
  SetZero();
  AddDays(days);
}
void ZnTimeSpan::SetTotalSeconds(double seconds) {
  SetZero();
  AddSeconds(seconds);
}
void ZnTimeSpan::SetTotalSeconds(__int64 seconds) {
  SetZero();
  AddSeconds(seconds);
}
void ZnTimeSpan::SetTotalNanoSeconds(__int64 ns) {
  SetZero();
  AddNanoSeconds(ns);
}

ZnTimeSpan ZnTimeSpan::Difference(ZnTimeSpan const & a, ZnTimeSpan const & b) {
  ZnTimeSpan early = a.IsNullValue() ? kZero : a;
  ZnTimeSpan late = b.IsNullValue() ? kZero : b;
  if (early.Compare(late, 0xFFFF) > 0)
    std::swap(early, late);

  int days = zntms::DatePart(late) - zntms::DatePart(early);
  int seconds = static_cast<int>(zntms::TimePart(late)) - static_cast<int>(zntms::TimePart(early));
  __int64 ns = static_cast<__int64>(late.nanoseconds) - early.nanoseconds;
  if (ns < 0) {
    ns += 1000000000;
    --seconds;
  }
  if (seconds < 0) {
    seconds += 86400;
    --days;
  }
  return {days / 360,          days / 30 - 12 * (days / 360), days % 30,
          seconds / 3600,      seconds % 3600 / 60,           seconds % 60,
          static_cast<int>(ns)};
}

ZnTimeSpan ZnTimeSpan::Difference(ZnDateTimeN const & a, ZnDateTimeN const & b) {
  return Difference(FromDateTimeN(a), FromDateTimeN(b));
}
