#include "zanin.h"
#include "zantms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

/// The order of texts and the wildcards: tables for each level and rule, and random texts against
/// a slow and obvious statement of the same order.

namespace {

constexpr unsigned short kLiteral = ZnCmpNoWildcards;
constexpr unsigned short kLetters = ZnCmpIgnoreCase | ZnCmpIgnoreAccents;

int Sign(int number) { return (number > 0) - (number < 0); }

/// Code set 1, English. The texts lie in areas of their size, for the sanitizer to guard.
int Compare(std::string const & a, std::string const & b, unsigned short flags,
            short maxLength = -1, int * lastDifference = nullptr) {
  std::vector<char> const x(a.c_str(), a.c_str() + a.size() + 1),
      y(b.c_str(), b.c_str() + b.size() + 1);
  return Sign(ZnStrCmp(1, 1, x.data(), 1, 1, y.data(), flags, maxLength, 1, lastDifference));
}

struct Case {
  char const * a;
  char const * b;
  unsigned short flags;
  int expected;
};

void Check(std::vector<Case> const & cases) {
  for (Case const & c : cases)
    EXPECT_EQ(Compare(c.a, c.b, c.flags), c.expected)
        << '"' << c.a << "\" against \"" << c.b << "\", flags " << std::hex << c.flags;
}

TEST(Comparison, DecidesLevelByLevel) {
  Check({
      {"abc", "abd", kLiteral, -1},
      {"\xC4\xC7", "ad", kLiteral, -1}, // letters before accents and case
      {"abc", "abcd", kLiteral, -1},
      {"ABC\xC4", "abcaa", kLiteral, -1}, // a shorter text first, whatever the case
      {"", "a", kLiteral, -1},
      {"", "", kLiteral, 0},
      {"\xE9t\xE9", "ete", kLiteral, 1},
      {"\xE9te", "et\xE9", kLiteral, -1}, // the last accent decides
      {"\xE9t\xE8", "\xE8t\xE9", kLiteral, 1},
      {"A", "a", kLiteral, 1},    // lower case first
      {"aB", "Ab", kLiteral, -1}, // the first difference in case decides
      {"A\xE9", "ae", kLiteral, 1},
      {"Ae", "a\xE9", kLiteral, -1}, // accents before case
      {"A", "a", kLiteral | ZnCmpIgnoreCase, 0},
      {"\xE9", "e", kLiteral | ZnCmpIgnoreAccents, 0},
      {"\xC9", "e", kLiteral | ZnCmpIgnoreAccents, 1},
      {"\xC9", "e", kLiteral | kLetters, 0},
      {"9", "a", kLiteral, -1},
      {"a1", "a2", kLiteral | kLetters, -1},
  });
}

TEST(Comparison, SpacesAndSymbolsBreakTiesOnly) {
  Check({
      {"a b", "ab", kLiteral, 1},
      {"a b", "ab", kLiteral | ZnCmpIgnoreSpaces, 0},
      {"a b", "ac", kLiteral, -1},
      {"a-b", "ab", kLiteral | ZnCmpIgnoreSpaces, 1},
      {"a-b", "ab", kLiteral | ZnCmpIgnoreSymbols, 0},
      {"a - b", "ab", kLiteral | ZnCmpIgnoreSymbols | ZnCmpIgnoreSpaces, 0},
      {"a - b", "ab", kLiteral | ZnCmpIgnoreSymbols, 1},
      {"a b-c", "a-b c", kLiteral, 1}, // the last difference decides
      {"a-b", "A b", kLiteral, -1},    // case before symbols
      {"-", " ", kLiteral, 1},
      {"", "  ", kLiteral, -1},
      {"", "  ", kLiteral | ZnCmpIgnoreSpaces, 0},
      {"ab", "ab!", kLiteral, -1},
  });
}

TEST(Comparison, KeysHaveNoLevels) {
  Check({
      {"\xE9"
       "a",
       "eb", ZnCmpKeysOnly, 1}, // the accent stands before the next letter
      {"\xE9"
       "a",
       "eb", kLiteral, -1},
      {"a*", "ab", ZnCmpKeysOnly, -1}, // a symbol, no wildcard
      {"a b", "ab", ZnCmpKeysOnly | ZnCmpIgnoreSpaces, -1},
      {"abc", "abc", ZnCmpKeysOnly, 0},
  });
}

TEST(Comparison, MatchesWildcardsOfTheSecondText) {
  Check({
      {"abc", "a*c", 0, 0},
      {"abc", "a?c", 0, 0},
      {"abc", "*", 0, 0},
      {"abc", "abc*", 0, 0},
      {"abc", "*abc", 0, 0},
      {"aXbc", "*bc", 0, 0},
      {"ababc", "*abc", 0, 0},
      {"abc", "a**c", 0, 0},
      {"abc", "***", 0, 0},
      {"", "*", 0, 0},
      {"", "", 0, 0},
      {"abc", "a?", 0, 1},
      {"ab", "ab?", 0, -1},
      {"abc", "a*?", 0, 0},
      {"a", "a*?", 0, -1},
      {"aabaab", "*?ab", 0, 0},
      {"abcbd", "a*b?", 0, 0},
      {"a*c", "abc", 0, 1},
      {"Abc", "a*c", 0, 1},
      {"Abc", "a*c", ZnCmpIgnoreCase, 0},
      {"abC", "*bc", ZnCmpIgnoreCase, 0},
      {"ab\xE9", "*be", 0, -1},
      {"ab\xE9", "*be", ZnCmpIgnoreAccents, 0},
      {"xx e\xE9"
       "e",
       "*ee", kLetters, 0},
      {"a b", "a*b", 0, 0},
      {"a b", "a?b", 0, 0},
      {"a b", "ab*", 0, 1},
      {"a b", "ab*", ZnCmpIgnoreSpaces, 0},
      {"a-b-c", "a*-c", 0, 0},
      {"abcd", "a?c*", kLiteral, -1},
      {"mississippi", "m*iss*ip?i", 0, 0},
      {"abab", "*ab*ab*ab", 0, -1},
  });
}

TEST(Comparison, LimitCountsUnitsReadOnEachSide) {
  EXPECT_EQ(Compare("abc", "abd", kLiteral, 2), 0);
  EXPECT_EQ(Compare("abc", "abd", kLiteral, 3), -1);
  EXPECT_EQ(Compare("abc", "xyz", kLiteral, 0), 0);
  EXPECT_EQ(Compare("abc", "xyz", ZnCmpKeysOnly, 0), 0);
  EXPECT_EQ(Compare("a b", "ac", kLiteral | ZnCmpIgnoreSpaces, 2), -1); // the space is counted
  EXPECT_EQ(Compare("ab", "ac", ZnCmpKeysOnly, 1), 0);
  EXPECT_EQ(Compare("ab", "*", 0, 1), 0);
  EXPECT_EQ(Compare("abc", "abd", kLiteral, -2), -1); // 65534 units
}

TEST(Comparison, NullsOrderFirstAndMatchAsEmptyText) {
  struct Side {
    unsigned char codeSet, language;
    char const * text;
  };
  Side const null{0, 254, nullptr}, keyNull{254, 0, nullptr}, empty{1, 1, ""}, star{1, 1, "*"},
      byteStar{0, 0, "*"}, unset{1, 1, nullptr};
  auto const compare = [](Side const & a, Side const & b, unsigned short flags) {
    return Sign(ZnStrCmp(a.codeSet, a.language, a.text, b.codeSet, b.language, b.text, flags, -1, 1,
                         nullptr));
  };
  EXPECT_EQ(compare(null, keyNull, 0), 0);
  EXPECT_EQ(compare(empty, null, 0), 1);
  EXPECT_EQ(compare(empty, null, kLiteral), 1);
  EXPECT_EQ(compare(null, empty, kLiteral), -1);
  EXPECT_EQ(compare(null, empty, ZnCmpKeysOnly), -1);
  EXPECT_EQ(compare(null, empty, 0), 0);
  EXPECT_EQ(compare(null, star, 0), 0);
  EXPECT_EQ(compare(null, byteStar, 0), 0);
  EXPECT_EQ(compare(unset, empty, kLiteral), 0);
}

TEST(Comparison, TellsTheFirstLevelDifferenceWithinTheLimit) {
  int difference = 77;
  Compare("abc", "abd", kLiteral, 3, &difference);
  EXPECT_EQ(difference, 77); // only with the flag
  Compare("abc", "abd", kLiteral | ZnCmpIgnoreSpaces, -1, &difference);
  EXPECT_EQ(difference, 77); // only with a limit
  Compare("abc", "abd", kLiteral | ZnCmpIgnoreSpaces, 3, &difference);
  EXPECT_LT(difference, 0);
  EXPECT_EQ(Compare("abc", "ab", kLiteral | ZnCmpIgnoreSpaces, 2, &difference), 0);
  EXPECT_EQ(difference, 0); // the end came behind the limit
}

TEST(Comparison, NativeBytesHaveNoLanguage) {
  struct ByteCase {
    char const * a;
    char const * b;
    unsigned short flags;
    short limit;
    int expected;
  };
  for (ByteCase const & c : std::vector<ByteCase>{
           {"a", "B", kLiteral, -1, 1},
           {"\xFF", "a", kLiteral, -1, 1},
           {"abc", "abd", kLiteral, 0, 0},
           {"abc", "abd", kLiteral, 2, 0},
           {"abc", "abd", kLiteral, 3, -1},
           {"ab", "abc", ZnCmpKeysOnly, -1, -1},
           {nullptr, "", kLiteral, -1, 0},
           {nullptr, "a", kLiteral, -1, -1},
           {"a", nullptr, kLiteral, -1, 1},
           {"abc", "a*c", 0, -1, 0},
           {"abc", "a?c", 0, -1, 0},
           {"abc", "*", 0, -1, 0},
           {"abcbd", "a*bd", 0, -1, 0},
           {"abc", "a*x", 0, -1, -1},
           {"a", "a?", 0, -1, -1},
           {"abc", "ab", 0, -1, 1},
           {"abc", "abx", 0, 2, 0},
           {"abc", "ab", 0, 2, 0},
           {"abab", "*b", 0, -1, 1}, // takes the first b
           {"A", "a", ZnCmpIgnoreCase, -1, -1},
           {"x", nullptr, 0, -1, 1},
           {nullptr, "", 0, -1, 0},
       })
    EXPECT_EQ(Sign(ZnStrCmp(0, 0, c.a, 0, 0, c.b, c.flags, c.limit, 1, nullptr)), c.expected)
        << (c.a ? c.a : "null") << " against " << (c.b ? c.b : "null");
}

TEST(Comparison, WildcardsArePlacedInCharactersAndBytes) {
  unsigned short bytes = 7;
  EXPECT_EQ(ZnFindWildcard(1, 1, "ab*c", 0, 65535, &bytes, 1), 2);
  EXPECT_EQ(bytes, 2);
  EXPECT_EQ(ZnFindWildcard(0, 0, "a?*", 0, 65535, &bytes, 1), 1);
  EXPECT_EQ(ZnFindWildcard(0, 0, "a?*", 1, 65535, &bytes, 1), 2);
  EXPECT_EQ(ZnFindWildcard(1, 1, "a?b", 1, 65535, &bytes, 1), 65535);
  EXPECT_EQ(ZnFindWildcard(1, 1, "ab*", 0, 2, &bytes, 1), 65535);
  EXPECT_EQ(ZnFindWildcard(1, 1, "\xDF*", 0, 65535, &bytes, 1), 1); // an expansion is one character
  char const big[] = "\0a\0?\0\0";
  EXPECT_EQ(ZnFindWildcard(253, 1, big, 0, 65535, &bytes, 2), 1);
  EXPECT_EQ(bytes, 2);
}

TEST(Comparison, WildcardsCanBeOtherCharacters) {
  ZnString::SetAsterisk(ZnChar('%', 1, 1));
  ZnString::SetQuestion(ZnChar('_', 1, 1));
  EXPECT_EQ(Compare("abc", "a%", 0), 0);
  EXPECT_EQ(Compare("abc", "a_c", 0), 0);
  EXPECT_NE(Compare("abc", "a*", 0), 0);
  EXPECT_EQ(ZnString::SetEscape(ZnChar('#', 1, 1)), 0);
  EXPECT_NE(Compare("abc", "a#", 0), 0) << "the escape is no wildcard";
  ZnString::SetEscape(ZnChar('\\', 1, 1));
  ZnString::SetQuestion(ZnChar('q', 1, 1)); // a letter may be one as well
  EXPECT_EQ(Compare("abc", "qbq", 0), 0);
  EXPECT_NE(Compare("qbc", "abc", 0), 0);
  ZnString::SetAsterisk(ZnChar('*', 1, 1));
  EXPECT_EQ(ZnString("abc").Find("q", 1, 0), 1);
  ZnString::SetQuestion(ZnChar('?', 1, 1));
  EXPECT_EQ(Compare("abc", "a*", 0), 0);
}

// ---- Random texts ------------------------------------------------------------------------------

using Units = std::u16string;

/// One text in several encodings that are to read the same.
struct Text {
  Units units;

