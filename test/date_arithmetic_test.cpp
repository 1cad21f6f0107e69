#include "date_support.h"

#include <cstring>

/// Sums and clocks, against plain arithmetic on wide integers.

namespace {

using Wide = __int128;

constexpr Wide kBillion = 1000000000;

template <class Value>
Wide Total(Value const & v) {
  return (Wide(v.GetTotalDays()) * 86400 + (v.hour * 60 + v.minute) * 60 + v.second) * kBillion +
         v.nanoseconds;
}

Wide FloorMod(Wide a, Wide b) { return (a % b + b) % b; }

/// Whether every field is in its range, with the minus of a span in its highest field alone.
bool IsNormal(ZnDateTimeN const & v) { return v.IsValidDateTime() && v.nanoseconds >= 0; }
bool IsNormal(ZnTimeSpan const & v) {
  bool const time = ZnTime(v.hour, v.minute, v.second).IsTime() && v.nanoseconds >= 0;
  if (v.year != 0)
    return time && v.month >= 0 && v.month < 12 && v.day >= 0 && v.day < 30;
  if (v.month != 0)
    return time && std::abs(v.month) < 12 && v.day >= 0 && v.day < 30;
  return time && std::abs(v.day) < 30;
}

long long const kSteps[] = {0,        1,         -1,         59,        60,         -60,
                            3599,     86399,     86400,      -86400,    86401,      2591999,
                            -2592001, 31104000,  1000000007, -31104001, -999999999, 2147483647,
                            -5000000, 123456789, -1000000,   604800};

/// Every operation of the chain from one value, against its total.
template <class Value>
void CheckSums(Value const & start, long long step) {
  struct {
    void (*add)(Value &, long long);
    Wide unit;
    long long limit; // above it the sum leaves the years of the class
  } const operations[] = {
      {[](Value & v, long long n) { v.AddNanoSeconds(n); }, 1, 0},
      {[](Value & v, long long n) { v.AddNanoSeconds(static_cast<int>(n)); }, 1, 0},
      {[](Value & v, long long n) { v.AddSeconds(n); }, kBillion, 0},
      {[](Value & v, long long n) { v.AddSeconds(static_cast<int>(n)); }, kBillion, 0},
      {[](Value & v, long long n) { v.AddMinutes(static_cast<int>(n)); }, 60 * kBillion, 100000000},
      {[](Value & v, long long n) { v.AddHours(static_cast<int>(n)); }, 3600 * kBillion, 10000000},
      {[](Value & v, long long n) { v.AddDays(static_cast<int>(n)); }, 86400 * kBillion, 1000000},
  };
  for (auto const & operation : operations) {
    long long const n = operation.limit != 0 ? step % operation.limit : step;
    Value moved = start;
    operation.add(moved, n);
    ASSERT_TRUE(Total(moved) == Total(start) + n * operation.unit)
        << Raw(start) << " plus " << n << " units of " << static_cast<long long>(operation.unit)
        << " is " << Raw(moved);
    ASSERT_TRUE(IsNormal(moved)) << Raw(start) << " plus " << n << " is " << Raw(moved);
  }
}

} // namespace

TEST(Sums, TimesWrapAtMidnight) {
  std::mt19937 random(2);
  for (int i = 0; i < 100000; ++i) {
    ZnTime const time(static_cast<int>(random() % 86400));
    int const n = i < 4 ? (i < 2 ? 2147483647 : -2147483647 - 1) : static_cast<int>(random());
    auto const expected = static_cast<int>(FloorMod(Wide(int(time)) + n, 86400));
    ASSERT_EQ(static_cast<int>(time + n), expected) << Raw(time) << ' ' << n;
    ASSERT_EQ(static_cast<int>(time - n), FloorMod(Wide(int(time)) - n, 86400));
    ASSERT_TRUE((time + n).IsTime());
  }
  EXPECT_EQ(Raw(ZnTime(0, 0, 0) - 1), "23 59 59");
  EXPECT_EQ(Raw(ZnTime(1, 0, 0) - ZnTime(2, 0, 0)), "23 0 0");
  EXPECT_EQ(Raw(ZnTime(-1)), "0 0 -1");
  EXPECT_EQ(Raw(ZnTime(90000)), "25 0 0");
  EXPECT_EQ(Raw(ZnTime(25, 0, 0) + 0), "1 0 0");
}

