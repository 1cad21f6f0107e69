#include "zanbs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

namespace {

using Mover = unsigned int (*)(void *, void const *, unsigned char, unsigned int);
using Sizer = unsigned int (*)(void const *, unsigned char, unsigned char, unsigned int);
using NullSizer = unsigned int (*)(unsigned int);

struct Kind {
  char const * name;
  Mover store;
  Mover load;
  Sizer size;
  NullSizer nullSize;
  unsigned int width;
};

constexpr Kind kKinds[] = {
    {"char", &CharStore, &CharStore, &CharSizeGet, &CharNullSizeGet, 1},
    {"short", &ShortStore, &ShortStore, &ShortSizeGet, &ShortNullSizeGet, 2},
    {"long", &LongStore, &LongStore, &LongSizeGet, &LongNullSizeGet, 4},
    {"int", &IntStore, &IntLoad, &IntSizeGet, &IntNullSizeGet, 4},
    {"unsigned", &UnsignedStore, &UnsignedLoad, &IntSizeGet, &IntNullSizeGet, 4},
    {"float", &FloatStore, &FloatStore, &FloatSizeGet, &FloatNullSizeGet, 4},
    {"double", &DoubleStore, &DoubleStore, &DoubleSizeGet, &DoubleNullSizeGet, 8},
    {"8b", &O_8BStore, &O_8BStore, &O_8BSizeGet, &O_8BNullSizeGet, 8},
};

/// The slow and obvious way.
std::vector<unsigned char> Expected(std::vector<unsigned char> bytes, unsigned int width,
                                    bool reverse) {
  for (std::size_t i = 0; reverse && i < bytes.size(); i += width)
    std::reverse(bytes.begin() + i, bytes.begin() + i + width);
  return bytes;
}

} // namespace

// Every kind, format and alignment, with counts around each width of vector; the bytes on either
// side of the target stay.
TEST(ScalarStorage, MovesEveryByteAndNoOther) {
  for (Kind const & kind : kKinds) {
    for (unsigned int const count : {0u, 1u, 2u, 3u, 15u, 16u, 17u, 31u, 33u, 64u, 127u, 1000u}) {
      for (unsigned char const format : {0x01, 0x02, 0x08, 0x00, 0x81, 0x82, 0xF2, 0x20}) {
        for (unsigned int const shift : {0u, 1u, 3u}) {
          SCOPED_TRACE(testing::Message() << kind.name << " count " << count << " format "
                                          << int(format) << " shift " << shift);
          unsigned int const length = count * kind.width;
          std::vector<unsigned char> const bytes = [&] {
            std::vector<unsigned char> made(length);
            for (unsigned int i = 0; i < length; ++i)
              made[i] = static_cast<unsigned char>(i * 37 + i / 256);
            return made;
          }();
          auto const expected = Expected(bytes, kind.width, (format & 15) == 2);
          std::vector<unsigned char> from(length + shift + 1);
          std::copy(bytes.begin(), bytes.end(), from.begin() + shift);

          std::vector<unsigned char> to(length + 2 + shift, 0xEE);
          EXPECT_EQ(kind.store(to.data() + 1 + shift, from.data() + shift, format, count), length);
          EXPECT_TRUE(std::equal(expected.begin(), expected.end(), to.begin() + 1 + shift));
          EXPECT_EQ(to[shift], 0xEE);
          EXPECT_EQ(to.back(), 0xEE);

          std::vector<unsigned char> back(length + 1);
          EXPECT_EQ(kind.load(back.data(), to.data() + 1 + shift, format, count), length);
          EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), back.begin()));
        }
      }
    }
  }
}

TEST(ScalarStorage, SizesWrapAndReadNothing) {
  for (Kind const & kind : kKinds) {
    for (unsigned int const count : {0u, 1u, 7u, 0x20000001u, 0xFFFFFFFFu}) {
      EXPECT_EQ(kind.size(nullptr, 8, 0x82, count), kind.width * count) << kind.name;
      EXPECT_EQ(kind.nullSize(count), kind.width * count) << kind.name;
    }
    EXPECT_EQ(kind.store(nullptr, nullptr, 2, 0), 0u) << kind.name;
  }
}

TEST(ScalarStorage, OneValueAndFloatBits) {
  unsigned char stored[8] = {};
  unsigned short const two = 0x0102;
  unsigned int const four = 0x01020304;
  unsigned long long const eight = 0x0102030405060708;
  EXPECT_EQ(ShortStoreOne(stored, &two, 2), 2u);
  EXPECT_EQ(stored[0] * 256 + stored[1], 0x0102);
  EXPECT_EQ(LongStoreOne(stored, &four, 0x82), 4u);
  EXPECT_EQ(stored[3], 4);
  EXPECT_EQ(O_8BStoreOne(stored, &eight, 1), 8u);
  EXPECT_EQ(stored[0], 8);
  // A signalling NaN keeps its bits: the value never passes through a floating register.
  unsigned char const nan[4] = {0x7F, 0xA0, 0x00, 0x01};
  unsigned char loaded[4];
  FloatStore(loaded, nan, 2, 1);
  EXPECT_EQ(loaded[0], 0x01);
  EXPECT_EQ(loaded[2], 0xA0);
}
