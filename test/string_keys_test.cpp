#include "zantms.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

/// The compare and hash rows of strings: memory form, stored forms of both generations, cut keys.

namespace {

constexpr unsigned short kLiteral = ZnCmpNoWildcards;

/// A stored text of the new form.
std::string Stored(std::string const & text, unsigned char codeSet = 1, unsigned char language = 1,
                   bool big = false) {
  std::size_t const length = text.size() + 4;
  char const low = static_cast<char>(length), high = static_cast<char>(length >> 8);
  std::string bytes{big ? high : low, big ? low : high, static_cast<char>(codeSet),
                    static_cast<char>(language)};
  return bytes + text + std::string("\0\xFF", 2);
}

struct Outcome {
  int result;
  int error;
  bool operator==(Outcome const &) const = default;
};

std::ostream & operator<<(std::ostream & out, Outcome const & o) {
  return out << o.result << " with error " << o.error;
}

using Row = decltype(&StringCompare);

/// Each side lies in a block of its own size, so that a read outside is noticed.
Outcome RunRow(std::string const & a, std::string const & b, unsigned short flags,
               unsigned char format = 1, unsigned int count = 1, bool bounded = true,
               Row row = &StringCompare) {
  std::unique_ptr<char[]> const x(new char[a.size()]), y(new char[b.size()]);
  std::memcpy(x.get(), a.data(), a.size());
  std::memcpy(y.get(), b.data(), b.size());
  int error = -1;
  int const result =
      row(format, bounded ? static_cast<unsigned int>(a.size()) : 0, x.get(),
          bounded ? static_cast<unsigned int>(b.size()) : 0, y.get(), flags, count, error);
  return {(result > 0) - (result < 0), error};
}

TEST(StringRow, ComparesWholeTexts) {
  EXPECT_EQ(RunRow(Stored("abc"), Stored("abd"), kLiteral), (Outcome{-1, 0}));
  EXPECT_EQ(RunRow(Stored("abc"), Stored("abc"), kLiteral, 1, 1, false), (Outcome{0, 0}));
  EXPECT_EQ(RunRow(Stored("abc"), Stored("a*"), 0), (Outcome{0, 0}));
  std::string const wide("\0a\0b", 4);
  EXPECT_EQ(RunRow(Stored(wide, 253, 1, true), Stored(wide, 253, 1, true), kLiteral, 2),
            (Outcome{0, 0}));
  EXPECT_EQ(
      RunRow(Stored(std::string("a\0b", 3), 253), Stored(std::string("a\0", 2), 253), kLiteral),
      (Outcome{0, 0}))
      << "half a character is none";
  EXPECT_EQ(RunRow(std::string("\6\0\1\1ab\0\0", 8), Stored("ab"), kLiteral, 0x81), (Outcome{0, 0}))
      << "no key is old";
  EXPECT_EQ(RunRow(Stored("", 0, 254), Stored(""), kLiteral), (Outcome{-1, 0}));
  EXPECT_EQ(RunRow(Stored(std::string(2000, 'a')), Stored(std::string(2000, 'a') + "b"), kLiteral),
            (Outcome{-1, 0}));
}

TEST(StringRow, StepsThroughArrays) {
  std::string const two = Stored("a") + Stored("b"), other = Stored("a") + Stored("c");
  EXPECT_EQ(RunRow(two, other, kLiteral, 1, 2), (Outcome{-1, 0}));
  EXPECT_EQ(RunRow(two, other, kLiteral, 1, 2, false), (Outcome{-1, 0}));
  EXPECT_EQ(RunRow(Stored("a"), other, kLiteral, 1, 2), (Outcome{0, ZnErrIncomplete}));
  EXPECT_EQ(RunRow(two, other, kLiteral, 1, 0), (Outcome{0, 0}));

  ZnString a[2] = {"x", "b"}, b[2] = {"x", "c"};
  int error = -1;
  EXPECT_LT(StringCompare(8, 0, a, 0, b, kLiteral, 2, error), 0);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(StringCompare(8, 16, a, 0, b, kLiteral, 2, error), 0);
  EXPECT_EQ(error, ZnErrIncomplete);
  ZnString c[3] = {"y", "b", "c"}, d[3] = {"z", "b", "c"};
  EXPECT_LT(StringCompare(8, 32, c, 0, d, kLiteral, 3, error), 0);
  EXPECT_EQ(error, 0) << "decided before the end";
}

TEST(StringRow, ReadsOldTexts) {
  std::string const old("\4\0abc\0", 6);
  EXPECT_EQ(RunRow(old, old, kLiteral), (Outcome{0, 0}));
  EXPECT_EQ(RunRow(old, std::string("\4\0abd\0", 6), kLiteral, 1, 1, false), (Outcome{-1, 0}));
  // A new text of code set 0 beside an old one.
  EXPECT_EQ(RunRow(old, Stored("abc", 0, 0), kLiteral), (Outcome{0, 0}));
  // Under the old table what the area cuts is old too, and whole if just its last byte is missing.
  Row const oldRow = ZnTypeMgr(3).CmpFuncPtrGet(ZnSTRING_T);
  EXPECT_EQ(RunRow(old.substr(0, 4), old, kLiteral, 1, 1, true, oldRow),
            (Outcome{0, ZnErrIncomplete}));
  EXPECT_EQ(RunRow(old.substr(0, 5), old, kLiteral, 1, 1, true, oldRow), (Outcome{0, 0}));
  // An array under one length field.
  std::string const array("\7\0abc\0de\0", 9), later("\7\0abc\0df\0", 9);
  EXPECT_EQ(RunRow(array, later, kLiteral, 1, 2, false), (Outcome{-1, 0}));
}

TEST(StringRow, CutKeysCompareAsFarAsTheyGo) {
  auto const cut = [](std::string const & text, std::size_t kept) {
    return Stored(text).substr(0, 4 + kept);
  };
  struct CutCase {
    std::string a, b;
    unsigned short flags;
    Outcome expected;
  };
  for (CutCase const & c : std::vector<CutCase>{
           // Only the end mark's last byte is missing: nothing is cut.
           {cut("abc", 4), Stored("abc"), kLiteral, {0, 0}},
           {cut("abcdef", 3), Stored("abcx"), kLiteral, {0, ZnErrIncomplete}},
           {cut("abcdef", 3), Stored("ab"), kLiteral, {1, 0}},
           {cut("abcdef", 3), Stored("abd"), kLiteral, {-1, ZnErrIncomplete}},
           {Stored("ab"), cut("abcdef", 3), kLiteral, {-1, 0}},
           {Stored("abcd"), cut("abcdef", 3), kLiteral, {0, ZnErrIncomplete}},
           {Stored("abc"), cut("abcdef", 3), kLiteral, {0, ZnErrIncomplete}},
           {cut("abcdef", 3), Stored("abc"), kLiteral, {0, ZnErrIncomplete}},
           {cut("abcdef", 3), cut("abcxyz", 4), kLiteral, {0, ZnErrIncomplete}},
           // With the flag the first level alone counts.
           {cut("ABCdef", 3), Stored("abcx"), kLiteral, {1, ZnErrIncomplete}},
           {cut("ABCdef", 3), Stored("abcx"), kLiteral | ZnCmpIgnoreSpaces, {0, ZnErrIncomplete}},
           // The plain prefix pattern is decided, every other with an asterisk is not.
           {cut("abcdef", 3), Stored("abc*"), 0, {0, 0}},
           {cut("abcdef", 3), Stored("ab*"), 0, {0, 0}},
           {cut("abcdef", 3), Stored("abcd*"), 0, {0, ZnErrIncomplete}},
           {cut("abcdef", 3), Stored("ab*f"), 0, {0, ZnErrIncomplete}},
           {cut("abcdef", 3), Stored("abx*"), 0, {-1, 0}},
           {cut("abcdef", 3), Stored("abc*"), ZnCmpIgnoreSpaces, {0, ZnErrIncomplete}},
           {Stored("abc"), cut("ab*defg", 4), 0, {0, ZnErrIncomplete}},
           {Stored("abc"), cut("ab*defg", 3), 0, {0, ZnErrIncomplete}},
       })
    EXPECT_EQ(RunRow(c.a, c.b, c.flags), c.expected) << c.a << " against " << c.b;
  std::string const big = Stored(std::string(300, 'a'));
  EXPECT_EQ(RunRow(big.substr(0, 258), big, kLiteral), (Outcome{-1, ZnErrNotSupported}));
  EXPECT_EQ(RunRow(big.substr(0, 257), big, kLiteral), (Outcome{0, ZnErrIncomplete}));
}

TEST(StringRow, TellsKeysOfMixedClass) {
  std::string const order("\x0C\x60", 2);
  std::string const plain = Stored(order, 254, 5), mixed = Stored(order, 254, 0x85);
  EXPECT_EQ(RunRow(mixed, plain, kLiteral, 0x81), (Outcome{0, ZnErrMixedFirstKey}));
  EXPECT_EQ(RunRow(mixed, mixed, kLiteral, 0x81), (Outcome{0, ZnErrMixedFirstKey}));
  EXPECT_EQ(RunRow(plain, mixed, kLiteral, 0x81), (Outcome{0, ZnErrMixedSecondKey}));
  std::string const longer = Stored(order + order, 254, 5);
  EXPECT_EQ(RunRow(longer, mixed, kLiteral, 0x81), (Outcome{1, ZnErrMixedSecondKey}));
  EXPECT_EQ(RunRow(longer, mixed, 0, 0x81), (Outcome{0, ZnErrMixedSecondKey})) << "counts as cut";
  // Big-endian keys order like little-endian ones.
  std::string const a = Stored(std::string("\x40\x0C", 2), 254, 5, true),
                    b = Stored(std::string("\x50\x0C", 2), 254, 5, true); // `A` and `a`
  EXPECT_EQ(RunRow(a, b, kLiteral, 0x82), (Outcome{1, 0}));
}

TEST(StringRow, SkipsUnitsOfAKeyByTheirKind) {
  auto const key = [](unsigned int unit) {
    std::string text("\x0C\x60", 2);
    if (unit != 0)
      text += {static_cast<char>(unit), static_cast<char>(unit >> 8)};
    return Stored(text, 254, 5);
  };
  struct {
    unsigned int unit;
    int spaces, symbols; ///< the result where these are ignored
  } const cases[] = {{79, 0, 1}, {80, 1, 0}, {16127, 1, 0}, {16128, 1, 1}};
  for (auto const & c : cases) {
    EXPECT_EQ(RunRow(key(c.unit), key(0), kLiteral | ZnCmpIgnoreSpaces, 0x81),
              (Outcome{c.spaces, 0}))
        << c.unit;
    EXPECT_EQ(RunRow(key(c.unit), key(0), kLiteral | ZnCmpIgnoreSymbols, 0x81),
              (Outcome{c.symbols, 0}))
        << c.unit;
  }
}

TEST(StringRow, NoStoredBytesAreReadOutside) {
  std::vector<std::string> samples = {Stored("abcdef"),
                                      Stored("a*d"),
                                      Stored(std::string("a\0b\0", 4), 253),
                                      Stored(std::string("a\0b", 3), 253),
                                      Stored(std::string(301, 'a'), 253),
                                      Stored(std::string("\x0C\x60\x10\x60", 4), 254, 0x85),
                                      std::string("\7\0abc\0de\0", 9),
                                      std::string("\xFF\xFF\xFF\xFF", 4)};
  ZnTypeMgr old(3);
  Row const rows[] = {&StringCompare, old.CmpFuncPtrGet(ZnSTRING_T)};
  for (std::string const & a : samples)
    for (std::string const & b : samples)
      for (std::size_t i = 1; i <= a.size(); i += i < 16 ? 1 : 97)
        for (std::size_t j = 1; j <= b.size(); j += j < 16 ? 1 : 97)
          for (unsigned char format : {0x01, 0x02, 0x81, 0x82})
            for (unsigned short flags : {0, 0x10, 0x2E0})
              for (Row row : rows)
                RunRow(a.substr(0, i), b.substr(0, j), flags, format, 3, true, row);
}

TEST(StringRow, HashesMemoryAndStoredFormAlike) {
  ZnTypeMgr manager;
  for (char const * text : {"", "abc", "\xC4rger"}) {
    ZnString s(1, 1);
    s += ZnString(text);
    int error = -1;
    unsigned int const inMemory = manager.Hash(ZnSTRING_T, 0, &s, 1, 8, error);
    EXPECT_EQ(error, 0);
    std::string stored = Stored(text);
    EXPECT_EQ(manager.Hash(ZnSTRING_T, 0, stored.data(), 1, 1, error), inMemory);
    EXPECT_EQ(inMemory, HashString(1, 1, s.StrGet(), -1, 8) * 1103515245u);
  }
  int error = -1;
  ZnString array[] = {"abc", static_cast<unsigned short>(0x20AC)};
  std::string const both = Stored("abc") + Stored("\xAC\x20", 253);
  EXPECT_EQ(manager.Hash(ZnSTRING_T, 0, array, 2, 8, error),
            manager.Hash(ZnSTRING_T, 0, const_cast<char *>(both.data()), 2, 1, error));
  EXPECT_EQ(
      manager.Hash(ZnSTRING_T, 0, array, 2, 8, error),
      (HashString(1, 1, array[0].StrGet(), -1, 8) ^ HashString(253, 1, array[1].StrGet(), -1, 8)) *
          1103515245u);
  // The mark of a mixed key does not count.
  for (unsigned char scriptClass : {0x05, 0x85}) {
    ZnString key;
    std::string stored = Stored(std::string("\x0C\x60", 2), 254, scriptClass);
    ASSERT_EQ(manager.Load(ZnSTRING_T, &key, stored.data(), 1, 1), 8u);
    ASSERT_EQ(key.language, scriptClass);
    EXPECT_EQ(manager.Hash(ZnSTRING_T, 0, &key, 1, 8, error), 0x05400C40u * 1103515245u);
    EXPECT_EQ(manager.Hash(ZnSTRING_T, 0, stored.data(), 1, 0x81, error),
              0x05400C40u * 1103515245u);
  }
  std::string const big = Stored(std::string(300, 'a'));
  std::string part = big.substr(0, 258);
  EXPECT_EQ(manager.Hash(ZnSTRING_T, 258, part.data(), 1, 1, error), 0u);
  EXPECT_EQ(error, ZnErrNotSupported);
  char abs[] = "ab\xDF"; // its last character gives two units, of which one counts
  EXPECT_EQ(manager.Hash(ZnSTRING_T, 7, Stored("ab\xDF...").substr(0, 7).data(), 1, 1, error),
            HashString(1, 1, abs, 3, 1) * 1103515245u);
  EXPECT_EQ(error, 0);
}

} // namespace
