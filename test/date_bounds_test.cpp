#include "date_support.h"

#include <cstdlib>
#include <cstring>

/// The bound rows: recorded keys and estimates by hand, and the promise that no value which a
/// comparison accepts lies outside of the keys.

namespace {

using Bytes = std::vector<unsigned char>;

ZnTypeMgr & Mgr() {
  static ZnTypeMgr mgr;
  return mgr;
}

/// Bounds whose keys are freed.
struct Bounds : ZnIdxBounds {
  Bounds() : ZnIdxBounds{} {}
  ~Bounds() {
    std::free(lowKey);
    std::free(highKey);
  }
  Bounds(Bounds const &) = delete;
  Bounds & operator=(Bounds const &) = delete;
  Bytes Low() const { return Key(lowKey, lowLength); }
  Bytes High() const { return Key(highKey, highLength); }

private:
  static Bytes Key(void * key, unsigned int length) {
    auto * const bytes = static_cast<unsigned char *>(key);
    return key ? Bytes(bytes, bytes + length) : Bytes();
  }
};

/// Fields of a type as they are drawn at random, high byte first.
struct Kind {
  char id;
  unsigned int stored;
  bool hasDate;
};

constexpr Kind kKinds[] = {{ZnDATE_T, 4, true},      {ZnTIME_T, 3, false},
                           {ZnDATIME_T, 7, true},    {ZnDATIME_N_T, 11, true},
                           {ZnTIMESPAN_T, 11, true}, {D_DATE_T, 4, true},
                           {D_TIME_T, 6, false},     {D_TIMESTAMP_T, 10, true}};

bool IsStandard(Kind const & kind) { return kind.id == D_DATE_T || kind.id == D_TIMESTAMP_T; }

/// A value of a narrow range, so that fields often agree; its date is one. Now and then a date is
/// far away, but not in the standard classes, whose stored years have no sign.
Bytes RandomValue(Kind const & kind, std::mt19937 & random) {
  Bytes bytes;
  auto const put = [&](int number) { bytes.push_back(static_cast<unsigned char>(number)); };
  auto const below = [&](int limit) { return static_cast<int>(random() % limit); };
  if (kind.hasDate) {
    bool const far = !IsStandard(kind) && below(8) == 0;
    ZnDate const date(far ? below(13000000) : 2451545 + below(900));
    for (int byte : {date.year >> 8, +date.year, +date.month, +date.day})
      put(byte);
  }
  bool const hasNanoseconds = kind.stored == 11;
  while (bytes.size() < (hasNanoseconds ? 7 : kind.stored))
    put(below(3));
  if (hasNanoseconds)
    for (int byte : {0, 0, 0, below(3)})
      put(byte);
  return bytes;
}

void PutWildcards(Kind const & kind, Bytes & bytes, std::mt19937 & random) {
  std::size_t at = 0;
  if (kind.hasDate) {
    if (random() % 4 == 0 && !IsStandard(kind))
      bytes[0] = bytes[1] = 0xFF;
    at = 2;
  }
  if (kind.id == D_TIMESTAMP_T || kind.id == D_TIME_T)
    return; // these record constants as they stand
  for (; at < std::min<std::size_t>(kind.stored, 7); ++at)
    if (random() % 4 == 0)
      bytes[at] = 0xFF;
  if (kind.stored == 11 && random() % 4 == 0)
    std::fill(bytes.begin() + 7, bytes.end(), 0xFF);
}

} // namespace