  std::string Encoded(unsigned char byteOrder) const {
    std::string bytes;
    for (char16_t c : units) {
      char const low = static_cast<char>(c), high = static_cast<char>(c >> 8);
      bytes += byteOrder == 2 ? high : low;
      bytes += byteOrder == 2 ? low : high;
    }
    return bytes + std::string(2, '\0');
  }

  /// Some text of a one-byte code set.
  std::string Narrow() const {
    std::string bytes;
    for (char16_t c : units)
      bytes += static_cast<char>(c % 255 + 1);
    return bytes;
  }
};

/// Letters with accents and case, spaces, symbols, digits, marks, several scripts, expansions,
/// characters without entry, unpaired units.
std::u16string const kAlphabet = u"aabbAB\u00e0\u00c0\u00e1e\u00e9oO\u00f6\u00df\u00e6\u00f1nlch"
                                 u"  --.,!19\u0301\u0308\u0323\u03b1\u03b2\u0391\u0430\u0431\u0410"
                                 u"\u4e00\u4e01\uac00\ufffe\ufff0\xd800\xdc00\u01c6\u0e01\u0e40";

class TextSource {
public:
  explicit TextSource(unsigned int seed) : random_(seed) {}

  unsigned int Number(unsigned int below) { return static_cast<unsigned int>(random_() % below); }

