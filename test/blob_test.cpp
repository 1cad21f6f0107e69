#include "zantms.h"

#include "stored_support.h"
#include "zanbs.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <string_view>

// Blobs: ownership and edits, order, search, and the row with its stored unit.

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
#define COUNTS_ALLOCATIONS 1
extern "C" void * __libc_malloc(std::size_t size);
namespace {
long long allocations;
}
extern "C" void * malloc(std::size_t size) {
  ++allocations;
  return __libc_malloc(size);
}
#endif

namespace {

ZnBlob Blob(std::string_view bytes) { return ZnBlob(bytes.data(), static_cast<int>(bytes.size())); }

ZnBlob NullBlob() {
  ZnBlob blob;
  blob.SetNullValue();
  return blob;
}

/// The content, or "null".
std::string Content(ZnBlob const & blob) {
  return blob.IsNullValue()
             ? "null"
             : std::string(blob.data->bytes, static_cast<std::size_t>(blob.data->length));
}

// ---- Value --------------------------------------------------------------------------------------

TEST(Blob, OrdersNullBeforeEmptyBeforeBytes) {
  ZnBlob const ascending[] = {NullBlob(),   ZnBlob(),         Blob(std::string_view("\0", 1)),
                              Blob("\x01"), Blob("\x01\x02"), Blob("\x01\x02\x03"),
                              Blob("\x80")};
  for (int i = 0; i < 7; ++i)
    for (int j = 0; j < 7; ++j) {
      int const order = ascending[i] != ascending[j];
      EXPECT_EQ((order > 0) - (order < 0), (i > j) - (i < j)) << i << " " << j;
      EXPECT_EQ(std::abs(order) == 2, (i == 0) != (j == 0)) << i << " " << j;
      EXPECT_EQ(ascending[i] == ascending[j], i == j);
    }
  EXPECT_EQ(ascending[4] != ascending[5], -1);
  EXPECT_EQ(ascending[0].Length(), 0);
  EXPECT_EQ(ascending[1].Length(), 0);
}

TEST(Blob, KeepsItsBufferForSimilarSizes) {
  struct Case {
    int before;
    int after;
    bool kept;
  };
  constexpr Case kCases[] = {{200, 100, true}, {200, 72, true}, {200, 71, false}, {200, 201, false},
                             {200, 200, true}, {100, 0, true},  {200, 0, false},  {0, 0, false}};
  std::string const bytes(300, 'x');
  for (Case const & c : kCases) {
    ZnBlob blob(bytes.data(), c.before);
    char const * const buffer = blob.data->bytes;
    blob.SetTo(bytes.data(), c.after);
    EXPECT_EQ(buffer && blob.data->bytes == buffer, c.kept) << c.before << " " << c.after;
    EXPECT_EQ(Content(blob), bytes.substr(0, static_cast<std::size_t>(c.after)));
  }
  // The length forgets the larger size: 50 is within 128 of 100, 60 is more than 50.
  ZnBlob blob = Blob(bytes.substr(0, 200));
  char const * const buffer = blob.data->bytes;
  blob = Blob(bytes.substr(0, 100));
  blob = Blob(bytes.substr(0, 50));
  EXPECT_EQ(blob.data->bytes, buffer);
  blob = Blob(bytes.substr(0, 60));
  EXPECT_EQ(Content(blob), bytes.substr(0, 60));
}

TEST(Blob, CopiesAndMoves) {
  ZnBlob a = Blob("abc");
  ZnBlob b = a;
  EXPECT_NE(a.data->bytes, b.data->bytes);
  ZnBlob & same = a;
  a = same;
  EXPECT_EQ(Content(a), "abc");
  a = NullBlob();
  EXPECT_EQ(Content(a), "null");
  a = b;
  EXPECT_EQ(Content(a), "abc");
  ZnBlob null = NullBlob();
  ZnBlob copyOfNull = null;
  EXPECT_TRUE(copyOfNull.IsNullValue());

  ZnBlob target = Blob("old");
  target.Destroy(a);
  EXPECT_EQ(Content(target), "abc");
  EXPECT_EQ(Content(a), "");
  target.Destroy(target);
  EXPECT_EQ(Content(target), "abc");
  target.Destroy(null);
  EXPECT_TRUE(target.IsNullValue());
  EXPECT_TRUE(null.IsNullValue());

  EXPECT_EQ(ZnBlob(5).Length(), 5);
  EXPECT_EQ(ZnBlob(-5).Length(), 0);
  EXPECT_FALSE(ZnBlob(-5).IsNullValue());
  EXPECT_EQ(ZnBlob("abc", 0).data->bytes, nullptr);
}

TEST(Blob, AppendsAlsoOfItself) {
  ZnBlob blob = Blob("ab");
  blob += Blob("cd");
  blob.Append(NullBlob());
  blob.Append("x", 0);
  blob.Append("x", -3);
  EXPECT_EQ(Content(blob), "abcd");
  blob += blob;
  EXPECT_EQ(Content(blob), "abcdabcd");
  blob.Append(blob.data->bytes + 1, 2);
  EXPECT_EQ(Content(blob), "abcdabcdbc");
  blob.SetTo(blob.data->bytes + 4, 4);
  EXPECT_EQ(Content(blob), "abcd");
  ZnBlob null = NullBlob();
  null.Append("x", 0);
  EXPECT_TRUE(null.IsNullValue());
  null.Append("xy", 2);
  EXPECT_EQ(Content(null), "xy");
  ZnBlob set = NullBlob();
  set.SetTo("q", 1);
  EXPECT_EQ(Content(set), "q");
}

TEST(Blob, ResizesAndExpands) {
  ZnBlob blob = Blob("abcdef");
  blob.Resize(4);
  EXPECT_EQ(Content(blob), "abcd");
  blob.Resize(6);
  EXPECT_EQ(blob.Length(), 6);
  EXPECT_EQ(Content(blob).substr(0, 4), "abcd");
  blob.Resize(0);
  EXPECT_EQ(Content(blob), "");
  EXPECT_EQ(blob.data->bytes, nullptr);
  blob.SetTo("abc", 3);
  blob.Expand(2);
  EXPECT_EQ(Content(blob), "ab");
  blob.Expand(4);
  EXPECT_EQ(Content(blob).substr(0, 2), "ab");
  EXPECT_EQ(blob.Length(), 4);
  blob.Expand(-1);
  EXPECT_EQ(Content(blob), "");
  for (unsigned int const size : {0u, 3u, 0xFFFFFFFFu}) {
    ZnBlob null = NullBlob();
    null.Resize(size);
    EXPECT_FALSE(null.IsNullValue());
    EXPECT_EQ(null.Length(), size == 3 ? 3 : 0);
  }
  ZnBlob null = NullBlob();
  null.Expand(7);
  EXPECT_EQ(null.Length(), 7);
}

TEST(Blob, CutsSelectsAndOverwrites) {
  struct Case {
    int offset;
    int count;
    char const * cut;      ///< what `Cut` leaves of "abc"
    char const * selected; ///< what `CopyFrom` gives; null where its one byte means nothing
    char const * written;  ///< what `CopyTo` of "XYZ" leaves
    int seek;              ///< the offset that `Seek` finds, or -1
  };
  constexpr int kMost = std::numeric_limits<int>::max();
  constexpr Case kCases[] = {
      {0, 1000, "", "abc", "XYZ", -1},    {0, 3, "", "abc", "XYZ", 0},
      {1, 1, "ac", "b", "aXc", 1},        {1, 2, "a", "bc", "aXY", 1},
      {0, 2, "c", "ab", "XYc", 0},        {1, 3, "a", "bc", "aXY", -1},
      {3, 1, "abc", "", "abc", -1},       {4, 1, "abc", nullptr, "abc", -1},
      {0, 0, "abc", nullptr, "abc", -1},  {3, 0, "abc", nullptr, "abc", -1},
      {1, kMost, "a", "bc", "aXY", -1},   {-1, 2, "abc", nullptr, "abc", -1},
      {1, -1, "abc", nullptr, "abc", -1}, {kMost, kMost, "abc", nullptr, "abc", -1},
  };
  for (Case const & c : kCases) {
    SCOPED_TRACE(std::to_string(c.offset) + ", " + std::to_string(c.count));
    ZnBlob cut = Blob("abc");
    cut.Cut(c.offset, c.count);
    EXPECT_EQ(Content(cut), c.cut);
    ZnBlob const selected = Blob("abc").CopyFrom(c.offset, c.count);
    if (c.selected)
      EXPECT_EQ(Content(selected), c.selected);
    else
      EXPECT_EQ(selected.Length(), 1);
    ZnBlob written = Blob("abc");
    written.CopyTo(Blob("XYZ"), c.offset, c.count);
    EXPECT_EQ(Content(written), c.written);
    ZnBlob const sought = Blob("abc");
    EXPECT_EQ(sought.Seek(c.offset, c.count), c.seek < 0 ? nullptr : sought.data->bytes + c.seek);

    ZnBlob null = NullBlob();
    null.Cut(c.offset, c.count);
    null.CopyTo(Blob("XYZ"), c.offset, c.count);
    EXPECT_TRUE(null.IsNullValue());
    EXPECT_EQ(null.Seek(c.offset, c.count), nullptr);
    EXPECT_EQ(null.CopyFrom(c.offset, c.count).Length(), 1);
  }
  ZnBlob shortSource = Blob("abc");
  shortSource.CopyTo(Blob("X"), 0, 3);
  shortSource.CopyTo(NullBlob(), 0, 3);
  EXPECT_EQ(Content(shortSource), "Xbc");
}

// ---- Private operations -------------------------------------------------------------------------

/// Leads to a private member: an explicit instantiation may name it.
template <class Tag, typename Tag::Type member>
struct Open {
  friend typename Tag::Type Member(Tag) { return member; }
};
struct ToShort {
  using Type = short (ZnBlob::*)() const;
  friend Type Member(ToShort);
};
struct ToInt {
  using Type = int (ZnBlob::*)() const;
  friend Type Member(ToInt);
};
struct ToDouble {
  using Type = double (ZnBlob::*)() const;
  friend Type Member(ToDouble);
};
struct TakeImage {
  using Type = ZnBlob & (ZnBlob::*)(char const *);
  friend Type Member(TakeImage);
};
struct Allocate {
  using Type = ZnBlobData * (ZnBlob::*)(int) const;
  friend Type Member(Allocate);
};
template struct Open < ToShort, &ZnBlob::operator short>;
template struct Open < ToInt, &ZnBlob::operator int>;
template struct Open < ToDouble, &ZnBlob::operator double>;
template struct Open < TakeImage, &ZnBlob::operator=>;
template struct Open<Allocate, &ZnBlob::AllocData>;

TEST(Blob, ReadsItsContentAsANumber) {
  struct Case {
    ZnBlob blob;
    int number;
    double real;
  };
  Case const cases[] = {{Blob("42"), 42, 42},
                        {Blob(" \t-7.5x"), -7, -7.5},
                        {Blob("+9"), 9, 9},
                        {Blob("+-9"), 0, 0},
                        {Blob("x"), 0, 0},
                        {ZnBlob(), 0, 0},
                        {Blob(std::string_view("1\0002", 3)), 1, 1},
                        {NullBlob(), 0, 0},
                        {Blob("70000"), 70000, 70000}};
  for (Case const & c : cases) {
    EXPECT_EQ((c.blob.*Member(ToInt()))(), c.number) << Content(c.blob);
    EXPECT_EQ((c.blob.*Member(ToShort()))(), static_cast<short>(c.number));
    EXPECT_EQ((c.blob.*Member(ToDouble()))(), c.real) << Content(c.blob);
  }
  ZnBlob blob = Blob("old");
  (blob.*Member(TakeImage()))("\x02\0\0\0xyz");
  EXPECT_EQ(Content(blob), "xy");
  (blob.*Member(TakeImage()))("\xFF\xFF\xFF\xFFxyz");
  EXPECT_TRUE(blob.IsNullValue());
  (blob.*Member(TakeImage()))("\0\0\0\0xyz");
  EXPECT_EQ(Content(blob), "");
  ZnBlobData * const data = (blob.*Member(Allocate()))(4);
  EXPECT_EQ(data->length, 5);
  std::free(data->bytes);
  delete data;
}

// ---- Search -------------------------------------------------------------------------------------

int Oracle(std::string const & text, std::string const & pattern) {
  std::size_t const found = text.find(pattern);
  return found == std::string::npos ? 65535 : static_cast<int>(found);
}

TEST(Blob, FindsWhatTheLibraryFindsInSmallWorlds) {
  // All patterns of up to 6 letters in all texts of 11 letters of two.
  for (unsigned int length = 0; length <= 6; ++length)
    for (unsigned int p = 0; p < 1u << length; ++p) {
      std::string pattern;
      for (unsigned int i = 0; i < length; ++i)
        pattern.push_back(p >> i & 1 ? 'a' : 'b');
      ZnBlob const sought = Blob(pattern);
      for (unsigned int t = 0; t < 1u << 11; ++t) {
        std::string text;
        for (unsigned int i = 0; i < 11; ++i)
          text.push_back(t >> i & 1 ? 'a' : 'b');
        ASSERT_EQ(Blob(text).Search(sought), Oracle(text, pattern)) << pattern << " in " << text;
      }
    }
}

TEST(Blob, FindsWhatTheLibraryFindsInLongTexts) {
  std::mt19937 random(7);
  auto const letters = [&](std::size_t length, unsigned int alphabet) {
    std::string text;
    while (text.size() < length)
      text.push_back(static_cast<char>('a' + random() % alphabet));
    return text;
  };
  for (int round = 0; round < 3000; ++round) {
    unsigned int const alphabet = 1 + random() % 4;
    std::string text = letters(random() % 3000, alphabet);
    std::string pattern = letters(1 + random() % 80, alphabet);
    if (random() % 2 == 0 && text.size() > pattern.size()) // periodic, with one fault
      pattern[random() % pattern.size()] = 'z';
    if (random() % 2 == 0)
      text.insert(random() % (text.size() + 1), pattern);
    ASSERT_EQ(Blob(text).Search(Blob(pattern)), Oracle(text, pattern)) << pattern << " in " << text;
  }
}

TEST(Blob, SearchStaysLinearForBytesMadeToPass) {
  // Runs in which each place agrees with half of the pattern, in ever new ways: quadratic time
  // would take hours.
  std::string text;
  for (int i = 0; i < 40000; ++i)
    text += i % 3 ? "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaab" : "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab";
  std::string pattern = std::string(200000, 'a') + "b" + std::string(200000, 'a');
  EXPECT_EQ(Blob(text).Search(Blob(pattern)), 65535);
  EXPECT_EQ(Blob(text).Search(Blob(text.substr(50000, 400000) + "c")), 65535);
}

TEST(Blob, SearchesNothingAndNull) {
  EXPECT_EQ(Blob("abc").Search(Blob("abc")), 0);
  EXPECT_EQ(Blob("abc").Search(ZnBlob()), 0);
  EXPECT_EQ(ZnBlob().Search(ZnBlob()), 0);
  EXPECT_EQ(NullBlob().Search(Blob("a")), 65535);
  EXPECT_EQ(NullBlob().Search(ZnBlob()), 65535);
  EXPECT_EQ(ZnBlob().Search(Blob("a")), 65535);
  std::string far(70000, '.');
  far[65535] = 'x';
  EXPECT_EQ(Blob(far).Search(Blob("x")), 65535);
  far[65536] = 'y';
  EXPECT_EQ(Blob(far).Search(Blob("y")), 65536);
}

// ---- Row ----------------------------------------------------------------------------------------

class BlobRow : public testing::Test {
protected:
  ZnTypeMgr mgr;