TEST(DateBounds, NothingAcceptedLiesOutside) {
  std::mt19937 random(8);
  long accepted = 0;
  for (Kind const & kind : kKinds) {
    for (int round = 0; round < 4000; ++round) {
      unsigned int const count = round % 5 == 0 ? 2 : 1;
      Bytes constant;
      for (unsigned int i = 0; i < count; ++i) {
        Bytes element = RandomValue(kind, random);
        PutWildcards(kind, element, random);
        constant.insert(constant.end(), element.begin(), element.end());
      }
      for (unsigned short base : {1, 2, 3, 4, 5}) {
        bool const exact = random() % 3 == 0 && kind.id != ZnDATE_T && kind.id != D_DATE_T;
        unsigned short const flags = exact ? ZnCmpNoWildcards : 0;
        auto op = static_cast<unsigned short>(base | flags);
        Bounds out;
        out.lowCondition = out.highCondition = 3;
        Mgr().EvalAndBound(kind.id, nullptr, op, constant.data(), 2, count, &out, nullptr);
        ASSERT_EQ(out.Low().empty(), (base & 2) != 0);
        ASSERT_EQ(out.High().empty(), (base & 4) != 0);
        for (int i = 0; i < 12; ++i) {
          Bytes value;
          for (unsigned int j = 0; j < count; ++j) {
            Bytes const element = RandomValue(kind, random);
            value.insert(value.end(), element.begin(), element.end());
          }
          if (kind.id == ZnDATE_T && (value[0] > 0x7F || (value[0] == 0x7F && value[1] >= 0xFE)))
            continue; // the years at the ends
          int const order = Mgr().Cmp(kind.id, value.data(), constant.data(), flags, count, 2);
          if (!(order < 0 ? base & 2 : order > 0 ? base & 4 : base & 1))
            continue;
          ++accepted;
          auto const inside = [&](Bytes key, int sign) {
            return key.empty() || sign * Mgr().Cmp(kind.id, value.data(), key.data(),
                                                   ZnCmpNoWildcards, count, 2) >=
                                      0;
          };
          ASSERT_TRUE(inside(out.Low(), 1) && inside(out.High(), -1))
              << "type " << int(kind.id) << " op " << base << " flags " << flags << " value "
              << testing::PrintToString(value) << " constant " << testing::PrintToString(constant)
              << " keys " << testing::PrintToString(out.Low()) << ' '
              << testing::PrintToString(out.High());
        }
      }
    }
  }
  EXPECT_GT(accepted, 100000);
}

