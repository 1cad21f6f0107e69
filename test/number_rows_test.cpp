#include "zantms.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

// Life, stored forms, translation and stepping of plain and nullable numbers.

namespace {

using Bytes = std::vector<unsigned char>;

ZnTypeMgr mgr;

constexpr char kPlainIds[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 42, 43};
constexpr char kNullableIds[] = {28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 44, 45};

Bytes Stored(char id, void const * value, unsigned char format, unsigned int count = 1) {
  Bytes bytes(mgr.DiskLenGet(id, value, format, count, 8) + 1, 0xEE);
  EXPECT_EQ(mgr.Store(id, bytes.data(), value, format, count), bytes.size() - 1);
  EXPECT_EQ(bytes.back(), 0xEE);
  bytes.pop_back();
  return bytes;
}

TEST(NumberLife, ClearsWhatItPromises) {
  for (char const id : kPlainIds) {
    SCOPED_TRACE(mgr.NameGet(id));
    unsigned int const memLen = mgr.MemLenGet(id, 1);
    Bytes const zeros(3 * memLen);
    Bytes bytes(3 * memLen + 1, 0xEE);
    mgr.ConstructorPtrGet(id)(bytes.data(), 3, 0);
    EXPECT_EQ(std::memcmp(bytes.data(), zeros.data(), zeros.size()), 0);
    EXPECT_EQ(bytes.back(), 0xEE);
    for (int wantNull : {0, 1}) {
      void * const values = mgr.DefaultValue(id, 3, wantNull);
      EXPECT_EQ(std::memcmp(values, zeros.data(), zeros.size()), 0);
      EXPECT_EQ(mgr.Delete(id, values, 3), nullptr);
    }
    void * const none = mgr.Create(id, 0);
    EXPECT_NE(none, nullptr);
    mgr.Delete(id, none, 0);
    EXPECT_EQ(mgr.Delete(id, nullptr, 3), nullptr);
    if (memLen == 1) {
      void * const created = mgr.Create(id, 3);
      EXPECT_EQ(std::memcmp(created, zeros.data(), 3), 0);
      mgr.Delete(id, created, 3);
    }
    // Assignment and copy, from an array and from one value.
    Bytes source(3 * memLen);
    for (std::size_t i = 0; i < source.size(); ++i)
      source[i] = static_cast<unsigned char>(i + 1);
    for (auto const move : {mgr.AssignmentPtrGet(id), mgr.CopyPtrGet(id)}) {
      move(bytes.data(), source.data(), 3, 0);
      EXPECT_EQ(std::memcmp(bytes.data(), source.data(), source.size()), 0);
      move(bytes.data(), source.data() + memLen, 3, 1);
      for (int i = 0; i < 3; ++i)
        EXPECT_EQ(std::memcmp(&bytes[i * memLen], &source[memLen], memLen), 0);
      EXPECT_EQ(bytes.back(), 0xEE);
    }
  }
}

TEST(NullableLife, MakesNulls) {
  for (char const id : kNullableIds) {
    SCOPED_TRACE(mgr.NameGet(id));
    unsigned int const memLen = mgr.MemLenGet(id, 1);
    for (unsigned int count : {0u, 1u, 2u, 5u}) {
      for (void * const values : {mgr.Create(id, count), mgr.DefaultValue(id, count, 0),
                                  mgr.DefaultValue(id, count, 1)}) {
        for (unsigned int i = 0; i < std::max(count, 1u); ++i)
          EXPECT_EQ(mgr.IsNullValue(id, mgr.GetArrayElement(id, values, i, 0)), 1);
        if (count > 1) { // the count stands in front, and decides
          std::uint64_t word;
          std::memcpy(&word, static_cast<char *>(values) - 8, sizeof word);
          EXPECT_EQ(word, count);
        }
        EXPECT_EQ(mgr.Delete(id, values, count > 1 ? 2 : count), nullptr);
      }
    }
    alignas(16) unsigned char raw[48];
    std::memset(raw, 0x55, sizeof raw);
    EXPECT_EQ(mgr.IsNullValue(id, raw), 0x55);
    mgr.ConstructorPtrGet(id)(raw, 2, 0);
    EXPECT_EQ(mgr.IsNullValue(id, raw + memLen), 1);
    raw[memLen / 2] = 0xFF; // the flag is sign-extended
    EXPECT_EQ(mgr.IsNullValue(id, raw), -1);
    EXPECT_EQ(mgr.SetNullPtrGet(id)(raw), 0);
    EXPECT_EQ(mgr.IsNullValue(id, raw), 1);
  }
}

TEST(NumberStorage, FollowsTheFormat) {
  int const number = 0x01020304;
  short const half = 0x0102;
  long long const wide = 0x0102030405060708;
  float const real = 1.0F;
  double const fraction = -2.0;
  signed char const byte = -1;
  struct Case {
    char id;
    void const * value;
    Bytes little;
  };
  Case const cases[] = {{Zn1B_T, &byte, {0xFF}},
                        {ZnU1B_T, &byte, {0xFF}},
                        {Zn2B_T, &half, {2, 1}},
                        {ZnU2B_T, &half, {2, 1}},
                        {Zn4B_T, &number, {4, 3, 2, 1}},
                        {ZnU4B_T, &number, {4, 3, 2, 1}},
                        {ZnINT_T, &number, {4, 3, 2, 1}},
                        {ZnUNSIGNED_T, &number, {4, 3, 2, 1}},
                        {ZnENUM_T, &number, {4, 3, 2, 1}},
                        {ZnBLOCKID_T, &number, {4, 3, 2, 1}},
                        {Zn8B_T, &wide, {8, 7, 6, 5, 4, 3, 2, 1}},
                        {ZnU8B_T, &wide, {8, 7, 6, 5, 4, 3, 2, 1}},
                        {ZnFLOAT_T, &real, {0, 0, 0x80, 0x3F}},
                        {ZnDOUBLE_T, &fraction, {0, 0, 0, 0, 0, 0, 0, 0xC0}}};
  for (auto const & [id, value, little] : cases) {
    SCOPED_TRACE(mgr.NameGet(id));
    Bytes const big(little.rbegin(), little.rend());
    for (unsigned char format : {1, 8, 129, 0x21})
      EXPECT_EQ(Stored(id, value, format), little);
    for (unsigned char format : {2, 130}) {
      EXPECT_EQ(Stored(id, value, format), big);
      Bytes loaded(little.size());
      EXPECT_EQ(mgr.Load(id, loaded.data(), big.data(), format, 1), little.size());
      EXPECT_EQ(loaded, little);
    }
    ZnTypeRow const & row = *mgr.rows[int(id)];
    EXPECT_EQ(row.NullSizeGet(3), 3 * little.size());
    for (unsigned char format : {1, 2, 8, 0})
      EXPECT_EQ(mgr.DiskLenGetFromMemFile(id, nullptr, format, 3), 3 * little.size());
  }
}

TEST(NullableStorage, PutsTheFlagInFrontButInMemoryFormBehind) {
  ZnNull_short const seven{7, 0};
  ZnNull_short const null{7, 5}; // a null stores its value as it stands
  EXPECT_EQ(Stored(ZnNULL_2B_T, &seven, 1), (Bytes{0, 7, 0}));
  EXPECT_EQ(Stored(ZnNULL_2B_T, &seven, 2), (Bytes{0, 0, 7}));
  EXPECT_EQ(Stored(ZnNULL_2B_T, &seven, 8), (Bytes{7, 0, 0}));
  EXPECT_EQ(Stored(ZnNULL_2B_T, &null, 130), (Bytes{1, 0, 7}));
  ZnNull_int const pair[] = {{-2, 0}, {}};
  EXPECT_EQ(Stored(ZnNULL_INT_T, pair, 1, 2), (Bytes{0, 0xFE, 0xFF, 0xFF, 0xFF, 1, 0, 0, 0, 0}));
  struct Case {
    Bytes stored;
    unsigned char format;
    short value;
    int isNull;
  };
  for (auto const & [stored, format, value, isNull] :
       {Case{{1, 7, 0}, 1, 0, 1}, Case{{2, 7, 0}, 1, 7, 0}, Case{{255, 0, 7}, 2, 7, 0},
        Case{{7, 0, 1}, 8, 0, 1}, Case{{7, 1, 0}, 8, 263, 0}}) {
    ZnNull_short loaded{9, 9};
    EXPECT_EQ(mgr.Load(ZnNULL_2B_T, &loaded, stored.data(), format, 1), 3u);
    EXPECT_EQ(loaded.value, value);
    EXPECT_EQ(loaded.isNull, isNull);
  }
  unsigned int const sizes[] = {2, 2, 3, 3, 5, 5, 5, 5, 5, 9, 9, 9};
  for (std::size_t i = 0; i < std::size(kNullableIds); ++i) {
    ZnTypeRow const & row = *mgr.rows[int(kNullableIds[i])];
    EXPECT_EQ(row.NullSizeGet(3), 3 * sizes[i]);
    EXPECT_EQ(row.SizeGet(nullptr, 1, 2, 3), 3 * sizes[i]);
    EXPECT_EQ(row.SizeGetFromMemFile(nullptr, 8, 3), 3 * sizes[i]);
  }
}

TEST(Translate, KnowsFourWays) {
  int values[] = {1, 2, 3};
  int moved[3] = {};
  Bytes stored(12);
  EXPECT_EQ(mgr.Translate(ZnINT_T, moved, 8, 0, values, 8, 0, 3), 12u);
  EXPECT_EQ(std::memcmp(moved, values, 12), 0);
  EXPECT_EQ(mgr.Translate(ZnINT_T, stored.data(), 130, 0, values, 8, 0, 3), 12u);
  EXPECT_EQ(stored, (Bytes{0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 3}));
  std::memset(moved, 0, sizeof moved);
  EXPECT_EQ(mgr.Translate(ZnINT_T, moved, 8, 0, stored.data(), 2, 0, 3), 12u);
  EXPECT_EQ(std::memcmp(moved, values, 12), 0);
  // Between stored forms the bytes stay, whatever the two formats.
  Bytes longer(8, 0xEE);
  EXPECT_EQ(mgr.Translate(ZnINT_T, longer.data(), 1, 8, &stored[8], 2, 4, 99), 4u);
  EXPECT_EQ(longer, (Bytes{0, 0, 0, 3, 0, 0, 0, 0}));
  Bytes shorter(5, 0xEE);
  EXPECT_EQ(mgr.Translate(ZnINT_T, shorter.data(), 1, 4, stored.data(), 2, 8, 0), 4u);
  EXPECT_EQ(shorter, (Bytes{0, 0, 0, 1, 0xEE}));
  signed char bytes[] = {1, 2, 3}, bytesMoved[3];
  EXPECT_EQ(mgr.Translate(Zn1B_T, bytesMoved, 8, 0, bytes, 8, 0, 3), 3u);
  ZnNull_int nulls[] = {{5, 0}, {}}, nullsMoved[] = {{9, 0}, {9, 0}};
  EXPECT_EQ(mgr.Translate(ZnNULL_INT_T, nullsMoved, 8, 0, nulls, 8, 0, 2), 16u);
  EXPECT_TRUE(nullsMoved[0].value == 5 && nullsMoved[1].isNull == 1);
  EXPECT_EQ(mgr.Translate(ZnNULL_INT_T, stored.data(), 2, 0, nulls, 8, 0, 2), 10u);
  EXPECT_EQ(mgr.Translate(ZnNULL_INT_T, nullsMoved, 8, 0, stored.data(), 2, 0, 2), 10u);
  EXPECT_EQ(nullsMoved[0].value, 5);
}

// ---- Stepping -----------------------------------------------------------------------------------

template <class Number>
void ExpectSteps(char id) {
  SCOPED_TRACE(mgr.NameGet(id));
  using Limits = std::numeric_limits<Number>;
  for (unsigned char what : {'M', 'N'}) {
    for (Number from : {Limits::min(), Number(-1), Number(0), Number(Limits::max() - 1)}) {
      if (from == Limits::max())
        continue;
      Number value = from;
      EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, what), 0);
      EXPECT_EQ(value, Number(from + 1));
      // A stored value keeps only the bits of keys and of little-endian order in its format.
      unsigned char little[8];
      mgr.Store(id, little, &from, 129, 1);
      EXPECT_EQ(mgr.GetValue(id, little, sizeof(Number), 129, what), 0);
      EXPECT_EQ(std::memcmp(little, &value, sizeof value), 0);
    }
    Number last = Limits::max();
    EXPECT_EQ(mgr.GetValue(id, &last, 0, 8, what), ZnErrNoNextValue);
    EXPECT_EQ(last, Limits::max());
  }
  Number value = 5;
  EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, 'O'), 0);
  EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, 2), ZnErrNotSupported);
  EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, 'P'), ZnErrNotSupported);
  EXPECT_EQ(mgr.rows[int(id)]->GetValue(&value, 0, 1, 'M'), ZnErrNotSupported);
  EXPECT_EQ(value, 5);
}

