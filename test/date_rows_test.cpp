#include "date_support.h"

#include <cmath>
#include <cstring>
#include <functional>

/// The nine rows through the manager: stored forms, arrays, keys cut short, boxes, defaults,
/// hashes, steps and time stamps.

namespace {

using Bytes = std::vector<unsigned char>;

ZnTypeMgr & Mgr() {
  static ZnTypeMgr mgr;
  return mgr;
}

template <class Value>
Bytes Stored(char id, std::vector<Value> const & values, unsigned char format) {
  auto const count = static_cast<unsigned int>(values.size());
  Bytes bytes(Mgr().DiskLenGet(id, nullptr, format, count, ZnFormatMemory));
  EXPECT_EQ(Mgr().Store(id, bytes.data(), values.data(), format, count), bytes.size());
  return bytes;
}

template <class Value>
Bytes Stored(char id, Value const & value, unsigned char format) {
  return Stored(id, std::vector<Value>{value}, format);
}

struct Kind {
  char id;
  unsigned int memLen;
  unsigned int stored;
  bool null;
};

constexpr Kind kKinds[] = {
    {ZnDATE_T, 4, 4, true},       {ZnTIME_T, 3, 3, true},         {ZnDATIME_T, 8, 7, true},
    {ZnDATIME_N_T, 12, 11, true}, {ZnTIMESPAN_T, 12, 11, true},   {D_DATE_T, 4, 4, false},
    {D_TIME_T, 6, 6, false},      {D_TIMESTAMP_T, 10, 10, false}, {D_INTERVAL_T, 4, 4, false}};

} // namespace

TEST(DateRows, StoredForms) {
  ZnDateTime const stamp(ZnDate(2000, 1, 2), ZnTime(3, 4, 5));
  ZnDateTimeN precise(stamp);
  precise.nanoseconds = 0x01020304;
  auto const little = ZnFormatLittleEndian;
  auto const big = ZnFormatBigEndian;
  EXPECT_EQ(Stored(ZnDATE_T, stamp.date, little), (Bytes{0xD0, 7, 1, 2}));
  EXPECT_EQ(Stored(ZnDATE_T, stamp.date, big), (Bytes{7, 0xD0, 1, 2}));
  EXPECT_EQ(Stored(ZnDATE_T, ZnDate::NullValue(), 0x82), (Bytes{0x80, 0, 0x80, 0x80}));
  EXPECT_EQ(Stored(ZnTIME_T, std::vector{stamp.time, ZnTime(-1)}, big),
            (Bytes{3, 4, 5, 0, 0, 0xFF}));
  EXPECT_EQ(Stored(ZnDATIME_T, std::vector{stamp, stamp}, big),
            (Bytes{7, 0xD0, 1, 2, 3, 4, 5, 7, 0xD0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(Stored(ZnDATIME_N_T, precise, little), (Bytes{0xD0, 7, 1, 2, 3, 4, 5, 4, 3, 2, 1}));
  EXPECT_EQ(Stored(ZnTIMESPAN_T, ZnTimeSpan::FromDateTimeN(precise), big),
            (Bytes{7, 0xD0, 1, 2, 3, 4, 5, 1, 2, 3, 4}));
  EXPECT_EQ(Stored(D_DATE_T, d_Date(2000, 1, 2), big), (Bytes{7, 0xD0, 1, 2}));
  EXPECT_EQ(Stored(D_TIME_T, d_Time(3, 4, 5.25F, 2, -30), big), (Bytes{2, 0xE2, 5, 0xE6, 5, 25}));
  EXPECT_EQ(Stored(D_TIMESTAMP_T, d_Timestamp(d_Date(2000, 1, 2), d_Time(3, 4, 5.5F, 1, 0)), big),
            (Bytes{7, 0xD0, 1, 2, 1, 0, 4, 4, 5, 50}));
  EXPECT_EQ(Stored(D_INTERVAL_T, d_Interval(0, 0, 0, 1.5F), big), (Bytes{0x3F, 0xC0, 0, 0}));
}

TEST(DateRows, EveryFormComesBack) {
  std::mt19937 random(7);
  for (Kind const & kind : kKinds) {
    EXPECT_EQ(Mgr().MemLenGet(kind.id, 1), kind.memLen);
    EXPECT_EQ(Mgr().IsFixed(kind.id), 1);
    EXPECT_EQ(Mgr().SupportsNullValue(kind.id), kind.null);
    EXPECT_EQ(Mgr().DiskLenGetFromMemFile(kind.id, nullptr, 1, 3), 3 * kind.stored);
    for (unsigned char format : {1, 2, 129, 130}) {
      Bytes bytes(5 * kind.stored);
      for (unsigned char & byte : bytes)
        byte = static_cast<unsigned char>(random());
      // At odd addresses, so that nothing relies on alignment of stored bytes.
      Bytes shifted(bytes.size() + 1);
      std::memcpy(shifted.data() + 1, bytes.data(), bytes.size());
      void * const values = Mgr().Create(kind.id, 5);
      EXPECT_EQ(Mgr().Load(kind.id, values, shifted.data() + 1, format, 5), bytes.size());
      Bytes back(bytes.size() + 1);
      EXPECT_EQ(Mgr().Store(kind.id, back.data() + 1, values, format, 5), bytes.size());
      EXPECT_EQ(back, shifted) << static_cast<int>(kind.id);

      // The four ways of Translate.
      void * const copy = Mgr().Create(kind.id, 5);
      EXPECT_EQ(Mgr().Translate(kind.id, copy, 8, 0, bytes.data(), format, 0, 5), bytes.size());
      Bytes out(bytes.size());
      EXPECT_EQ(Mgr().Translate(kind.id, out.data(), format, 0, copy, 8, 0, 5), bytes.size());
      EXPECT_EQ(out, bytes);
      EXPECT_EQ(Mgr().Translate(kind.id, copy, 8, 0, values, 8, 0, 5), 5 * kind.memLen);
      Bytes longer(bytes.size() + 3, 0xEE);
      EXPECT_EQ(Mgr().Translate(kind.id, longer.data(), 2, static_cast<unsigned int>(longer.size()),
                                bytes.data(), 1, static_cast<unsigned int>(bytes.size()), 5),
                bytes.size());
      EXPECT_EQ(longer[bytes.size()] + longer[bytes.size() + 2], 0);
      EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), longer.begin()));
      Mgr().Delete(kind.id, copy, 5);
      Mgr().Delete(kind.id, values, 5);
    }
  }
}