  /// What `Load` gives for a unit in a buffer of its own size.
  unsigned int Load(std::string const & unit, ZnBlob * blobs, unsigned int count) {
    auto const exact = std::make_unique<char[]>(unit.size());
    std::memcpy(exact.get(), unit.data(), unit.size());
    return mgr.Load(ZnBLOB_T, blobs, exact.get(), 1, count);
  }
};

/// The bytes that a text with \x escapes stands for.
template <std::size_t size>
std::string Unit(char const (&bytes)[size]) {
  return std::string(bytes, size - 1);
}

TEST_F(BlobRow, StoresAnArrayAsOneUnit) {
  ZnBlob const blobs[] = {Blob("abc"), NullBlob(), ZnBlob()};
  EXPECT_EQ(StoredHex(mgr, ZnBLOB_T, blobs, 1, 3), "0F000000"
                                                   "03000000616263"
                                                   "FFFFFFFF"
                                                   "00000000");
  EXPECT_EQ(StoredHex(mgr, ZnBLOB_T, blobs, 2, 1), "0000000700000003616263");
  EXPECT_EQ(StoredHex(mgr, ZnBLOB_T, blobs + 1, 1, 1), "04000000FFFFFFFF");
  EXPECT_EQ(StoredHex(mgr, ZnBLOB_T, blobs, 1, 0), "00000000");

  for (unsigned char const format : {1, 2}) {
    std::vector<char> unit = Stored(mgr, ZnBLOB_T, blobs, format, 3);
    EXPECT_EQ(mgr.DiskLenGet(ZnBLOB_T, unit.data(), format, 3, format), unit.size());
    EXPECT_EQ(mgr.DiskLenGet(ZnBLOB_T, unit.data(), 3 - format, 3, format), unit.size());
    MemFile file(unit.data(), static_cast<unsigned int>(unit.size()));
    EXPECT_EQ(mgr.DiskLenGetFromMemFile(ZnBLOB_T, &file, format, 3), unit.size());
    ZnBlob back[3] = {Blob("x"), Blob("y"), NullBlob()};
    EXPECT_EQ(mgr.Load(ZnBLOB_T, back, unit.data(), format, 3), unit.size());
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(Content(back[i]), Content(blobs[i]));
    EXPECT_EQ(mgr.Load(ZnBLOB_T, back, unit.data(), format, 0), unit.size());
    ZnBlob moved[3];
    EXPECT_EQ(mgr.Translate(ZnBLOB_T, moved, 8, 0, back, 8, 0, 3), 24u);
    EXPECT_EQ(Content(moved[0]), "abc");
    EXPECT_TRUE(moved[1].IsNullValue());
  }
  MemFile empty;
  EXPECT_EQ(mgr.DiskLenGetFromMemFile(ZnBLOB_T, &empty, 1, 1), 0u);
  std::vector<char> ones(4, -1); // a total that counts as 0
  EXPECT_EQ(mgr.DiskLenGet(ZnBLOB_T, ones.data(), 1, 1, 1), 4u);
  MemFile cut(ones.data(), 3);
  EXPECT_EQ(mgr.DiskLenGetFromMemFile(ZnBLOB_T, &cut, 1, 1), 0u);
  EXPECT_EQ(mgr.rows[18]->NullSizeGet(3), 12u);
}

TEST_F(BlobRow, RefusesCorruptUnits) {
  struct Case {
    std::string unit;
    unsigned int count;
    unsigned int result;
    char const * first;
    char const * second;
  };
  Case const cases[] = {
      {Unit("\x0A\0\0\0\x01\0\0\0a\x01\0\0\0b"), 2, 14, "a", "b"},
      {Unit("\xFF\xFF\xFF\xFF\x01\0\0\0a"), 1, 0, "old", "old"},    // negative total
      {Unit("\0\0\0\x80\x01\0\0\0a"), 1, 0, "old", "old"},          // the smallest one
      {Unit("\x04\0\0\0\xFE\xFF\xFF\xFF"), 1, 0, "old", "old"},     // a length of -2
      {Unit("\x04\0\0\0\x01\0\0\0"), 1, 0, "old", "old"},           // a byte too few
      {Unit("\x0A\0\0\0\x01\0\0\0a\x02\0\0\0b"), 2, 0, "a", "old"}, // in the second element
      {Unit("\x05\0\0\0\x01\0\0\0a"), 2, 0, "a", "old"},            // no second element
      {Unit("\x07\0\0\0\x01\0\0\0a\x01\0"), 2, 0, "a", "old"},      // half a word
      {Unit("\x08\0\0\0\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"), 2, 0, "null", "old"},
      {Unit("\x08\0\0\0\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"), 2, 12, "null", "null"},
      {Unit("\0\0\0\0"), 1, 0, "old", "old"},
      {Unit("\0\0\0\0"), 0, 4, "old", "old"},
  };
  for (Case const & c : cases) {
    ZnBlob blobs[2] = {Blob("old"), Blob("old")};
    EXPECT_EQ(Load(c.unit, blobs, c.count), c.result) << Hex(c.unit.data(), c.unit.size());
    EXPECT_EQ(Content(blobs[0]), c.first);
    EXPECT_EQ(Content(blobs[1]), c.second);
    blobs[0].Append("!", 1);
    EXPECT_EQ(blobs[0].Seek(blobs[0].Length() - 1, 1)[0], '!');
  }
}

TEST_F(BlobRow, ReadsNothingBehindAUnitThatLies) {
  // Every single byte changed in many ways, in buffers of their exact size. The total is put right
  // first, as whoever holds the bytes knows their number.
  ZnBlob const blobs[] = {Blob("abcdef"), NullBlob(), ZnBlob(), Blob("g")};
  std::vector<char> const good = Stored(mgr, ZnBLOB_T, blobs, 1, 4);
  for (std::size_t length = 4; length <= good.size(); ++length)
    for (std::size_t at = 0; at < length; ++at)
      for (int const change : {1, 2, 4, 0x7F, 0x80, 0xFF}) {
        auto const unit = std::make_unique<char[]>(length);
        std::memcpy(unit.get(), good.data(), length);
        unit[at] = static_cast<char>(unit[at] ^ change);
        int error;
        auto const bytes = static_cast<unsigned int>(length);
        auto const goodBytes = static_cast<unsigned int>(good.size());
        auto * const whole = const_cast<char *>(good.data());
        int const order = mgr.Cmp(ZnBLOB_T, bytes, unit.get(), goodBytes, whole, 0, 4, 1, error);
        int const reversed = mgr.Cmp(ZnBLOB_T, goodBytes, whole, bytes, unit.get(), 0, 4, 1, error);
        EXPECT_EQ((order > 0) - (order < 0), (reversed < 0) - (reversed > 0));
        EXPECT_EQ(error, 0);
        mgr.Hash(ZnBLOB_T, bytes, unit.get(), 4, 1, error);

        unsigned int total;
        std::memcpy(&total, unit.get(), 4);
        total = std::min(total, bytes - 4);
        std::memcpy(unit.get(), &total, 4);
        ZnBlob back[4];
        unsigned int const loaded = mgr.Load(ZnBLOB_T, back, unit.get(), 1, 4);
        EXPECT_TRUE(loaded == 0 || loaded == total + 4);
      }
}

TEST_F(BlobRow, ComparesUnitsAndCutKeys) {
  struct Case {
    ZnBlob a;
    ZnBlob b;
    unsigned int cutA; ///< bytes of the unit of `a` at hand, 0 for all
    int order;
  };
  Case const cases[] = {
      {Blob("abc"), Blob("abc"), 0, 0},   {NullBlob(), ZnBlob(), 0, -2},
      {ZnBlob(), NullBlob(), 0, 2},       {NullBlob(), NullBlob(), 0, 0},
      {Blob("ab"), Blob("abc"), 0, -1},   {Blob("abc"), Blob("ab"), 0, 1},
      {Blob("abcX"), Blob("abc"), 11, 1}, // "abc" is left, and a length of 4
      {Blob("abXX"), Blob("abc"), 10, 1}, // "ab" is left
      {Blob("a"), Blob("abc"), 10, -1},   {Blob("zzz"), Blob("abc"), 8, 0}, // equal lengths
      {Blob("zz"), Blob("abc"), 8, -1},   {Blob("zz"), Blob("abc"), 7, 0},
      {Blob("zz"), Blob("abc"), 4, 0},    {Blob("zz"), Blob("abc"), 1, 0},
  };
  for (Case const & c : cases)
    for (unsigned char const format : {1, 2, 0x81}) {
      std::vector<char> a = Stored(mgr, ZnBLOB_T, &c.a, format, 1);
      std::vector<char> b = Stored(mgr, ZnBLOB_T, &c.b, format, 1);
      if (c.cutA && c.cutA < a.size())
        a.resize(c.cutA);
      a.shrink_to_fit();
      int error = 3;
      EXPECT_EQ(mgr.Cmp(ZnBLOB_T, c.cutA ? static_cast<unsigned int>(a.size()) : 0, a.data(), 0,
                        b.data(), 0x10, 1, format, error),
                c.order)
          << Content(c.a) << " " << Content(c.b) << " " << c.cutA;
      EXPECT_EQ(error, 0);
      EXPECT_EQ(mgr.Cmp(ZnBLOB_T, 0, b.data(), c.cutA ? static_cast<unsigned int>(a.size()) : 0,
                        a.data(), 0x10, 1, format, error),
                -c.order);
      if (!c.cutA) {
        EXPECT_EQ(
            mgr.Cmp(ZnBLOB_T, const_cast<ZnBlob *>(&c.a), const_cast<ZnBlob *>(&c.b), 0, 1, 8),
            c.order);
      }
    }
  ZnBlob a[] = {Blob("a"), NullBlob(), Blob("z")};
  ZnBlob b[] = {Blob("a"), Blob("b"), Blob("a")};
  EXPECT_EQ(mgr.Cmp(ZnBLOB_T, a, b, 0, 3, 8), -2);
  EXPECT_EQ(mgr.Cmp(ZnBLOB_T, a, b, 0, 1, 8), 0);
  EXPECT_EQ(mgr.Cmp(ZnBLOB_T, a, b, 0, 0, 8), 0);
  std::vector<char> unitA = Stored(mgr, ZnBLOB_T, a, 1, 3);
  std::vector<char> unitB = Stored(mgr, ZnBLOB_T, b, 1, 3);
  EXPECT_EQ(mgr.Cmp(ZnBLOB_T, unitA.data(), unitB.data(), 0, 3, 1), -2);
}

TEST_F(BlobRow, HashesSizesOnly) {
  ZnBlob blobs[] = {Blob("abcde"), NullBlob(), Blob("xyz")};
  constexpr unsigned int kMultiplier = 1103515245;
  int error = 9;
  EXPECT_EQ(mgr.Hash(ZnBLOB_T, 0, blobs, 1, 8, error), 5 * kMultiplier);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(mgr.Hash(ZnBLOB_T, 1, blobs, 3, 8, error), (5 ^ 0 ^ 3) * kMultiplier);
  for (unsigned char const format : {1, 2}) {
    std::vector<char> unit = Stored(mgr, ZnBLOB_T, blobs, format, 1);
    EXPECT_EQ(mgr.Hash(ZnBLOB_T, 0, unit.data(), 1, format, error), 9 * kMultiplier);
    EXPECT_EQ(mgr.Hash(ZnBLOB_T, 13, unit.data(), 1, format, error), 9 * kMultiplier);
    EXPECT_EQ(mgr.Hash(ZnBLOB_T, 10, unit.data(), 1, format, error), 6 * kMultiplier);
    EXPECT_EQ(mgr.Hash(ZnBLOB_T, 3, unit.data(), 1, format, error), 0u);
    EXPECT_EQ(mgr.Hash(ZnBLOB_T, 0, unit.data(), 0, format, error), 0u);
  }
}

TEST_F(BlobRow, PrintsTheLengthAndScansOnlyNull) {
  struct Case {
    ZnBlob blob;
    char const * format;
    char const * text;
  };
  Case const cases[] = {
      {Blob("abcde"), nullptr, "old[BLOB,len=5]"},
      {Blob("abcde"), "", "old"},
      {Blob("abcde"), "%L%%%q%", "old5%q"},
      {ZnBlob(), "%L/%L", "old0/0"},
      {NullBlob(), "%L", "{NULL}"},
  };
  for (Case const & c : cases) {
    ZnString out("old");
    mgr.PrintToZnString(ZnBLOB_T, out, const_cast<ZnBlob *>(&c.blob), c.format, 1);
    EXPECT_STREQ(out.StrGet(), c.text);
  }
  ZnBlob blob = Blob("abc");
  ZnString text("abc");
  mgr.ScanFromZnString(ZnBLOB_T, &blob, text, nullptr, 1);
  EXPECT_EQ(Content(blob), "abc");
  text = "{NULL}x";
  EXPECT_EQ(mgr.ScanFromZnString(ZnBLOB_T, &blob, text, nullptr, 1), &blob);
  EXPECT_TRUE(blob.IsNullValue());
  EXPECT_EQ(mgr.ScanFromZnString(ZnBLOB_T, nullptr, text, nullptr, 1), nullptr);
}

TEST_F(BlobRow, BoxesWhetherThereIsContent) {
  ZnBlob blobs[] = {Blob("abc"), NullBlob()};
  ZnTypeConvertData * const box = mgr.ConvertTo(ZnBLOB_T, blobs, 2);
  EXPECT_TRUE(box->GetString(0)->IsEmpty());
  EXPECT_FALSE(box->GetString(0)->IsNullValue());
  EXPECT_TRUE(box->GetString(1)->IsNullValue());
  auto * const back = static_cast<ZnBlob *>(mgr.ConvertFrom(ZnBLOB_T, box, 3));
  EXPECT_EQ(Content(back[0]), "");
  EXPECT_TRUE(back[1].IsNullValue());
  EXPECT_TRUE(back[2].IsNullValue());
  mgr.Delete(ZnBLOB_T, back, 3);
  delete box;
  for (int const wantNull : {0, 1}) {
    auto * const values = static_cast<ZnBlob *>(mgr.DefaultValue(ZnBLOB_T, 2, wantNull));
    EXPECT_EQ(values[1].IsNullValue(), wantNull);
    mgr.Delete(ZnBLOB_T, values, 2);
  }
  unsigned short op = 0x7FF1;
  ZnIdxBounds out = {};
  EXPECT_EQ(mgr.EvalAndBound(ZnBLOB_T, nullptr, op, blobs, 1, 1, &out, nullptr), 1.0F);
  EXPECT_EQ(out.lowKey, nullptr);
  EXPECT_EQ(mgr.GetValue(ZnBLOB_T, blobs, 8, 8, 'N'), ZnErrNotSupported);
}

TEST_F(BlobRow, LoadsIntoBlobsOfSimilarSizeWithoutAllocation) {
  constexpr unsigned int kCount = 10000;
  std::string const bytes(100, 'q');
  std::vector<ZnBlob> stored(kCount, Blob(bytes));
  std::vector<char> const unit = Stored(mgr, ZnBLOB_T, stored.data(), 1, kCount);
  std::string const wider(110, 'w');
  std::vector<ZnBlob> blobs(kCount, Blob(wider));
  std::vector<char const *> buffers;
  for (ZnBlob const & blob : blobs)
    buffers.push_back(blob.data->bytes);

#ifdef COUNTS_ALLOCATIONS
  long long const before = allocations;
#endif
  unsigned int const loaded = mgr.Load(ZnBLOB_T, blobs.data(), unit.data(), 1, kCount);
#ifdef COUNTS_ALLOCATIONS
  EXPECT_EQ(allocations, before);
#endif
  EXPECT_EQ(loaded, unit.size());
  for (unsigned int i = 0; i < kCount; ++i) {
    ASSERT_EQ(blobs[i].data->bytes, buffers[i]);
    ASSERT_EQ(Content(blobs[i]), bytes);
  }
}

} // namespace