TEST(Step, AddsOneToIntegersUpToTheLast) {
  ExpectSteps<signed char>(Zn1B_T);
  ExpectSteps<unsigned char>(ZnU1B_T);
  ExpectSteps<short>(Zn2B_T);
  ExpectSteps<unsigned short>(ZnU2B_T);
  ExpectSteps<int>(Zn4B_T);
  ExpectSteps<unsigned int>(ZnU4B_T);
  ExpectSteps<int>(ZnINT_T);
  ExpectSteps<unsigned int>(ZnUNSIGNED_T);
  ExpectSteps<unsigned int>(ZnBLOCKID_T);
  ExpectSteps<long long>(Zn8B_T);
  ExpectSteps<unsigned long long>(ZnU8B_T);
  int value = 1;
  EXPECT_EQ(mgr.GetValue(ZnENUM_T, &value, 0, 8, 'M'), ZnErrNotSupported);
}

template <class Float>
void ExpectFloatSteps(char id) {
  using Limits = std::numeric_limits<Float>;
  Float const eps = Limits::epsilon();
  Float const infinity = Limits::infinity();
  struct Case {
    Float from;
    Float to;
    int result;
  };
  Case const cases[] = {{1, 1 + eps, 0},
                        {-1, -1 + eps / 2, 0},
                        {Float(-1.5), Float(-1.5) + eps, 0},
                        {0, Limits::min(), 0},
                        {Float(-0.0), Limits::min(), 0},
                        {Limits::denorm_min(), Limits::min(), 0},
                        {-Limits::denorm_min(), 0, 0},
                        {-Limits::min(), 0, 0},
                        {Limits::max(), Limits::max(), ZnErrNoNextValue},
                        {-infinity, -Limits::max(), 0},
                        {infinity, infinity, ZnErrNoNextValue},
                        {8, 8 + 8 * eps, 0},
                        {-8, -8 + 4 * eps, 0},
                        {-Limits::max(), std::nextafter(-Limits::max(), Float(0)), 0}};
  for (auto [from, to, result] : cases) {
    Float value = from;
    EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, 'N'), result) << from;
    EXPECT_EQ(value, to) << from;
    Float kept = from;
    EXPECT_EQ(mgr.GetValue(id, &kept, 0, 8, 'O'), ZnErrNotSupported);
    EXPECT_EQ(kept, from);
  }
  Float nan = Limits::quiet_NaN();
  EXPECT_EQ(mgr.GetValue(id, &nan, 0, 8, 'M'), ZnErrNoNextValue);
  EXPECT_TRUE(std::isnan(nan));
  // Between the normal numbers a step is the next one of the type.
  for (Float value = Float(-3); value < 3; value += Float(0.37)) {
    Float next = value;
    EXPECT_EQ(mgr.GetValue(id, &next, 0, 8, 'M'), 0);
    EXPECT_EQ(next, std::nextafter(value, infinity));
  }
}

