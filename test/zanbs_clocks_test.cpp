#include "zanbs.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

long long fakeSeconds;
int fakeMinutes;

constexpr BksClock kFakeClock = {[](long long & seconds, int & nanoseconds) {
                                   seconds = fakeSeconds;
                                   nanoseconds = 123456789;
                                 },
                                 [](long long) { return fakeMinutes; }};

class Clocks : public testing::Test {
protected:
  Clocks() { bksSetClock(&kFakeClock); }
  ~Clocks() override { bksSetClock(nullptr); }
};

std::string Text(bdate const & date, btime const & time) {
  return std::to_string(date.year) + '-' + std::to_string(date.month) + '-' +
         std::to_string(date.day) + ' ' + std::to_string(time.hour) + ':' +
         std::to_string(time.minute) + ':' + std::to_string(time.second);
}

} // namespace

TEST_F(Clocks, LocalAndUniversalTime) {
  struct {
    long long seconds;
    int minutes;
    char const * utc;
    char const * local;
  } const cases[] = {
      {0, 0, "1970-1-1 0:0:0", "1970-1-1 0:0:0"},
      {1700000000, 120, "2023-11-14 22:13:20", "2023-11-15 0:13:20"},
      {-1, -1, "1969-12-31 23:59:59", "1969-12-31 23:58:59"},
      {951782400, -570, "2000-2-29 0:0:0", "2000-2-28 14:30:0"},
      {4107542400, 345, "2100-3-1 0:0:0", "2100-3-1 5:45:0"},
      {-62135596800, 0, "1-1-1 0:0:0", "1-1-1 0:0:0"},
      {1700000000, ZnNoTimeZone, "2023-11-14 22:13:20", "2023-11-14 22:13:20"},
  };
  for (auto const & c : cases) {
    fakeSeconds = c.seconds;
    fakeMinutes = c.minutes;
    bdate date{};
    btime time{};
    bksgetsystemtime(&time, &date);
    EXPECT_EQ(Text(date, time), c.utc);
    EXPECT_EQ(time.zone, 0);
    bksgetdate(&date);
    time.zone = 1;
    bksgettime(&time);
    EXPECT_EQ(Text(date, time), c.local);
    EXPECT_EQ(time.zone, 1);
    time.zone = 0;
    bksgettime(&time);
    EXPECT_EQ(time.zone, c.minutes == ZnNoTimeZone ? 0 : c.minutes * 60);
    EXPECT_EQ(bksgettimezone(), c.minutes);
    int nanoseconds = 0;
    bksGetHiresTime(date, time, nanoseconds);
    EXPECT_EQ(Text(date, time), c.local);
    EXPECT_EQ(nanoseconds, 123456789);
    bksGetHiresTimeUTC(date, time, nanoseconds);
    EXPECT_EQ(Text(date, time), c.utc);
  }
}

TEST_F(Clocks, AgreeWithTheLibraryOverFourCenturies) {
  fakeMinutes = 0;
  for (int day = -200000; day <= 200000; day += 7) {
    fakeSeconds = day * 86400ll + 43200;
    bdate date{};
    bksgetdate(&date);
    std::chrono::year_month_day const expected{std::chrono::sys_days{std::chrono::days{day}}};
    ASSERT_EQ(static_cast<int>(expected.year()), date.year);
    ASSERT_EQ(static_cast<unsigned>(expected.month()), date.month);
    ASSERT_EQ(static_cast<unsigned>(expected.day()), date.day);
  }
}

TEST_F(Clocks, ReadAnyInstant) {
  for (long long const seconds : {INT64_MIN, INT64_MIN + 1, INT64_MAX}) {
    fakeSeconds = seconds;
    fakeMinutes = 1440;
    bdate date{};
    btime time{};
    int nanoseconds = 0;
    bksGetHiresTime(date, time, nanoseconds);
    EXPECT_LT(time.hour, 24);
    EXPECT_TRUE(date.month >= 1 && date.month <= 12);
  }
}

TEST(SystemClock, FollowsTheZoneOfTheProcess) {
  char const * const before = std::getenv("TZ");
  std::string const kept = before != nullptr ? before : "";
  for (auto const & [zone, minutes] : {std::pair{"ABC-5:30", 330}, {"XYZ8", -480}, {"UTC", 0}}) {
    setenv("TZ", zone, 1);
    EXPECT_EQ(bksgettimezone(), minutes) << zone;
  }
  before != nullptr ? setenv("TZ", kept.c_str(), 1) : unsetenv("TZ");
  tzset();

  long long seconds = 0;
  int nanoseconds = -1;
  long long const early = std::time(nullptr);
  bksGetInstant(seconds, nanoseconds);
  EXPECT_GE(seconds, early);
  EXPECT_LE(seconds, early + 60);
  EXPECT_TRUE(nanoseconds >= 0 && nanoseconds < 1'000'000'000);
}