TEST(Sums, DateTimesCarryIntoTheDate) {
  std::mt19937 random(3);
  auto const total = [](ZnDateTime const & v) {
    return Wide(v.date.dayabs()) * 86400 + static_cast<int>(v.time);
  };
  for (int i = 0; i < 100000; ++i) {
    ZnDateTime const start(ZnDate(static_cast<int>(random() % 5000000)),
                           ZnTime(static_cast<int>(random() % 86400)));
    int const n = i % 2 ? static_cast<int>(random()) : static_cast<int>(kSteps[i % 22]);
    ZnDateTime moved = start;
    moved.AddSeconds(n);
    ASSERT_TRUE(total(moved) == total(start) + n) << Raw(start) << " plus " << n;
    ASSERT_TRUE(moved.IsDateTime());
  }
  ZnDateTime const noon(ZnDate(2000, 3, 1), ZnTime(0, 0, 0));
  ZnDateTime before = noon;
  before.AddSeconds(-86401);
  EXPECT_EQ(Raw(before), "2000 2 28 23 59 59");
  EXPECT_EQ(noon.Compare(before), 1);
}

TEST(Sums, EveryCarryCountsTheSame) {
  std::mt19937_64 random(4);
  for (int i = 0; i < 20000; ++i) {
    long long const step = i % 2 ? static_cast<int>(random()) : kSteps[i / 2 % 22];
    ZnDateTimeN date(ZnDate(1000000 + static_cast<int>(random() % 3000000)),
                     ZnTime(static_cast<int>(random() % 86400)));
    date.nanoseconds = static_cast<int>(random() % 1000000000);
    ASSERT_NO_FATAL_FAILURE(CheckSums(date, step));
    ZnTimeSpan span = ZnTimeSpan::ZeroValue();
    span.AddDays(static_cast<int>(random() % 2000000) - 1000000);
    span.AddNanoSeconds(static_cast<long long>(random() % 86400000000000));
    ASSERT_NO_FATAL_FAILURE(CheckSums(span, step));
    // Short spans are where the minus moves.
    ZnTimeSpan small = ZnTimeSpan::ZeroValue();
    small.AddHours(static_cast<int>(random() % 20000) - 10000);
    ASSERT_NO_FATAL_FAILURE(CheckSums(small, step));
  }
}

TEST(Sums, SpansKeepTheirMinus) {
  ZnTimeSpan const zero = ZnTimeSpan::ZeroValue();
  auto const days = [&](int n) {
    ZnTimeSpan span = zero;
    span.AddDays(n);
    return Raw(span);
  };
  EXPECT_EQ(days(-1), "0 0 -1 0 0 0 0");
  EXPECT_EQ(days(-31), "0 -2 29 0 0 0 0");
  EXPECT_EQ(days(-361), "-2 11 29 0 0 0 0");
  ZnTimeSpan year = zero;
  year.SetYears(1);
  year.AddDays(-1);
  EXPECT_EQ(Raw(year), "0 11 29 0 0 0 0");
  ZnTimeSpan second = zero;
  second.AddSeconds(-1);
  EXPECT_EQ(Raw(second), "0 0 -1 23 59 59 0");
  EXPECT_EQ(second.GetTotalSeconds(), -1);
  EXPECT_EQ(second.Compare(zero, 0), 23); // the day of -1 is a wildcard
  EXPECT_EQ(second.Compare(zero, ZnCmpNoWildcards), -1);
  // The operators know no wildcards.
  EXPECT_EQ(second != zero, -1);
  EXPECT_EQ(second != second, 0);
  EXPECT_EQ(second.AsDateTimeN() != zero.AsDateTimeN(), -1);
  EXPECT_EQ(ZnDateTimeN(0, 0, 0, 0, 0, 0, 7) != zero.AsDateTimeN(), 1);
  EXPECT_EQ(Raw(ZnTimeSpan(32, 3, 4, 5, 6)), "0 1 2 3 4 5 6");
  ZnTimeSpan hours(0, 25, 0, 0, 0);
  hours.AddHours(0);
  EXPECT_EQ(Raw(hours), "0 0 0 25 0 0 0");
  hours.AddHours(24);
  EXPECT_EQ(Raw(hours), "0 0 2 1 0 0 0");
  ZnTimeSpan huge(32767, 11, 29, 0, 0, 0, 0);
  huge.AddDays(1);
  EXPECT_EQ(Raw(huge), "32767 0 0 0 0 0 0");
  huge = ZnTimeSpan(-32768, 0, 0, 0, 0, 0, 0);
  huge.AddDays(-2147483647 - 1);
  EXPECT_EQ(huge.year, -32768);
}

