#include "date_support.h"

#include <cmath>

/// Both calendars, day by day over all that they define, against a calendar that only knows the
/// lengths of the months.

namespace {

/// Counts days the way a wall calendar does.
struct WallCalendar {
  int year;
  int month;
  int day;
  int weekday; // 0 is Monday
  bool (*isLeap)(int year);

  int MonthLength() const {
    constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kLengths[month - 1] + (month == 2 && isLeap(year));
  }
  void Next() {
    weekday = weekday == 6 ? 0 : weekday + 1;
    if (++day <= MonthLength())
      return;
    day = 1;
    if (++month <= 12)
      return;
    month = 1;
    ++year;
  }
};

bool GregorianLeap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }
bool MixedLeap(int year) { return year % 4 == 0 && (year < 1600 || GregorianLeap(year)); }

struct DerivedDate : ZnDate {
  using ZnDate::divide;
  using ZnDate::modulo;
};

} // namespace

TEST(Calendar, EveryDayOfTheGregorianCalendar) {
  // 1 March of year -4800 was a Wednesday: 2000-01-01, a Saturday, is 2483589 days later.
  WallCalendar wall{-4800, 3, 1, 2, &GregorianLeap};
  int wrong = 0;
  int last = 0;
  for (int n = -32044; wall.year <= 32767; ++n, wall.Next()) {
    ZnDate const date(n);
    int const left = wall.MonthLength() - wall.day + 1;
    bool const good = date.year == wall.year && date.month == wall.month && date.day == wall.day &&
                      ZnDate(wall.year, wall.month, wall.day).dayabs() == n && date.IsDate() &&
                      date.GetDayOfTheDate() == wall.weekday && date.daynxtmonth() == left &&
                      date.IsLastDayOfTheMonth() == (left == 1);
    if (!good && ++wrong < 5)
      ADD_FAILURE() << "day " << n << " is " << Raw(date) << " for " << wall.year << '-'
                    << wall.month << '-' << wall.day;
    last = n;
  }
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(Raw(ZnDate(last)), "32767 12 31");
}

TEST(Calendar, EveryDayOfTheStandardCalendar) {
  // 1 March of year 0, by the Julian calendar a Monday.
  WallCalendar wall{0, 3, 1, 0, &MixedLeap};
  d_Date const first(0, 3, 1);
  d_Date date = first;
  int wrong = 0;
  for (int n = 0; wall.year <= 32766; ++n) {
    bool const good =
        date.year() == wall.year && date.month() == wall.month && date.day() == wall.day &&
        (d_Date(static_cast<short>(wall.year), static_cast<unsigned short>(wall.month),
                static_cast<unsigned short>(wall.day)) != first) == n &&
        date.day_of_week() == (wall.weekday + 1) % 7 && date.days_in_month() == wall.MonthLength();
    if (!good && ++wrong < 5)
      ADD_FAILURE() << "after " << n << " days " << date.year() << '-' << date.month() << '-'
                    << date.day() << " for " << wall.year << '-' << wall.month << '-' << wall.day;
    date++;
    wall.Next();
    if (wall.year == 1582 && wall.month == 10 && wall.day == 5)
      wall.day = 15; // the days between never were
  }
  EXPECT_EQ(wrong, 0);
}

TEST(Calendar, BadFieldsCountByTheFormula) {
  std::mt19937 random(1);
  for (int i = 0; i < 200000; ++i) {
    int const year = static_cast<int>(random() % 37568) - 4800;
    int const month = static_cast<int>(random() % 256) - 128;
    int const day = static_cast<int>(random() % 256) - 128;
    int const a = (month - 14) / 12;
    int const expected = 1461 * (year + 4800 + a) / 4 + 367 * (month - 2 - 12 * a) / 12 -
                         3 * ((year + 4900 + a) / 100) / 4 + day - 32075;
    ASSERT_EQ(ZnDate(year, month, day).dayabs(), expected) << year << ' ' << month << ' ' << day;

    // The standard calendar in the floating-point numbers in which it was first written.
    double const m = month > 2 ? month + 1 : month + 13;
    int const y = month > 2 ? year : year - 1;
    auto n = static_cast<int>(365.25 * y) + static_cast<int>(30.6001 * m) + day + 1720994;
    if (n >= 2299170)
      n += 2 - y / 100 + y / 100 / 4;
    d_Date const date(static_cast<short>(year), static_cast<unsigned short>(month),
                      static_cast<unsigned short>(day));
    ASSERT_EQ((date != d_Date(2000, 1, 1)) + 2451544, n) << year << ' ' << month << ' ' << day;
  }
}