TEST(Step, WalksTheNormalFloats) {
  ExpectFloatSteps<float>(ZnFLOAT_T);
  ExpectFloatSteps<double>(ZnDOUBLE_T);
  double lowest = 1;
  EXPECT_EQ(mgr.rows[int(ZnDOUBLE_T)]->GetValue(&lowest, 0, 8, 2), 0);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(lowest), 0xFFF8000000000000);
  float lowestFloat = 1;
  EXPECT_EQ(mgr.rows[int(ZnFLOAT_T)]->GetValue(&lowestFloat, 0, 8, 2), 0);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(lowestFloat), 0xFFC00000);
}

template <class Number>
void ExpectNullableSteps(char id, Number lowest, Number last) {
  SCOPED_TRACE(mgr.NameGet(id));
  ZnNullable<Number> value;
  EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, 'O'), ZnErrNotSupported);
  EXPECT_EQ(value.isNull, 1);
  EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, 'M'), 0);
  EXPECT_EQ(std::memcmp(&value.value, &lowest, sizeof lowest), 0);
  EXPECT_EQ(value.isNull, 0);
  value = {last, 0};
  EXPECT_EQ(mgr.GetValue(id, &value, 0, 8, 'N'), ZnErrNoNextValue);
  EXPECT_EQ(value.value, last);
  EXPECT_EQ(value.isNull, 0);
  value = {Number(5), 0};
  unsigned char stored[9];
  mgr.Store(id, stored, &value, 129, 1);
  EXPECT_EQ(mgr.GetValue(id, stored, sizeof(Number) + 1, 129, 'N'), 0);
  mgr.Load(id, &value, stored, 129, 1);
  EXPECT_GT(value.value, Number(5));
}