TEST(Sums, SecondsWithAFraction) {
  ZnTimeSpan span(1.25);
  EXPECT_EQ(Raw(span), "0 0 0 0 0 1 250000000");
  span.AddSeconds(-2.5);
  EXPECT_EQ(Raw(span), "0 0 -1 23 59 58 750000000");
  EXPECT_EQ(span.GetTotalSeconds_f(), -1.25);
  EXPECT_EQ(ZnDateTimeN(86400.5).GetTotalNanoSeconds(), 86400500000000);
  // What no count of nanoseconds holds ends at its limit, about 292 years.
  for (double s : {1e300, -1e300, 1.0 / 0.0, -1.0 / 0.0, 9.3e9, -9.3e9})
    EXPECT_EQ(ZnTimeSpan(s).GetTotalSeconds() / 1000000000, s > 0 ? 9 : -9) << s;
  EXPECT_EQ(Raw(ZnTimeSpan(0.0 / 0.0)), "0 0 0 0 0 0 0");
  ZnDateTimeN odd(2023, 13, 15, 0, 0, 0, 0); // no date: months of 30 days
  odd.AddDays(30);
  EXPECT_EQ(Raw(odd), "2024 2 15 0 0 0 0");
  ZnDateTimeN null;
  EXPECT_TRUE(null.IsNullValue());
  null.AddNanoSeconds(-1);
  EXPECT_FALSE(null.IsNullValue());
}

template <class Value>
void CheckTotals(Value value) {
  for (long long n : {400, -5, 0}) { // whatever the value was
    value.SetTotalDays(static_cast<int>(n));
    EXPECT_EQ(value.GetTotalDays(), n);
    EXPECT_EQ(value.GetTotalSeconds(), n * 86400);
    value.SetTotalSeconds(n);
    EXPECT_EQ(value.GetTotalSeconds(), n);
    value.SetTotalSeconds(static_cast<double>(n) + 0.25);
    EXPECT_EQ(value.GetTotalSeconds_f(), static_cast<double>(n) + 0.25);
    value.SetTotalNanoSeconds(n);
    EXPECT_EQ(value.GetTotalNanoSeconds(), n);
  }
}

TEST(Sums, TotalsReplaceTheValue) {
  CheckTotals(ZnDateTimeN(2000, 2, 3, 4, 5, 6, 7));
  CheckTotals(ZnTimeSpan(1, 2, 3, 4, 5, 6, 7));
}

TEST(Sums, DistanceOfInstants) {
  std::mt19937_64 random(5);
  for (int i = 0; i < 50000; ++i) {
    ZnDateTimeN v[2];
    for (ZnDateTimeN & one : v) {
      one = ZnDateTimeN(ZnDate(2000000 + static_cast<int>(random() % (i % 2 ? 3 : 2000000))),
                        ZnTime(static_cast<int>(random() % 86400)));
      one.nanoseconds = static_cast<int>(random() % 1000000000);
    }
    Wide const distance =
        Total(v[0]) > Total(v[1]) ? Total(v[0]) - Total(v[1]) : Total(v[1]) - Total(v[0]);
    ZnTimeSpan const span = ZnTimeSpan::Difference(v[0], v[1]);
    ASSERT_TRUE(Total(span) == distance) << Raw(v[0]) << " and " << Raw(v[1]) << ": " << Raw(span);
    ASSERT_TRUE(IsNormal(span)) << Raw(span);
    ASSERT_TRUE(span == ZnTimeSpan::Difference(v[1], v[0]));
  }
  ZnDateTimeN const a(2000, 1, 1, 0, 0, 0, 500000000);
  ZnDateTimeN const b(1999, 12, 31, 23, 59, 59, 700000000);
  EXPECT_EQ(Raw(ZnTimeSpan::Difference(a, b)), "0 0 0 0 0 0 800000000");
  EXPECT_EQ(Raw(ZnTimeSpan::Difference(ZnDate(2001, 1, 1), ZnDate(2002, 1, 1))), "1 0 5 0 0 0 0");
  // A null counts as nothing, and a day of -1 as that day.
  for (ZnTimeSpan const & span : {ZnTimeSpan(5, 0, 0, 0, 0), ZnTimeSpan(-1, 0, 0, 0, 0)})
    for (ZnTimeSpan const & none : {ZnTimeSpan(), ZnTimeSpan::ZeroValue()}) {
      std::string const days = "0 0 " + std::to_string(std::abs(span.day)) + " 0 0 0 0";
      EXPECT_EQ(Raw(ZnTimeSpan::Difference(span, none)), days);
      EXPECT_EQ(Raw(ZnTimeSpan::Difference(none, span)), days);
    }
}