TEST(DateRows, StoredFormsOrderByTheirFields) {
  struct {
    char id;
    Bytes a;
    Bytes b;
    int order; // with wildcards
    int exact;
  } const cases[] = {
      {ZnDATE_T, {7, 0xE8, 3, 15}, {0xFF, 0xFF, 3, 15}, 0, 1},
      {ZnDATE_T, {0xFF, 0xFF, 3, 15}, {7, 0xE8, 3, 15}, -1, -1}, // only the second is a pattern
      {ZnDATE_T, {7, 0xE8, 0xFF, 15}, {7, 0xE8, 3, 15}, -1, -1},
      {ZnDATE_T, {7, 0xE8, 3, 15}, {7, 0xE8, 0xFF, 16}, -1, 1},
      {ZnDATE_T, {0x80, 0, 1, 1}, {0, 1, 1, 1}, -1, -1},
      {ZnTIME_T, {1, 2, 3}, {1, 0xFF, 3}, 0, 1},
      {ZnTIME_T, {0x80, 2, 3}, {1, 2, 3}, -1, -1},
      {ZnDATIME_T, {7, 0xE8, 3, 15, 1, 2, 3}, {7, 0xE8, 3, 15, 1, 2, 0xFF}, 0, 1},
      {ZnDATIME_N_T,
       {7, 0xE8, 3, 15, 1, 2, 3, 0, 0, 0, 9},
       {7, 0xE8, 3, 15, 1, 2, 3, 0xFF, 0xFF, 0xFF, 0xFF},
       0,
       1},
      {ZnTIMESPAN_T,
       {7, 0xE8, 3, 15, 1, 2, 3, 0, 0, 0, 9},
       {7, 0xE8, 3, 15, 1, 2, 3, 0, 0, 1, 0},
       -1,
       -1},
      {D_DATE_T, {0x80, 0, 1, 1}, {0, 1, 1, 1}, 1, 1}, // years without sign
      {D_DATE_T, {7, 0xE8, 3, 15}, {0xFF, 0xFF, 3, 0xFF}, 0, -1},
      {D_TIME_T, {1, 0, 5, 0, 0, 0}, {2, 0, 3, 0, 0, 0}, -1, -1}, // the zone first
      {D_TIME_T, {1, 0, 5, 0, 0, 0}, {1, 0, 0xFF, 0, 0, 0}, 1, 1},
      {D_TIMESTAMP_T,
       {7, 0xE8, 3, 15, 0, 0, 5, 0, 0, 0},
       {7, 0xE8, 3, 15, 0, 0, 0xFF, 0, 0, 0},
       1,
       1}, // in the time no wildcards
      {D_TIMESTAMP_T,
       {7, 0xE8, 3, 15, 0, 0, 5, 0, 0, 1},
       {7, 0xE8, 3, 0xFF, 0, 0, 5, 0, 0, 0},
       1,
       1},
  };
  for (auto c : cases) {
    for (bool little : {false, true}) {
      if (little) // turn the numbers round
        for (Bytes * bytes : {&c.a, &c.b}) {
          if (c.id != ZnTIME_T && c.id != D_TIME_T)
            std::swap((*bytes)[0], (*bytes)[1]);
          if (bytes->size() == 11)
            std::reverse(bytes->begin() + 7, bytes->end());
        }
      unsigned char const format = little ? 1 : 2;
      EXPECT_EQ(Mgr().Cmp(c.id, c.a.data(), c.b.data(), 0, 1, format), c.order) << int(c.id);
      EXPECT_EQ(Mgr().Cmp(c.id, c.a.data(), c.b.data(), ZnCmpNoWildcards, 1, format), c.exact)
          << int(c.id);
    }
  }
}