TEST(DateBounds, WildcardsWiden) {
  struct {
    char id;
    unsigned short op;
    Bytes constant;
    Bytes low;
    Bytes high;
    unsigned short opAfter;
    unsigned short condition; // of 3 before
  } const cases[] = {
      {ZnDATE_T, 1, {7, 0xE8, 0xFF, 0xFF}, {7, 0xE8, 1, 1}, {7, 0xE8, 12, 31}, 9, 3},
      {ZnDATE_T, 0x8011, {7, 0xE8, 2, 0xFF}, {7, 0xE8, 2, 1}, {7, 0xE8, 2, 29}, 0x8009, 3},
      {ZnDATE_T, 1, {0xFF, 0xFF, 2, 0xFF}, {0xED, 0x97, 11, 24}, {0x7F, 0xFE, 2, 28}, 9, 3},
      {ZnDATE_T, 1, {0xFF, 0xFF, 12, 5}, {0xED, 0x97, 12, 5}, {0x7F, 0xFE, 12, 5}, 9, 3},
      {ZnDATE_T, 1, {0xED, 0x97, 0xFF, 3}, {0xED, 0x97, 11, 24}, {0xED, 0x97, 12, 3}, 9, 3},
      {ZnDATE_T, 3, {7, 0xE8, 3, 1}, {}, {7, 0xE8, 3, 1}, 3, 3},
      {ZnDATE_T, 1, {0xED, 0x97, 12, 0xFF}, {0xED, 0x97, 12, 1}, {0xED, 0x97, 12, 31}, 9, 3},
      {ZnDATE_T, 0xFFF9, {7, 0xE8, 2, 1}, {7, 0xE8, 2, 1}, {7, 0xE8, 2, 1}, 0x8009, 3},
      {ZnTIME_T, 0xFFF9, {5, 6, 7}, {5, 6, 7}, {5, 6, 7}, 0x8001, 3},
      {ZnTIME_T, 0x49, {5, 0xFF, 7}, {5, 128, 128}, {5, 127, 127}, 9, 3},
      {ZnTIME_T, 0x11, {5, 0xFF, 7}, {5, 0xFF, 7}, {5, 0xFF, 7}, 1, 3},
      {ZnDATIME_T,
       1,
       {0xFF, 0xFF, 3, 1, 0, 0, 0},
       {128, 0, 128, 128, 128, 128, 128},
       {127, 255, 127, 127, 127, 127, 127},
       9,
       3},
      {ZnDATIME_T,
       0x11,
       {0xFF, 0xFF, 3, 1, 0, 0, 0},
       {0xFF, 0xFF, 3, 1, 0, 0, 0},
       {0xFF, 0xFF, 3, 1, 0, 0, 0},
       1,
       3},
      {ZnDATIME_N_T,
       0x11,
       {7, 0xE8, 3, 1, 0, 0, 0, 255, 255, 255, 255},
       {7, 0xE8, 3, 1, 0, 0, 0, 255, 255, 255, 255},
       {7, 0xE8, 3, 1, 0, 0, 0, 255, 255, 255, 255},
       1,
       3},
      {ZnDATIME_N_T,
       1,
       {7, 0xE8, 3, 1, 0, 0, 0, 255, 255, 255, 255},
       {7, 0xE8, 3, 1, 0, 0, 0, 0, 0, 0, 0},
       {7, 0xE8, 3, 1, 0, 0, 0, 0x3B, 0x9A, 0xCA, 0},
       9,
       3},
      {ZnDATIME_N_T,
       1,
       {7, 0xE8, 3, 1, 0, 0, 0xFF, 0, 0, 0, 9},
       {7, 0xE8, 3, 1, 0, 0, 128, 0, 0, 0, 0},
       {7, 0xE8, 3, 1, 0, 0, 127, 0x3B, 0x9A, 0xCA, 0},
       9,
       2},
      {D_DATE_T, 1, {7, 0xE8, 0xFF, 5}, {7, 0xE8, 128, 5}, {7, 0xE8, 127, 5}, 1, 3},
      {D_DATE_T, 0xFFF9, {7, 0xE8, 2, 1}, {7, 0xE8, 2, 1}, {7, 0xE8, 2, 1}, 0x8009, 3},
      {D_DATE_T, 1, {0xFF, 0xFF, 3, 5}, {128, 0, 3, 5}, {127, 255, 3, 5}, 1, 3},
      {D_TIME_T, 0x31, {1, 2, 3, 0xFF, 5, 6}, {1, 2, 3, 0xFF, 5, 6}, {1, 2, 3, 0xFF, 5, 6}, 1, 3},
  };
  for (auto const & c : cases) {
    Bounds out;
    out.lowCondition = out.highCondition = 3;
    unsigned short op = c.op;
    Bytes constant = c.constant;
    Mgr().EvalAndBound(c.id, nullptr, op, constant.data(), 2, 1, &out, nullptr);
    EXPECT_EQ(out.Low(), c.low) << int(c.id) << ' ' << testing::PrintToString(c.constant);
    EXPECT_EQ(out.High(), c.high) << int(c.id) << ' ' << testing::PrintToString(c.constant);
    EXPECT_EQ(op, c.opAfter);
    EXPECT_EQ(out.lowCondition, c.condition);
    EXPECT_EQ(out.highCondition, c.condition);
    // Without keys to widen, wildcards of nanoseconds have no part in it.
    op = c.op;
    Mgr().EvalAndBound(c.id, nullptr, op, constant.data(), 2, 1, nullptr, nullptr);
    EXPECT_EQ(op, c.constant.size() == 11 && c.condition == 3 ? 1 : c.opAfter);
    // Keys that are there stay, whatever the constant holds.
    Mgr().EvalAndBound(c.id, nullptr, op = 1, Bytes(11, 0xFF).data(), 2, 1, &out, nullptr);
    if (!c.low.empty()) {
      EXPECT_EQ(out.Low(), c.low);
    }
    EXPECT_EQ(out.High(), c.high);
  }
}

