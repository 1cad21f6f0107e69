#include "zantms.h"

#include "zanbs.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

// ZnInt64: arithmetic against 128-bit numbers, text, doubles, and its rows through the manager.

namespace {

constexpr __int64 kSmallest = std::numeric_limits<__int64>::min();
constexpr __int64 kLargest = std::numeric_limits<__int64>::max();

static_assert((ZnInt64(1) << 64) == 0 && (ZnInt64(-1) >> 100) == -1);
static_assert((ZnInt64(1) << 63) < 0 && (ZnInt64(1) << 63).Get8b() == kSmallest);
static_assert(ZnInt64(-1).low == 0xFFFFFFFF && ZnInt64(-1).high == -1);
static_assert(ZnInt64(0xFFFFFFFFu).high == 0 && ZnInt64(1u, 2).Get8b() == 0x200000001);

int reports;
void CountDivisions(char const * message, char const * file, int line) {
  reports += std::string(message) == "ZnInt64 divide by zero" &&
             std::string(file) == "src\\znint64" && line == 746;
}

/// Values at which words, signs and magnitudes change, and random ones of every size.
std::vector<__int64> Operands() {
  std::vector<__int64> values = {0, 1, -1, 2, -2, 3, -3, 7, -7, 10, -10};
  for (int bit = 15; bit < 64; bit += 16)
    for (int step = -1; step <= 1; ++step) {
      auto const power = (1ULL << bit) + static_cast<unsigned long long>(step);
      values.push_back(static_cast<__int64>(power));
      values.push_back(static_cast<__int64>(0 - power));
    }
  std::mt19937_64 random(64);
  for (unsigned int size = 1; size <= 64; size += 3)
    values.push_back(static_cast<__int64>(random()) >> (64 - size));
  return values;
}

constexpr __int64 Wrap(__int128 exact) {
  return static_cast<__int64>(static_cast<unsigned __int128>(exact));
}

TEST(Int64, ComputesAsExactNumbersModulo64Bits) {
  for (__int64 const a : Operands()) {
    ZnInt64 const x = a;
    __int128 const exact = a;
    EXPECT_EQ(x.Get8b(), a);
    EXPECT_EQ((-x).Get8b(), Wrap(-exact)) << a;
    EXPECT_EQ(x.Abs().Get8b(), Wrap(a < 0 ? -exact : exact)) << a;
    EXPECT_EQ((~x).Get8b(), ~a);
    ZnInt64 up = x;
    ZnInt64 down = x;
    EXPECT_EQ((++up).Get8b(), Wrap(exact + 1));
    EXPECT_EQ((--down).Get8b(), Wrap(exact - 1));
    for (__int64 const b : Operands()) {
      ZnInt64 const y = b;
      SCOPED_TRACE(std::to_string(a) + " and " + std::to_string(b));
      EXPECT_EQ((x + y).Get8b(), Wrap(exact + b));
      EXPECT_EQ((x - y).Get8b(), Wrap(exact - b));
      EXPECT_EQ((x * y).GetU8b(),
                static_cast<unsigned long long>(static_cast<unsigned __int128>(exact) *
                                                static_cast<unsigned __int128>(__int128(b))));
      EXPECT_EQ((x & y).Get8b(), a & b);
      EXPECT_EQ((x | y).Get8b(), a | b);
      EXPECT_EQ(x == y, a == b);
      EXPECT_EQ(x != y, a != b);
      EXPECT_EQ(x < y, a < b);
      EXPECT_EQ(x <= y, a <= b);
      EXPECT_EQ(x > y, a > b);
      EXPECT_EQ(x >= y, a >= b);
      if (b != 0) {
        EXPECT_EQ((x / y).Get8b(), Wrap(exact / b));
        EXPECT_EQ((x % y).Get8b(), Wrap(exact % b));
        EXPECT_EQ(x.Division(y, 7).Get8b(), Wrap(exact % b));
      }
    }
  }
}

TEST(Int64, ShiftsBitByBit) {
  for (__int64 const a : Operands())
    for (unsigned int const steps : {0u, 1u, 31u, 32u, 33u, 62u, 63u, 64u, 65u, 0xFFFFFFFFu}) {
      ZnInt64 left = a;
      ZnInt64 right = a;
      for (unsigned int i = 0; i < std::min(steps, 70u); ++i) {
        left += left;
        right = right.Get8b() >> 1;
      }
      EXPECT_EQ((ZnInt64(a) << steps).Get8b(), left.Get8b()) << a << " << " << steps;
      EXPECT_EQ((ZnInt64(a) >> steps).Get8b(), right.Get8b()) << a << " >> " << steps;
    }
}

TEST(Int64, ChangesItselfAndGivesTheNewValue) {
  ZnInt64 x = 100;
  EXPECT_EQ((x += 20).Get8b(), 120);
  EXPECT_EQ((x -= 150).Get8b(), -30);
  EXPECT_EQ((x *= -7).Get8b(), 210);
  EXPECT_EQ((x /= 4).Get8b(), 52);
  EXPECT_EQ((x %= 9).Get8b(), 7);
  EXPECT_EQ((x <<= 40).Get8b(), 7LL << 40);
  EXPECT_EQ((x >>= 39).Get8b(), 14);
  EXPECT_EQ(x.Get8b(), 14);
  x = 0xFFFFFFFFFFFFFFFFULL;
  EXPECT_EQ(x.Get8b(), -1);
}

TEST(Int64, ReportsADivisionByZeroAndGivesZero) {
  auto const before = ZantSetAssertHandler(&CountDivisions);
  reports = 0;
  EXPECT_EQ((ZnInt64(5) / 0).Get8b(), 0);
  EXPECT_EQ((ZnInt64(kSmallest) % 0).Get8b(), 0);
  EXPECT_EQ(reports, 2);
  ZantSetAssertHandler(before);
}

TEST(Int64, TakesSevenDigitsOfADouble) {
  struct Case {
    double number;
    __int64 value;
  };
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr Case kCases[] = {{0.0, 0},
                             {0.75, 0},
                             {-0.75, 0},
                             {0.99999999, 0},
                             {1.0, 1},
                             {-1.0, -1},
                             {-7.5, -7},
                             {1234.5678, 1234},
                             {99.99999999, 100},
                             {999999.94, 999999},
                             {9999999.5, 10000000},
                             {123456789.0, 123456800},
                             {-123456789.0, -123456800},
                             {1e18, 1000000000000000000},
                             {9223372036854774784.0, 9223372000000000000},
                             {9223372036854775808.0, kLargest},
                             {1e30, kLargest},
                             {-1e30, -kLargest},
                             {kInfinity, kLargest},
                             {-kInfinity, -kLargest},
                             {5e-324, 0}};
  for (Case const & c : kCases)
    EXPECT_EQ(ZnInt64(c.number).Get8b(), c.value) << c.number;
  ZnInt64 const ofNaN = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(ofNaN.Get8b(), 0);
}

TEST(Int64, ReadsTheClockInMilliseconds) {
  static constexpr BksClock kClock = {[](long long & seconds, int & nanoseconds) {
                                        seconds = 1700000000;
                                        nanoseconds = 987654321;
                                      },
                                      [](long long) { return 0; }};
  BksClock const * const before = bksSetClock(&kClock);
  ZnInt64 now;
  EXPECT_EQ(GetSystemTimeInMSSinceTheEpoch(now), 0);
  bksSetClock(before);
  EXPECT_EQ(now.Get8b(), 1700000000987);
}

// ---- Text ---------------------------------------------------------------------------------------

std::string Print(__int64 value, char const * format) {
  ZnString out("<");
  ZnInt64(value).PrintToZnString(out, format);
  return std::string(out.StrGet()).substr(1);
}

/// Into a string without text, into one of two bytes a character and as a string of its own.
TEST(Int64, PrintsDecimalsOfEveryLength) {
  unsigned long long power = 1;
  for (int digits = 1; digits <= 20; ++digits, power *= 10)
    for (auto const bits : {power - 1, power, power * 9 + 7, 0 - power, ~power}) {
      auto const number = static_cast<__int64>(bits);
      std::string const text = std::to_string(number);
      ZnString empty;
      ZnInt64(number).PrintToZnString(empty);
      EXPECT_STREQ(empty.StrGet(), text.c_str());
      EXPECT_EQ(empty.capacity, text.size() + 1);
      ZnString wide(253, 1);
      ZnInt64(number).PrintToZnString(wide);
      EXPECT_EQ(wide, ZnString(text.c_str()));
      EXPECT_STREQ(ZnString(number).StrGet(), text.c_str());
      EXPECT_STREQ(ZnString(bits).StrGet(), std::to_string(bits).c_str());
    }
}

TEST(Int64, PrintsByDirective) {
  struct Case {
    __int64 value;
    char const * format;
    char const * text;
  };
  constexpr Case kCases[] = {
      {kLargest, nullptr, "9223372036854775807"},
      {kSmallest, "%S", "-9223372036854775808"},
      {0, "%d", "0"},
      {-12, "%i", "-12"},
      {5, "a%db", "a5b"},
      {-31, "%x", "-0x1f"},
      {-31, "%X", "-0X1F"},
      {8, "%o", "010"},
      {0, "%o", "00"},
      {0, "%x", "0x0"},
      {kSmallest, "%x", "0x8000000000000000"},
      {kSmallest, "%X", "0X8000000000000000"},
      {kSmallest, "%o", "01000000000000000000000"},
      {kLargest, "%o", "0777777777777777777777"},
      {5, "%q", "%q"},
      {5, "%%d", "%%d"},
      {5, "100%", "100%"},
      {5, "", ""},
      {5, "%d%d", "50"},
  };
  for (Case const & c : kCases)
    EXPECT_EQ(Print(c.value, c.format), c.text) << (c.format ? c.format : "null");

  for (std::size_t length = 480; length <= 520; ++length) { // at the end of a buffer
    std::string const wide(length, 'w');
    EXPECT_EQ(Print(kSmallest, (wide + "%X" + wide).c_str()), wide + "0X8000000000000000" + wide);
  }
}

TEST(Int64, ScansByDirective) {
  constexpr __int64 kOld = 777;
  struct Case {
    char const * text;
    char const * format;
    __int64 value;
  };
  constexpr Case kCases[] = {
      {"0x1F", nullptr, 31},
      {"0X1f", "%S", 31},
      {"017", "%S", 15},
      {"-12", "%S", -12},
      {"+12", "%S", 12},
      {"--12", "%S", -1},
      {"08", "%S", -1},
      {"12a", "%S", -1},
      {"0x1g", "%S", -1},
      {"0", "%S", 0},
      {"", "%S", kOld},
      {"5", "", kOld},
      {"-", "%S", 0},
      {"0x", "%S", 0},
      {"017", "%d", -1},
      {"0", "%d", -1},
      {"17", "%i", 17},
      {"17", "%o", -1},
      {"17", "%x", -1},
      {"-0x8000000000000000", "%X", kSmallest},
      {"0777777777777777777777", "%o", kLargest},
      {"12,34", "%S,%S", 34},
      {"12", "%S,%S", -1},
      {"12,", "%S,%S", 12},
      {"12", "%S5", -1},
      {"125", "%S5", 12},
      {"1234567895", "%S5", 1234},
      {"<7>", "<%S>", 7},
      {"<7", "<%S>", -1},
      {"x7", "<%S", -1},
      {"%7", "%%S", 7},
      {"%q", "%q", kOld},
      {"a b", "a b", kOld},
      {"9223372036854775808", "%S", kSmallest},
      {"18446744073709551616", "%S", 0},
      {"123456789012345678901234567890", "%S",
       Wrap(__int128(1234567890123456789) * 100000000000 + 1234567890)},
      {"12345678", "%S", 12345678},
      {"1234567a", "%S", -1},
      {"12345678:", "%S:", 12345678},
      {"1234567:", "%S:", 1234567},
      {"1234567/", "%S", -1},
      {" 7", "%S", -1},
  };
  for (Case const & c : kCases) {
    ZnInt64 value = kOld;
    value.ScanFromZnString(ZnString(c.text), c.format);
    EXPECT_EQ(value.Get8b(), c.value) << c.text << " by " << (c.format ? c.format : "null");
  }
  constexpr unsigned short kWideText[] = {'-', '4', '2', 0};
  ZnInt64 value;
  value.ScanFromZnString(ZnString(kWideText));
  EXPECT_EQ(value.Get8b(), -42);
}

TEST(Int64, ScansBackWhatItPrints) {
  for (__int64 const a : Operands())
    for (char const * const format : {"%S", "%d", "%o", "%x", "%X"}) {
      if (a == 0 && format[1] == 'd')
        continue; // its one digit reads as the prefix of octal
      ZnString text;
      ZnInt64(a).PrintToZnString(text, format);
      ZnInt64 back = 5;
      back.ScanFromZnString(text, format);
      EXPECT_EQ(back.Get8b(), format[1] == 'd' && a == 0 ? -1 : a) << text.StrGet();
    }
}

// ---- Rows ---------------------------------------------------------------------------------------

class Int64Rows : public testing::Test {
protected:
  ZnTypeMgr mgr;
};

TEST_F(Int64Rows, StoreTheLowWordFirst) {
  ZnInt64 const values[] = {1, 0x123456789ABCDEF0LL};
  unsigned char const little[] = {1,    0,    0,    0,    0,    0,    0,    0,
                                  0xF0, 0xDE, 0xBC, 0x9A, 0x78, 0x56, 0x34, 0x12};
  unsigned char const big[] = {0,    0,    0,    1,    0,    0,    0,    0,
                               0x9A, 0xBC, 0xDE, 0xF0, 0x12, 0x34, 0x56, 0x78};
  for (unsigned char const format : {1, 2, 0x81, 0x82}) {
    unsigned char bytes[16];
    EXPECT_EQ(mgr.Store(ZnINT64_T, bytes, values, format, 2), 16u);
    EXPECT_EQ(std::memcmp(bytes, (format & 15) == 2 ? big : little, 16), 0);
    ZnInt64 back[2];
    EXPECT_EQ(mgr.Load(ZnINT64_T, back, bytes, format, 2), 16u);
    EXPECT_EQ(back[1].Get8b(), values[1].Get8b());
    EXPECT_EQ(mgr.DiskLenGet(ZnINT64_T, nullptr, format, 2, 8), 16u);
  }
}

TEST_F(Int64Rows, CompareAndHashInEveryForm) {
  ZnInt64 values[] = {5, 0x100000005LL, -1, kSmallest};
  for (unsigned char const format : {8, 1, 2}) {
    unsigned char bytes[4][8];
    for (int i = 0; i < 4; ++i)
      mgr.Store(ZnINT64_T, bytes[i], &values[i], format, 1);
    int error;
    for (int i = 0; i < 4; ++i) {
      for (int j = 0; j < 4; ++j)
        EXPECT_EQ(mgr.Cmp(ZnINT64_T, bytes[i], bytes[j], 0, 1, format),
                  (values[i] > values[j]) - (values[i] < values[j]));
      EXPECT_EQ(mgr.Hash(ZnINT64_T, 0, bytes[i], 1, format, error),
                (values[i].low ^ static_cast<unsigned int>(values[i].high)) * 1103515245u);
    }
    EXPECT_EQ(mgr.Cmp(ZnINT64_T, 8, bytes[0], 16, bytes[0], 0, 3, format, error), 0);
    EXPECT_EQ(error, ZnErrIncomplete);
    EXPECT_EQ(mgr.Hash(ZnINT64_T, 12, bytes[0], 3, format, error),
              (values[0].low ^ values[1].low ^ static_cast<unsigned int>(values[1].high)) *
                  1103515245u);
    EXPECT_EQ(error, ZnErrIncomplete);
  }
}

TEST_F(Int64Rows, StepUpToTheLargestValue) {
  struct Case {
    __int64 value;
    unsigned char format;
    unsigned char what;
    int result;
    __int64 after;
  };
  constexpr Case kCases[] = {
      {41, 8, 'M', 0, 42},
      {0xFFFFFFFF, 8, 'N', 0, 0x100000000},
      {kLargest, 8, 'N', ZnErrNoNextValue, kLargest},
      {7, 8, 'O', 0, 7},
      {7, 8, 2, 0, 0},
      {7, 8, 'Q', ZnErrNotSupported, 7},
      {7, 1, 'N', ZnErrNotSupported, 7},
  };
  for (Case const & c : kCases) {
    ZnInt64 value = c.value;
    EXPECT_EQ(
        mgr.rows[static_cast<unsigned char>(ZnINT64_T)]->GetValue(&value, 8, c.format, c.what),
        c.result);
    EXPECT_EQ(value.Get8b(), c.after) << c.value << " " << c.what;
  }
  unsigned char stored[8];
  ZnInt64 value = 0xFFFFFFFF;
  mgr.Store(ZnINT64_T, stored, &value, 1, 1);
  EXPECT_EQ(mgr.GetValue(ZnINT64_T, stored, 8, 1, 'N'), 0);
  EXPECT_EQ(stored[4], 1);
}

struct BoundCase {
  unsigned short op;
  __int64 constant;
  float share;
};

TEST_F(Int64Rows, EstimateShares) {
  constexpr __int64 kPower = 1LL << 62;
  struct Case {
    __int64 lo;
    __int64 hi;
    BoundCase bound;
  };
  constexpr Case kCases[] = {
      {0, 99, {ZnOpEqual, 50, 0.01F}},
      {0, 99, {ZnOpBelow, 50, 0.5F}},
      {0, 99, {ZnOpAbove, 500, 0.0F}},
      {0, 99, {ZnOpAbove, 99, 0.01F}}, // the ends count as one value, not as none
      {0, 99, {ZnOpBelow, 0, 0.01F}},
      {0, 99, {ZnOpBelow, -5, 0.0F}},
      {0, 99, {ZnOpBelow, 500, 1.0F}},
      {(1LL << 32) - 10, (1LL << 32) + 89, {ZnOpBelow, 1LL << 32, 0.1F}},
      {kPower, kPower + 2, {ZnOpEqual, kPower + 1, 1.0F}},
      {kPower, kPower + 2, {ZnOpBelow, kPower + 1, 1.0F}}, // 0 by doubles, which coincide
      {kPower, kPower + 2, {ZnOpBelow, kPower - 600, 0.0F}},
  };
  for (Case const & c : kCases) {
    unsigned char lo[8];
    unsigned char hi[8];
    unsigned char constant[8];
    ZnInt64 const values[] = {c.lo, c.hi, c.bound.constant};
    mgr.Store(ZnINT64_T, lo, &values[0], 2, 1);
    mgr.Store(ZnINT64_T, hi, &values[1], 2, 1);
    mgr.Store(ZnINT64_T, constant, &values[2], 2, 1);
    ZnIdxBounds area = {lo, hi, 8, 8, 0, 0, 0};
    ZnIdxBounds out = {};
    unsigned short op = c.bound.op;
    EXPECT_EQ(mgr.EvalAndBound(ZnINT64_T, &area, op, constant, 2, 1, &out, nullptr), c.bound.share)
        << c.lo << " " << c.bound.constant;
    EXPECT_EQ(out.lowKey != nullptr, (op & ZnOpBelow) == 0);
    EXPECT_EQ(out.highKey != nullptr, (op & ZnOpAbove) == 0);
    if (out.lowKey) {
      EXPECT_EQ(std::memcmp(out.lowKey, constant, 8), 0);
    }
    std::free(out.lowKey);
    std::free(out.highKey);
  }
}

TEST_F(Int64Rows, EstimateNumbersOfValuesWithNull) {
  struct Case {
    ZnNull_ZnInt64 lo;
    ZnNull_ZnInt64 hi;
    unsigned short op;
    ZnNull_ZnInt64 constant;
    float estimate;
  };
  ZnNull_ZnInt64 const null;
  auto const of = [](__int64 value) { return ZnNull_ZnInt64{value, 0}; };
  Case const cases[] = {
      {of(0), of(99), ZnOpEqual, of(50), 1.0F},
      {of(0), of(99), ZnOpBelow, of(50), 50.0F},
      {of(0), of(99), ZnOpEqual, of(500), 0.0F},
      {of(0), of(99), ZnOpEqual, of(-5), 0.0F},
      {of(0), of(99), ZnOpAbove, of(200), 0.0F},
      {of(0), of(99), ZnOpAbove, of(99), 1.0F},
      {of(0), of(99), ZnOpBelow, of(0), 1.0F},
      {of(0), of(99), ZnOpBelow, of(-5), 0.0F},
      {of(1LL << 62), of((1LL << 62) + 2), ZnOpBelow, of((1LL << 62) + 1), 1.0F},
      {null, of(99), ZnOpEqual, of(50), 0.1F},
      {null, of(99), ZnOpEqual, null, 1.0F},
      {null, null, ZnOpEqual, null, 0.001F},
      {null, null, ZnOpAbove, of(3), 0.0F},
      {null, null, ZnOpBelow, of(3), 1.0F},
      {null, null, ZnOpBelow, of(-5), 1.0F},
  };
  for (Case const & c : cases) {
    unsigned char stored[3][9];
    ZnNull_ZnInt64 const values[] = {c.lo, c.hi, c.constant};
    for (int i = 0; i < 3; ++i)
      mgr.Store(ZnNULL_ZNINT64_T, stored[i], &values[i], 1, 1);
    ZnIdxBounds area = {stored[0], stored[1], 9, 9, 0, 0, 0};
    unsigned short op = c.op;
    EXPECT_EQ(mgr.EvalAndBound(ZnNULL_ZNINT64_T, &area, op, stored[2], 1, 1, nullptr, nullptr),
              c.estimate)
        << c.op << " " << c.constant.value.Get8b();
  }
}

TEST_F(Int64Rows, KeepAFlagInTheNullableKind) {
  ZnNull_ZnInt64 values[2];
  values[1] = {7, 0};
  unsigned char bytes[18];
  EXPECT_EQ(mgr.Store(ZnNULL_ZNINT64_T, bytes, values, 2, 2), 18u);
  unsigned char const stored[] = {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 0, 0, 0, 0};
  EXPECT_EQ(std::memcmp(bytes, stored, 18), 0);
  EXPECT_EQ(mgr.Cmp(ZnNULL_ZNINT64_T, bytes, bytes + 9, 0, 1, 2), -1);
  int error;
  ZnInt64 const seven = 7;
  EXPECT_EQ(mgr.Hash(ZnNULL_ZNINT64_T, 0, &values[1], 1, 8, error),
            mgr.Hash(ZnINT64_T, 0, const_cast<ZnInt64 *>(&seven), 1, 8, error));
  EXPECT_EQ(mgr.Hash(ZnNULL_ZNINT64_T, 0, bytes, 1, 2, error), 0xFEFE7575u);
  EXPECT_EQ(mgr.GetValue(ZnNULL_ZNINT64_T, &values[0], 12, 8, 'M'), 0);
  EXPECT_EQ(values[0].isNull, 0);
  EXPECT_EQ(values[0].value.Get8b(), 0);
}

TEST_F(Int64Rows, MoveThroughTextAndBoxes) {
  ZnInt64 numbers[] = {-12, kSmallest};
  ZnTypeConvertData * box = mgr.ConvertTo(ZnINT64_T, numbers, 2);
  EXPECT_STREQ(box->GetString(1)->StrGet(), "-9223372036854775808");
  *box->GetString(0) = "12a";
  auto * const back = static_cast<ZnInt64 *>(mgr.ConvertFrom(ZnINT64_T, box, 3));
  EXPECT_EQ(back[0].Get8b(), -1);
  EXPECT_EQ(back[1].Get8b(), kSmallest);
  EXPECT_EQ(back[2].Get8b(), 0);
  mgr.Delete(ZnINT64_T, back, 3);

  box->GetString(1)->SetNullValue();
  auto * const nullable = static_cast<ZnNull_ZnInt64 *>(mgr.ConvertFrom(ZnNULL_ZNINT64_T, box, 2));
  EXPECT_EQ(nullable[0].value.Get8b(), -1);
  EXPECT_EQ(nullable[1].isNull, 1);
  delete box;
  box = mgr.ConvertTo(ZnNULL_ZNINT64_T, nullable, 2);
  EXPECT_STREQ(box->GetString(0)->StrGet(), "-1");
  EXPECT_TRUE(box->GetString(1)->IsNullValue());
  delete box;

  ZnString out("old");
  EXPECT_STREQ(mgr.PrintToZnString(ZnNULL_ZNINT64_T, out, &nullable[1], nullptr, 1).StrGet(),
               "{NULL}");
  ZnString text("0x10");
  mgr.ScanFromZnString(ZnNULL_ZNINT64_T, &nullable[1], text, nullptr, 1);
  EXPECT_EQ(nullable[1].isNull, 0);
  EXPECT_EQ(nullable[1].value.Get8b(), 16);
  text = "";
  mgr.ScanFromZnString(ZnNULL_ZNINT64_T, &nullable[1], text, nullptr, 1);
  EXPECT_EQ(nullable[1].isNull, 1);
  mgr.Delete(ZnNULL_ZNINT64_T, nullable, 2);
  EXPECT_EQ(mgr.ScanFromZnString(ZnINT64_T, nullptr, text, nullptr, 1), nullptr);
}

} // namespace
