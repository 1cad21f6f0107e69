#include "zanbs.h"
#include "zantms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <vector>

// Order and hash of arrays of numbers, in every form and with every cut, against the element loop
// told step by step.

namespace {

using Bytes = std::vector<unsigned char>;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
double const kNaN = std::nan("");

struct Kind {
  char id;
  unsigned int storedSize;
  std::function<int(void const *, void const *)> order; ///< of two elements in memory form
  std::function<unsigned int(void const *)> word;       ///< of one
  std::function<void(std::mt19937 &, void *)> make;     ///< a value out of a few
  unsigned int multiplier = 1103515245;
};

template <class Number>
Number As(void const * at) {
  Number number;
  std::memcpy(&number, at, sizeof number);
  return number;
}

int FloatClass(double d) { return std::isnan(d) ? -2 : std::isinf(d) ? (d < 0 ? -1 : 1) : 0; }

template <class Number>
int OrderOf(Number a, Number b) {
  if constexpr (std::is_floating_point_v<Number>)
    if (FloatClass(a) != 0 || FloatClass(b) != 0)
      return (FloatClass(a) > FloatClass(b)) - (FloatClass(a) < FloatClass(b));
  return a < b ? -1 : a > b ? 1 : 0;
}

template <class Number>
unsigned int WordOf(void const * at) {
  if constexpr (std::is_same_v<Number, double>)
    return As<unsigned int>(at) ^ As<unsigned int>(static_cast<char const *>(at) + 4);
  else if constexpr (std::is_same_v<Number, float>)
    return As<unsigned int>(at);
  else
    return static_cast<unsigned int>(As<Number>(at));
}

template <class Number>
Number MakeNumber(std::mt19937 & random) {
  if constexpr (std::is_floating_point_v<Number>) {
    Number const values[] = {0,
                             Number(-0.0),
                             1,
                             Number(1.5),
                             Number(kInfinity),
                             Number(-kInfinity),
                             Number(kNaN),
                             -Number(kNaN),
                             std::numeric_limits<Number>::denorm_min()};
    return values[random() % std::size(values)];
  } else {
    using Limits = std::numeric_limits<Number>;
    Number const values[] = {0, 1, Number(-1), Limits::max(), Limits::min(), Number(256 % 251)};
    return values[random() % std::size(values)];
  }
}

template <class Number>
Kind Plain(char id) {
  return {id, sizeof(Number),
          [](void const * a, void const * b) { return OrderOf(As<Number>(a), As<Number>(b)); },
          &WordOf<Number>,
          [](std::mt19937 & random, void * at) {
            auto const number = MakeNumber<Number>(random);
            std::memcpy(at, &number, sizeof number);
          }};
}

template <class Number>
Kind Nullable(char id) {
  using Pair = ZnNullable<Number>;
  return {id,
          sizeof(Number) + 1,
          [](void const * at, void const * bt) {
            auto const a = As<Pair>(at);
            auto const b = As<Pair>(bt);
            if (a.isNull || b.isNull)
              return (a.isNull == 0) - (b.isNull == 0);
            return OrderOf(a.value, b.value);
          },
          [](void const * at) {
            auto const pair = As<Pair>(at);
            return pair.isNull ? 0xFEFE7575 : WordOf<Number>(&pair.value) * 1103515245;
          },
          [](std::mt19937 & random, void * at) {
            Pair pair;
            if (random() % 3 != 0)
              pair = {MakeNumber<Number>(random), 0};
            std::memcpy(at, &pair, sizeof pair);
          },
          1};
}

Kind Boolean() {
  return {ZnBOOLEAN_T, 1,
          [](void const * a, void const * b) { // null, false, true
            auto const rank = [](void const * at) {
              return int(static_cast<signed char>(As<char>(at)));
            };
            return (rank(a) > rank(b)) - (rank(a) < rank(b));
          },
          [](void const * at) { return static_cast<unsigned int>(As<signed char>(at)); },
          [](std::mt19937 & random, void * at) {
            unsigned char const states[] = {0, 1, 255};
            *static_cast<unsigned char *>(at) = states[random() % 3];
          }};
}

std::vector<Kind> Kinds() {
  return {Plain<signed char>(Zn1B_T),
          Plain<unsigned char>(ZnU1B_T),
          Plain<short>(Zn2B_T),
          Plain<unsigned short>(ZnU2B_T),
          Plain<int>(Zn4B_T),
          Plain<unsigned int>(ZnU4B_T),
          Plain<int>(ZnINT_T),
          Plain<int>(ZnENUM_T),
          Plain<unsigned int>(ZnUNSIGNED_T),
          Plain<unsigned int>(ZnBLOCKID_T),
          Plain<long long>(Zn8B_T),
          Plain<unsigned long long>(ZnU8B_T),
          Plain<float>(ZnFLOAT_T),
          Plain<double>(ZnDOUBLE_T),
          Boolean(),
          Nullable<signed char>(ZnNULL_1B_T),
          Nullable<unsigned char>(ZnNULL_U1B_T),
          Nullable<short>(ZnNULL_2B_T),
          Nullable<unsigned short>(ZnNULL_U2B_T),
          Nullable<int>(ZnNULL_INT_T),
          Nullable<unsigned int>(ZnNULL_UNSIGNED_T),
          Nullable<int>(ZnNULL_4B_T),
          Nullable<unsigned int>(ZnNULL_U4B_T),
          Nullable<float>(ZnNULL_FLOAT_T),
          Nullable<double>(ZnNULL_DOUBLE_T),
          Nullable<long long>(ZnNULL_8B_T),
          Nullable<unsigned long long>(ZnNULL_U8B_T)};
}

/// The loop of compare rows, step by step; elements of both sides lie `memLen` apart in memory
/// form, whatever the form that is asked about has for its size.
int SlowCompare(Kind const & kind, unsigned int memLen, unsigned int size, unsigned int lengthA,
                Bytes const & a, unsigned int lengthB, Bytes const & b, unsigned int count,
                int & error) {
  error = 0;
  if (count == 0)
    return 0;
  unsigned int const endA = lengthA != 0 ? lengthA : count * size;
  unsigned int const endB = lengthB != 0 ? lengthB : count * size;
  unsigned int atA = 0;
  unsigned int atB = 0;
  int result = 0;
  for (unsigned int left = count; left-- > 0;) {
    if (result != 0 || error != 0)
      break;
    result = kind.order(&a[atA / size * memLen], &b[atB / size * memLen]);
    if (left == 0)
      break;
    if (atA + size >= endA) {
      error = 2101;
      continue;
    }
    atA += size;
    if (atB + size >= endB) {
      error = 2101;
      continue;
    }
    atB += size;
    error = 0;
  }
  return result;
}

unsigned int SlowHash(Kind const & kind, unsigned int memLen, unsigned int size,
                      unsigned int length, Bytes const & a, unsigned int count, int & error) {
  error = 0;
  if (count == 0)
    return 0;
  unsigned int const end = length != 0 ? length : count * size;
  unsigned int at = 0;
  unsigned int total = 0;
  for (unsigned int left = count; error == 0; --left) {
    total ^= kind.word(&a[at / size * memLen]);
    if (left == 1)
      break;
    if (at + size >= end)
      error = 2101;
    else
      at += size;
  }
  return total * kind.multiplier;
}

TEST(NumberOrder, AgreesWithTheElementLoopInEveryForm) {
  ZnTypeMgr const mgr;
  std::mt19937 random(20);
  constexpr unsigned int most = 6;
  for (Kind const & kind : Kinds()) {
    SCOPED_TRACE(mgr.NameGet(kind.id));
    unsigned int const memLen = mgr.MemLenGet(kind.id, 1);
    for (int round = 0; round < 3000; ++round) {
      Bytes a(most * memLen);
      for (unsigned int i = 0; i < most; ++i)
        kind.make(random, &a[i * memLen]);
      Bytes b = a; // differs in few elements, so that equal runs come first
      for (unsigned int change = random() % 3; change > 0; --change)
        kind.make(random, &b[random() % most * memLen]);
      unsigned char const form =
          std::initializer_list<unsigned char>{8, 1, 2, 129, 130}.begin()[random() % 5];
      bool const memory = form == 8 || memLen == 1; // one byte is the same in every form
      unsigned int const size = memory ? memLen : kind.storedSize;
      unsigned int const count = random() % (most + 1);
      unsigned int const lengthA = random() % 3 == 0 ? 0 : random() % (most * size + 1);
      unsigned int const lengthB = random() % 3 == 0 ? 0 : random() % (most * size + 1);
      // One odd place more, so that nothing is aligned; no byte behind the last element.
      Bytes storedA(most * size + 1), storedB(most * size + 1);
      if (memory) {
        std::memcpy(&storedA[0], &a[0], a.size());
        std::memcpy(&storedB[0], &b[0], b.size());
      } else {
        mgr.Store(kind.id, &storedA[1], &a[0], form, most);
        mgr.Store(kind.id, &storedB[1], &b[0], form, most);
      }
      int slowError = 7;
      int error = 7;
      int const slow = SlowCompare(kind, memLen, size, lengthA, a, lengthB, b, count, slowError);
      int const fast = mgr.Cmp(kind.id, lengthA, &storedA[!memory], lengthB, &storedB[!memory], 0,
                               count, form, error);
      ASSERT_EQ(fast, slow) << "form " << int(form) << " count " << count << " lengths " << lengthA
                            << " " << lengthB;
      ASSERT_EQ(error, slowError) << "form " << int(form) << " count " << count << " lengths "
                                  << lengthA << " " << lengthB;
      unsigned int const slowHash = SlowHash(kind, memLen, size, lengthA, a, count, slowError);
      ASSERT_EQ(mgr.Hash(kind.id, lengthA, &storedA[!memory], count, form, error), slowHash)
          << "form " << int(form) << " count " << count << " length " << lengthA;
      ASSERT_EQ(error, slowError);
    }
  }
}

TEST(NumberOrder, FindsTheFirstDifferenceOfLongArrays) {
  constexpr unsigned int count = 3000;
  std::vector<int> a(count, 5);
  std::mt19937 random(21);
  for (int round = 0; round < 300; ++round) {
    auto b = a;
    unsigned int const first = random() % count;
    unsigned int const second = random() % count;
    b[first] = 6;
    b[second] = second < first ? 4 : b[second];
    unsigned int const held = random() % count + 1;
    int error = 7;
    int const expected = second < first ? (second < held ? 1 : 0) : first < held ? -1 : 0;
    unsigned int const decisive = std::min({second < first ? second : first, held - 1});
    EXPECT_EQ(IntCompare(8, held * 4, &a[0], 0, &b[0], 0, count, error), expected);
    EXPECT_EQ(error, decisive == held - 1 && held < count ? 2101 : 0);
  }
  // Equal values with unequal bytes do not end the walk.
  std::vector<double> zeros(count, 0.0), negative(count, -0.0);
  int error;
  EXPECT_EQ(DoubleCompare(1, 0, &zeros[0], 0, &negative[0], 0, count, error), 0);
  negative[count - 1] = kNaN;
  EXPECT_EQ(DoubleCompare(1, 0, &zeros[0], 0, &negative[0], 0, count, error), 1);
}

TEST(NumberOrder, CountZeroTouchesNothing) {
  ZnTypeMgr const mgr;
  for (Kind const & kind : Kinds()) {
    int error = 7;
    EXPECT_EQ(mgr.Cmp(kind.id, 5, nullptr, 9, nullptr, 0, 0, 8, error), 0);
    EXPECT_EQ(error, 0);
    error = 7;
    EXPECT_EQ(mgr.Hash(kind.id, 5, nullptr, 0, 8, error), 0u);
    EXPECT_EQ(error, 0);
  }
}

TEST(NumberOrder, OrdersFloatsInWhole) {
  double const order[] = {kNaN,
                          -kInfinity,
                          -1.7976931348623157e308,
                          -1.0,
                          -4.9e-324,
                          0.0,
                          4.9e-324,
                          1.0,
                          std::nextafter(1.0, 2.0),
                          1.7976931348623157e308,
                          kInfinity};
  int error;
  for (int i = 0; i < int(std::size(order)); ++i) {
    for (int k = 0; k < int(std::size(order)); ++k) {
      double a = order[i], b = order[k];
      EXPECT_EQ(DoubleCompare(8, 0, &a, 0, &b, 0, 1, error), (i > k) - (i < k)) << a << " " << b;
    }
  }
}

TEST(NumberHash, KeepsItsPromises) {
  ZnTypeMgr const mgr;
  int error;
  unsigned char const byte = 0x80;
  EXPECT_EQ(mgr.Hash(ZnU1B_T, 0, const_cast<unsigned char *>(&byte), 1, 8, error),
            0x80u * 1103515245u);
  EXPECT_EQ(mgr.Hash(Zn1B_T, 0, const_cast<unsigned char *>(&byte), 1, 8, error),
            0xFFFFFF80u * 1103515245u);
  int pair[] = {5, 5};
  EXPECT_EQ(mgr.Hash(Zn4B_T, 0, pair, 2, 8, error), 0u);
  long long low = 5, high = 0x100000005;
  EXPECT_EQ(mgr.Hash(Zn8B_T, 0, &low, 1, 8, error), mgr.Hash(Zn8B_T, 0, &high, 1, 8, error));
  double zero = 0.0, negative = -0.0;
  EXPECT_NE(mgr.Hash(ZnDOUBLE_T, 0, &zero, 1, 8, error),
            mgr.Hash(ZnDOUBLE_T, 0, &negative, 1, 8, error));
  ZnNull_int nulls[2];
  EXPECT_EQ(mgr.Hash(ZnNULL_INT_T, 0, nulls, 1, 8, error), 0xFEFE7575u);
  EXPECT_EQ(mgr.Hash(ZnNULL_INT_T, 0, nulls, 2, 8, error), 0u);
  ZnNull_int seven{7, 0};
  int plain = 7;
  EXPECT_EQ(mgr.Hash(ZnNULL_INT_T, 0, &seven, 1, 8, error),
            mgr.Hash(ZnINT_T, 0, &plain, 1, 8, error));
}

std::vector<std::string> reports;

TEST(NullOrder, TurnsIntoACompareResult) {
  EXPECT_EQ(ZnNullOrderToInt(ZnNullOrder(0)), 0);
  EXPECT_EQ(ZnNullOrderToInt(ZnNullOrder(1)), -1);
  EXPECT_EQ(ZnNullOrderToInt(ZnNullOrder(2)), 1);
  auto const before = ZantSetAssertHandler([](char const * message, char const * file, int line) {
    reports.push_back(std::string(message) + "|" + file + "|" + std::to_string(line));
  });
  EXPECT_EQ(ZnNullOrderToInt(ZnNullOrder(3)), -2);
  EXPECT_EQ(ZnNullOrderToInt(ZnNullOrder(4)), -2);
  ZantSetAssertHandler(before);
  EXPECT_EQ(reports, std::vector<std::string>{"nr != unknown|inc\\_znnulty|168"});
}

} // namespace