TEST(DateRows, MemoryFormsOrderByTheirClasses) {
  ZnDate a[] = {{2024, -1, 15}, {2024, 1, 1}};
  ZnDate b[] = {{2024, 3, 15}, {2024, 1, 9}};
  EXPECT_EQ(Mgr().Cmp(ZnDATE_T, a, b, 0, 2, 8), -8);
  EXPECT_EQ(Mgr().Cmp(ZnDATE_T, b, a, ZnCmpNoWildcards, 2, 8), 4);
  d_Date gap[] = {{1582, 10, 10}, {1582, 10, 20}};
  EXPECT_EQ(Mgr().Cmp(D_DATE_T, gap, gap + 1, 0, 1, 8), 0);
  d_Time zones[] = {{10, 0, 0.0F, 2, 0}, {10, 0, 0.0F, 0, 0}};
  EXPECT_EQ(Mgr().Cmp(D_TIME_T, zones, zones + 1, 0, 1, 8), 0);
  for (unsigned char format : {1, 0x88}) // the whole byte tells the form of the standard classes,
    EXPECT_NE(Mgr().Cmp(D_TIME_T, zones, zones + 1, 0, 1, format), 0);
  EXPECT_EQ(Mgr().Cmp(ZnDATE_T, a, b, 0, 2, 0x88), -8); // the low nibble that of the others
}

TEST(DateRows, KeysCutShort) {
  for (Kind const & kind : kKinds) {
    Bytes a(3 * kind.stored, 1);
    Bytes b = a;
    b.back() = 2;
    int error = -1;
    auto const compare = [&](unsigned int length) {
      return Mgr().Cmp(kind.id, length, a.data(), 0, b.data(), 0, 3, 2, error);
    };
    EXPECT_LT(compare(0), 0);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(compare(2 * kind.stored), 0) << int(kind.id);
    EXPECT_EQ(error, 2101);
    unsigned int const whole = Mgr().Hash(kind.id, 0, a.data(), 1, 2, error);
    EXPECT_EQ(Mgr().Hash(kind.id, kind.stored, a.data(), 3, 2, error), whole);
    EXPECT_EQ(error, 2101);
    EXPECT_EQ(Mgr().Hash(kind.id, 0, a.data(), 2, 2, error), 0u); // equal elements cancel
    EXPECT_EQ(Mgr().Cmp(kind.id, 0, nullptr, 0, nullptr, 0, 0, 1, error), 0);
  }
}