TEST(Sums, StandardTimes) {
  d_Time::set_default_Time_Zone(d_Time::GMT2);
  d_Time const shifted(10, 30, 0.0F);
  EXPECT_EQ(shifted.hour(), 10);
  EXPECT_EQ((shifted - d_Time(0, 0, 0.0F, 0, 0)).hour(), 12); // by the stored hours
  d_Time assigned(0);
  assigned = ZnTime(10, 30, 0);
  EXPECT_EQ(assigned.hour(), 8);
  EXPECT_EQ(d_Time(ZnTime(10, 30, 0)) == shifted, 1);
  d_Timestamp stamp(2000, 1, 1, 0, 0, 0);
  stamp = ZnDateTime(ZnDate(2000, 1, 2), ZnTime(10, 30, 0));
  EXPECT_EQ(stamp == d_Timestamp(d_Date(2000, 1, 2), assigned), 1);
  EXPECT_EQ(d_Time(10, 30, 0.0F, 0, 0) != shifted, 0);
  EXPECT_EQ(d_Time(10, 30, 0.0F, 0, 0) == shifted, 0);
  d_Time::set_default_Time_Zone(d_Time::GMT);
  d_Time time(23, 59, 59.0F);
  time += d_Interval(0, 0, 0, 1.0F);
  EXPECT_EQ(time != d_Time(0), 0);
  time -= d_Interval(0, 0, 0, 1.0F);
  EXPECT_EQ(time.hour() * 10000 + time.minute() * 100 + time.second(), 235959);
  EXPECT_EQ(d_Time(-1) != time, 0);
  EXPECT_TRUE(d_Time(10, 0, 0.25F) < d_Time(10, 0, 0.75F));
  d_Time precise(10, 0, 1.5F); // `+=` alone keeps the hundredths
  EXPECT_EQ((precise + d_Interval()).second(), 1.0F);
  EXPECT_EQ((precise += d_Interval()).second(), 1.5F);
  EXPECT_EQ((precise -= d_Interval()).second(), 1.0F);
  EXPECT_EQ(d_Time(-86400) == d_Time(0), 1);
  EXPECT_EQ(d_Time(90061).hour(), 25);
  time += d_Interval(-2000000000, 0, 0, 0.0F); // more days than a float counts
  EXPECT_EQ(time.hour() >= 0 && time.hour() < 24, true);
}

