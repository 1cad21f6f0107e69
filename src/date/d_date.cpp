#include "date/standard_access.h"
#include "zanbs.h"

#include <cstring>

/// `d_Date`: the calendar with the cut-over.
///
/// Worked example: 2000-01-01. January counts as month 14 of the year before (m = 1 + 13), so
/// y = 1999, and 365.25 y = 730134, 30.6001 m = 428, n = 730134 + 428 + 1 + 1720994 = 2451557.
/// That is behind 15 October 1582, hence less 19 centuries and plus a quarter of them: 2451544.
///
/// The arithmetic is that of Meeus, "Astronomical Algorithms", in whole numbers: 365.25 is 1461/4
/// and 30.6001 is 306001/10000, and no quotient comes near enough to an integer from below for the
/// floating-point form to differ.

namespace {

constexpr int kCutOverSum = 2299170; ///< the sum of 15 October 1582 before the correction
constexpr int kLastJulian = 2299160; ///< z up to here counts by the Julian calendar

int Wrap(long long number) { return static_cast<int>(static_cast<unsigned int>(number)); }

int Floored(int number, int radix) {
  int const rest = number % radix;
  return rest < 0 ? rest + radix : rest;
}

} // namespace

int d_Date::getAbsDate() const {
  bool const winter = month_ <= 2;
  int const y = winter ? year_ - 1 : year_;
  int const m = winter ? month_ + 13 : month_ + 1;
  int const n = 1461 * y / 4 + 306001 * m / 10000 + day_ + 1720994;
  if (n < kCutOverSum)
    return n;
  int const century = y / 100;
  return n + 2 - century + century / 4;
}

d_Date & d_Date::setAbsDate(int dayNumber) {
  long long a = dayNumber + 1LL;
  if (a > kLastJulian) {
    long long const alpha = (4 * a - 7468865) / 146097; // (z - 1867216.25) / 36524.25
    a = dayNumber + 2LL + alpha - alpha / 4;
  }
  long long const b = a + 1524;
  long long const c = (20 * b - 2442) / 7305; // (b - 122.1) / 365.25
  long long const d = 1461 * c / 4;
  long long const e = (b - d) * 10000 / 306001;
  day_ = static_cast<signed char>(b - d - 306001 * e / 10000);
  month_ = static_cast<signed char>(e < 14 ? e - 1 : e - 13);
  year_ = static_cast<short>(month_ >= 3 ? c - 4716 : c - 4715);
  return *this;
}

d_Date & d_Date::AddDays(int days) {
  return setAbsDate(Wrap(static_cast<long long>(getAbsDate()) + days));
}

d_Date::d_Date() {
  bdate today{};
  bksgetdate(&today);
  *this = d_Date(static_cast<short>(today.year), today.month, today.day);
}

d_Date::d_Date(short y, unsigned short dayOfYear) : d_Date(y, 1, 1) { AddDays(dayOfYear - 1); }

d_Date::d_Date(d_Timestamp const & value) { *this = value; }

d_Date & d_Date::operator=(ZnDate const & date) {
  year_ = date.year;
  month_ = date.month;
  day_ = date.day;
  return *this;
}

d_Date & d_Date::operator=(d_Timestamp const & value) { return *this = value.date(); }

unsigned short d_Date::day_of_year() const {
  return static_cast<unsigned short>(getAbsDate() - d_Date(year_, 1, 1).getAbsDate() + 1);
}

d_Date::Weekday d_Date::day_of_week() const {
  return static_cast<Weekday>(Floored(getAbsDate() + 2, 7));
}

int d_Date::is_leap_year(short year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0 || year < 1600);
}

int d_Date::days_in_month(short year, unsigned short month) {
  constexpr signed char kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12)
    return 0;
  return month == 2 ? 28 + is_leap_year(year) : kDays[month - 1];
}

d_Date d_Date::operator++(int) {
  d_Date const old = *this;
  AddDays(1);
  return old;
}

d_Date d_Date::operator--(int) {
  d_Date const old = *this;
  AddDays(-1);
  return old;
}

d_Date & d_Date::next(Weekday day) {
  int const days = static_cast<int>(day) - day_of_week();
  return AddDays(days < 1 ? days + 7 : days);
}

d_Date & d_Date::previous(Weekday day) {
  int const days = day_of_week() - static_cast<int>(day);
  return AddDays(-(days < 1 ? days + 7 : days));
}

d_Date & d_Date::operator+=(d_Interval const & interval) {
  return AddDays(zntms::WholeDays(zntms::StandardAccess::Seconds(interval)));
}

d_Date & d_Date::operator-=(d_Interval const & interval) { return *this += -interval; }

d_Date operator+(d_Date const & date, d_Interval const & interval) {
  return d_Date(date) += interval;
}
d_Date operator+(d_Interval const & interval, d_Date const & date) { return date + interval; }
d_Date operator-(d_Date const & date, d_Interval const & interval) {
  return d_Date(date) -= interval;
}

int operator==(d_Date const & a, d_Date const & b) { return std::memcmp(&a, &b, sizeof a) == 0; }
int operator!=(d_Date const & a, d_Date const & b) { return a.getAbsDate() - b.getAbsDate(); }
int operator<(d_Date const & a, d_Date const & b) { return (a != b) < 0; }
int operator<=(d_Date const & a, d_Date const & b) { return (a != b) <= 0; }
int operator>(d_Date const & a, d_Date const & b) { return (a != b) > 0; }
int operator>=(d_Date const & a, d_Date const & b) { return (a != b) >= 0; }