TEST(Calendar, DatesAndTheirNumbers) {
  EXPECT_EQ(Raw(ZnDate(0)), "-4713 11 24");
  EXPECT_EQ(Raw(ZnDate(1721060)), "0 1 1");
  EXPECT_EQ(Raw(ZnDate(2451545)), "2000 1 1");
  EXPECT_EQ(Raw(ZnDate(1900, 2, 28) + 1), "1900 3 1");
  EXPECT_EQ(Raw(ZnDate(1582, 10, 4) + 1), "1582 10 5");
  ZnDate odd(2000, 2, 31);
  EXPECT_EQ(Raw(odd += 0), "2000 3 2");
  EXPECT_EQ(Raw(--odd), "2000 3 1");
  EXPECT_EQ(ZnDate(2024, 3, 1) - ZnDate(2024, 2, 1), 29);
  EXPECT_EQ(ZnDate(2024, 1, 31) != ZnDate(2024, 2, 1), -1);
  EXPECT_EQ(ZnDate(2024, 2, 1).GetDayOfTheDate(), Thursday);
  ZnDate const friday(2024, 3, 1);
  EXPECT_EQ(Str(friday.PrintDayOfTheDate()), "Friday");
  ZnDate variable = friday;
  EXPECT_EQ(Str(variable.PrintDayOfTheDate()), "4");
  // Far outside the calendar the fields are open, but nothing else happens.
  for (int n : {-2147483647 - 1, -1000000000, 1000000000, 2147483647})
    EXPECT_NO_FATAL_FAILURE((ZnDate(n) + n).dayabs());
}

TEST(Calendar, Validity) {
  struct {
    ZnDate date;
    int valid;
  } const cases[] = {
      {{2024, 4, 30}, 1},  {{2024, 4, 31}, 0},          {{1900, 2, 29}, 0},
      {{2000, 2, 29}, 1},  {{2023, 12, 31}, 1},         {{2023, 12, 32}, 0},
      {{2023, 0, 1}, 0},   {{2023, 13, 1}, 0},          {{2023, 1, 0}, 0},
      {{0, 0, 0}, 0},      {ZnDate::NullValue(), 0},    {{-1, 1, 1}, 1},
      {{2024, -1, 5}, 0},  {{2024, 2, -1}, 0},          {{32767, 12, 31}, 1},
      {{-32768, 1, 1}, 1}, {ZnDate::DefaultValue(), 1},
  };
  for (auto const & c : cases)
    EXPECT_EQ(c.date.IsDate(), c.valid) << Raw(c.date);
  EXPECT_EQ(ZnDate(2024, 2, 29).IsLastDayOfTheMonth(), 1);
  EXPECT_EQ(ZnDate(2024, 2, 31).IsLastDayOfTheMonth(), 0);
  EXPECT_EQ(ZnTime(23, 59, 59).IsTime(), 1);
  EXPECT_EQ(ZnTime(24, 0, 0).IsTime() + ZnTime(-1).IsTime() + ZnTime(0, 60, 0).IsTime(), 0);
  EXPECT_EQ(ZnDateTime(ZnDate(2000, 1, 1), ZnTime(24, 0, 0)).IsDateTime(), 0);
  EXPECT_EQ(ZnDateTime(ZnDate(2000, 2, 30), ZnTime(0, 0, 0)).IsDaTime(), 0);
  EXPECT_EQ(ZnDateTimeN(2000, 1, 1, 24, 0, 0, 0).IsValidDateTime(), 0);
  EXPECT_EQ(ZnDateTimeN(2000, 1, 1, 23, 0, 0, -5).IsValidDateTime(), 1);
}