  Text Make(std::u16string_view alphabet, unsigned int longest) {
    Text text;
    for (unsigned int n = Number(longest + 1); n != 0; --n)
      text.units += alphabet[Number(static_cast<unsigned int>(alphabet.size()))];
    return text;
  }

  /// A text that often differs little from another.
  Text Near(Text const & other, std::u16string_view alphabet, unsigned int longest) {
    if (Number(3) == 0)
      return Make(alphabet, longest);
    Text text = other;
    for (unsigned int edits = Number(3); edits != 0 && !text.units.empty(); --edits) {
      std::size_t const place = Number(static_cast<unsigned int>(text.units.size()));
      char16_t const c = alphabet[Number(static_cast<unsigned int>(alphabet.size()))];
      switch (Number(3)) {
      case 0:
        text.units[place] = c;
        break;
      case 1:
        text.units.insert(place, 1, c);
        break;
      default:
        text.units.erase(place, 1);
      }
    }
    return text;
  }

private:
  std::mt19937 random_;
};

struct Unit {
  unsigned short order;
  unsigned int key;
  bool significant;
};

/// All that the order numbers say of a text, up to a limit, with the end as last unit.
std::vector<Unit> UnitsOf(std::string const & bytes, unsigned char language,
                          unsigned char byteOrder, std::size_t limit, unsigned char codeSet = 253) {
  std::vector<Unit> units;
  ZnStringIterator it(bytes.data(), codeSet, language, byteOrder);
  while (units.size() < limit) {
    unsigned short const order = it.GetNextOrder(1);
    if (order == 0)
      break;
    units.push_back(
        {order, ZnOrderKey(order, it.scriptClass), order >= 16128 || it.scriptClass >= 20});
  }
  units.push_back({0, 0, true});
  return units;
}

/// The order told level by level: all letters, then accents from the end, case from the start,
/// spaces and symbols from the end.
int PlainOrder(std::vector<Unit> a, std::vector<Unit> b, unsigned short flags) {
  auto const skipped = [flags](Unit const & u) {
    return !u.significant && (flags & (u.order < 80 ? ZnCmpIgnoreSpaces : ZnCmpIgnoreSymbols));
  };
  std::erase_if(a, skipped);
  std::erase_if(b, skipped);
  int accents = 0, cases = 0, symbols = 0;
  auto i = a.begin(), j = b.begin();
  for (;;) {
    for (; !i->significant || !j->significant;) {
      int const x = i->significant ? 0 : (i++)->order;
      int const y = j->significant ? 0 : (j++)->order;
      if (x != y)
        symbols = x - y;
    }
    unsigned int const x = (i++)->key, y = (j++)->key;
    if ((x >> 7) != (y >> 7))
      return x < y ? -1 : 1;
    if (x == 0)
      break;
    if ((x & 31) != (y & 31))
      accents = (x & 31) < (y & 31) ? -1 : 1;
    if (cases == 0)
      cases = Sign(static_cast<int>(y & 96) - static_cast<int>(x & 96));
  }
  if (accents != 0 && (flags & ZnCmpIgnoreAccents) == 0)
    return accents;
  if (cases != 0 && (flags & ZnCmpIgnoreCase) == 0)
    return cases;
  return Sign(symbols);
}

TEST(Comparison, AgreesWithThePlainOrderOnRandomTexts) {
  TextSource source(1);
  unsigned char const languages[] = {0, 1, 2, 3, 5, 8, 13, 21, 34};
  for (int round = 0; round < 40000; ++round) {
    Text const a = source.Make(kAlphabet, 9);
    Text const b = source.Near(a, kAlphabet, 9);
    unsigned short const flags = static_cast<unsigned short>(
        kLiteral | (source.Number(2) ? 0 : source.Number(64) << 5 & 0x2E0));
    short const limit = source.Number(2) ? -1 : static_cast<short>(1 + source.Number(12));
    unsigned char const byteOrder = static_cast<unsigned char>(1 + source.Number(2));
    unsigned char const language = languages[source.Number(9)];
    bool const narrow = source.Number(3) == 0;
    unsigned char const codeSet = narrow ? static_cast<unsigned char>(1 + source.Number(55)) : 253;
    std::string const x = narrow ? a.Narrow() : a.Encoded(byteOrder),
                      y = narrow ? b.Narrow() : b.Encoded(byteOrder);
    auto const units = [&](std::string const & bytes) {
      return UnitsOf(bytes, language, byteOrder, static_cast<unsigned short>(limit), codeSet);
    };
    int const expected = PlainOrder(units(x), units(y), flags);
    auto const compare = [&](std::string const & s, std::string const & t, unsigned short op) {
      return Sign(ZnStrCmp(codeSet, language, s.data(), codeSet, language, t.data(), op, limit,
                           byteOrder, nullptr));
    };
    ASSERT_EQ(compare(x, y, flags), expected) << "round " << round;
    ASSERT_EQ(compare(y, x, flags), -expected) << "round " << round;
    // Without wildcards in the pattern the flag that forbids them changes nothing.
    if (!narrow) {
      ASSERT_EQ(compare(x, y, flags & ~kLiteral), expected) << "round " << round;
    }
  }
}

/// A language brings its own letters from the first comparison on, whatever was compared before.
TEST(Comparison, FirstUseOfALanguageHasItsOrder) {
  Compare("a", "b", kLiteral);
  std::string const texts[] = {Text{u"\u00e4"}.Encoded(1), Text{u"z"}.Encoded(1)};
  int behindZ = 0;
  for (unsigned char language = 1; language < 212; ++language) {
    int const result = Sign(ZnStrCmp(253, language, texts[0].data(), 253, language, texts[1].data(),
                                     kLiteral, -1, 1, nullptr));
    EXPECT_EQ(result, PlainOrder(UnitsOf(texts[0], language, 1, 9),
                                 UnitsOf(texts[1], language, 1, 9), kLiteral))
        << static_cast<int>(language);
    behindZ += result > 0;
  }
  EXPECT_GT(behindZ, 5); // Swedish among them
}

/// The entry that a language has of a character.
ZnCharOrderProps const * EntryFor(ZnCharOrderProps const * entry, ZnLanguage const * language) {
  ZnLanguage const * other = nullptr;
  ZnCharOrderProps const * variant = nullptr;
  for (int i = 0; entry->variantLanguages->Read(i, other) == 0; ++i)
    if (other == language && entry->variantEntries->Read(i, variant) == 0)
      return variant;
  return entry;
}

/// The first unit of a text of one or two characters.
ZnCharOrderProps FirstUnit(unsigned short c, unsigned short next, unsigned char codeSet,
                           unsigned char language) {
  bool const wide = codeSet == 253;
  unsigned short const units[] = {c, next, 0};
  char const bytes[] = {static_cast<char>(c), static_cast<char>(next), 0};
  ZnStringIterator it(wide ? reinterpret_cast<char const *>(units) : bytes, codeSet, language, 1);
  unsigned short const order = it.GetNextOrder(1);
  return {it.scriptClass, order, 0, 0, it.overflow != nullptr, 0, 0, 0, 0, 0};
}

TEST(Comparison, EachLanguageReadsItsVariants) {
  int own = 0, joined = 0;
  for (unsigned char const codeSet : {1, 2, 253}) {
    ZnCodeSet const & record = *ZnLanguageContext::QueryCodeSet(codeSet);
    for (unsigned int i = 1; i < (codeSet == 253 ? 65536 : 256); ++i) {
      unsigned short const c = static_cast<unsigned short>(i);
      ZnCharOrderProps const * const entry = record.orderTable->Lookup(c);
      if (entry == nullptr || entry->hasVariants == 0)
        continue;
      for (unsigned char id = 0; ZnLanguage const * language = ZnLanguageContext::QueryLanguage(id);
           ++id) {
        auto const check = [&](ZnCharOrderProps const & expected, unsigned short next) {
          ZnCharOrderProps const unit = FirstUnit(c, next, codeSet, id);
          ASSERT_EQ(unit.order, expected.order) << c << ' ' << next << ' ' << language->tag;
          ASSERT_EQ(*unit.classRef,
                    expected.classRef ? *expected.classRef : record.ScriptClass(id));
          ASSERT_EQ(unit.hasExpansion, expected.hasExpansion) << c << ' ' << language->tag;
        };
        ZnCharOrderProps const * const variant = EntryFor(entry, language);
        own += variant != entry;
        check(*variant, 0);
        unsigned short next = 0;
        ZnCharOrderProps const * both = nullptr;
        for (int k = 0;
             variant->hasContractions != 0 && variant->contractionChars->Read(k, next) == 0; ++k)
          if ((codeSet == 253 || next < 256) && variant->contractionEntries->Read(k, both) == 0) {
            check(*both, next);
            joined += variant != entry && next < 256;
          }
      }
    }
  }
  EXPECT_GT(own, 1000);
  EXPECT_GT(joined, 10); // such as the Danish aa
}

TEST(Comparison, IsATotalOrderOverScriptsCodeSetsAndLanguages) {
  TextSource source(2);
  struct Side {
    std::string bytes;
    unsigned char codeSet, language;
  };
  auto const pick = [&](Text const & text) {
    unsigned char const language = static_cast<unsigned char>(source.Number(12));
    if (source.Number(2) == 0)
      return Side{text.Encoded(1), 253, language};
    ZnString narrow(253, language);
    std::string const wide = text.Encoded(1);
    narrow = ZnString(reinterpret_cast<unsigned short const *>(wide.data()));
    narrow.MapToCodeSet(1);
    return Side{narrow.StrGet(), 1, language};
  };
  for (int round = 0; round < 20000; ++round) {
    Text const first = source.Make(kAlphabet, 6);
    Side const sides[3] = {pick(first), pick(source.Near(first, kAlphabet, 6)),
                           pick(source.Near(first, kAlphabet, 6))};
    for (unsigned short const flags : {kLiteral, ZnCmpKeysOnly}) {
      auto const compare = [&](int i, int j) {
        Side const & a = sides[i];
        Side const & b = sides[j];
        return Sign(ZnStrCmp(a.codeSet, a.language, a.bytes.data(), b.codeSet, b.language,
                             b.bytes.data(), flags, -1, 1, nullptr));
      };
      for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3, k = (i + 2) % 3;
        ASSERT_EQ(compare(i, i), 0);
        ASSERT_EQ(compare(i, j), -compare(j, i));
        if (compare(i, j) <= 0 && compare(j, k) <= 0) {
          ASSERT_LE(compare(i, k), 0) << "round " << round;
        }
      }
    }
  }
}

