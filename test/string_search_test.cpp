#include <zantms.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "string_support.h"

/// Searching, replacing, trimming, changing case, reading numbers, lists and hashes of strings.

namespace {

ZnString Wide(char const * text) {
  ZnString s(text);
  s.SetCodeSet(253);
  return s;
}

/// The place that a comparison at each place from `start` on finds first.
int FindByTrial(ZnString const & text, ZnString pattern, unsigned start, unsigned short cmpOp) {
  unsigned const length = pattern.Len();
  short compared = static_cast<short>(length);
  if ((cmpOp & (ZnCmpNoWildcards | ZnCmpKeysOnly)) == 0) {
    pattern += ZnString("*");
    compared = -1;
  }
  unsigned const width = text.codeSet > 224 ? 2 : 1;
  for (unsigned at = start; text.Len() != 0 && at + length <= text.Len(); ++at)
    if (ZnStrCmp(text.codeSet, text.language, text.text + at * width, pattern.codeSet,
                 pattern.language, pattern.text,
                 cmpOp == ZnCmpDefault ? ZnString::GetDefaultCmpOp() : cmpOp, compared, 1,
                 nullptr) == 0)
      return static_cast<int>(at);
  return -1;
}

TEST(StringSearch, FindsWhereTheComparisonFinds) {
  std::mt19937 random(3);
  std::string const letters = "aAbB\xE4\xDF\xE6 -*?1s";
  auto const word = [&](unsigned most) {
    std::string text(random() % (most + 1), ' ');
    for (char & c : text)
      c = letters[random() % letters.size()];
    return text;
  };
  unsigned short const flags[] = {ZnCmpDefault, 0,    0x10,  0x30,  0x50,
                                  0x70,         0x90, 0x210, 0x100, 0x60};
  for (int round = 0; round < 4000; ++round) {
    std::string const text = word(12), pattern = word(3);
    ZnString const a = random() % 2 ? ZnString(text.c_str()) : Wide(text.c_str());
    ZnString const b = random() % 2 ? ZnString(pattern.c_str()) : Wide(pattern.c_str());
    for (unsigned short const cmpOp : flags) {
      auto const start = static_cast<unsigned short>(random() % 4);
      ASSERT_EQ(a.Find(b, start, cmpOp), FindByTrial(a, b, start, cmpOp))
          << '"' << text << "\" \"" << pattern << "\" " << start << ' ' << cmpOp;
    }
  }
}

TEST(StringSearch, FindsCharacters) {
  ZnString const s("abcabc");
  EXPECT_EQ(s.Find('c', 3, 0x10), 5);
  EXPECT_EQ(s.Find(static_cast<unsigned short>('b'), 2, 0x10), 4);
  EXPECT_EQ(s.Find('x', 0, 0x10), -1);
  unsigned short const decomposed[] = {0x438, 0x306, 0}; // reads as the letter of the pattern
  EXPECT_EQ(ZnString(decomposed).Find(static_cast<unsigned short>(0x439), 0, 0x10), 0);
  EXPECT_EQ(s.Find("", 2, ZnCmpDefault), 2);
  EXPECT_EQ(s.Find("", 6, ZnCmpDefault), 6);
  EXPECT_EQ(s.Find("", 7, ZnCmpDefault), -1);
  EXPECT_EQ(ZnString().Find("", 0, ZnCmpDefault), -1);
  EXPECT_EQ(s.SubStringPos("c*b", 0), 2);
  EXPECT_EQ(s.SubStringPos("C", ZnCmpNoWildcards | ZnCmpIgnoreCase), 2);
  ZnString native("ABC");
  native.codeSet = 0;
  EXPECT_EQ(native.Find('b', 0, ZnCmpNoWildcards | ZnCmpIgnoreCase), -1) << "bytes have no case";
}

TEST(StringSearch, ReplacesBehindWhatItPutIn) {
  auto const replaced = [](char const * text, char const * pattern, char const * by,
                           unsigned short start = 0) {
    ZnString s(text);
    s.ReplaceAll(ZnString(pattern), ZnString(by), start);
    EXPECT_EQ(s.capacity, s.Len() + 1);
    return Latin(s);
  };
  EXPECT_EQ(replaced("aXbXc", "X", "--"), "a--b--c");
  EXPECT_EQ(replaced("aXbXc", "X", ""), "abc");
  EXPECT_EQ(replaced("aXbXc", "X", "XX", 2), "aXbXXc");
  EXPECT_EQ(replaced("aaaa", "aa", "a"), "aa");
  EXPECT_EQ(replaced("abc", "", ""), "abc");
  EXPECT_EQ(replaced("abc", "z", "y"), "abc");
  ZnString s("a-b");
  s.ReplaceAll('-', '+');
  EXPECT_EQ(Latin(s), "a+b");
  s.codeSet = CodeSetNamed("ISO-8859-15");
  s.ReplaceAll('+', '\xA4');
  EXPECT_EQ(Latin(s), "a?b") << "the currency sign is not in this code set";
  ZnString wide = Wide("a-b");
  wide.ReplaceAll(static_cast<unsigned short>('-'), static_cast<unsigned short>(0x20AC));
  EXPECT_EQ(UnitAt(wide, 1), 0x20AC);
  s.ReplaceAll(s, ZnString("x"));
  EXPECT_EQ(Latin(s), "x");
  s.ReplaceAll(ZnString("x"), Wide("yz"));
  EXPECT_EQ(Latin(s), "yz");
  wide.ReplaceAll(ZnString("b"), ZnString("cd"));
  EXPECT_EQ(Latin(wide), "a\xAC"
                         "cd");
  s.ReplaceAll(ZnString(), ZnString("x"), 3);
  EXPECT_EQ(Latin(s), "yz") << "the search begins behind the text";
}

TEST(StringSearch, ReplacesUpToTheLimit) {
  OverflowReports const reports(1);
  ZnString s;
  s.Fill(40000, 'a');
  s.ReplaceAll(ZnString("a"), ZnString("bc"));
  ASSERT_EQ(s.Len(), 65531);
  std::string expected;
  while (expected.size() < 65531)
    expected += "bc";
  expected.resize(65531);
  EXPECT_EQ(Latin(s), expected);
  EXPECT_GT(reports.Count(), 0);
  ZnString t("ab");
  t.ReplaceAll(ZnString(""), ZnString("xyz"), 1);
  EXPECT_EQ(t.Len(), 65531) << "an empty pattern matches everywhere";
  EXPECT_EQ(Latin(t).substr(0, 5), "axyzx");
}

TEST(StringSearch, TrimsSpaces) {
  struct {
    char const *text, *left, *right, *both;
  } const cases[] = {
      {"", "", "", ""},
      {" ", "", " ", ""},
      {"  ", "", " ", ""},
      {"a", "a", "a", "a"},
      {" a b ", "a b ", " a b", "a b"},
      {"a  ", "a  ", "a", "a"},
  };
  for (auto const & c : cases)
    for (bool const wide : {false, true}) {
      auto const make = [&] { return wide ? Wide(c.text) : ZnString(c.text); };
      EXPECT_EQ(Latin(make().LeftTrim()), c.left) << '"' << c.text << '"';
      EXPECT_EQ(Latin(make().RightTrim()), c.right) << '"' << c.text << '"';
      EXPECT_EQ(Latin(make().Trim()), c.both) << '"' << c.text << '"';
    }
  ZnString kept("12345678");
  kept.CopyMapped(ZnString("a  "), 1, -1);
  EXPECT_EQ(Latin(kept.RightTrim()), "a") << "with zeros behind the text";
  EXPECT_EQ(ZnString().Trim().text, nullptr);
}

TEST(StringSearch, ChangesCase) {
  EXPECT_EQ(Latin(ZnString("Stra\xDF"
                           "e \xC4")
                      .ToUpper()),
            "STRASSE \xC4");
  EXPECT_EQ(Latin(ZnString("\xC4\xC5z").ToLower()), "\xE4\xE5z");
  ZnString wide = Wide("\xDFx");
  wide.ToUpper();
  EXPECT_EQ(Latin(wide), "SSX");
  EXPECT_EQ(wide.capacity, 8);
  EXPECT_EQ(ZnString().ToUpper().text, nullptr);
  ZnString turkish = Wide("i");
  turkish.language = ZnLanguageContext::FindLanguage("tr")->id;
  EXPECT_EQ(Latin(turkish.ToUpper()), "I") << "in the default language";
  ZnString sharp;
  sharp.Fill(40000, '\xDF');
  sharp.ToUpper();
  EXPECT_EQ(sharp.Len(), 65531);

  // An operation that never lets the iterator on ends at the limit.
  struct Endless final : ZnCharOperation {
    ZnChar Apply(ZnChar const & c, ZnStringIterator * source) override {
      static unsigned short const further[] = {'y', 'z'};
      struct List final : ZnWCharList {
        List() : ZnWCharList(further, 2) {}
      };
      static List const list;
      source->SetOverflow(&list, 253);
      return c;
    }
  } endless;
  ZnString s("x");
  s.Transform(endless);
  EXPECT_EQ(s.Len(), 65531);
}

TEST(StringSearch, GivesAccessToCharacters) {
  ZnString s("abc");
  s[1] = 'x';
  EXPECT_EQ(Latin(s), "axc");
  EXPECT_EQ(s[3].Value(), 0);
  EXPECT_EQ(s[3].place, s.text + 3);
  EXPECT_EQ(s[4].codeSet, 253);
  EXPECT_EQ(s[4].place, nullptr);
  ZnString wide = Wide("abc");
  wide[2] = ZnString("\xE4")[0];
  EXPECT_EQ(Latin(wide), "ab\xE4");
}

// ---- Numbers ------------------------------------------------------------------------------------

TEST(StringNumbers, ReadsByPrefix) {
  struct {
    char const * text;
    int number;
    int decimal; ///< with the option for decimal numbers
  } const cases[] = {
      {"12", 12, 12},
      {" \t-12x", -12, -12},
      {"0x10", 16, 0},
      {"010", 8, 10},
      {"0x", 0, 0},
      {"0xg", 0, 0},
      {"+7", 7, 7},
      {"- 7", 0, 0},
      {"abc", 0, 0},
      {"", 0, 0},
      {"2147483648", 2147483647, 2147483647},
      {"-2147483649", -2147483647 - 1, -2147483647 - 1},
      {"99999999999999999999999", 2147483647, 2147483647},
      {"08", 0, 8},
      {"0X7fffffff", 2147483647, 0},
  };
  for (auto const & c : cases) {
    ZnString const s(c.text);
    EXPECT_EQ(static_cast<int>(s), c.number) << c.text;
    EXPECT_EQ(static_cast<short>(s), static_cast<short>(c.number)) << c.text;
    EXPECT_EQ(static_cast<int>(Wide(c.text)), c.number) << c.text;
    ___ZnTypeMgrOptions() = 1;
    EXPECT_EQ(static_cast<int>(s), c.decimal) << c.text;
    EXPECT_EQ(static_cast<int>(Wide(c.text)), c.number) << c.text;
    ___ZnTypeMgrOptions() = 0;
  }
  EXPECT_EQ(static_cast<long long>(ZnString("-0x8000000000000001")), -9223372036854775807LL - 1);
  EXPECT_EQ(static_cast<long long>(ZnString("9223372036854775807")), 9223372036854775807LL);
  EXPECT_EQ(static_cast<double>(ZnString(" 1.5e3x")), 1500.0);
  EXPECT_EQ(static_cast<double>(Wide("-Infinity")), -HUGE_VAL);
  EXPECT_EQ(static_cast<double>(ZnString()), 0.0);
}

TEST(StringNumbers, DrawsZerosTogetherInWideText) {
  std::string const zeros(60, '0');
  EXPECT_EQ(static_cast<int>(Wide(("-" + zeros + "17").c_str())), -15) << "an octal number";
  EXPECT_EQ(static_cast<int>(Wide((zeros + "x17").c_str())), 0) << "no prefix";
  EXPECT_EQ(static_cast<int>(Wide("0x0000000000000000000000000000000000017")), 0);
  EXPECT_EQ(static_cast<int>(Wide(("+" + zeros + "17").c_str())), 15);
  EXPECT_EQ(static_cast<int>(Wide((std::string(40, ' ') + "42").c_str())), 42);
  unsigned short const units[] = {0x3000, '4', '2', 0x130, '1', 0};
  EXPECT_EQ(static_cast<int>(ZnString(units)), 42);
}

TEST(StringNumbers, TellsWhetherThereIsANumber) {
  int out = 5;
  long long wide = 5;
  EXPECT_EQ(ZnString("x1").Atol(out), -1);
  EXPECT_EQ(out, 0);
  EXPECT_EQ(ZnString(" 1").Strtol(out), -1);
  EXPECT_EQ(ZnString().Atoll(wide), -1);
  EXPECT_EQ(wide, 0);
  EXPECT_EQ(ZnString("0x10").Atol(out), 0);
  EXPECT_EQ(out, 0);
  EXPECT_EQ(ZnString("0x10").Strtol(out), 0);
  EXPECT_EQ(out, 16);
  EXPECT_EQ(Wide("0x10").Atol(out), 0);
  EXPECT_EQ(out, 16);
  EXPECT_EQ(ZnString("010").Atoll(wide), 0);
  EXPECT_EQ(wide, 10);
  EXPECT_EQ(ZnString("-99999999999").Strtoll(wide), 0);
  EXPECT_EQ(wide, -99999999999LL);
}

// ---- Relations, lists, hashes -------------------------------------------------------------------

TEST(StringRelations, ComparesInLanguageOrder) {
  ZnString const a("abc"), b("abd");
  EXPECT_TRUE(a < b && a <= b && b > a && b >= a && !(a == b));
  EXPECT_LT(a != b, 0);
  EXPECT_TRUE(a == "a*");
  EXPECT_TRUE(ZnString("a*") == ZnString("a*"));
  EXPECT_EQ(a.Compare(b, 2, 0x10), 0);
  EXPECT_EQ(a.Compare("ABC", -1, 0x30), 0);
  ZnString german("abc");
  german.language = 2;
  EXPECT_TRUE(german.EqualsIgnoreLanguage(a));
  EXPECT_FALSE(german.EqualsIgnoreLanguage("a*"));
  ZnString::SetDefaultCmpOp(ZnCmpNoWildcards | ZnCmpIgnoreCase);
  bool const asDefault = ZnString("ABC") == a && ZnChar('A', 1, 1) == 'a' && a != "a*";
  ZnString::SetDefaultCmpOp(0);
  EXPECT_TRUE(asDefault);
  german.SetNullValue();
  EXPECT_FALSE(german.EqualsIgnoreLanguage(a));
}

TEST(StringRelations, SplitsLists) {
  auto const items = [](char const * list) {
    ZnString source(list), item;
    unsigned short position = 0;
    std::string all;
    while (ZnSplitList(source, item, ",", position) == 0)
      all += Latin(item) + "|";
    return all;
  };
  EXPECT_EQ(items(",a,b"), "a|b|");
  EXPECT_EQ(items("a,,b"), "a||b|");
  EXPECT_EQ(items(" a b , c "), "a b|c|");
  EXPECT_EQ(items("a,"), "a|");
  EXPECT_EQ(items(""), "");
}

TEST(StringRelations, HashesBytesAndUnits) {
  auto const minus = static_cast<unsigned>(-28);
  EXPECT_EQ(HashZnString("a\xE4"), 'a' * 9u + minus);
  EXPECT_EQ(HashZnString7("a\xE4"), 'a' * 9u + 0x64);
  EXPECT_EQ(HashZnString(Wide("a\xE4")), 'a' * 9u + 0xE4);
  EXPECT_EQ(HashZnString(ZnString()), 0u);
}

} // namespace