TEST(DateRows, Hashes) {
  constexpr unsigned int kMultiplier = 1103515245;
  ZnDate date(2000, -1, 2);
  ZnTime time(3, 4, -5);
  ZnDateTime stamp(date, time);
  ZnDateTimeN precise(stamp);
  precise.nanoseconds = -7;
  unsigned int const dateWord = (2000u << 16) - 0x100 + 2;
  unsigned int const timeWord = (3u << 16) + 0x400 - 5;
  struct {
    char id;
    void * value;
    unsigned int word;
  } const cases[] = {{ZnDATE_T, &date, dateWord},
                     {ZnTIME_T, &time, timeWord},
                     {ZnDATIME_T, &stamp, dateWord ^ timeWord},
                     {ZnDATIME_N_T, &precise, dateWord ^ timeWord ^ static_cast<unsigned int>(-7)}};
  int error;
  for (auto const & c : cases) {
    EXPECT_EQ(Mgr().Hash(c.id, 0, c.value, 1, 8, error), c.word * kMultiplier) << int(c.id);
    for (unsigned char format : {1, 2}) {
      unsigned char stored[12];
      Mgr().Store(c.id, stored, c.value, format, 1);
      EXPECT_EQ(Mgr().Hash(c.id, 0, stored, 1, format, error), c.word * kMultiplier) << int(c.id);
    }
  }
  d_Timestamp standard(d_Date(date), d_Time(3, 4, 5.75F, -2, 0));
  d_Time standardTime = standard.time();
  unsigned int const instant = (3u << 24) + (4u << 16) + 5;
  EXPECT_EQ(Mgr().Hash(D_TIMESTAMP_T, 0, &standard, 1, 8, error),
            (dateWord ^ instant) * kMultiplier);
  EXPECT_EQ(Mgr().Hash(D_TIME_T, 0, &standardTime, 1, 8, error), instant * kMultiplier);
  // The bytes FE 00 01 04 05 4B, which a timestamp takes with their sign.
  auto const shifted = [](unsigned int first) {
    return (((((first << 4 ^ 0) << 4 ^ 1) << 4 ^ 4) << 4 ^ 5) << 4) ^ 0x4B;
  };
  for (unsigned char format : {1, 2}) {
    unsigned char stored[10];
    Mgr().Store(D_TIMESTAMP_T, stored, &standard, format, 1);
    EXPECT_EQ(Mgr().Hash(D_TIMESTAMP_T, 0, stored, 1, format, error),
              (dateWord ^ shifted(0xFFFFFFFE)) * kMultiplier);
    EXPECT_EQ(Mgr().Hash(D_DATE_T, 0, stored, 1, format, error), dateWord * kMultiplier);
    EXPECT_EQ(Mgr().Hash(D_TIME_T, 0, stored + 4, 1, format, error), shifted(0xFE) * kMultiplier);
  }
}

namespace {

/// The text of a boxed value, and the value of a boxed text.
template <class Value>
std::string Box(char id, Value value) {
  ZnTypeConvertData * const box = Mgr().ConvertTo(id, &value, 1);
  ZnString const & text = *box->GetString(0);
  std::string const result = text.IsNullValue() ? "null" : Str(text);
  delete box;
  return result;
}

template <class Value>
Value Unbox(char id, char const * text, unsigned int which = 0) {
  ZnString strings[2];
  if (text)
    strings[which] = text;
  else
    strings[which].SetNullValue();
  ZnTypeConvertData box(ZnSTRING_T, 2, strings, nullptr);
  auto * const values = static_cast<Value *>(Mgr().ConvertFrom(id, &box, 3));
  Value const result = values[which];
  box.mgr = nullptr; // the strings are ours
  Mgr().Delete(id, values, 3);
  return result;
}

} // namespace