/// The same with wildcards in the second text: a search told step by step, over places.
class PlainMatch {
public:
  PlainMatch(std::vector<Unit> a, std::vector<Unit> b, unsigned short flags)
      : a_{std::move(a)}, b_{std::move(b)}, flags_{flags},
        mask_{~((flags & ZnCmpIgnoreCase ? 96u : 0) | (flags & ZnCmpIgnoreAccents ? 31u : 0))} {}

  int Run() {
    for (;;) {
      int const symbols = ReadStep();
      if (starKey_ != 0 && x_.key != 0 && (Same(x_.key, starKey_) || starIsQuestion_))
        alternatives_.push_back({star_.next, letterCase_, accent_});
      int primary = 0;
      if (y_.order == kAsterisk && !StartSearch())
        return Result(symbols);
      std::erase_if(alternatives_, [this](Place & place) {
        Unit const unit = ReadCounting(b_, place.next, true);
        return !Same(unit.key, x_.key) && (x_.order == 0 || unit.order != kQuestion);
      });
      if (y_.order == kQuestion)
        primary = x_.order != 0 ? 0 : -1;
      else
        primary = CompareUnits();
      if (starKey_ != 0 && x_.order != 0 && IsMismatch(primary)) {
        Place const place = alternatives_.empty() ? star_ : alternatives_.front();
        if (!alternatives_.empty())
          alternatives_.erase(alternatives_.begin());
        j_ = place.next;
        letterCase_ = place.letterCase;
        accent_ = place.accent;
        primary = 0;
      }
      if (symbols != 0)
        symbol_ = symbols;
      if (primary != 0)
        return Sign(primary);
      if (x_.order == 0 || (y_.order == 0 && starKey_ == 0))
        return Result(0);
    }
  }

private:
  struct Place {
    std::size_t next;
    int letterCase, accent;
  };