TEST(Sums, StandardTimesOrderWithoutTheirZones) {
  constexpr unsigned short kMinus = 65535; // what is below the zone counts without a sign
  struct {
    d_Time a;
    d_Time b;
    int order;
  } const cases[] = {
      {{9, 59, 59.0F, 0, 0}, {10, 0, 0.0F, 0, 0}, -1},
      {{kMinus, 0, 0.0F, 1, 0}, {10, 0, 0.0F, 0, 0}, 65525},
      {{10, 5, 0.0F, 5, 30}, {10, 9, 0.0F, 0, 0}, -4},
      {{10, kMinus, 0.0F, 0, 1}, {10, 9, 0.0F, 0, 0}, 65526},
      {{10, 0, 9.0F, 0, 0}, {10, 0, 5.5F, 0, 0}, 3},
      {{10, 0, 5.0F, 0, 0}, {10, 0, 5.5F, 0, 0}, -1},
      {{10, 0, 5.5F, 0, 0}, {10, 0, 5.0F, 9, 0}, 1},
      {{10, 0, 5.5F, 3, 0}, {10, 0, 5.5F, 9, 0}, 0},
  };
  for (auto const & c : cases) {
    EXPECT_EQ(c.a != c.b, c.order);
    EXPECT_EQ(c.b != c.a, -c.order);
    EXPECT_EQ((c.a < c.b) + 2 * (c.a <= c.b), 3 * (c.order < 0) + 2 * (c.order == 0));
    // A day apart in date, the times do not count; on one day zones keep `<=` from holding.
    d_Timestamp const a(d_Date(2000, 1, 1), c.a);
    d_Timestamp const b(d_Date(2000, 1, 1), c.b);
    EXPECT_EQ(a != b, c.order);
    EXPECT_EQ((a < b) + 2 * (a <= b), 3 * (c.order < 0));
    EXPECT_EQ((a > b) + 2 * (a >= b), 3 * (c.order > 0));
    EXPECT_EQ((a <= a) + (a >= a), 2);
    EXPECT_EQ(a <= d_Timestamp(d_Date(1999, 12, 31), c.b), 0);
    EXPECT_EQ(a > d_Timestamp(d_Date(1999, 12, 31), c.b), 1);
  }
}

TEST(Sums, StandardTimestampsAndIntervals) {
  d_Timestamp stamp(2000, 2, 29, 23, 59, 59.0F);
  stamp += d_Interval(0, 0, 0, 2.0F);
  EXPECT_EQ(stamp.month() * 100 + stamp.day(), 301);
  EXPECT_EQ(stamp.second(), 1.0F);
  stamp -= d_Interval(60, 0, 0, 2.0F);
  EXPECT_EQ(stamp == d_Timestamp(1999, 12, 31, 23, 59, 59.0F), 1);
  // A sum that ends on a midnight before the month goes back a day more.
  stamp -= d_Interval(32, 23, 59, 59.0F);
  EXPECT_EQ(stamp == d_Timestamp(1999, 11, 28, 0, 0, 0.0F), 1);
  d_Timestamp zoned(d_Date(2000, 2, 29), d_Time(23, 0, 0.0F, 2, 30)); // keeps its zone
  zoned += d_Interval(0, 2, 0, 0.0F);
  EXPECT_EQ(zoned == d_Timestamp(d_Date(2000, 3, 1), d_Time(1, 0, 0.0F, 2, 30)), 1);
  zoned = d_Date(1999, 1, 1); // and its time
  EXPECT_EQ(zoned == d_Timestamp(d_Date(1999, 1, 1), d_Time(1, 0, 0.0F, 2, 30)), 1);
  EXPECT_EQ(zoned.tz_hour() * 100 + zoned.tz_minute(), 230);
  // A minus anywhere makes the whole of it negative.
  for (d_Interval const & minus : {d_Interval(-1, 1, 1, 1.0F), d_Interval(1, -1, 1, 1.0F),
                                   d_Interval(1, 1, -1, 1.0F), d_Interval(1, 1, 1, -1.0F)})
    EXPECT_EQ(minus == -d_Interval(1, 1, 1, 1.0F), 1);
  EXPECT_EQ((d_Interval(0, 0, 5, 0.0F) - d_Interval(0, 0, 3, 1.0F)).second(), 59.0F);
  d_Interval const half(0, 0, 0, -1.5F);
  EXPECT_EQ(half.second(), -1.5F);
  EXPECT_TRUE(half / 0 == half && half * 2 < half && -half > half);
  EXPECT_TRUE(half <= half && half >= half && !(half >= -half) && !(-half <= half));
  d_Interval const days(3, 4, 5, 6.0F);
  EXPECT_EQ(days.day() * 1000000 + days.hour() * 10000 + days.minute() * 100 +
                static_cast<int>(days.second()),
            3040506);
}