TEST(DateRows, BoxesOfText) {
  ZnDateTime const stamp(ZnDate(2000, 1, 1), ZnTime(1, 0, 0));
  ZnDateTimeN precise(stamp);
  precise.nanoseconds = 50;
  EXPECT_EQ(Box(ZnDATE_T, stamp.date), "2451545");
  EXPECT_EQ(Box(ZnTIME_T, stamp.time), "3600");
  EXPECT_EQ(Box(ZnDATIME_T, stamp), "2451545:3600");
  EXPECT_EQ(Box(ZnDATIME_N_T, ZnDateTimeN(stamp)), "2451545:3600");
  EXPECT_EQ(Box(ZnDATIME_N_T, precise), "2451545:3600.50");
  EXPECT_EQ(Box(ZnTIMESPAN_T, ZnTimeSpan(-1.5)), "-1.5");
  EXPECT_EQ(Box(D_DATE_T, d_Date(2000, 1, 1)), "2451545");
  EXPECT_EQ(Box(D_TIME_T, d_Time(1, 0, 9.5F, 5, 30)), "3609");
  EXPECT_EQ(Box(D_TIMESTAMP_T, d_Timestamp(2000, 1, 1, 1, 0, 0)), "2451545:3600");
  EXPECT_EQ(Box(D_INTERVAL_T, d_Interval(1, 0, 0, 0.5F)), "86400");
  EXPECT_EQ(Box(D_INTERVAL_T, d_Interval(0, 0, 0, 2147483648.0F)), "2147483647");
  EXPECT_EQ(Box(D_INTERVAL_T, d_Interval(-30000, 0, 0, 0)), "-2147483648");
  EXPECT_EQ(Box(ZnDATE_T, ZnDate::NullValue()), "null");
  EXPECT_EQ(Box(ZnTIMESPAN_T, ZnTimeSpan()), "null");

  EXPECT_EQ(Raw(Unbox<ZnDate>(ZnDATE_T, "2451545")), "2000 1 1");
  EXPECT_EQ(Raw(Unbox<ZnDate>(ZnDATE_T, "")), "-4713 11 24");
  EXPECT_TRUE(Unbox<ZnDate>(ZnDATE_T, nullptr).IsNullValue());
  EXPECT_TRUE(Unbox<ZnTime>(ZnTIME_T, nullptr).IsNullValue());
  EXPECT_EQ(Raw(Unbox<ZnTime>(ZnTIME_T, "90000", 1)), "25 0 0");
  for (auto const & [text, fields] : std::initializer_list<std::pair<char const *, char const *>>{
           {"2451545", "2000 1 1 0 0 0"},
           {"2451545:3600", "2000 1 1 1 0 0"},
           {"2451545:", "2000 1 1 0 0 0"},
           {":3600", "0 0 0 1 0 0"},
           {"", "-4713 11 24 0 0 0"}})
    EXPECT_EQ(Raw(Unbox<ZnDateTime>(ZnDATIME_T, text)), fields) << text;
  for (auto const & [text, fields] : std::initializer_list<std::pair<char const *, char const *>>{
           {"2451545", "2000 1 1 0 0 0 0"},
           {"2451545:3600.50", "2000 1 1 1 0 0 50"},
           {"2451545:.50", "2000 1 1 0 0 0 50"},
           {"0:3600", "0 1 1 1 0 0 0"}})
    EXPECT_EQ(Raw(Unbox<ZnDateTimeN>(ZnDATIME_N_T, text)), fields) << text;
  EXPECT_TRUE(Unbox<ZnDateTimeN>(ZnDATIME_N_T, "0:0.0").IsNullValue());
  EXPECT_EQ(Unbox<ZnDateTimeN>(ZnDATIME_N_T, "0:0.5").GetTotalDays(), 0);
  EXPECT_TRUE(Unbox<ZnTimeSpan>(ZnTIMESPAN_T, "0").IsNullValue());
  EXPECT_EQ(Raw(Unbox<ZnTimeSpan>(ZnTIMESPAN_T, "-1.5")), "0 0 -1 23 59 58 500000000");
  EXPECT_TRUE(Unbox<d_Date>(D_DATE_T, "2451545") == d_Date(2000, 1, 1));
  EXPECT_TRUE(Unbox<d_Date>(D_DATE_T, nullptr) == d_Date(0, 0, 0));
  EXPECT_TRUE(Unbox<d_Time>(D_TIME_T, "-1") == d_Time(23, 59, 59));
  EXPECT_TRUE(Unbox<d_Timestamp>(D_TIMESTAMP_T, "2451545:61") == d_Timestamp(2000, 1, 1, 0, 1, 1));
  EXPECT_TRUE(Unbox<d_Timestamp>(D_TIMESTAMP_T, ":61") ==
              d_Timestamp(d_Date(0, 0, 0), d_Time(0, 1, 1)));
  EXPECT_TRUE(Unbox<d_Timestamp>(D_TIMESTAMP_T, "2451545") == d_Timestamp(2000, 1, 1, 0, 0, 0));
  EXPECT_TRUE(Unbox<d_Timestamp>(D_TIMESTAMP_T, nullptr) ==
              d_Timestamp(d_Date(0, 0, 0), d_Time(0)));
  EXPECT_TRUE(Unbox<d_Time>(D_TIME_T, nullptr) == d_Time(0));
  EXPECT_TRUE(Unbox<d_Interval>(D_INTERVAL_T, "2") == d_Interval(2, 0, 0, 0));
  EXPECT_TRUE(Unbox<d_Interval>(D_INTERVAL_T, nullptr) == d_Interval());
}