  inline static unsigned short const kAsterisk = ZnStringIterator("*", 1, 1, 1).GetNextOrder(0);
  inline static unsigned short const kQuestion = ZnStringIterator("?", 1, 1, 1).GetNextOrder(0);

  bool Same(unsigned int a, unsigned int b) const { return (a & mask_) == (b & mask_); }

  /// The next unit that the flags do not skip.
  Unit ReadCounting(std::vector<Unit> const & text, std::size_t & next, bool pattern) const {
    for (;;) {
      Unit const unit = text[std::min(next++, text.size() - 1)];
      bool const wildcard = pattern && (unit.order == kAsterisk || unit.order == kQuestion);
      bool const space = unit.order < 80;
      if (unit.significant || wildcard ||
          (flags_ & (space ? ZnCmpIgnoreSpaces : ZnCmpIgnoreSymbols)) == 0)
        return unit;
    }
  }

  /// Reads both sides up to the next letters, a wildcard, or, in a search, one unit. Gives the last
  /// difference in spaces and symbols.
  int ReadStep() {
    int symbols = 0;
    for (bool moveA = true, moveB = true; moveA || moveB;) {
      int heldA = 0, heldB = 0;
      if (moveA) {
        x_ = ReadCounting(a_, i_, false);
        moveA = !x_.significant;
        heldA = moveA ? x_.order : 0;
      }
      if (moveB) {
        y_ = ReadCounting(b_, j_, true);
        if (y_.order == kAsterisk || y_.order == kQuestion)
          return symbols;
        moveB = !y_.significant;
        heldB = moveB ? y_.order : 0;
      }
      if (starKey_ != 0)
        return symbols;
      if (heldA != heldB)
        symbols = heldA - heldB;
    }
    return symbols;
  }

