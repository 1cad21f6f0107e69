#include <zantms.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "string_support.h"
#include "zanbs.h"

/// What a string holds: text, buffer size, code set and language, after construction, assignment
/// and changes of code set.

namespace {

using Wide = std::vector<unsigned short>;

Wide WideOf(char const * ascii) {
  Wide units(ascii, ascii + std::strlen(ascii));
  units.push_back(0);
  return units;
}

TEST(StringValue, LaysOutItsFields) {
  static_assert(sizeof(ZnString) == 16 && offsetof(ZnString, text) == 0 &&
                offsetof(ZnString, capacity) == 8 && offsetof(ZnString, codeSet) == 10 &&
                offsetof(ZnString, language) == 11);
}

TEST(StringValue, ConstructsWithExactBuffers) {
  Wide const wide = WideOf("w\xE4");
  struct {
    ZnString value;
    std::string text;
    bool hasBuffer;
    int codeSet;
  } const cases[] = {
      {ZnString(), "", false, 1},
      {ZnString(static_cast<unsigned char>(2), static_cast<unsigned char>(7)), "", false, 2},
      {ZnString('x'), "x", true, 1},
      {ZnString('\0'), "", false, 1},
      {ZnString(static_cast<unsigned char>(0xE4)), "\xE4", true, 1},
      {ZnString(static_cast<unsigned short>(0xE4)), "\xE4", true, 253},
      {ZnString(static_cast<unsigned short>(0)), "", false, 253},
      {ZnString(static_cast<short>(-32768)), "-32768", true, 1},
      {ZnString(-2147483647 - 1), "-2147483648", true, 1},
      {ZnString(4294967295u), "4294967295", true, 1},
      {ZnString(-9223372036854775807LL - 1), "-9223372036854775808", true, 1},
      {ZnString(18446744073709551615ULL), "18446744073709551615", true, 1},
      {ZnString(0.1), "0.10000000000000001", true, 1},
      {ZnString(1.0), "1", true, 1},
      {ZnString(-HUGE_VAL), "-Infinity", true, 1},
      {ZnString(""), "", true, 1},
      {ZnString("abc"), "abc", true, 1},
      {ZnString(static_cast<char const *>(nullptr)), "", false, 1},
      {ZnString(static_cast<unsigned short const *>(nullptr)), "", false, 253},
      {ZnString(wide.data()), "w\xE4", true, 253},
      {ZnString("abc", static_cast<unsigned short>(2)), "ab", true, 1},
      {ZnString("abc", static_cast<unsigned short>(65535)), "abc", true, 1},
      {ZnString("abc", static_cast<unsigned short>(0)), "", false, 1},
      {ZnString(wide.data(), static_cast<unsigned short>(1)), "w", true, 253},
      {ZnString(wide.data(), static_cast<unsigned short>(65535)), "w\xE4", true, 253},
  };
  for (auto const & c : cases) {
    SCOPED_TRACE(::testing::Message() << "case " << &c - cases);
    EXPECT_EQ(Latin(c.value), c.text);
    EXPECT_EQ(c.value.text != nullptr, c.hasBuffer);
    EXPECT_EQ(c.value.codeSet, c.codeSet);
    EXPECT_EQ(c.value.Len(), c.text.size());
    EXPECT_EQ(c.value.IsEmpty() != 0, c.text.empty());
    EXPECT_EQ(!c.value, c.text.empty());
    unsigned const width = c.codeSet > 224 ? 2 : 1;
    EXPECT_EQ(c.value.capacity, c.hasBuffer ? (c.text.size() + 1) * width : 0);
  }
}

TEST(StringValue, CutsLongTextsInSilence) {
  OverflowReports const reports(1);
  std::string const narrow(70000, 'a');
  Wide wide(40000, 'b');
  wide.push_back(0);
  ZnString const a(narrow.c_str());
  ZnString const b(wide.data());
  ZnString const c(narrow.c_str(), static_cast<unsigned short>(65535));
  ZnString const d(wide.data(), static_cast<unsigned short>(32766));
  EXPECT_EQ(a.Len(), 65531);
  EXPECT_EQ(b.Len(), 32765);
  EXPECT_EQ(c.Len(), 65531);
  EXPECT_EQ(d.Len(), 32765);
  for (ZnString const * s : {&a, &b, &c, &d})
    EXPECT_EQ(s->capacity, 65532);
  EXPECT_EQ(reports.Count(), 0);
}

TEST(StringValue, TakesCodeSetAndLanguageWhenAssigned) {
  Wide const wide = WideOf("wide");
  ZnString target("text");
  target = ZnString(wide.data());
  EXPECT_EQ(target.codeSet, 253);
  EXPECT_EQ(Latin(target), "wide");
  target.language = 7;
  target = "narrow";
  EXPECT_EQ(target.codeSet, 1);
  EXPECT_EQ(target.language, 1);
  EXPECT_EQ(Latin(target), "narrow");
  target = target.text + 3; // text inside the string's own buffer
  EXPECT_EQ(Latin(target), "row");
  EXPECT_EQ(target.capacity, 4) << "what is stored is the buffer";
  ZnString & alias = target;
  target = alias;
  EXPECT_EQ(Latin(target), "row");
  target = static_cast<char const *>(nullptr);
  EXPECT_EQ(target.text, nullptr);
  target = ZnString(static_cast<unsigned char>(5), static_cast<unsigned char>(3));
  EXPECT_EQ(target.codeSet, 5);
  EXPECT_EQ(target.language, 3);
}

TEST(StringValue, TakesTheDefaultOfTheRightWidth) {
  unsigned char const usual = ZnString::GetDefaultCodeSet();
  ZnString::SetDefaultCodeSet(253);
  ZnString const unset;
  ZnString assigned;
  assigned = "a";
  ZnString::SetDefaultCodeSet(usual);
  EXPECT_EQ(unset.codeSet, 253);
  EXPECT_EQ(assigned.codeSet, 1);
  EXPECT_EQ(Latin(assigned), "a");
}

TEST(StringValue, PassesItsBufferOn) {
  ZnString from("moved");
  from.codeSet = 4;
  char * const buffer = from.text;
  ZnString to("old");
  to.Destruct(to);
  EXPECT_EQ(Latin(to), "old");
  to.Destruct(from);
  EXPECT_EQ(to.text, buffer);
  EXPECT_EQ(to.capacity, 6);
  EXPECT_EQ(to.codeSet, 4);
  EXPECT_EQ(from.text, nullptr);
  EXPECT_EQ(from.capacity, 0);
  EXPECT_EQ(from.codeSet, 4);
  to.Destroy();
  EXPECT_EQ(to.text, nullptr);
  EXPECT_EQ(to.capacity + to.codeSet + to.language, 0);
}

TEST(StringValue, KnowsTheNullStates) {
  ZnString s("text");
  EXPECT_FALSE(s.IsNullValue());
  EXPECT_EQ(s.SetNullValue(), 0);
  EXPECT_TRUE(s.IsNullValue());
  EXPECT_EQ(s.text, nullptr);
  EXPECT_EQ(s.codeSet, 0);
  EXPECT_EQ(s.language, 254);
  ZnString const copy = s;
  EXPECT_TRUE(copy.IsNullValue());
  struct {
    unsigned char codeSet, language;
    bool isNull;
  } const cases[] = {
      {254, 0, true}, {254, 1, false}, {1, 254, true}, {253, 254, true}, {0, 0, false}};
  for (auto const & c : cases)
    EXPECT_EQ(ZnString(c.codeSet, c.language).IsNullValue() != 0, c.isNull);
  EXPECT_EQ(std::memcmp(s.StrGet(), "\0\0\0\0", 4), 0);
}

TEST(StringValue, ChangesItsCodeSet) {
  // 0xA4 is the currency sign in code set 1, the euro sign in ISO 8859-15 (code set 14).
  ZnString s("\xA4");
  unsigned char const euroSet = CodeSetNamed("ISO-8859-15");
  s.SetCodeSet(euroSet);
  EXPECT_EQ(Latin(s), "\xA4");
  s.SetCodeSet(253);
  EXPECT_EQ(UnitAt(s, 0), 0x20AC);
  EXPECT_EQ(s.capacity, 4);
  EXPECT_EQ(s.SetCodeSetCode(1), ZnErrWrongArgument);
  EXPECT_EQ(s.codeSet, 253);
  EXPECT_EQ(s.MapToCodeSet(0), ZnErrWrongArgument);
  EXPECT_EQ(s.MapToCodeSet(1), 0);
  EXPECT_EQ(Latin(s), "?");
  EXPECT_EQ(s.SetCodeSetCode(euroSet), 0);
  EXPECT_EQ(s.codeSet, euroSet);
  EXPECT_EQ(s.capacity, 2);

  ZnString native("\xE4x");
  native.SetCodeSet(253);
  native.SetCodeSet(0);
  EXPECT_EQ(native.codeSet, 0);
  EXPECT_EQ(Latin(native), "\xE4x");

  ZnString unset;
  unset.SetCodeSet(253);
  EXPECT_EQ(unset.codeSet, 253);
  EXPECT_EQ(unset.MapToCodeSet(2), 0);
  EXPECT_EQ(unset.codeSet, 2);
  EXPECT_EQ(unset.text, nullptr);
}

TEST(StringValue, ConvertsNoFurtherThanItsBuffer) {
  ZnString s("abc");
  s[3] = 'd'; // over the terminator
  ASSERT_EQ(s.MapToCodeSet(253), 0);
  EXPECT_EQ(s.Len(), 4);
  EXPECT_TRUE(s == ZnString("abcd"));
}

TEST(StringValue, CopiesMappedIntoItsBuffer) {
  ZnString source("gr\xFC\xDF"
                  "e");
  source.language = 2;
  ZnString target("a longer text than that");
  char * const buffer = target.text;
  EXPECT_EQ(target.CopyMapped(source, 253, -1), 5);
  EXPECT_EQ(target.text, buffer) << "a buffer that is large enough stays";
  EXPECT_EQ(target.capacity, 24);
  EXPECT_EQ(target.language, 2);
  EXPECT_EQ(Latin(target), "gr\xFC\xDF"
                           "e");
  for (unsigned i = 10; i < target.capacity; ++i)
    EXPECT_EQ(target.text[i], 0) << "the rest of the buffer is stored with the text";
  EXPECT_EQ(target.CopyMapped(source, 1, 3), 3);
  EXPECT_EQ(Latin(target), "gr\xFC");
  EXPECT_EQ(target.CopyMapped(target, 1, 3), ZnErrWrongArgument);
  ZnString fresh;
  EXPECT_EQ(fresh.CopyMapped(source, 253, 100), 5);
  EXPECT_EQ(fresh.capacity, 12);
  EXPECT_EQ(fresh.CopyMapped(ZnString(), 1, -1), 0);
  EXPECT_EQ(fresh.Len(), 0);
}

TEST(StringValue, WidensNoFurtherThanItsLimit) {
  std::string const narrow(40000, 'x');
  for (int const wanted : {0, 1}) {
    OverflowReports const reports(wanted);
    ZnString s(narrow.c_str());
    s.SetCodeSet(253);
    EXPECT_EQ(s.capacity, 65532);
    EXPECT_EQ(s.Len(), 32765);
    EXPECT_EQ(reports.Count(), wanted);
  }
}

TEST(StringValue, KeepsEveryCharacterThroughUnicode) {
  for (int id = 1; id <= 224; ++id) {
    auto const codeSet = static_cast<unsigned char>(id);
    if (!ZnLanguageContext::HasCodeSet(codeSet))
      continue;
    ZnCodeSet const & record = *ZnLanguageContext::QueryCodeSet(codeSet);
    std::string bytes;
    for (int c = 1; c < 256; ++c)
      if (record.toUnicode[c] != 0xFFFD && record.toUnicode[c] != 0)
        bytes.push_back(static_cast<char>(c));
    ZnString s(bytes.c_str());
    s.codeSet = codeSet;
    ASSERT_EQ(s.MapToCodeSet(253), 0);
    for (unsigned i = 0; i < bytes.size(); ++i)
      ASSERT_EQ(UnitAt(s, i), record.toUnicode[static_cast<unsigned char>(bytes[i])]);
    ASSERT_EQ(s.MapToCodeSet(codeSet), 0);
    EXPECT_EQ(Latin(s), bytes) << record.name;
  }
}

TEST(StringValue, BytesWidenAsTheirCodeSetTells) {
  ZnCodeSet const & unicode = *ZnLanguageContext::QueryCodeSet(253);
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte)
    bytes.push_back(static_cast<char>(byte));
  for (int id = 1; id < 225; ++id) {
    auto const codeSet = static_cast<unsigned char>(id);
    ZnString s(bytes.c_str());
    s.codeSet = codeSet;
    ASSERT_EQ(s.MapToCodeSet(253), 0);
    ASSERT_EQ(s.Len(), 255);
    for (unsigned short byte = 1; byte < 256; ++byte)
      ASSERT_EQ(UnitAt(s, byte - 1u), unicode.Map(byte, codeSet)) << byte << " of " << id;
  }
}

} // namespace