TEST(DateRows, NewValuesAndDefaults) {
  FixedClock const clock(1700000000, 0, 0);
  std::string expected[] = {"2023 11 14", "22 13 20", "2023 11 14 22 13 20",
                            "-32768 -128 -128 -128 -128 -128 0"};
  auto const check = [](char id, auto * sample, std::string const & created,
                        std::string const & standard, bool null) {
    using Value = std::remove_pointer_t<decltype(sample)>;
    auto * values = static_cast<Value *>(Mgr().Create(id, 2));
    EXPECT_EQ(Raw(values[1]), created);
    Mgr().Delete(id, values, 2);
    values = static_cast<Value *>(Mgr().DefaultValue(id, 2, 0));
    EXPECT_EQ(Raw(values[1]), standard);
    Mgr().Delete(id, values, 2);
    values = static_cast<Value *>(Mgr().DefaultValue(id, 1, 1));
    EXPECT_EQ(Mgr().IsNullValue(id, values), null);
    Mgr().Delete(id, values, 1);
  };
  check(ZnDATE_T, static_cast<ZnDate *>(nullptr), expected[0], "-4713 11 24", true);
  check(ZnTIME_T, static_cast<ZnTime *>(nullptr), expected[1], "0 0 0", true);
  check(ZnDATIME_T, static_cast<ZnDateTime *>(nullptr), expected[2], "-4713 11 24 0 0 0", true);
  check(ZnDATIME_N_T, static_cast<ZnDateTimeN *>(nullptr), expected[3], expected[3], true);
  check(ZnTIMESPAN_T, static_cast<ZnTimeSpan *>(nullptr), expected[3], expected[3], true);
  auto * const stamp = static_cast<d_Timestamp *>(Mgr().DefaultValue(D_TIMESTAMP_T, 1, 0));
  EXPECT_TRUE(*stamp == d_Timestamp(-4712, 1, 1, 0, 0, 0));
  Mgr().Delete(D_TIMESTAMP_T, stamp, 1);
  auto * const date = static_cast<d_Date *>(Mgr().DefaultValue(D_DATE_T, 1, 1));
  EXPECT_TRUE(*date == d_Date(-4712, 1, 1));
  EXPECT_EQ(Mgr().IsNullValue(D_DATE_T, date), 0);
  Mgr().Delete(D_DATE_T, date, 1);
}