  /// False if the asterisk ends the pattern.
  bool StartSearch() {
    alternatives_.clear();
    do {
      star_ = {j_, letterCase_, accent_};
      y_ = ReadCounting(b_, j_, true);
    } while (y_.order == kAsterisk);
    starKey_ = y_.key & mask_;
    starIsQuestion_ = y_.order == kQuestion;
    return y_.order != 0;
  }

  int CompareUnits() {
    unsigned int const x = x_.key, y = y_.key;
    if (letterCase_ == 0)
      letterCase_ = static_cast<int>((y & ~31u) - (x & ~31u));
    if ((x & ~96u) != (y & ~96u))
      accent_ = static_cast<int>((x & ~96u) - (y & ~96u));
    return static_cast<int>((x & ~127u) - (y & ~127u));
  }

  bool IsMismatch(int primary) const {
    switch (flags_ & kLetters) {
    case kLetters:
      return primary != 0;
    case ZnCmpIgnoreAccents:
      return letterCase_ != 0;
    case ZnCmpIgnoreCase:
      return accent_ != 0;
    default:
      return accent_ != 0 || letterCase_ != 0;
    }
  }

  int Result(int symbols) const {
    if (accent_ != 0 && (flags_ & ZnCmpIgnoreAccents) == 0)
      return Sign(accent_);
    if (letterCase_ != 0 && (flags_ & ZnCmpIgnoreCase) == 0)
      return Sign(letterCase_);
    return Sign(symbols != 0 ? symbols : symbol_);
  }

  std::vector<Unit> const a_, b_;
  unsigned short const flags_;
  unsigned int const mask_;
  std::size_t i_ = 0, j_ = 0;
  Unit x_{}, y_{};
  int letterCase_ = 0, accent_ = 0, symbol_ = 0;
  unsigned int starKey_ = 0;
  bool starIsQuestion_ = false;
  Place star_{};
  std::vector<Place> alternatives_;
};

