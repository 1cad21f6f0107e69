#include "zantms.h"

#include "stored_support.h"

#include <gtest/gtest.h>

#include <string>

// Seals and truth values: conversions, order, text, and their rows.

namespace {

ZnSeal Seal(__int64 number) {
  ZnSeal seal;
  seal.ConvertFrom(number);
  return seal;
}

std::string Print(ZnSeal const & seal) {
  ZnString out("=");
  return seal.PrintToZnString(out).StrGet();
}

constexpr __int64 kOnes = 0xFFFFFFFFFFFF;

TEST(Seal, HoldsTheLow48Bits) {
  struct Case {
    __int64 number;
    __int64 held;
  };
  constexpr Case kCases[] = {{0x123456789ABC, 0x123456789ABC},
                             {0x7FFF123456789ABC, 0x123456789ABC},
                             {-1, kOnes},
                             {0, 0},
                             {0x10000, 0x10000}};
  for (Case const & c : kCases) {
    ZnSeal seal = Seal(c.number);
    ZnSeal same;
    same.ConvertFrom(ZnInt64(c.number));
    EXPECT_EQ(seal == same, 1);
    __int64 number = 5;
    ZnInt64 wide = 5;
    seal.ConvertTo(number);
    seal.ConvertTo(wide);
    EXPECT_EQ(number, c.held);
    EXPECT_EQ(wide.Get8b(), c.held);
  }
  ZnSeal const seal = Seal(0x123456789ABC);
  EXPECT_EQ(seal.sealHigh, 0x1234);
  EXPECT_EQ(seal.sealMiddle, 0x5678);
  EXPECT_EQ(seal.sealLow, 0x9ABC);
  ZnSeal ofObject;
  ofObject.ConvertFrom(ZnObjId{99, 2, 1});
  EXPECT_EQ(Print(ofObject), "=4294967298");
}

TEST(Seal, ReadsANumberOrNothing) {
  struct Case {
    char const * text;
    __int64 held;
  };
  constexpr Case kCases[] = {{"", 0},        {"12", 12},        {"0x10", 16},
                             {"12a", kOnes}, {"-2", kOnes - 1}, {"281474976710657", 1},
                             {"08", kOnes}};
  for (Case const & c : kCases) {
    ZnSeal seal = Seal(777);
    seal.ScanFromZnString(ZnString(c.text));
    EXPECT_EQ(seal == Seal(c.held), 1) << c.text;
  }
}

class SealRow : public testing::Test {
protected:
  ZnTypeMgr mgr;
};

TEST_F(SealRow, HasOneStoredFormThatSortsByBytes) {
  __int64 const numbers[] = {0, 1, 0xFF, 0x100, 0x10000, 0xFFFF0000, 0x100000000, kOnes};
  for (unsigned char const format : {1, 2}) {
    ZnSeal const seal = Seal(0x123456789ABC);
    EXPECT_EQ(StoredHex(mgr, ZnSEAL_T, &seal, format, 1), "123456789ABC");
    for (__int64 const x : numbers)
      for (__int64 const y : numbers) {
        ZnSeal a = Seal(x);
        ZnSeal b = Seal(y);
        std::vector<char> storedA = Stored(mgr, ZnSEAL_T, &a, format, 1);
        std::vector<char> storedB = Stored(mgr, ZnSEAL_T, &b, format, 1);
        int error = 4;
        int const stored =
            mgr.Cmp(ZnSEAL_T, 1, storedA.data(), 1, storedB.data(), 0, 1, format, error);
        EXPECT_EQ((stored > 0) - (stored < 0), (x > y) - (x < y));
        int const inMemory = mgr.Cmp(ZnSEAL_T, 1, &a, 1, &b, 0, 1, 8, error);
        EXPECT_EQ((inMemory > 0) - (inMemory < 0), (x > y) - (x < y));
        EXPECT_EQ(error, 0);
        ZnSeal back;
        EXPECT_EQ(mgr.Load(ZnSEAL_T, &back, storedA.data(), format, 1), 6u);
        EXPECT_EQ(back == a, 1);
      }
  }
  ZnSeal pair[] = {Seal(5), Seal(0x7000)};
  ZnSeal other[] = {Seal(5), Seal(0x3000)};
  int error = 4;
  EXPECT_EQ(mgr.Cmp(ZnSEAL_T, 1, pair, 1, other, 0, 2, 8, error), 0x4000);
  EXPECT_EQ(mgr.Cmp(ZnSEAL_T, 1, pair, 1, other, 0, 2, 0x88, error), 0x40); // by bytes
  EXPECT_EQ(error, 0);
}

TEST_F(SealRow, HashesWordsAsTheyLie) {
  ZnSeal seal = Seal(0x123456789ABC);
  std::vector<char> stored = Stored(mgr, ZnSEAL_T, &seal, 1, 1);
  int error;
  constexpr unsigned int kMultiplier = 1103515245;
  unsigned int const word = 0x1234 ^ 0x5678 ^ 0x9ABC;
  EXPECT_EQ(mgr.Hash(ZnSEAL_T, 0, &seal, 1, 8, error), word * kMultiplier);
  EXPECT_EQ(mgr.Hash(ZnSEAL_T, 0, stored.data(), 1, 2, error), word * kMultiplier);
  EXPECT_EQ(mgr.Hash(ZnSEAL_T, 0, stored.data(), 1, 1, error),
            (0x3412u ^ 0x7856 ^ 0xBC9A) * kMultiplier);
  EXPECT_EQ(mgr.Hash(ZnSEAL_T, 6, stored.data(), 2, 2, error), word * kMultiplier);
  EXPECT_EQ(error, ZnErrIncomplete);
}

TEST_F(SealRow, EstimatesByNumber) {
  ZnSeal const keys[] = {Seal(0), Seal(99), Seal(50)};
  unsigned char stored[3][6];
  for (int i = 0; i < 3; ++i)
    mgr.Store(ZnSEAL_T, stored[i], &keys[i], 1, 1);
  ZnIdxBounds area = {stored[0], stored[1], 6, 6, 0, 0, 0};
  ZnIdxBounds out = {};
  unsigned short op = ZnOpEqual;
  EXPECT_FLOAT_EQ(mgr.EvalAndBound(ZnSEAL_T, &area, op, stored[2], 1, 1, &out, nullptr), 0.01F);
  EXPECT_EQ(Hex(out.lowKey, out.lowLength), "000000000032");
  EXPECT_EQ(Hex(out.highKey, out.highLength), "000000000032");
  std::free(out.lowKey);
  std::free(out.highKey);
  EXPECT_EQ(mgr.EvalAndBound(ZnSEAL_T, nullptr, op, stored[2], 1, 1, nullptr, nullptr), 0.0F);
}

TEST_F(SealRow, MovesThroughTextAndBoxes) {
  ZnSeal seals[] = {Seal(12), Seal(-1)};
  ZnString out("<");
  mgr.PrintToZnString(ZnSEAL_T, out, seals, nullptr, 1);
  EXPECT_STREQ(out.StrGet(), "<12");
  constexpr unsigned short kWideText[] = {'7', '8', 0};
  ZnString wide(kWideText);
  EXPECT_EQ(mgr.ScanFromZnString(ZnSEAL_T, &seals[0], wide, nullptr, 1), &seals[0]);
  EXPECT_EQ(seals[0] == Seal(78), 1);
  EXPECT_EQ(mgr.ScanFromZnString(ZnSEAL_T, nullptr, wide, nullptr, 1), nullptr);

  ZnTypeConvertData * const box = mgr.ConvertTo(ZnSEAL_T, seals, 2);
  EXPECT_STREQ(box->GetString(1)->StrGet(), "281474976710655");
  auto * const back = static_cast<ZnSeal *>(mgr.ConvertFrom(ZnSEAL_T, box, 3));
  EXPECT_EQ(back[1] == seals[1], 1);
  EXPECT_EQ(back[2] == Seal(0), 1);
  mgr.Delete(ZnSEAL_T, back, 3);
  delete box;
  EXPECT_EQ(mgr.GetValue(ZnSEAL_T, seals, 6, 8, 'N'), ZnErrNotSupported);
  EXPECT_EQ(mgr.IsNullValue(ZnSEAL_T, seals), 0);
}

// ---- ZnBoolean ----------------------------------------------------------------------------------

ZnBoolean State(unsigned char state) {
  ZnBoolean truth;
  truth.state = state;
  return truth;
}

TEST(Boolean, ComparesWithItsLikeAndWithNumbers) {
  struct Case {
    unsigned char a;
    unsigned char b;
    bool equal;
    bool less;
    bool greater;
  };
  constexpr Case kCases[] = {{0, 0, true, false, false},   {0, 1, false, true, false},
                             {1, 0, false, false, true},   {255, 255, true, false, false},
                             {255, 0, false, true, false}, {0, 255, false, false, true},
                             {255, 1, false, true, false}, {1, 255, false, false, true},
                             {200, 1, true, true, false},  {2, 1, true, false, true}};
  for (Case const & c : kCases) {
    EXPECT_EQ(State(c.a) == State(c.b), c.equal) << int(c.a) << " " << int(c.b);
    EXPECT_EQ(State(c.a) < State(c.b), c.less) << int(c.a) << " " << int(c.b);
    EXPECT_EQ(State(c.a) > State(c.b), c.greater) << int(c.a) << " " << int(c.b);
    if (c.b > 1)
      continue;
    for (int const number : {c.b ? 1 : 0, c.b ? -77 : 0}) {
      EXPECT_EQ(State(c.a) == number, c.equal);
      EXPECT_EQ(State(c.a) < number, c.less);
      EXPECT_EQ(State(c.a) > number, c.greater);
    }
  }
  EXPECT_EQ(ZnBoolean(5).state, 1);
  ZnBoolean truth = State(255);
  truth = 0;
  EXPECT_EQ(truth == 0, 1);
  EXPECT_EQ(truth.SetNullValue(), 0);
  EXPECT_EQ(truth.IsNullValue(), 1);
}

class BooleanRow : public testing::Test {
protected:
  ZnTypeMgr mgr;
};

TEST_F(BooleanRow, MovesItsByteInEveryFormat) {
  ZnBoolean const values[] = {State(0), State(1), State(255), State(7)};
  for (unsigned char const format : {1, 2}) {
    EXPECT_EQ(StoredHex(mgr, ZnBOOLEAN_T, values, format, 4), "0001FF07");
    ZnBoolean back[4];
    EXPECT_EQ(mgr.Translate(ZnBOOLEAN_T, back, 8, 0, const_cast<ZnBoolean *>(values), 8, 0, 4), 4u);
    EXPECT_EQ(back[2].IsNullValue(), 1);
  }
}

TEST_F(BooleanRow, StepsToTrue) {
  struct Case {
    unsigned char state;
    unsigned char format;
    unsigned char what;
    int result;
    unsigned char after;
  };
  constexpr Case kCases[] = {{0, 8, 'N', 0, 1},
                             {255, 8, 'M', 0, 1},
                             {1, 8, 'N', ZnErrNoNextValue, 1},
                             {1, 8, 'O', 0, 1},
                             {1, 8, 2, 0, 0},
                             {1, 8, 'x', ZnErrNotSupported, 1},
                             {0, 2, 'N', ZnErrNotSupported, 0}};
  for (Case const & c : kCases) {
    ZnBoolean truth = State(c.state);
    EXPECT_EQ(
        mgr.rows[static_cast<unsigned char>(ZnBOOLEAN_T)]->GetValue(&truth, 1, c.format, c.what),
        c.result);
    EXPECT_EQ(truth.state, c.after);
  }
}

TEST_F(BooleanRow, BoxesDigits) {
  ZnBoolean values[] = {State(1), State(0), State(255), State(7)};
  ZnTypeConvertData * const box = mgr.ConvertTo(ZnBOOLEAN_T, values, 4);
  EXPECT_STREQ(box->GetString(0)->StrGet(), "1");
  EXPECT_STREQ(box->GetString(1)->StrGet(), "0");
  EXPECT_TRUE(box->GetString(2)->IsNullValue());
  EXPECT_STREQ(box->GetString(3)->StrGet(), "0");
  *box->GetString(3) = "10";
  auto * const back = static_cast<ZnBoolean *>(mgr.ConvertFrom(ZnBOOLEAN_T, box, 5));
  EXPECT_EQ(back[0].state, 1);
  EXPECT_EQ(back[1].state, 0);
  EXPECT_EQ(back[2].state, 255);
  EXPECT_EQ(back[3].state, 1);
  EXPECT_EQ(back[4].state, 255);
  mgr.Delete(ZnBOOLEAN_T, back, 5);
  delete box;
  for (int const wantNull : {0, 1}) {
    auto * const made = static_cast<ZnBoolean *>(mgr.DefaultValue(ZnBOOLEAN_T, 1, wantNull));
    EXPECT_EQ(made->state, wantNull ? 255 : 0);
    mgr.Delete(ZnBOOLEAN_T, made, 1);
  }
}

} // namespace