TEST(DateRows, Steps) {
  FixedClock const clock(1700000000, 5, 0);
  auto const step = [](char id, auto value, unsigned char what, unsigned char format = 8) {
    unsigned char bytes[16];
    format == 8 ? static_cast<void>(std::memcpy(bytes, static_cast<void *>(&value), sizeof value))
                : static_cast<void>(Mgr().Store(id, bytes, &value, format, 1));
    int const result = Mgr().GetValue(id, bytes, 0, format, what);
    decltype(value) stepped = value;
    format == 8 ? static_cast<void>(std::memcpy(static_cast<void *>(&stepped), bytes, sizeof value))
                : static_cast<void>(Mgr().Load(id, &stepped, bytes, format, 1));
    return std::pair(result, stepped);
  };
  for (unsigned char format : {8, 1, 129}) {
    EXPECT_EQ(Raw(step(ZnDATE_T, ZnDate(2000, 2, 29), 'M', format).second), "2000 3 1");
    EXPECT_EQ(Raw(step(ZnTIME_T, ZnTime(0, 0, 59), 'N', format).second), "0 1 0");
    auto const [code, same] = step(ZnTIME_T, ZnTime(23, 59, 59), 'N', format);
    EXPECT_EQ(code, ZnErrNoNextValue);
    EXPECT_EQ(Raw(same), "23 59 59");
    EXPECT_EQ(
        Raw(step(ZnDATIME_T, ZnDateTime(ZnDate(2000, 12, 31), ZnTime(23, 59, 59)), 'M', format)
                .second),
        "2001 1 1 0 0 0");
    EXPECT_EQ(Raw(step(ZnDATIME_N_T, ZnDateTimeN(ZnDate(2000, 1, 1)), 'M', format).second),
              "2000 1 1 0 0 0 1");
    EXPECT_EQ(Raw(step(ZnDATIME_N_T, ZnDateTimeN(), 'O', format).second), "2023 11 14 22 13 20 5");
    EXPECT_EQ(Raw(step(ZnDATE_T, ZnDate(0), 'O', format).second), "2023 11 14");
    EXPECT_EQ(Raw(step(ZnTIME_T, ZnTime(0), 'O', format).second), "22 13 20");
    EXPECT_EQ(Raw(step(ZnDATIME_T, ZnDateTime::Null(), 'O', format).second), "2023 11 14 22 13 20");
    EXPECT_TRUE(step(D_DATE_T, d_Date(0, 1, 1), 'O', format).second == d_Date(2023, 11, 14));
    EXPECT_TRUE(step(D_TIME_T, d_Time(0), 'O', format).second == d_Time(22, 13, 20));
    EXPECT_EQ(Raw(step(ZnTIMESPAN_T, ZnTimeSpan::ZeroValue(), 'M', format).second),
              "0 0 0 0 0 0 1");
    EXPECT_EQ(step(ZnTIMESPAN_T, ZnTimeSpan::ZeroValue(), 'O', format).first, 0);
    EXPECT_TRUE(step(D_DATE_T, d_Date(1582, 10, 4), 'M', format).second == d_Date(1582, 10, 15));
    EXPECT_TRUE(step(D_TIME_T, d_Time(0), 'M', format).second == d_Time(0, 0, 0.01F));
    EXPECT_EQ(step(D_TIME_T, d_Time(0), 'x', format).first, ZnErrNotSupported);
    EXPECT_GT(step(D_INTERVAL_T, d_Interval(), 'N', format).second, d_Interval());
    EXPECT_EQ(step(D_TIMESTAMP_T, d_Timestamp(2000, 1, 1, 0, 0, 0), 'O', format).second.second(),
              20);
  }
  EXPECT_EQ(step(ZnDATE_T, ZnDate(32767, 12, 31), 'M').first, ZnErrNoNextValue);
  // Wildcards are numbers here.
  EXPECT_EQ(Raw(step(ZnDATIME_N_T, ZnDateTimeN(2000, 1, 1, 0, 0, 0, -1), 'M').second),
            "2000 1 1 0 0 0 0");
  for (unsigned char format : {1, 0x88}) // the rows themselves step in memory alone
    EXPECT_EQ(Mgr().rows[+ZnTIME_T]->GetValue(Bytes(3).data(), 0, format, 'M'), ZnErrNotSupported);
}

TEST(DateRows, TimeStamps) {
  ZnTimeStampRecord const record = {2000, 1, 2, 3, 4, 5, 250000000};
  auto const stored = [&](char id) {
    Bytes bytes(16);
    int const length = Mgr().StoreTimeStamp(id, bytes.data(), 2, &record);
    bytes.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return bytes;
  };
  EXPECT_EQ(stored(ZnDATE_T), (Bytes{7, 0xD0, 1, 2}));
  EXPECT_EQ(stored(ZnTIME_T), (Bytes{3, 4, 5}));
  EXPECT_EQ(stored(ZnDATIME_T), (Bytes{7, 0xD0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(stored(ZnDATIME_N_T), (Bytes{7, 0xD0, 1, 2, 3, 4, 5, 0x0E, 0xE6, 0xB2, 0x80}));
  EXPECT_EQ(stored(D_DATE_T), (Bytes{7, 0xD0, 1, 2}));
  EXPECT_EQ(stored(D_TIME_T), (Bytes{0, 0, 3, 4, 5, 25}));
  EXPECT_EQ(stored(D_TIMESTAMP_T), (Bytes{7, 0xD0, 1, 2, 0, 0, 3, 4, 5, 25}));
  EXPECT_TRUE(stored(ZnTIMESPAN_T).empty());
}