TEST(Comparison, SearchesAsToldStepByStep) {
  TextSource source(5);
  std::u16string const letters = u"aab\u00e0Ae\u00dfc -", wild = u"aab\u00e0Ae\u00dfc -**??";
  int matches = 0;
  for (int round = 0; round < 60000; ++round) {
    bool const any = source.Number(4) == 0;
    Text const a = source.Make(any ? kAlphabet + u"*?" : letters, 10);
    Text const b = source.Near(source.Number(3) ? source.Make(wild, 8) : a,
                               any ? kAlphabet + u"***???" : wild, 8);
    unsigned short const flags =
        static_cast<unsigned short>(source.Number(2) ? 0 : source.Number(64) << 5 & 0x2E0);
    short const limit = source.Number(3) ? -1 : static_cast<short>(1 + source.Number(12));
    unsigned char const byteOrder = static_cast<unsigned char>(1 + source.Number(2));
    unsigned char const language = static_cast<unsigned char>(source.Number(12));
    std::string const x = a.Encoded(byteOrder), y = b.Encoded(byteOrder);
    std::size_t const units = static_cast<unsigned short>(limit);
    int const expected = PlainMatch(UnitsOf(x, language, byteOrder, units),
                                    UnitsOf(y, language, byteOrder, units), flags)
                             .Run();
    matches += expected == 0;
    ASSERT_EQ(Sign(ZnStrCmp(253, language, x.data(), 253, language, y.data(), flags, limit,
                            byteOrder, nullptr)),
              expected)
        << "round " << round << ", flags " << flags;
  }
  EXPECT_GT(matches, 5000);
}

/// Whether a pattern of `?`, `*` and letters matches, by trying everything.
bool Matches(char const * pattern, char const * text) {
  if (*pattern == '*')
    return Matches(pattern + 1, text) || (*text != 0 && Matches(pattern, text + 1));
  if (*text == 0 || *pattern == 0)
    return *text == *pattern;
  return (*pattern == '?' || *pattern == *text) && Matches(pattern + 1, text + 1);
}

TEST(Comparison, MatchesWhatAnExhaustiveMatcherMatches) {
  TextSource source(3);
  int hits = 0;
  for (int round = 0; round < 60000; ++round) {
    std::string text, pattern;
    for (unsigned int n = source.Number(9); n != 0; --n)
      text += "abc"[source.Number(source.Number(2) ? 2 : 3)];
    for (unsigned int n = source.Number(8); n != 0; --n)
      pattern += "aab*?*bc"[source.Number(8)];
    bool const expected = Matches(pattern.c_str(), text.c_str());
    hits += expected;
    for (unsigned short const flags : {0, 0x20, 0x40, 0x60, 0x2E0})
      ASSERT_EQ(Compare(text, pattern, flags) == 0, expected)
          << text << " against " << pattern << ", flags " << flags;
    // Case and accents in the text do not matter on the first level.
    std::string adorned = text;
    for (char & c : adorned)
      if (source.Number(2))
        c = c == 'a' ? '\xC4' : static_cast<char>(c - 32);
    ASSERT_EQ(Compare(adorned, pattern, kLetters) == 0, expected) << text << " " << pattern;
  }
  EXPECT_GT(hits, 5000);
}

TEST(Comparison, ManyAsterisksEndInTime) {
  std::string const text(10000, 'a');
  std::string stars, repeats;
  for (int i = 0; i < 1000; ++i) {
    stars += '*';
    repeats += "*a";
  }
  EXPECT_EQ(Compare(text, stars + "b", 0), -1);
  EXPECT_EQ(Compare(text, stars, 0), 0);
  EXPECT_EQ(Compare(text, repeats, 0), 0);
  EXPECT_EQ(Compare(text, repeats + "b", 0), -1);
  EXPECT_EQ(Compare(text, "*" + std::string(5000, 'a') + "b", 0), -1);
  EXPECT_EQ(Compare(text, "*" + std::string(5000, '?') + "a", 0), 0);
}

TEST(Comparison, MarksBehindALongCommonStartJoin) {
  // Joiners change nothing, but a mark behind them belongs to the letter before.
  for (std::size_t joiners : {0u, 1u, 5u, 6u, 12u})
    for (unsigned char language : {1, 2, 5, 9}) {
      auto const text = [&](char16_t last) {
        return Text{u"xyza" + std::u16string(joiners, u'\u200d') + last + u"b"}.Encoded(1);
      };
      std::string const a = text(u'\u0301'), b = text(u'\u0308');
      EXPECT_EQ(
          Sign(
              ZnStrCmp(253, language, a.data(), 253, language, b.data(), kLiteral, -1, 1, nullptr)),
          PlainOrder(UnitsOf(a, language, 1, 65535), UnitsOf(b, language, 1, 65535), kLiteral))
          << joiners;
    }
}

