#include "zantms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

// Estimates and end keys of comparisons with numbers.

namespace {

ZnTypeMgr mgr;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr float kFloor = 1.1920928955078125e-07F;

/// Values in stored form.
template <class Value>
std::vector<unsigned char> Key(char id, Value value, unsigned char format) {
  std::vector<unsigned char> bytes(32);
  bytes.resize(mgr.Store(id, bytes.data(), &value, format, 1));
  return bytes;
}

/// The share that the comparison of a column between `lo` and `hi` with `value` selects.
template <class Value>
float Share(char id, Value lo, Value hi, unsigned short op, Value value,
            unsigned char format = 130) {
  auto low = Key(id, lo, format);
  auto high = Key(id, hi, format);
  auto constant = Key(id, value, format);
  ZnIdxBounds area{low.data(), high.data(), 0, 0, 0, 0, 0};
  unsigned short const before = op;
  float const share = mgr.EvalAndBound(id, &area, op, constant.data(), format, 1, nullptr, nullptr);
  EXPECT_EQ(op, before);
  return share;
}

TEST(NumberBounds, CountWholeValues) {
  struct Case {
    int value;
    unsigned short op;
    double share;
  };
  for (auto [value, op, share] :
       {Case{50, 1, 0.01}, Case{50, 2, 0.50}, Case{50, 4, 0.49}, Case{50, 3, 0.51},
        Case{50, 5, 0.50}, Case{50, 6, 0.99}, Case{50, 7, 1.0}, Case{50, 0, 0.0}, Case{500, 2, 1.0},
        Case{500, 4, 0.0}, Case{500, 1, 0.0}, Case{-5, 4, 1.0}, Case{-5, 2, 0.0}, Case{-5, 1, 0.0},
        Case{0, 2, 0.0}, Case{99, 4, 0.0}, Case{100, 1, 0.0}, Case{50, 0x8001, 0.01},
        Case{50, 0x7FF1, 0.01}}) {
    for (unsigned char format : {1, 2, 129, 130})
      for (char id : {Zn4B_T, ZnINT_T, ZnENUM_T})
        EXPECT_EQ(Share(id, 0, 99, op, value, format), static_cast<float>(share))
            << op << " " << value;
    EXPECT_EQ(Share<short>(Zn2B_T, 0, 99, op, static_cast<short>(value)),
              static_cast<float>(share));
  }
}

// Every range of a small world, against counting the values that a comparison selects.
TEST(NumberBounds, AgreeWithCounting) {
  for (int lo = -4; lo <= 4; ++lo) {
    for (int hi = lo; hi <= 4; ++hi) {
      for (int value = lo; value <= hi; ++value) {
        for (unsigned short op = 0; op < 8; ++op) {
          int selected = 0;
          for (int x = lo; x <= hi; ++x)
            selected += ((op & 1) != 0 && x == value) || ((op & 2) != 0 && x < value) ||
                        ((op & 4) != 0 && x > value);
          auto const share = static_cast<float>(selected / double(hi - lo + 1));
          EXPECT_EQ(Share<signed char>(Zn1B_T, lo, hi, op, value), share);
          EXPECT_EQ(Share<unsigned char>(ZnU1B_T, lo + 100, hi + 100, op, value + 100), share);
          EXPECT_EQ(Share<unsigned short>(ZnU2B_T, lo + 40000, hi + 40000, op, value + 40000),
                    share);
          for (char id : {ZnU4B_T, ZnUNSIGNED_T, ZnBLOCKID_T})
            EXPECT_EQ(Share<unsigned int>(id, lo + 3000000000u, hi + 3000000000u, op,
                                          value + 3000000000u),
                      share);
          // A wide number inside the range counts for one value at least, selected or not.
          float const wide = std::max(share, static_cast<float>(1.0 / (hi - lo + 1)));
          EXPECT_EQ(Share<long long>(Zn8B_T, lo, hi, op, value), wide);
          EXPECT_EQ(Share<unsigned long long>(ZnU8B_T, lo + (1ull << 52), hi + (1ull << 52), op,
                                              value + (1ull << 52)),
                    wide);
          EXPECT_EQ((Share<ZnNull_short>(ZnNULL_2B_T, {short(lo), 0}, {short(hi), 0}, op,
                                         {short(value), 0})),
                    share);
          EXPECT_EQ((Share<ZnNull_u8b>(ZnNULL_U8B_T, {lo + (1ull << 52), 0}, {hi + (1ull << 52), 0},
                                       op, {value + (1ull << 52), 0})),
                    share);
          EXPECT_EQ((Share<ZnNull_float>(ZnNULL_FLOAT_T, {float(lo), 0}, {float(hi), 0}, op,
                                         {float(value), 0})),
                    share);
          float const floored = selected == 0 ? 0.0F : std::max(share, kFloor);
          EXPECT_EQ(Share<double>(ZnDOUBLE_T, lo, hi, op, value), floored);
          EXPECT_EQ(Share<float>(ZnFLOAT_T, lo, hi, op, value), floored);
          EXPECT_EQ((Share<ZnNull_double>(ZnNULL_DOUBLE_T, {double(lo), 0}, {double(hi), 0}, op,
                                          {double(value), 0})),
                    floored);
        }
      }
    }
  }
}

TEST(NumberBounds, GiveNarrowRangesOfWideNumbersAValue) {
  long long const lo = 1ll << 62;
  EXPECT_EQ(Share<long long>(Zn8B_T, lo, lo + 2, 1, lo + 1), 1.0F);
  EXPECT_EQ(Share<long long>(Zn8B_T, lo, lo + 2, 2, lo + 1), 1.0F);
  EXPECT_EQ(Share<long long>(Zn8B_T, lo, lo + 2, 4, lo + 1), 1.0F);
  // Outside it counts as inside where the comparison reaches over the other end.
  EXPECT_EQ(Share<long long>(Zn8B_T, lo, lo + 2, 2, lo + 3), 1.0F);
  EXPECT_EQ(Share<long long>(Zn8B_T, lo, lo + 2, 2, lo - 1), 0.0F);
  EXPECT_EQ(Share<long long>(Zn8B_T, lo, lo + 2, 4, lo - 1), 1.0F);
  EXPECT_EQ(Share<long long>(Zn8B_T, lo, lo + 2, 4, lo + 3), 0.0F);
  unsigned long long const high = 0xFFFFFFFFFFFFFFF0;
  EXPECT_EQ(Share<unsigned long long>(ZnU8B_T, high, high + 2, 2, high + 1), 1.0F);
}

TEST(NumberBounds, HoldFloatsInsideTheirFloor) {
  EXPECT_EQ(Share<double>(ZnDOUBLE_T, -kInfinity, 10, 4, 5), kFloor);
  EXPECT_EQ(Share<double>(ZnDOUBLE_T, -kInfinity, 10, 2, 5), 1.0F);
  EXPECT_EQ(Share<double>(ZnDOUBLE_T, 0, 1e300, 1, 5), kFloor);
  EXPECT_EQ(Share<double>(ZnDOUBLE_T, 0, 1e300, 4, 2e300), 0.0F);
  EXPECT_EQ(Share<float>(ZnFLOAT_T, 0, 1e30F, 1, 5), kFloor);
  EXPECT_EQ((Share<ZnNull_double>(ZnNULL_DOUBLE_T, {0, 0}, {1e30, 0}, 1, {5, 0})), kFloor);
  EXPECT_LT((Share<ZnNull_float>(ZnNULL_FLOAT_T, {0, 0}, {1e30F, 0}, 1, {5, 0})), kFloor); // none
  for (double value : {kInfinity, -kInfinity, std::nan(""), 0.0}) {
    for (double lo : {-kInfinity, std::nan(""), 0.0}) {
      for (unsigned short op = 0; op < 8; ++op) {
        float const share = Share<double>(ZnDOUBLE_T, lo, 10, op, value);
        EXPECT_TRUE(share >= 0.0F && share <= 1.0F)
            << value << " " << lo << " " << op << ": " << share;
      }
    }
  }
}

TEST(NullableBounds, TakeFixedSharesForNulls) {
  struct Case {
    ZnNull_int lo, hi, value;
    unsigned short op;
    double range;
    double total;
  };
  ZnNull_int const null;
  ZnNull_int const ten{10, 0}, three{3, 0}, zero{0, 0}, far{500, 0}, below{-5, 0};
  for (auto const & [lo, hi, value, op, range, total] :
       {Case{null, ten, null, 1, 0.001, 11}, Case{null, ten, three, 1, 0.1, 11},
        Case{null, ten, three, 4, 0.5, 11}, Case{null, ten, three, 2, 0.5, 11},
        Case{null, ten, three, 7, 1.1, 11}, Case{null, ten, null, 4, 0.5, 11},
        Case{null, ten, null, 2, 0.0, 11}, Case{null, null, three, 7, 0.0, 1},
        Case{null, null, null, 1, 0.001, 1}, Case{null, null, null, 4, 0.0, 1},
        Case{zero, ten, null, 1, 0.0, 11}, Case{zero, ten, null, 4, 0.5, 11},
        Case{zero, ten, null, 2, 0.0, 11}, Case{zero, ten, three, 4, 7, 11},
        Case{zero, ten, far, 2, 11, 11}, Case{zero, ten, far, 5, 0, 11},
        Case{zero, ten, below, 4, 11, 11}, Case{zero, ten, below, 3, 0, 11}})
    EXPECT_EQ(Share(ZnNULL_INT_T, lo, hi, op, value), static_cast<float>(range / total))
        << range << " of " << total;
}

TEST(BooleanBounds, IsAThird) {
  for (unsigned short op = 0; op < 8; ++op) {
    ZnIdxBounds area{};
    unsigned char truth = 1;
    EXPECT_EQ(mgr.EvalAndBound(ZnBOOLEAN_T, &area, op, &truth, 1, 1, nullptr, nullptr),
              static_cast<float>(1.0 / 3.0));
    EXPECT_EQ(mgr.EvalAndBound(ZnBOOLEAN_T, nullptr, op, &truth, 1, 1, nullptr, nullptr), 0.0F);
  }
}

TEST(EndKeys, FollowTheOperator) {
  struct Kind {
    char id;
    unsigned int size;
  };
  for (auto [id, size] : {Kind{Zn1B_T, 1},         Kind{ZnU1B_T, 1},
                          Kind{Zn2B_T, 2},         Kind{ZnU2B_T, 2},
                          Kind{Zn4B_T, 4},         Kind{ZnU4B_T, 4},
                          Kind{ZnINT_T, 4},        Kind{ZnUNSIGNED_T, 4},
                          Kind{ZnENUM_T, 4},       Kind{ZnBLOCKID_T, 4},
                          Kind{Zn8B_T, 8},         Kind{ZnU8B_T, 8},
                          Kind{ZnFLOAT_T, 4},      Kind{ZnDOUBLE_T, 8},
                          Kind{D_INTERVAL_T, 4},   Kind{ZnBOOLEAN_T, 1},
                          Kind{ZnNULL_1B_T, 2},    Kind{ZnNULL_U1B_T, 2},
                          Kind{ZnNULL_2B_T, 3},    Kind{ZnNULL_U2B_T, 3},
                          Kind{ZnNULL_INT_T, 5},   Kind{ZnNULL_UNSIGNED_T, 5},
                          Kind{ZnNULL_4B_T, 5},    Kind{ZnNULL_U4B_T, 5},
                          Kind{ZnNULL_FLOAT_T, 5}, Kind{ZnNULL_DOUBLE_T, 9},
                          Kind{ZnNULL_8B_T, 9},    Kind{ZnNULL_U8B_T, 9},
                          Kind{ZnINT64_T, 8},      Kind{ZnNULL_ZNINT64_T, 9},
                          Kind{ZnSEAL_T, 6}}) {
    SCOPED_TRACE(mgr.NameGet(id));
    for (unsigned short op = 0; op < 8; ++op) {
      for (unsigned int count : {1u, 3u}) {
        std::vector<unsigned char> constant(count * size, 0);
        constant.back() = 5;
        ZnIdxBounds out{};
        out.lowCondition = out.highCondition = 77;
        EXPECT_EQ(mgr.EvalAndBound(id, nullptr, op, constant.data(), 130, count, &out, nullptr),
                  0.0F);
        EXPECT_EQ(out.lowKey != nullptr, (op & 2) == 0);
        EXPECT_EQ(out.highKey != nullptr, (op & 4) == 0);
        EXPECT_EQ(out.lowLength, out.lowKey != nullptr ? count * size : 0);
        EXPECT_EQ(out.highLength, out.highKey != nullptr ? count * size : 0);
        for (void * key : {out.lowKey, out.highKey}) {
          if (key != nullptr) {
            EXPECT_EQ(std::memcmp(key, constant.data(), constant.size()), 0);
          }
        }
        // A key that is there stays.
        void * const low = out.lowKey;
        unsigned short all = 1;
        std::vector<unsigned char> other(count * size, 9);
        mgr.EvalAndBound(id, nullptr, all, other.data(), 130, count, &out, nullptr);
        EXPECT_TRUE(low == nullptr || out.lowKey == low);
        EXPECT_TRUE(out.lowCondition == 77 && out.highCondition == 77);
        std::free(out.lowKey);
        std::free(out.highKey);
      }
    }
  }
}

} // namespace
