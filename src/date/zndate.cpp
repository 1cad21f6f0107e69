#include "zndate.h"

#include "date/directives.h"
#include "zanbs.h"
#include "znstring.h"

/// `ZnDate` and `ZnTime`: constants and clocks. What both do with their fields stands in the
/// header, where callers and the compiler see through it.

namespace {

constinit ZnDate const kNullDate(-32768, -128, -128);
constinit ZnDate const kDefaultDate(-4713, 11, 24);
constinit ZnDate const kZeroDate(0, 1, 1);
constinit ZnDate const kClearDate(0, 0, 0);
constinit ZnTime const kNullTime(-128, -128, -128);
constinit ZnTime const kZeroTime(0, 0, 0);

static_assert(ZnDate(0) == ZnDate(-4713, 11, 24));
static_assert(ZnDate(0, 1, 1).dayabs() == 1721060);
static_assert(ZnDate(2451545) == ZnDate(2000, 1, 1));
static_assert(ZnDate(2000, 2, 31) + 0 == ZnDate(2000, 3, 2));
static_assert(ZnDate(2000, 2, 29).GetDayOfTheDate() == Tuesday);
static_assert(ZnTime(0, 0, 0) - 1 == ZnTime(23, 59, 59));

unsigned int Magnitude(int n) {
  return n < 0 ? 0U - static_cast<unsigned int>(n) : static_cast<unsigned int>(n);
}

int Signed(unsigned int magnitude, bool negative) {
  return static_cast<int>(negative ? 0U - magnitude : magnitude);
}

} // namespace

ZnDate const & ZnDate::NullValue() { return kNullDate; }
ZnDate const & ZnDate::DefaultValue() { return kDefaultDate; }
ZnDate const & ZnDate::ZeroValue() { return kZeroDate; }
ZnDate const & ZnDate::ClearValue() { return kClearDate; }

ZnDate & ZnDate::Today() {
  bdate today{};
  bksgetdate(&today);
  return *this = ZnDate(today.year, today.month, today.day);
}

ZnString ZnDate::PrintDayOfTheDate() const {
  return ZnString(zntms::kWeekdayNames[GetDayOfTheDate()].text);
}

ZnString ZnDate::PrintDayOfTheDate() { return ZnString(static_cast<int>(GetDayOfTheDate())); }

int ZnDate::divide(int a, int b) const {
  return Signed(Magnitude(a) / Magnitude(b), (a < 0) != (b < 0));
}

int ZnDate::modulo(int a, int b) const {
  return Signed(Magnitude(a) % Magnitude(b), (a < 0) != (b < 0));
}

ZnTime const & ZnTime::NullValue() { return kNullTime; }
ZnTime const & ZnTime::DefaultValue() { return kZeroTime; }
ZnTime const & ZnTime::ZeroValue() { return kZeroTime; }
ZnTime const & ZnTime::ClearValue() { return kZeroTime; }

ZnTime & ZnTime::Now() {
  btime now{0, 0, 0, 1};
  bksgettime(&now);
  return *this = ZnTime(now.hour, now.minute, now.second);
}

ZnTime & ZnTime::NowUTC() {
  btime now{};
  bdate today{};
  bksgetsystemtime(&now, &today);
  return *this = ZnTime(now.hour, now.minute, now.second);
}

int ZnTime::ToLocalTime() {
  int const zone = bksgettimezone();
  if (zone == ZnNoTimeZone)
    return zone;
  *this += zone * 60;
  return 0;
}

int ZnTime::ToUTCTime() {
  int const zone = bksgettimezone();
  if (zone == ZnNoTimeZone)
    return zone;
  *this -= zone * 60;
  return 0;
}