TEST(Comparison, LongCommonStartsChangeNothing) {
  for (unsigned int length :
       {1u, 6u, 7u, 8u, 14u, 15u, 16u, 29u, 30u, 31u, 32u, 93u, 94u, 95u, 500u, 6000u})
    for (char const * pair : {"a b", "e \xE9", "A a", "- +", "\xDF s"}) {
      std::string const a = std::string(length, 'x') + pair[0],
                        b = std::string(length, 'x') + (pair + 2);
      EXPECT_EQ(Compare(a, b, kLiteral), Compare(std::string(1, pair[0]), pair + 2, kLiteral));
      EXPECT_EQ(Compare(a, b, kLiteral), -Compare(b, a, kLiteral));
      EXPECT_EQ(Compare(a, a, kLiteral), 0);
      EXPECT_EQ(Compare(a, a + "y", kLiteral), -1);
    }
}

/// Equal keys hash equally, in every encoding; the tables hold no contraction longer than what the
/// comparison provides for when it skips a common start.
TEST(Hash, AgreesWithComparisonByKeys) {
  TextSource source(4);
  for (int round = 0; round < 20000; ++round) {
    Text const a = source.Make(kAlphabet, 4);
    Text const b = source.Near(a, kAlphabet, 4);
    std::string x = a.Encoded(1), y = b.Encoded(2);
    unsigned char const language = static_cast<unsigned char>(source.Number(12));
    std::string const yLittle = b.Encoded(1);
    if (ZnStrCmp(253, language, x.data(), 253, language, yLittle.data(), ZnCmpKeysOnly, -1, 1,
                 nullptr) == 0) {
      ASSERT_EQ(HashString(253, language, x.data(), -1, 1),
                HashString(253, language, y.data(), -1, 2));
    }
  }
}

TEST(Hash, FoldsKeys) {
  char abc[] = "ab";
  ZnStringIterator it(abc, 1, 1, 1);
  unsigned int const a = ZnOrderKey(it.GetNextOrder(1), it.scriptClass);
  unsigned int const b = ZnOrderKey(it.GetNextOrder(1), it.scriptClass);
  EXPECT_EQ(HashString(1, 1, abc, -1, 1), a * 9 + b);
  EXPECT_EQ(HashString(1, 1, abc, 1, 1), a);
  EXPECT_EQ(HashString(1, 1, abc, 0, 1), 0u);
  EXPECT_EQ(HashString(1, 1, abc, 3, 1), (a * 9 + b) * 9); // the end counts as 0
  EXPECT_EQ(HashString(0, 0, abc, -1, 1), 'a' * 9u + 'b');
  EXPECT_EQ(HashString(0, 0, abc, 3, 1), ('a' * 9u + 'b') * 9);
  char high[] = "\xE4";
  EXPECT_EQ(HashString(0, 0, high, -1, 1), 0xE4u);
  EXPECT_EQ(HashString(5, 254, abc, -1, 1), 0xFEFE7575u);
  EXPECT_EQ(HashString(254, 0, nullptr, -1, 1), 0xFEFE7575u);
}

/// Without the characters of which a contraction may take any number: marks and format characters.
unsigned int LongestContraction(ZnOrderTable const & table, ZnCharOrderProps const * entry,
                                unsigned int firstMark, unsigned int depth) {
  unsigned int longest = 1;
  ZnCharOrderProps const * next = nullptr;
  unsigned short c = 0;
  if (entry == nullptr || depth > 8)
    return longest;
  if (entry->hasContractions != 0)
    for (int i = 0; entry->contractionChars->Read(i, c) == 0; ++i) {
      bool const occurs = firstMark == 768 || c < 256;
      bool const mayRepeat = c >= firstMark && (table.Plain(c).order & 0xC000) != 0x4000;
      if (occurs && !mayRepeat && entry->contractionEntries->Read(i, next) == 0)
        longest = std::max(longest, 1 + LongestContraction(table, next, firstMark, depth + 1));
    }
  if (entry->hasVariants != 0 && depth == 0)
    for (int i = 0; entry->variantEntries->Read(i, next) == 0; ++i)
      longest = std::max(longest, LongestContraction(table, next, firstMark, depth + 1));
  return longest;
}

/// The same of the letters of the shortcuts: their class is that of a script.
TEST(Comparison, ProvidesForWhatTheTablesHold) {
  for (unsigned int id = 1; id < 254; ++id) {
    if (!ZnLanguageContext::HasCodeSet(static_cast<unsigned char>(id)))
      continue;
    ZnOrderTable const * const table =
        ZnLanguageContext::QueryCodeSet(static_cast<unsigned char>(id))->orderTable;
    for (unsigned int c = 0; table != nullptr && c < (id > 224 ? 65536 : 256); ++c) {
      ZnPlainOrder const & plain = table->Plain(static_cast<unsigned short>(c));
      ASSERT_TRUE((plain.order & 0xC000) != 0x4000 || plain.scriptClass < 20 ||
                  (plain.traits & ZnPlainOrder::NoEntry) != 0)
          << id << ' ' << c;
      ASSERT_LE(LongestContraction(*table, table->Lookup(static_cast<unsigned short>(c)),
                                   id > 224 ? 768 : 128, 0),
                6u)
          << id << ' ' << c;
    }
  }
}

} // namespace
