#include <zantms.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "string_support.h"

/// The two older string classes: their order, their edits, their stored forms and their rows.

namespace {

template <class String>
std::string Text(String const & s) {
  return s.StrGet();
}

template <class String>
constexpr char kId = std::is_same_v<String, ZnIString> ? ZnISTRING_T : ZnCASEISTRING_T;

template <class String>
class OldString : public ::testing::Test {};
using Twins = ::testing::Types<ZnIString, ZnCaseIString>;
TYPED_TEST_SUITE(OldString, Twins);

TYPED_TEST(OldString, ConstructsAndReadsNumbers) {
  using S = TypeParam;
  static_assert(sizeof(S) == 16 && offsetof(S, mark) == 8);
  struct {
    S value;
    char const * text;
  } const cases[] = {
      {S(), ""},
      {S('x'), "x"},
      {S('\0'), ""},
      {S(short(-7)), "-7"},
      {S(42), "42"},
      {S(4294967295u), "4294967295"},
      {S(-5LL), "-5"},
      {S(18446744073709551615ULL), "18446744073709551615"},
      {S(0.5), "0.500000"},
      {S("abc"), "abc"},
      {S(""), ""},
      {S("abc", 2), "ab"},
      {S("abc", 9), "abc"},
      {S("abc", 0), ""},
      {S(static_cast<char const *>(nullptr)), ""},
  };
  for (auto const & c : cases) {
    EXPECT_EQ(Text(c.value), c.text);
    EXPECT_EQ(!c.value, *c.text == 0) << "an empty text is kept as null";
    EXPECT_EQ(c.value.Len(), std::strlen(c.text));
  }
  EXPECT_EQ(static_cast<int>(S(" 12x")), 12);
  EXPECT_EQ(static_cast<int>(S("0x10")), 0);
  EXPECT_EQ(static_cast<int>(S("99999999999")), 2147483647);
  EXPECT_EQ(static_cast<long long>(S("-99999999999")), -99999999999LL);
  EXPECT_EQ(static_cast<double>(S("1.5e2km")), 150.0);
  EXPECT_EQ(static_cast<int>(S()), 0);
}

TYPED_TEST(OldString, EditsBytes) {
  using S = TypeParam;
  auto const made = [](auto change, char const * from = "abcdef") {
    S s(from);
    change(s);
    return Text(s);
  };
  EXPECT_EQ(made([](S & s) { s.Cut(2, 2); }), "abef");
  EXPECT_EQ(made([](S & s) { s.Cut(2, 65535); }), "ab");
  EXPECT_EQ(made([](S & s) { s.Cut(6, 1).Cut(0, 0); }), "abcdef");
  EXPECT_EQ(made([](S & s) { EXPECT_TRUE(!s.Cut(0, 9)); }), "");
  EXPECT_EQ(made([](S & s) { s.Fill(2, 'x'); }), "xxcdef");
  EXPECT_EQ(made([](S & s) { s.Fill(8, 'x'); }), "xxxxxxxx");
  EXPECT_EQ(made([](S & s) { s.Insert("XY", 2); }), "abXYcdef");
  EXPECT_EQ(made([](S & s) { s.Insert("XY", 99); }), "abcdefXY");
  EXPECT_EQ(made([](S & s) { s.Insert("", 2).Insert(s, 6); }), "abcdefabcdef");
  EXPECT_EQ(made([](S & s) { s.Insert("XY", 2); }, ""), "XY");
  EXPECT_EQ(made([](S & s) { s.Replace("XYZ", 5); }), "abcdeX");
  EXPECT_EQ(made([](S & s) { s.Replace("XYZ", 6); }), "abcdef");
  EXPECT_EQ(made([](S & s) { s.Expand(8, '.'); }), "abcdef..");
  EXPECT_EQ(made([](S & s) { s.Expand(3, '.'); }), "abcdef");
  EXPECT_TRUE(!S().Expand(0, '.'));
  EXPECT_EQ(made([](S & s) { s += S(); }), "abcdef");
  EXPECT_EQ(made([](S & s) { s += s; }), "abcdefabcdef");
  EXPECT_EQ(made([](S & s) { s = s.StrGet() + 3; }), "def");
  S marked("a"), copy;
  marked.mark = ZnCollationMark::Accents;
  copy = marked;
  EXPECT_EQ(copy.mark, ZnCollationMark::Accents);
  EXPECT_EQ((copy = "a").mark, 0);
  EXPECT_EQ(made([](S & s) { s.SpaceToZero(); }, "1 2"), "102");
  EXPECT_EQ(made([](S & s) { s.ZeroToSpace(); }, "102"), "1 2");
  EXPECT_EQ(made([](S & s) { s.ToLower(); }, "AZ\xC4\xD7\xDE\xFF\x8C"), "az\xE4\xD7\xFE\x9F\x9C");
  EXPECT_EQ(made([](S & s) { s.ToUpper(); }, "az\xE4\xF7\xFE\xFF\x9F\x9C"),
            "AZ\xC4\xF7\xDE\xFF\xFF\x8C");
  EXPECT_EQ(Text(S("abc").Copy(1, 65535)), "bc");
  EXPECT_EQ(Text(S("abc").Copy(3, 1)), "");
  EXPECT_EQ(Text(S("a") + S("b")), "ab");
  EXPECT_EQ(S("abcabc").SubStringPos("ca"), 2);
  EXPECT_EQ(S("abc").SubStringPos("C"), -1);
  EXPECT_EQ(S().SubStringPos("C"), -1);
}

TEST(OldStringOrder, FollowsTheTables) {
  EXPECT_TRUE(ZnIString("a") < ZnIString("A"));
  EXPECT_TRUE(ZnIString("A") < ZnIString("b"));
  EXPECT_TRUE(ZnIString("\xE4") == ZnIString("a"));
  EXPECT_TRUE(ZnCaseIString("a") == ZnCaseIString("A"));
  EXPECT_TRUE(ZnCaseIString("\xE4") == ZnCaseIString("A"));
  EXPECT_TRUE(ZnCaseIString("z") > ZnCaseIString("Y"));
  EXPECT_TRUE(ZnIString("\xDF") == ZnIString("ss"));
  EXPECT_TRUE(ZnCaseIString("\xDF") == ZnCaseIString("SS"));
  EXPECT_TRUE(ZnIString("\xFF") == ZnIString("y"));
  EXPECT_TRUE(ZnCaseIString("\xFF") == ZnCaseIString("y"));
  EXPECT_TRUE(ZnCaseIString("\xF7") > ZnCaseIString("\xD7"));
  EXPECT_TRUE(ZnIString("\x9C") == ZnIString("oe"));
  EXPECT_TRUE(ZnIString("\x8C") == ZnIString("OE"));
  EXPECT_TRUE(ZnCaseIString("\x9C") == ZnCaseIString("OE"));
  // Each side may be in weights.
  ZnCaseIString weighed("\x54\x5B");
  weighed.mark = ZnCollationMark::Weights;
  EXPECT_TRUE(weighed == ZnCaseIString("ab"));
  EXPECT_TRUE(ZnCaseIString("ab") == weighed);
  ZnCaseIString pattern("ab*");
  int error;
  EXPECT_EQ(ZnCaseIStringCompare(8, 0, &weighed, 0, &pattern, 0, 1, error), 0);
  EXPECT_EQ(error, ZnErrIncomplete);
  EXPECT_TRUE(ZnIString() < ZnIString("a"));
  EXPECT_TRUE(ZnIString() == ZnIString(""));
  EXPECT_TRUE(ZnIString("ab") < ZnIString("abc"));
}

// ---- Rows ---------------------------------------------------------------------------------------

using Bytes = std::string;
using namespace std::string_literals;

TYPED_TEST(OldString, StoresAndLoads) {
  using S = TypeParam;
  ZnTypeMgr mgr;
  constexpr char id = kId<S>;
  S values[] = {"ab", "", "c\xDF"};
  Bytes const little = "\x40\x07\x00"s + "ab\0\0c\xDF\0"s;
  Bytes const big = "\x40\x00\x07"s + "ab\0\0c\xDF\0"s;
  char out[40];
  ASSERT_EQ(mgr.DiskLenGet(id, values, 1, 3, 8), little.size());
  ASSERT_EQ(mgr.Store(id, out, values, 1, 3), little.size());
  EXPECT_EQ(Bytes(out, little.size()), little);
  ASSERT_EQ(mgr.Store(id, out, values, 2, 3), big.size());
  EXPECT_EQ(Bytes(out, big.size()), big);
  ASSERT_EQ(mgr.Store(id, out, values, 0x81, 3), little.size());
  EXPECT_EQ(out[0], 1);
  ASSERT_EQ(mgr.Store(id, out, values, 0x41, 3), little.size());
  EXPECT_EQ(out[0], id == ZnISTRING_T ? 0x40 : 1);
  S loaded[3];
  loaded[1] = "old";
  EXPECT_EQ(mgr.Load(id, loaded, big.data(), 2, 3), big.size());
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(Text(loaded[i]), Text(values[i]));
  EXPECT_EQ(mgr.DiskLenGet(id, big.data(), 2, 3, 2), big.size());
  EXPECT_EQ(mgr.DiskLenGet(id, values + 2, 0x81, 1, 8), 3u + 4) << "the sharp s weighs twice";
  EXPECT_EQ(mgr.DiskLenGet(id, little.data(), 0x81, 3, 1), 3u + 8);
  Bytes const weighed = "\xC0\x04\x00\x4E\x9C\x9C\0"s;
  EXPECT_EQ(mgr.DiskLenGet(id, weighed.data(), 0x81, 1, 0x81), 7u) << "weights grow no further";
  EXPECT_EQ(mgr.DiskLenGet(id, values, 0x88, 1, 8), 0u);
  MemFile file(big.data(), static_cast<unsigned>(big.size()));
  EXPECT_EQ(mgr.DiskLenGetFromMemFile(id, &file, 2, 3), big.size());
  EXPECT_EQ(mgr.IsNullValue(id, values), 0);
  EXPECT_EQ(mgr.SupportsNullValue(id), 0);
}

TYPED_TEST(OldString, TranslatesToKeysAndBack) {
  using S = TypeParam;
  ZnTypeMgr mgr;
  constexpr char id = kId<S>;
  bool const cased = std::is_same_v<S, ZnIString>;
  S const value("a\xDF");
  Bytes const weights = cased ? "\x4E\x9C\x9C"s : "\x54\x9D\x9D"s;
  char key[16];
  // From memory the length counts the terminator, from stored form it does not.
  ASSERT_EQ(mgr.Translate(id, key, 0x81, 16, const_cast<S *>(&value), 8, 0, 1), 7u);
  EXPECT_EQ(Bytes(key, 7), "\xC0\x04\x00"s + weights + "\0"s);
  Bytes stored = "\x40\x03\x00"s + "a\xDF\0"s;
  ASSERT_EQ(mgr.Translate(id, key, 0x81, 16, stored.data(), 1, 6, 1), 6u);
  EXPECT_EQ(Bytes(key, 7), "\xC0\x03\x00"s + weights + "\0"s);
  ASSERT_EQ(mgr.Translate(id, key, 0x81, 6, stored.data(), 1, 6, 1), 6u);
  EXPECT_EQ(Bytes(key, 6), "\xC0\x03\x00"s + weights.substr(0, 2) + "\0"s) << "a cut key";
  Bytes const shortest = "\xC0\x03\x00"s + weights.substr(0, 1) + "\0"s;
  EXPECT_EQ(mgr.Translate(id, key, 0x81, 5, stored.data(), 1, 6, 1), 5u);
  EXPECT_EQ(Bytes(key, 5), shortest);
  EXPECT_EQ(mgr.Translate(id, key, 0x81, 5, const_cast<S *>(&value), 8, 0, 1), 5u);
  EXPECT_EQ(mgr.Translate(id, key, 0x88, 16, stored.data(), 1, 6, 1), 0u);
  Bytes marked = "\x01"s + stored.substr(1);
  ASSERT_EQ(mgr.Translate(id, key, 0x81, 16, marked.data(), 1, 6, 1), 6u);
  EXPECT_EQ(key[0], '\xC1') << "the mark of the source stays";
  Bytes again = "\xC0\x03\x00"s + weights + "\0"s;
  std::memset(key, 'x', sizeof key);
  EXPECT_EQ(mgr.Translate(id, key, 0x81, 10, again.data(), 1, 7, 1), 7u);
  EXPECT_EQ(Bytes(key, 10), again + "\0\0\0"s);
  S target;
  EXPECT_EQ(mgr.Translate(id, &target, 8, 0, stored.data(), 1, 6, 1), 6u);
  EXPECT_EQ(Text(target), "a\xDF");
  S copy;
  EXPECT_EQ(mgr.Translate(id, &copy, 8, 0, &target, 8, 0, 1), 16u);
  EXPECT_EQ(Text(copy), "a\xDF");
}

template <class String>
int Cmp(char const * a, char const * b, unsigned short cmpOp, int & error) {
  ZnTypeMgr mgr;
  String left(a), right(b);
  int const inMemory = mgr.Cmp(kId<String>, 0, &left, 0, &right, cmpOp, 1, 8, error);
  char storedA[64], storedB[64];
  unsigned const lengthA = mgr.Store(kId<String>, storedA, &left, 2, 1);
  unsigned const lengthB = mgr.Store(kId<String>, storedB, &right, 2, 1);
  int storedError;
  int const stored =
      mgr.Cmp(kId<String>, lengthA, storedA, lengthB, storedB, cmpOp, 1, 2, storedError);
  EXPECT_EQ(inMemory < 0, stored < 0);
  EXPECT_EQ(inMemory > 0, stored > 0);
  EXPECT_EQ(error, storedError);
  return (inMemory > 0) - (inMemory < 0);
}

TEST(OldStringOrder, ComparesWholeTextsByTheRows) {
  struct {
    char const *a, *b;
    unsigned short cmpOp;
    int cased, caseless;
  } const cases[] = {
      {"a", "A", 0, -1, 0},       {"a", "A", 0x10, -1, 0},    {"a", "\xE4", 0x10, 0, 0},
      {"a", "\xE4", 0, -1, -1},   {"abc", "a*", 0, 0, 0},     {"abc", "a*", 0x10, 1, 1},
      {"abc", "a*", 0x100, 1, 1}, {"abc", "a?c", 0, 0, 0},    {"ac", "a?c", 0, 1, 1},
      {"xaabab", "*ab", 0, 0, 0}, {"abx", "ac*", 0, -1, -1},  {"abx", "aa*", 0, 1, 1},
      {"a*c", "a\\*c", 0, 0, 0},  {"abc", "a\\*c", 0, 1, 1},  {"a\nb", "a\\nb", 0, 0, 0},
      {"ABC", "a*c", 0, 1, 0},    {"abc", "abd", 0, -1, -1},  {"", "*", 0, 0, 0},
      {"", "?", 0, 1, 1},         {"a\tb", "a\\tb", 0, 0, 0}, {"a\rb", "a\\rb", 0, 0, 0},
      {"a\\", "a\\", 0, 0, 0},    {"a", "\xE4*", 0, 1, -1},   {"Y", "\x9F", 0, -1, -1},
      {"\xDF", "s", 0, 1, -1},
  };
  for (auto const & c : cases) {
    SCOPED_TRACE(std::string(c.a) + " and " + c.b);
    int error = 1;
    EXPECT_EQ(Cmp<ZnIString>(c.a, c.b, c.cmpOp, error), c.cased);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(Cmp<ZnCaseIString>(c.a, c.b, c.cmpOp, error), c.caseless);
    EXPECT_EQ(error, 0);
  }
}

TEST(OldStringOrder, TellsWhatCutKeysCannot) {
  ZnTypeMgr mgr;
  Bytes whole = "\xC0\x06\x00"s + "\x4E\x5A\x5C\x60\x64\0"s; // abcde
  Bytes same = whole;
  Bytes other = "\xC0\x06\x00"s + "\x4E\x5A\x5C\x60\x6E\0"s; // abcdf
  int error;
  auto const cmp = [&](Bytes & a, unsigned lengthA, Bytes & b, unsigned short cmpOp) {
    return mgr.Cmp(ZnISTRING_T, lengthA, a.data(), static_cast<unsigned>(b.size()), b.data(), cmpOp,
                   1, 1, error);
  };
  EXPECT_LT(cmp(whole, 9, other, 0x10), 0);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(cmp(whole, 6, other, 0x10), 0) << "what is left agrees";
  EXPECT_EQ(error, ZnErrIncomplete);
  EXPECT_EQ(cmp(whole, 9, same, 0), 0);
  EXPECT_EQ(error, 0);
  // Literally, a key and a plain text compare by bytes.
  Bytes literal = "\x40\x06\x00"s + "ABCDE\0"s;
  EXPECT_GT(cmp(whole, 9, literal, 0x10), 0);
  EXPECT_EQ(error, 0);
  Bytes star = "\x40\x02\x00"s + "*\0"s, prefix = "\x40\x04\x00"s + "ab*\0"s;
  EXPECT_EQ(cmp(whole, 9, star, 0), 0);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(cmp(whole, 9, prefix, 0), 0);
  EXPECT_EQ(error, ZnErrIncomplete);
  Bytes empty = "\xC0\x01\x00\0"s, plain = "\x40\x04\x00"s + "abc\0"s;
  EXPECT_LT(cmp(empty, 4, plain, 0), 0) << "of a single unit nothing can be left out";
  EXPECT_EQ(error, ZnErrIncomplete);
  Bytes oneLeft = "\xC0\x03\x00"s + "\x54"s, later = "\x40\x04\x00"s + "b*c\0"s;
  EXPECT_LT(mgr.Cmp(ZnCASEISTRING_T, 4, oneLeft.data(), 7, later.data(), 0, 1, 1, error), 0);
  // Of a key that ends in the pattern's fixed part only what it surely holds is compared.
  struct {
    unsigned char there;
    Bytes pattern;
    int result;
  } const patterns[] = {
      {6, "abcd*"s, 0}, {5, "ax*"s, -1}, {5, "ax*y"s, 1}, {6, "a?x"s, 0}, {6, "a*\xDF"s, 0}};
  for (auto const & p : patterns) {
    Bytes key = (p.there == 5 ? "\xC0\x06\x00"s : "\xC0\x03\x00"s) + "\x54\x5B\0"s;
    Bytes stored = "\x40"s + static_cast<char>(p.pattern.size() + 1) + "\0"s + p.pattern + "\0"s;
    int const result = mgr.Cmp(ZnCASEISTRING_T, p.there, key.data(),
                               static_cast<unsigned>(stored.size()), stored.data(), 0, 1, 1, error);
    EXPECT_EQ((result > 0) - (result < 0), p.result) << p.pattern;
    EXPECT_EQ(error, ZnErrIncomplete);
  }
  for (unsigned const left : {253u, 254u, 300u}) {
    Bytes longKey(3 + left, '\x4E');
    longKey.replace(0, 3, "\xC0\x40\x02"s);
    EXPECT_EQ(cmp(whole, 9, longKey, 0) == -1 && error == ZnErrNotSupported, left >= 254) << left;
  }
}

TYPED_TEST(OldString, ComparesArrays) {
  using S = TypeParam;
  ZnTypeMgr mgr;
  S a[] = {"x", "", "b"}, b[] = {"x", "", "c"};
  char storedA[40], storedB[40];
  unsigned const length = mgr.Store(kId<S>, storedA, a, 1, 3);
  mgr.Store(kId<S>, storedB, b, 1, 3);
  int error;
  EXPECT_LT(mgr.Cmp(kId<S>, 0, a, 0, b, 0x10, 3, 8, error), 0);
  EXPECT_LT(mgr.Cmp(kId<S>, length, storedA, length, storedB, 0x10, 3, 1, error), 0);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(mgr.Cmp(kId<S>, length, storedA, length, storedA, 0x10, 4, 1, error), 0);
  EXPECT_EQ(error, ZnErrIncomplete);
  EXPECT_EQ(mgr.Cmp(kId<S>, 32, a, 0, b, 0x10, 3, 8, error), 0);
  EXPECT_EQ(error, ZnErrIncomplete);
}

TYPED_TEST(OldString, BoundsAnIndexScan) {
  using S = TypeParam;
  ZnTypeMgr mgr;
  bool const cased = std::is_same_v<S, ZnIString>;
  auto const bound = [&](char const * text, unsigned short & op, ZnIdxBounds * out,
                         ZnIdxBounds * area = nullptr) {
    S value(text);
    char stored[64];
    mgr.Store(kId<S>, stored, &value, 1, 1);
    return mgr.EvalAndBound(kId<S>, area, op, stored, 1, 1, out, nullptr);
  };
  Bytes const ab = cased ? "\x4E\x5A"s : "\x54\x5B"s;
  ZnIdxBounds out = {};
  out.keyLimit = 20;
  unsigned short op = ZnOpEqual;
  bound("ab*", op, &out);
  EXPECT_EQ(op, ZnOpEqual | ZnOpWildcard);
  ASSERT_EQ(out.lowLength, 6);
  EXPECT_EQ(Bytes(static_cast<char *>(out.lowKey), 6), "\xC0\x03\x00"s + ab + "\0"s);
  ASSERT_EQ(out.highLength, 7);
  EXPECT_EQ(Bytes(static_cast<char *>(out.highKey), 7), "\xC0\x04\x00"s + ab + "\xFF\0"s);
  std::free(out.lowKey);
  std::free(out.highKey);

  out = {};
  op = ZnOpEqual;
  EXPECT_EQ(bound("*b", op, &out), 1.0F);
  EXPECT_EQ(op, ZnOpEqual | ZnOpWildcard);
  EXPECT_EQ(out.lowKey, nullptr);
  op = ZnOpBelow | 0x8000 | ZnCmpIgnoreCase;
  bound("ab", op, &out);
  EXPECT_EQ(out.lowKey, nullptr);
  EXPECT_EQ(op, ZnOpBelow | 0x8000);
  op = ZnOpEqual | ZnCmpNoWildcards;
  bound("ab*", op, nullptr);
  EXPECT_EQ(op, ZnOpEqual) << "a plain text then";
  void * const kept = out.highKey;
  op = ZnOpAbove;
  bound("ac", op, &out);
  EXPECT_EQ(out.highKey, kept);
  ASSERT_NE(out.lowKey, nullptr);
  EXPECT_EQ(static_cast<char *>(out.lowKey)[4], static_cast<char>(cased ? 0x5C : 0x5E));
  out.highKey = nullptr;
  bound("ab", op, &out);
  EXPECT_EQ(out.highKey, nullptr) << "nothing ends what is above";
  EXPECT_EQ(static_cast<char *>(out.lowKey)[4], static_cast<char>(cased ? 0x5C : 0x5E))
      << "a key that is there stays";
  std::free(kept);
  std::free(out.lowKey);
  // A value may be in weights; the caseless class cuts its keys as an index does.
  out = {};
  op = ZnOpEqual;
  Bytes weighed = "\xC0\x03\x00"s + ab + "\0"s;
  mgr.EvalAndBound(kId<S>, nullptr, op, weighed.data(), 1, 1, &out, nullptr);
  EXPECT_EQ(Bytes(static_cast<char *>(out.lowKey), out.lowLength), weighed);
  std::free(out.lowKey);
  std::free(out.highKey);
  out = {};
  S const longText(Bytes(300, 'a').c_str());
  Bytes stored(400, 'x');
  mgr.Store(kId<S>, stored.data(), &longText, 1, 1);
  mgr.EvalAndBound(kId<S>, nullptr, op, stored.data(), 1, 1, &out, nullptr);
  EXPECT_EQ(out.lowLength, cased ? 304 & 255 : 254);
  EXPECT_EQ(static_cast<char *>(out.lowKey)[cased ? 303 : 253], 0);
  std::free(out.lowKey);
  std::free(out.highKey);

  // Of the range from "aaaa" to "zzzz", "mmmm" is a single place, and what is above it and below
  // it makes up the rest.
  auto const keyOf = [&](char const * text) {
    S value(text);
    Bytes key(8, '\0');
    mgr.Translate(kId<S>, key.data(), 0x81, 8, &value, 8, 0, 1);
    return key;
  };
  Bytes low = keyOf("aaaa"), high = keyOf("nnnn");
  ZnIdxBounds area = {low.data(), high.data(), 8, 8, 0, 0, 0};
  op = ZnOpEqual;
  float const equal = bound("mmmm", op, nullptr, &area);
  op = ZnOpBelow;
  float const below = bound("mmmm", op, nullptr, &area);
  op = ZnOpAbove;
  float const above = bound("mmmm", op, nullptr, &area);
  EXPECT_GT(equal, 0);
  EXPECT_LT(equal, 0.001);
  EXPECT_GT(below, above);
  EXPECT_NEAR(below + above, 1.0, 0.001);
  op = ZnOpBelow;
  EXPECT_EQ(bound("!", op, nullptr, &area), 0) << "below all that there is";
  // A text of one weight stands for all that its next one may be.
  op = ZnOpEqual;
  double const all = cased ? 0x86868686 - 0x4E4E4E4E + 1.0 : 0x87878787 - 0x54545454 + 1.0;
  EXPECT_FLOAT_EQ(bound("b", op, nullptr, &area), static_cast<float>(0xFF0001 / all));
  // The caseless class looks behind what all three begin with.
  high = keyOf("aann");
  op = ZnOpBelow;
  EXPECT_FLOAT_EQ(bound("aamm", op, nullptr, &area),
                  static_cast<float>(cased ? (0x8484 - 0x4E4E + 1.0) / (0x8686 - 0x4E4E + 1.0)
                                           : (0x85850000 - 0x54540000 + 1.0) /
                                                 (0x87870000 - 0x54540000 + 1.0)));
}

TYPED_TEST(OldString, GoesThroughBoxesPrintAndScan) {
  using S = TypeParam;
  ZnTypeMgr mgr;
  constexpr char id = kId<S>;
  S values[] = {"x\xE4", ""};
  ZnTypeConvertData * const box = mgr.ConvertTo(id, values, 2);
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(Latin(*box->GetString(0)), "x\xE4");
  EXPECT_EQ(box->GetString(0)->codeSet, ZnLanguageContext::GetNativeCodeSet());
  auto * const back = static_cast<S *>(mgr.ConvertFrom(id, box, 2));
  EXPECT_EQ(Text(back[0]), "x\xE4");
  EXPECT_TRUE(!back[1]);
  mgr.Delete(id, back, 2);
  delete box;
  S longer(std::string(70000, 'a').c_str());
  ZnTypeConvertData * const cut = mgr.ConvertTo(id, &longer, 1);
  EXPECT_EQ(cut->GetString(0)->Len(), ZnStringMaxChars8);
  delete cut;
  auto * const fresh = static_cast<S *>(mgr.DefaultValue(id, 1, 1));
  EXPECT_TRUE(!*fresh);
  mgr.Delete(id, fresh, 1);

  ZnString out("old");
  EXPECT_EQ(Latin(mgr.PrintToZnString(id, out, values, "<%5s>", 1)), "<   x\xE4>");
  EXPECT_EQ(Latin(mgr.PrintToZnString(id, out, values + 1, "<%5s>", 1)), "");
  ZnString in("text");
  in.SetCodeSet(253);
  mgr.ScanFromZnString(id, values, in, nullptr, 1);
  EXPECT_EQ(Text(values[0]), "text");
  EXPECT_EQ(mgr.SetNullValue(id, values), 0);
  EXPECT_TRUE(!values[0]);
  int error = 1;
  EXPECT_EQ(mgr.Hash(id, 0, values, 1, 8, error), 0u);
  EXPECT_EQ(error, 0);
}

} // namespace