TEST(Calendar, WildcardsInComparison) {
  struct {
    ZnDate a;
    ZnDate b;
    int loose;
    int exact;
  } const cases[] = {
      {{2024, -1, 15}, {2024, 3, 15}, 0, -4}, {{2024, 3, 15}, {2024, -1, 15}, 0, 4},
      {{-1, 3, 15}, {2024, 3, 15}, 0, -2025}, {{2024, 3, 15}, {2024, 5, -1}, -2, -2},
      {{2024, 3, 15}, {2024, 3, 18}, -3, -3},
  };
  for (auto const & c : cases) {
    EXPECT_EQ(c.a.Compare(c.b, 0), c.loose);
    EXPECT_EQ(c.a.Compare(c.b, ZnCmpNoWildcards), c.exact);
    EXPECT_EQ(c.a != c.b, c.exact);
  }
  struct {
    ZnTime a;
    ZnTime b;
    int loose;
    int exact;
  } const times[] = {
      {{-1, 2, 3}, {1, 2, 3}, 0, -2},  {{1, -1, 3}, {1, 2, 3}, 0, -3},
      {{1, 2, -1}, {1, 2, 3}, 0, -4},  {{1, 9, 3}, {1, 2, 5}, 7, 7},
      {{1, 2, 3}, {4, 2, -1}, -3, -3},
  };
  for (auto const & c : times) {
    EXPECT_EQ(c.a.Compare(c.b, 0), c.loose);
    EXPECT_EQ(c.b.Compare(c.a, 0), -c.loose);
    EXPECT_EQ(c.a.Compare(c.b, ZnCmpNoWildcards), c.exact);
    EXPECT_EQ(c.b != c.a, -c.exact);
  }
  ZnDateTimeN const open(2000, 1, 1, 0, 0, 0, -1);
  ZnDateTimeN const five(2000, 1, 1, 0, 0, 0, 5);
  EXPECT_EQ(open.Compare(five, 0) | five.Compare(open, 0), 0);
  EXPECT_EQ(open.Compare(five, ZnCmpNoWildcards), -1);
  EXPECT_EQ(five.Compare(ZnDateTimeN(2000, 1, 1, 0, 0, 0, 7), 0), -1);
}

TEST(Calendar, DivisionTakesTheSignOfBoth) {
  DerivedDate const d;
  EXPECT_EQ(d.divide(-7, 2), -3);
  EXPECT_EQ(d.modulo(-7, 2), -1);
  EXPECT_EQ(d.modulo(7, -2), -1);
  EXPECT_EQ(d.modulo(-7, -2), 1);
  EXPECT_EQ(d.divide(-2147483647 - 1, -1), -2147483647 - 1);
}

TEST(Calendar, StandardDates) {
  d_Date cut(1582, 10, 4);
  EXPECT_EQ((cut++).day(), 4);
  EXPECT_EQ(cut.day(), 15);
  EXPECT_EQ(cut.day_of_week(), d_Date::Friday);
  d_Date gap(1582, 10, 10); // held as it is, but its number is that of the 20th
  EXPECT_EQ(gap != d_Date(1582, 10, 20), 0);
  EXPECT_EQ(gap == d_Date(1582, 10, 20), 0);
  EXPECT_EQ(d_Date::days_in_month(1500, 2), 29);
  EXPECT_EQ(d_Date::days_in_month(1700, 2), 28);
  EXPECT_EQ(d_Date::days_in_month(2000, 13) + d_Date::days_in_month(2000, 0), 0);
  EXPECT_EQ(d_Date(2024, 60).day(), 29);
  EXPECT_EQ(d_Date(2024, 12, 31).day_of_year(), 366);
  d_Date saturday(2000, 1, 1);
  EXPECT_EQ(saturday.next(d_Date::Saturday).day(), 8);
  EXPECT_EQ(saturday.previous(d_Date::Sunday).day(), 2);
  EXPECT_EQ(saturday.previous(d_Date::Sunday).day(), 26); // a week, from a Sunday
  EXPECT_EQ((d_Date(2000, 1, 1) + d_Interval(1, 23, 59, 59)).day(), 2);
  EXPECT_EQ((d_Date(2000, 1, 1) - d_Interval(1, 0, 0, 0)).year(), 1999);
  EXPECT_EQ(d_Date(ZnDate(1582, 10, 5)).day(), 5);
}