TEST(Sums, Overlaps) {
  auto const date = [](int day) { return d_Date(2000, 1, static_cast<unsigned short>(day)); };
  auto const stamp = [](int day) {
    return d_Timestamp(2000, 1, static_cast<unsigned short>(day), 12, 0, 0);
  };
  auto const time = [](int hour) { return d_Time(static_cast<unsigned short>(hour), 0, 0.0F); };
  // By hand: periods share a day if each begins before the other ends.
  for (int a = 1; a < 6; ++a)
    for (int b = 1; b < 6; ++b)
      for (int c = 1; c < 6; ++c)
        for (int d = 1; d < 6; ++d) {
          int const share =
              std::max(std::min(a, b), std::min(c, d)) <= std::min(std::max(a, b), std::max(c, d));
          ASSERT_EQ(overlaps(date(a), date(b), date(c), date(d)), share);
          ASSERT_EQ(overlaps(time(a), time(b), time(c), time(d)), share);
          ASSERT_EQ(overlaps(stamp(a), stamp(b), stamp(c), stamp(d)), share);
          ASSERT_EQ(overlaps(date(a), date(b), stamp(c), stamp(d)), share);
          ASSERT_EQ(overlaps(stamp(a), stamp(b), date(c), date(d)), share);
        }
  d_Timestamp const later(2000, 1, 1, 13, 0, 0);
  EXPECT_EQ(overlaps(time(11), time(12), stamp(2), later), 1);
  EXPECT_EQ(overlaps(time(11), time(12), later, stamp(2)), 1);
  EXPECT_EQ(overlaps(stamp(1), stamp(2), time(13), time(14)), 0);
}

TEST(Clock, EveryClassReadsTheInstalledClock) {
  FixedClock const clock(1700000000, 123456789, 120); // 2023-11-14 22:13:20 UTC
  EXPECT_EQ(Raw(ZnDate()), "2023 11 15");
  EXPECT_EQ(Raw(ZnTime()), "0 13 20");
  ZnTime utc(0);
  EXPECT_EQ(Raw(utc.NowUTC()), "22 13 20");
  EXPECT_EQ(Raw(ZnDateTime()), "2023 11 15 0 13 20");
  EXPECT_EQ(Raw(ZnDateTime(ZnDate(2000, 1, 1))), "2000 1 1 0 13 20");
  EXPECT_EQ(Raw(ZnDateTime(ZnTime(1, 2, 3))), "2023 11 15 1 2 3");
  EXPECT_EQ(Raw(ZnDateTime().NowUTC()), "2023 11 14 22 13 20");
  EXPECT_EQ(Raw(ZnDateTimeN().Now()), "2023 11 15 0 13 20 123456789");
  EXPECT_EQ(Raw(ZnDateTimeN().NowUTC()), "2023 11 14 22 13 20 123456789");
  EXPECT_EQ(d_Date::current() == d_Date(2023, 11, 15), 1);
  EXPECT_EQ(d_Timestamp() == d_Timestamp(2023, 11, 15, 0, 13, 20), 1);
  d_Time::set_default_Time_Zone_to_local();
  EXPECT_EQ(d_Time().tz_hour(), 2);
  EXPECT_EQ(d_Time().hour(), 0);
  clockZone = -570; // whole hours, cut
  d_Time::set_default_Time_Zone_to_local();
  EXPECT_EQ(d_Time().tz_hour(), -9);
  clockZone = 0; // says nothing
  d_Time::set_default_Time_Zone_to_local();
  EXPECT_EQ(d_Time().tz_hour(), -9);
  d_Time::set_default_Time_Zone(d_Time::GMT);
  ZnInt64 milliseconds;
  EXPECT_EQ(GetSystemTimeInMSSinceTheEpoch(milliseconds), 0);
  EXPECT_EQ(milliseconds.Get8b(), 1700000000123);
}

