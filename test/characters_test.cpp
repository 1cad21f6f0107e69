#include "zanin.h"
#include "zantms.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

/// Single characters, the walk over a text, and order numbers in words.

namespace {

static_assert(sizeof(ZnChar) == 16 && offsetof(ZnChar, value) == 8 &&
              offsetof(ZnChar, codeSet) == 10 && offsetof(ZnChar, byteOrder) == 12);
static_assert(sizeof(ZnStringIterator) == 40);

std::vector<unsigned short> Orders(ZnStringIterator it) {
  std::vector<unsigned short> orders;
  while (unsigned short const order = it.GetNextOrder(1))
    orders.push_back(order);
  return orders;
}

std::vector<unsigned short> Orders(std::u16string const & text, unsigned char language = 1) {
  std::u16string copy = text;
  return Orders(
      ZnStringIterator(reinterpret_cast<unsigned short *>(copy.data()), 253, language, 1));
}

unsigned short OrderOf(char16_t c) { return Orders(std::u16string(1, c)).at(0); }

TEST(Characters, ReferToPlacesAndCopyAsValues) {
  char buffer[] = {0x01, 0x53, 0, 0};
  ZnChar c(buffer, 253, 1, 2);
  EXPECT_EQ(c.Value(), 0x0153);
  ZnChar copy(c);
  EXPECT_EQ(copy.place, nullptr);
  EXPECT_EQ(copy.byteOrder, 1);
  c = ZnChar('s', 1, 1); // is mapped, and written in the order of the place
  EXPECT_EQ(buffer[0], 0);
  EXPECT_EQ(buffer[1], 's');
  EXPECT_EQ(c.codeSet, 253);
  EXPECT_EQ(copy.Value(), 0x0153);
  c = static_cast<unsigned short>(0x1234);
  EXPECT_EQ(buffer[0], 0x12);

  copy.language = 9;
  copy = c; // a value takes over the ids
  EXPECT_EQ(copy.language, 1);
  EXPECT_EQ(copy.Value(), 0x1234);
  EXPECT_EQ(copy.byteOrder, 2);
  EXPECT_EQ(ZnChar(static_cast<unsigned short>(0x141), 1, 1).value, 0x41);
  EXPECT_EQ(ZnChar('a', 255, 255).codeSet, ZnLanguageContext::GetDefault8CodeSet());
  EXPECT_EQ(ZnChar(static_cast<unsigned short>('a'), 255, 255).codeSet,
            ZnLanguageContext::GetDefault16CodeSet());

  ZnString s("abc");
  s.language = 255;
  ZnChar const first(s, 0);
  EXPECT_EQ(ZnChar(first).language, ZnLanguageContext::GetDefaultLanguage());
  EXPECT_EQ(ZnChar('\xA4', 14, 1).MapTo(253).Value(), 0x20AC);
  ZnChar second(s, 1);
  second = 'x';
  EXPECT_STREQ(s.StrGet(), "axc");
}

TEST(Characters, CompareAsOneUnit) {
  ZnChar const a('a', 1, 1);
  EXPECT_TRUE(a == ZnChar(static_cast<unsigned short>('a'), 253, 1));
  EXPECT_TRUE(a == 'a');
  EXPECT_TRUE(a < static_cast<unsigned short>('b'));
  EXPECT_LT(a != 'b', 0);
  // Each operator stands in three forms.
  auto const relations = [](ZnChar const & x, auto y) {
    return std::string() + (x < y ? "<" : "") + (x <= y ? "{" : "") + (x == y ? "=" : "") +
           (x >= y ? "}" : "") + (x > y ? ">" : "") + (x != y ? "!" : "");
  };
  struct {
    char c;
    char const * relations;
  } const cases[] = {{'a', "}>!"}, {'b', "{=}"}, {'c', "<{!"}};
  for (auto const & c : cases) {
    ZnChar const b('b', 1, 1);
    EXPECT_EQ(relations(b, c.c), c.relations);
    EXPECT_EQ(relations(b, static_cast<unsigned short>(c.c)), c.relations);
    EXPECT_EQ(relations(b, ZnChar(c.c, 1, 1)), c.relations);
  }
  EXPECT_TRUE(a == '*'); // the right side is a pattern
  EXPECT_NE(a.Compare(ZnChar('*', 1, 1), ZnCmpNoWildcards), 0);
  EXPECT_GT(ZnChar('A', 1, 1).Compare(a, 65535), 0);
  EXPECT_EQ(ZnChar('A', 1, 1).Compare(a, ZnCmpIgnoreCase), 0);
}

TEST(Characters, HaveOneKind) {
  struct Kind {
    unsigned short c;
    char const * kind;
  };
  unsigned char codeSet = 253;
  for (Kind const & k : std::vector<Kind>{{' ', "space"},
                                          {'-', "symbol"},
                                          {'7', "digit"},
                                          {'a', "alpha"},
                                          {0xE9, "alpha"},
                                          {0x9FA0, "han"},
                                          {0x0661, "digit"},
                                          // From here on order numbers.
                                          {79, "space"},
                                          {80, "symbol"},
                                          {16127, "symbol"},
                                          {16128, "digit"},
                                          {16383, "digit"},
                                          {16384, "alpha"},
                                          {32767, "alpha"},
                                          {32768, "han"}}) {
    if (k.c == 79)
      codeSet = 254;
    ZnChar const c(k.c, codeSet, 1);
    std::string const kind = k.kind;
    EXPECT_EQ(c.IsSpace() != 0, kind == "space") << k.c;
    EXPECT_EQ(c.IsSymbol() != 0, kind == "symbol") << k.c;
    EXPECT_EQ(c.IsDigit() != 0, kind == "digit") << k.c;
    EXPECT_EQ(c.IsAlpha() != 0, kind == "alpha") << k.c;
    EXPECT_EQ(c.IsHan() != 0, kind == "han") << k.c;
  }
}

TEST(Characters, ChangeCaseWithinTheirCodeSet) {
  EXPECT_EQ(ZnChar('\xE4', 1, 1).ToUpper(nullptr).Value(), 0xC4);
  EXPECT_EQ(ZnChar('\xC4', 1, 1).ToLower(nullptr).Value(), 0xE4);
  EXPECT_EQ(ZnChar('1', 1, 1).ToUpper(nullptr).Value(), '1');
  EXPECT_EQ(ZnChar('\xE4', 0, 1).ToUpper(nullptr).Value(), 0xE4); // native: ASCII only
  EXPECT_EQ(ZnChar('z', 0, 1).ToUpper(nullptr).Value(), 'Z');
  unsigned char const turkish = ZnLanguageContext::FindLanguage("tr")->id;
  EXPECT_EQ(ZnChar(static_cast<unsigned short>('i'), 253, turkish).ToUpper(nullptr).Value(), 0x130);
  EXPECT_EQ(ZnChar(static_cast<unsigned short>(0x3B1), 253, 1).ToUpper(nullptr).Value(), 0x391);

  char sharp[] = "\xDF"
                 "a";
  ZnStringIterator source(sharp, 1, 1, 1);
  EXPECT_EQ(ZnChar(sharp, 1, 1, 1).ToUpper(&source).Value(), 'S');
  EXPECT_EQ((*source).Value(), 'S'); // the further character
  ++source;
  EXPECT_EQ((*source).Value(), 'a');
}

TEST(Iterator, WalksBothWaysAndOverLists) {
  char text[] = "ab";
  ZnStringIterator it(text, 1, 1, 255);
  EXPECT_EQ(it.byteOrder, 1);
  ZnStringIterator const start = it++;
  EXPECT_EQ((*it).Value(), 'b');
  EXPECT_FALSE(it == start);
  it.Step(0);
  EXPECT_TRUE(it == start);

  unsigned short const items[] = {'x', 'y'};
  struct List final : ZnWCharList {
    using ZnWCharList::ZnWCharList;
  };
  static List const list(items, 2);
  it.Step(1);
  it.Step(1);
  EXPECT_TRUE(it.IsEOS());
  it.SetOverflow(&list, 255);
  EXPECT_FALSE(it.IsEOS());                               // items are pending at the terminator
  EXPECT_TRUE(it == ZnStringIterator(text + 2, 1, 1, 1)); // whatever is pending
  ZnChar const item = *it;
  EXPECT_EQ(item.Value(), 'x');
  EXPECT_EQ(item.codeSet, 1);
  ++it;
  EXPECT_EQ(it.GetNextOrder(1), OrderOf('y'));
  EXPECT_EQ(it.GetNextOrder(1), 0);
  EXPECT_EQ(it.current, text + 2);

  EXPECT_EQ(ZnStringIterator(text, 1, 255, 1).language, ZnLanguageContext::GetDefaultLanguage());
  unsigned short const wide[] = {'a', 0};
  EXPECT_EQ(ZnStringIterator(const_cast<unsigned short *>(wide), 255, 1, 1).codeSet, 253);
  ZnString german("x");
  german.language = 2;
  EXPECT_EQ(ZnStringIterator(german).language, 2);
  ZnChar c('q', 1, 1);
  ZnStringIterator own(c);
  EXPECT_NE(own.ownsBuffer, 0);
  ZnStringIterator const copy(own);
  EXPECT_EQ(copy.ownsBuffer, 0);
  EXPECT_EQ(own.GetNextOrder(1), OrderOf('q'));
  EXPECT_EQ(own.GetNextOrder(1), 0);
}

TEST(Iterator, GivesOrdersOfPlainTextsExpansionsAndContractions) {
  char text[] = "a\xDF"
                "b";
  ZnStringIterator it(text, 1, 1, 1);
  EXPECT_EQ(it.GetNextOrder(1), OrderOf('a'));
  constexpr int base = 0x407F;
  EXPECT_EQ(it.GetNextOrder(1) & base, OrderOf('s') & base);
  EXPECT_EQ(it.current, text + 1); // waits for the rest of the expansion
  EXPECT_EQ(it.GetNextOrder(1) & base, OrderOf('s') & base);
  EXPECT_EQ(it.current, text + 2);
  EXPECT_EQ(it.GetNextOrder(1), OrderOf('b'));
  for (int again = 0; again < 3; ++again) {
    EXPECT_EQ(it.GetNextOrder(1), 0);
    EXPECT_EQ(it.current, text + 3);
  }

  EXPECT_EQ(Orders(u"a\u0301b"), Orders(u"\u00e1b"));
  EXPECT_EQ(Orders(u"a"), std::vector{OrderOf('a')}); // the end cuts a contraction off
  EXPECT_EQ(Orders(std::u16string{0x4E00, 0xD800, 0xFFFE}),
            (std::vector<unsigned short>{0x4E00, 0xD800, 0xFFFE}));
}

TEST(Iterator, TracksTheClassIfAsked) {
  char16_t text[] = u"a\u4e00\ufffeb";
  ZnStringIterator it(reinterpret_cast<unsigned short *>(text), 253, 1, 1);
  it.GetNextOrder(1);
  unsigned char const latin = it.scriptClass;
  EXPECT_LT(latin, 20);
  ZnStringIterator untracked(it);
  untracked.GetNextOrder(0);
  EXPECT_EQ(untracked.scriptClass, latin);
  it.GetNextOrder(1);
  EXPECT_EQ(it.scriptClass, 20);
  it.GetNextOrder(1); // units at the top leave it
  EXPECT_EQ(it.scriptClass, 20);
  char16_t top[] = u"a\ufff0\uffef";
  ZnStringIterator edge(reinterpret_cast<unsigned short *>(top), 253, 1, 1);
  for (unsigned char const expected : {latin, latin, static_cast<unsigned char>(20)}) {
    edge.GetNextOrder(1);
    EXPECT_EQ(edge.scriptClass, expected);
  }
  it.GetNextOrder(0);
  EXPECT_EQ(it.scriptClass, 20);
}

TEST(Iterator, ReadsOrderTextAsItIs) {
  char const text[] = "\x0C\x61\x10\x61\0";
  ZnStringIterator it(text, 254, 3, 2);
  EXPECT_EQ(it.scriptClass, 3);
  EXPECT_EQ(it.GetNextOrder(1), 0x610C);
  EXPECT_EQ(it.GetNextOrder(1), 0x6110);
  EXPECT_EQ(it.GetNextOrder(1), 0);
  EXPECT_EQ(it.GetNextOrder(1), 0);
  EXPECT_EQ(it.current, text + 4);
}

TEST(Iterator, TransformsThroughATarget) {
  char source[] = "a\xDF"
                  "c";
  char target[16] = "###############";
  ZnStringIterator from(source, 1, 1, 1), to(target, 1, 1, 1);
  ZnCharToUpper upper;
  from.Transform(to, upper);
  EXPECT_STREQ(target, "ASSC");
  EXPECT_EQ(to.current, target + 5);
}

// ---- Order numbers in words ---------------------------------------------------------------------

TEST(OrderNumbers, ReadInWords) {
  struct Words {
    unsigned short order;
    unsigned char scriptClass;
    char const * text;
  };
  for (Words const & w : std::vector<Words>{
           {0x8001, 0, "HAN character 0x8001\n"},
           {0x400C, 20, "HAN character 0x400c\n"},
           {80, 20, "HAN character 0x0050\n"},
           {0x400C, 0x85, "upper letter A"},
           {0x600C | 2 << 7, 5, "lower letter a with accent acute"},
           {0x600C | 15 << 7 | 1, 5, "lower letter a with  with extension"},
           {0x600C | 14 << 7, 5, "lower letter a with accent o_double acute"},
           {0x600C | 17 << 7, 5, "lower letter a with "},
           {13, 5, "undefined ordering indicator"},
           {79, 5, "space"},
           {80, 5, "symbol "},
           {200, 5, "symbol "},
           {112, 5, "symbol _"},
           {219, 5, "symbol inverted question mark"},
           {16128 + 70, 5, "digit 7"},
           {16128 + 91, 5, "digit 9 with expand"},
       }) {
    ZnString out;
    EXPECT_EQ(ZnConvertOrderToString(w.order, w.scriptClass, out), 0);
    EXPECT_STREQ(out.StrGet(), w.text);
  }
}

TEST(OrderNumbers, ReadAsCharacters) {
  auto const convert = [](unsigned short order, unsigned char scriptClass = 5, int accents = 0) {
    unsigned char c = 0;
    ZnConvertOrderToChar(order, scriptClass, c, accents, nullptr);
    return c;
  };
  EXPECT_EQ(convert(0x8001), 127);
  EXPECT_EQ(convert(0x400C, 20), 127);
  EXPECT_EQ(convert(50), ' ');
  EXPECT_EQ(convert(200), 7);
  EXPECT_EQ(convert(132), '\'');
  EXPECT_EQ(convert(126), '.');
  EXPECT_EQ(convert(16128 + 30), '3');
  EXPECT_EQ(convert(0x400C), 'A');
  EXPECT_EQ(convert(0x600C | 2 << 7), 'a');
  EXPECT_EQ(convert(OrderOf('a'), 5, 1), 'a') << "not the ordinal indicator";

  for (char const symbol : std::string("_-,;:!?/.'\"()[]{}@$*&#%+`^~<=>|"))
    EXPECT_EQ(convert(OrderOf(static_cast<char16_t>(symbol))), symbol);

  unsigned short const acute = OrderOf(0xE1);
  char const * name = "as it was";
  unsigned char c = 0;
  ZnConvertOrderToChar(acute, 5, c, 1, &name);
  EXPECT_EQ(c, 0xE1);
  EXPECT_STREQ(name, "\\'a");
  ZnConvertOrderToChar(OrderOf(0xC0), 5, c, 1, &name);
  EXPECT_STREQ(name, "\\`A");
  name = "as it was";
  ZnConvertOrderToChar(0x600C | 31 << 7, 5, c, 1, &name);
  EXPECT_EQ(c, 'a');
  EXPECT_STREQ(name, "as it was");
}

TEST(OrderNumbers, GiveTheirFields) {
  unsigned short number = 0, expand = 0;
  EXPECT_EQ(ZnExtractDigitFromOrder(16129, number, expand), 0);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(expand, 1);
  EXPECT_EQ(ZnExtractDigitFromOrder(16127, number, expand), ZnErrWrongArgument);
  EXPECT_EQ(ZnExtractDigitFromOrder(16384, number, expand), ZnErrWrongArgument);
  EXPECT_EQ(ZnExtractSymbolFromOrder(80, number), 0);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(ZnExtractSymbolFromOrder(79, number), ZnErrWrongArgument);
  EXPECT_EQ(ZnExtractSymbolFromOrder(16128, number), ZnErrWrongArgument);
}

} // namespace