TEST(Step, TakesNullsToTheLowestValue) {
  ExpectNullableSteps<signed char>(ZnNULL_1B_T, -128, 127);
  ExpectNullableSteps<unsigned char>(ZnNULL_U1B_T, 0, 255);
  ExpectNullableSteps<short>(ZnNULL_2B_T, -32768, 32767);
  ExpectNullableSteps<unsigned short>(ZnNULL_U2B_T, 0, 65535);
  ExpectNullableSteps<int>(ZnNULL_INT_T, INT_MIN, INT_MAX);
  ExpectNullableSteps<unsigned int>(ZnNULL_UNSIGNED_T, 0, UINT_MAX);
  ExpectNullableSteps<int>(ZnNULL_4B_T, INT_MIN, INT_MAX);
  ExpectNullableSteps<unsigned int>(ZnNULL_U4B_T, 0, UINT_MAX);
  ExpectNullableSteps<long long>(ZnNULL_8B_T, LLONG_MIN, LLONG_MAX);
  ExpectNullableSteps<unsigned long long>(ZnNULL_U8B_T, 0, ULLONG_MAX);
  ExpectNullableSteps<float>(ZnNULL_FLOAT_T, std::bit_cast<float>(0xFFC00000), FLT_MAX);
  ExpectNullableSteps<double>(ZnNULL_DOUBLE_T, std::bit_cast<double>(0xFFF8000000000000), DBL_MAX);
}

TEST(TimeStamp, IsRefusedWithoutASourceOrATypeForIt) {
  char target[16];
  ZnTimeStampRecord const record = {2024, 2, 29, 12, 30, 59, 1};
  EXPECT_EQ(mgr.StoreTimeStamp(ZnDATE_T, target, 1, nullptr), ZnErrNotSupported);
  for (char id : {ZnINT_T, ZnTIMESPAN_T, ZnRES_T, char(100), char(-5)})
    EXPECT_EQ(mgr.StoreTimeStamp(id, target, 1, &record), ZnErrNotSupported);
}

} // namespace