TEST(Clock, ZonesCarryIntoTheDate) {
  struct {
    int zone;
    ZnDateTime utc;
    ZnDateTime local;
  } const cases[] = {
      {60, {{2000, 2, 29}, {23, 30, 15}}, {{2000, 3, 1}, {0, 30, 15}}},
      {30, {{2000, 1, 1}, {0, 0, 15}}, {{2000, 1, 1}, {0, 30, 15}}},
      {-570, {{2001, 1, 1}, {9, 29, 1}}, {{2000, 12, 31}, {23, 59, 1}}},
      {-60, {{2001, 1, 1}, {0, 0, 0}}, {{2000, 12, 31}, {23, 0, 0}}},
      {840, {{2000, 12, 31}, {10, 0, 0}}, {{2001, 1, 1}, {0, 0, 0}}},
  };
  for (auto const & c : cases) {
    FixedClock const clock(0, 0, c.zone);
    ZnDateTime value = c.utc;
    EXPECT_EQ(value.ToLocalTime(), 0);
    EXPECT_EQ(Raw(value), Raw(c.local));
    EXPECT_EQ(value.ToUTCTime(), 0);
    EXPECT_EQ(Raw(value), Raw(c.utc));
    ZnDateTimeN precise(c.utc);
    precise.nanoseconds = 5;
    precise.ToLocalTime();
    EXPECT_EQ(Raw(precise), Raw(c.local) + " 5");
    precise.ToUTCTime();
    EXPECT_EQ(Raw(precise), Raw(c.utc) + " 5");
    ZnTime time = c.local.time;
    time.ToUTCTime();
    EXPECT_EQ(Raw(time), Raw(c.utc.time));
    time.ToLocalTime();
    EXPECT_EQ(Raw(time), Raw(c.local.time));
  }
  FixedClock const none(0, 0, ZnNoTimeZone);
  ZnDateTime value(ZnDate(2000, 1, 1), ZnTime(1, 2, 3));
  ZnTime time(1, 2, 3);
  ZnDateTimeN precise(value);
  for (int result : {value.ToLocalTime(), value.ToUTCTime(), time.ToLocalTime(), time.ToUTCTime(),
                     precise.ToLocalTime(), precise.ToUTCTime()})
    EXPECT_EQ(result, -2171);
  EXPECT_EQ(Raw(precise), "2000 1 1 1 2 3 0");
}

TEST(Constants, OfEveryClass) {
  EXPECT_EQ(Raw(ZnDateTime::NullValue()), "-32768 -128 -128 -128 -128 -128");
  EXPECT_EQ(Raw(ZnDateTime::Null()), "0 0 0 0 0 0");
  EXPECT_EQ(Raw(ZnDateTimeN::DefaultValue()), "-4713 11 24 0 0 0 0");
  EXPECT_EQ(Raw(ZnTimeSpan::DefaultValue()), "-4713 11 24 0 0 0 0");
  EXPECT_EQ(Raw(ZnDateTimeN::ZeroValue()), "0 1 1 0 0 0 0");
  EXPECT_EQ(ZnDateTimeN::ZeroValue().GetTotalDays(), 0);
  EXPECT_EQ(Raw(ZnTimeSpan::ZeroValue()), "0 0 0 0 0 0 0");
  EXPECT_EQ(Raw(ZnDateTimeN::ClearValue()), "0 0 0 0 0 0 0");
  ZnDateTime half(ZnDate::NullValue(), ZnTime(1, 0, 0));
  EXPECT_EQ(half.IsNullValue(), 0);
  half.date.SetDefaultValue();
  EXPECT_EQ(half.IsDefaultValue(), 1); // whatever the time
  EXPECT_EQ(half.SetZeroValue() + half.IsZeroValue(), 1);
  EXPECT_EQ(Raw(half), "0 1 1 0 0 0");
  half = ZnTime(1, 0, 0);
  EXPECT_EQ(half.IsZeroValue(), 0);
  ZnDate zero(5);
  EXPECT_EQ(zero.SetZeroValue(), 0);
  EXPECT_EQ(Raw(zero), "0 1 1");
  // Null is the whole pattern.
  EXPECT_EQ(ZnDate(-32768, 1, -128).IsNullValue() | ZnTime(-128, 0, -128).IsNullValue(), 0);
  EXPECT_EQ(ZnTimeSpan(-32768, -128, -128, -128, -128, 0, 0).IsNullValue(), 0);
  EXPECT_EQ(ZnTimeSpan(-32768, -128, -128, -128, -128, -128, -1).IsNullValue(), 0);
  ZnDateTimeN almost;
  almost.nanoseconds = 1;
  EXPECT_EQ(almost.IsNullValue(), 0);
  EXPECT_EQ(ZnDateTimeN(ZnDate(2000, 1, 2)) == ZnDateTimeN(2000, 1, 2, 0, 0, 0, 0), 1);
  EXPECT_EQ(Raw(ZnDateTimeN(ZnTime(1, 2, 3))), "0 0 0 1 2 3 0");
}