TEST(DateBounds, Estimates) {
  struct {
    char id;
    unsigned short op;
    Bytes lo;
    Bytes hi;
    Bytes constant;
    double share;
  } const cases[] = {
      // 2024 has 366 days, of which 29 lie in February and 31 before.
      {ZnDATE_T, 1, {7, 0xE8, 1, 1}, {7, 0xE8, 12, 31}, {7, 0xE8, 2, 0xFF}, 29 / 366.0},
      {ZnDATE_T, 2, {7, 0xE8, 1, 1}, {7, 0xE8, 12, 31}, {7, 0xE8, 2, 1}, 31 / 366.0},
      {ZnDATE_T, 4, {7, 0xE8, 1, 1}, {7, 0xE8, 12, 31}, {7, 0xE8, 2, 29}, 306 / 366.0},
      {ZnTIME_T, 3, {0, 0, 0}, {23, 59, 59}, {12, 0, 0}, 43201 / 86400.0},
      {ZnTIME_T, 2, {0, 0, 0}, {23, 59, 59}, {12, 0, 0, 18, 0, 0}, 0.5}, // by the first element
      {ZnDATIME_T,
       1,
       {7, 0xE8, 1, 1, 0, 0, 0},
       {7, 0xE8, 1, 1, 0, 0, 9},
       {7, 0xE8, 1, 1, 0, 0, 3},
       0.1},
      // Here every month has 31 days.
      {ZnDATIME_T,
       2,
       {7, 0xE8, 1, 1, 0, 0, 0},
       {7, 0xE8, 3, 1, 0, 0, 0},
       {7, 0xE8, 1, 31, 12, 0, 0},
       30.5 * 86400 / (62 * 86400 + 1)},
      {ZnDATIME_N_T,
       5,
       {7, 0xE8, 1, 1, 0, 0, 0, 0, 0, 0, 0},
       {7, 0xE8, 1, 1, 0, 0, 9, 0, 0, 0, 0},
       {7, 0xE8, 1, 1, 0, 0, 3, 0, 0, 0, 5},
       0.7},
      {D_DATE_T, 2, {7, 0xE8, 1, 1}, {7, 0xE8, 1, 10}, {7, 0xE8, 1, 4}, 0.3},
      {D_DATE_T, 4, {7, 0xE8, 1, 1}, {7, 0xE8, 1, 10}, {7, 0xE8, 1, 4}, 0.6},
      {D_DATE_T, 1, {7, 0xE8, 1, 1}, {7, 0xE8, 1, 10}, {0xFF, 0xFF, 1, 4}, 1.0},
      {D_DATE_T, 2, {7, 0xE8, 1, 1}, {7, 0xE8, 1, 10}, {7, 0xD0, 1, 4}, 0.0},
      {D_DATE_T, 2, {7, 0xE8, 1, 1}, {7, 0xE8, 12, 31}, {7, 0xE8, 0xFF, 5}, 345 / 372.0},
      {D_DATE_T, 2, {7, 0xE8, 1, 1}, {7, 0xE8, 12, 31}, {7, 0xE8, 2, 0xFF}, 61 / 372.0},
      {D_TIME_T, 1, {0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 9, 0}, {0, 0, 0, 0, 5, 0}, 0.1},
      {D_TIMESTAMP_T,
       2,
       {7, 0xE8, 1, 1, 0, 0, 0, 0, 0, 0},
       {7, 0xE8, 1, 2, 0, 0, 0, 0, 0, 0},
       {7, 0xE8, 1, 1, 0, 0, 0, 30, 0, 0},
       1800 / 3601.0},
  };
  for (auto c : cases) {
    ZnIdxBounds area{};
    area.lowKey = c.lo.data();
    area.highKey = c.hi.data();
    Bounds keys;
    for (ZnIdxBounds * out :
         {static_cast<ZnIdxBounds *>(&keys), static_cast<ZnIdxBounds *>(nullptr)}) {
      if (out == nullptr && c.id == D_DATE_T && (c.constant[2] == 0xFF || c.constant[3] == 0xFF))
        continue; // wildcards of that class count as the last month and day where keys take them
      unsigned short op = c.op;
      auto const count = static_cast<unsigned int>(c.constant.size() / c.lo.size());
      EXPECT_FLOAT_EQ(
          Mgr().EvalAndBound(c.id, &area, op, c.constant.data(), 2, count, out, nullptr),
          static_cast<float>(c.share))
          << int(c.id) << " op " << c.op;
    }
  }
}
