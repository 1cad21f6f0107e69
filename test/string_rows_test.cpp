#include <zantms.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "string_support.h"

/// The string row: life, boxes, print and scan, stored forms of both generations, index keys.

namespace {

using Bytes = std::string;
using namespace std::string_literals;

ZnString Make(char const * text, unsigned char codeSet, unsigned char language) {
  ZnString s(text);
  s.SetCodeSet(codeSet);
  s.language = language;
  return s;
}

ZnString Null() {
  ZnString s;
  s.SetNullValue();
  return s;
}

class StringForms : public ::testing::Test {
protected:
  Bytes Stored(ZnString const & s, unsigned char format) const {
    Bytes out(mgr.DiskLenGet(ZnSTRING_T, &s, format, 1, 8), 'x');
    EXPECT_EQ(mgr.Store(ZnSTRING_T, out.data(), &s, format, 1), out.size());
    return out;
  }
  unsigned Translate(Bytes & dst, unsigned char dstFormat, Bytes src, unsigned char srcFormat,
                     unsigned count = 1) const {
    return mgr.Translate(ZnSTRING_T, dst.data(), dstFormat, static_cast<unsigned>(dst.size()),
                         src.data(), srcFormat, static_cast<unsigned>(src.size()), count);
  }
  ZnTypeMgr mgr;
  ZnTypeMgr old{3};
};

TEST_F(StringForms, StoresTheNewForm) {
  EXPECT_EQ(Stored(Null(), 1), "\x04\x00\x00\xFE\x00\xFF"s);
  EXPECT_EQ(Stored(ZnString(static_cast<unsigned char>(5), static_cast<unsigned char>(3)), 1),
            "\x04\x00\x05\x03\x00\xFF"s);
  EXPECT_EQ(Stored(Make("abc", 1, 2), 1), "\x07\x00\x01\x02"s + "abc\x00\xFF"s);
  EXPECT_EQ(Stored(Make("ab", 253, 2), 2), "\x00\x08\xFD\x02\x00"s + "a\x00"s + "b\x00\xFF"s);
  EXPECT_EQ(Stored(Make("ab", 253, 2), 1), "\x08\x00\xFD\x02"s + "a\0b\0\x00\xFF"s);
  EXPECT_EQ(mgr.SupportsNullValue(ZnSTRING_T), 1);
  EXPECT_EQ(mgr.rows[+ZnSTRING_T]->NullSizeGet(3), 18u);
}

TEST_F(StringForms, GivesItsRowFunctionsByName) {
  ZnTypeRow const & full = *mgr.rows[+ZnSTRING_T];
  EXPECT_EQ(full.Store, &StringStore);
  EXPECT_EQ(full.Load, &StringLoad);
  EXPECT_EQ(full.SizeGet, &StringSizeGet);
  EXPECT_EQ(full.SizeGetFromMemFile, &ZnStringSizeFromFile);
  EXPECT_EQ(full.Translate, &ZnStringTranslate);
  ZnTypeRow const & older = *old.rows[+ZnSTRING_T];
  EXPECT_EQ(older.Store, &ZnOldStringStore);
  EXPECT_EQ(older.Load, &StringLoad);
  EXPECT_EQ(older.SizeGet, &ZnOldStringSizeGet);
  EXPECT_EQ(older.SizeGetFromMemFile, &ZnOldStringSizeFromFile);
  EXPECT_EQ(older.Translate, &ZnOldStringTranslate);
}

TEST_F(StringForms, LoadsWhatItStored) {
  for (unsigned char const format : {1, 2})
    for (ZnString const & s :
         {Make("abc", 1, 2), Make("ab\xE4", 253, 7), Null(), Make("", 3, 9), Make("x", 0, 1)}) {
      Bytes const stored = Stored(s, format) + Stored(Make("next", 1, 1), format);
      ZnString loaded[2] = {"old", "older"};
      EXPECT_EQ(mgr.Load(ZnSTRING_T, loaded, stored.data(), format, 2), stored.size());
      EXPECT_EQ(mgr.DiskLenGet(ZnSTRING_T, stored.data(), format, 2, format), stored.size());
      MemFile file(stored.data(), static_cast<unsigned>(stored.size()));
      EXPECT_EQ(mgr.DiskLenGetFromMemFile(ZnSTRING_T, &file, format, 2), stored.size());
      EXPECT_EQ(Latin(loaded[0]), Latin(s));
      EXPECT_EQ(loaded[0].codeSet, s.codeSet);
      EXPECT_EQ(loaded[0].language, s.language);
      EXPECT_EQ(Latin(loaded[1]), "next");
    }
  // What a file lacks is told as the most that it may take.
  Bytes const two = Stored("abc", 1) + Stored("abc", 1);
  for (unsigned const kept : {9u, 14u}) {
    MemFile file(two.data(), kept);
    EXPECT_EQ(mgr.DiskLenGetFromMemFile(ZnSTRING_T, &file, 1, 3), 2u * 65535) << kept;
  }
  MemFile later(two.data(), 18);
  unsigned wanted = 2;
  later.Seek(9, MemFile::FromStart, &wanted, 0);
  EXPECT_EQ(mgr.DiskLenGetFromMemFile(ZnSTRING_T, &later, 1, 2), 65535u) << "one is there";
  ZnString untouched("old");
  EXPECT_EQ(mgr.Load(ZnSTRING_T, &untouched, "\0\0", 1, 1), 0u);
  EXPECT_EQ(Latin(untouched), "old");
}

TEST_F(StringForms, ReadsAndWritesTheOldForm) {
  Bytes const form = "\x06\x00"s + "ab\0\0c\0"s;
  ZnString loaded[3];
  EXPECT_EQ(mgr.Load(ZnSTRING_T, loaded, form.data(), 1, 3), 8u);
  EXPECT_EQ(Latin(loaded[0]) + "|" + Latin(loaded[1]) + "|" + Latin(loaded[2]), "ab||c");
  EXPECT_EQ(loaded[0].codeSet, ZnString::GetDefault8CodeSet());
  Bytes out(8, 'x');
  EXPECT_EQ(old.DiskLenGet(ZnSTRING_T, loaded, 1, 3, 8), 8u);
  EXPECT_EQ(old.Store(ZnSTRING_T, out.data(), loaded, 1, 3), 8u);
  EXPECT_EQ(out, form);
  EXPECT_EQ(mgr.DiskLenGet(ZnSTRING_T, form.data(), 1, 3, 1), 8u);
  EXPECT_EQ(old.DiskLenGet(ZnSTRING_T, form.data(), 1, 3, 1), 8u);

  Bytes placed(10, 'x');
  EXPECT_EQ(old.Translate(ZnSTRING_T, placed.data(), 1, 10, loaded, 8, 0, 3), 8u);
  EXPECT_EQ(placed, form + "\0\0"s);
  for (ZnTypeMgr const * table : {&mgr, &old}) {
    ZnString copies[3];
    EXPECT_EQ(table->Translate(ZnSTRING_T, copies, 8, 0, loaded, 8, 0, 3), 48u);
    EXPECT_EQ(Latin(copies[0]) + "|" + Latin(copies[2]), "ab|c");
  }
  Bytes const twice = "\x00\x02"s + "a\0"s + "\x00\x03"s + "bc\0"s;
  MemFile file(twice.data(), 9);
  EXPECT_EQ(old.DiskLenGetFromMemFile(ZnSTRING_T, &file, 2, 2), 9u);

  Bytes renewed(12, 'x');
  EXPECT_EQ(Translate(renewed, 1, "\x04\x00"s + "abc\0"s, 1), 8u);
  EXPECT_EQ(renewed, "\x07\x00\x00\x00"s + "abc\x00\xFF\0\0\0"s);
  Bytes aged(8, 'x');
  Bytes fresh = "\x07\x00\x01\x02"s + "abc\x00\xFF"s;
  EXPECT_EQ(old.Translate(ZnSTRING_T, aged.data(), 2, 8, fresh.data(), 1, 9, 1), 6u);
  EXPECT_EQ(aged, "\x00\x04"s + "abc\0\0\0"s);
  Bytes open = "\x03\x00"s + "abc"s;
  EXPECT_EQ(old.Translate(ZnSTRING_T, aged.data(), 1, 8, open.data(), 1, 5, 1), 5u);
  EXPECT_EQ(aged, open + "\0\0\0"s) << "not of the new form";
}

TEST_F(StringForms, RefusesOtherFormats) {
  Bytes out(20, 'x');
  ZnString text("abc");
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, out.data(), 1, 20, &text, 8, 0, 1), 9u);
  EXPECT_EQ(out, Stored(text, 1) + Bytes(11, '\0'));
  EXPECT_EQ(Translate(out, 2, Stored("abc", 1), 1), 0u);
  EXPECT_EQ(Translate(out, 1, Stored("abc", 1), 1), 9u);
  EXPECT_EQ(out.substr(0, 9), Stored("abc", 1));
  // Unicode text is narrowed on its way, with its code set as its language.
  EXPECT_EQ(Translate(out, 1, Stored(Make("ab", 253, 1), 1), 1), 8u);
  EXPECT_EQ(out.substr(0, 8), "\x06\x00\xFD\xFD"s + "ab\x00\xFF"s);
  EXPECT_EQ(Translate(out, 0xA1, Stored(Make("abc", 1, 2), 1), 1), 9u);
  EXPECT_EQ(out.substr(0, 9), "\x07\x00\x00\x02"s + "abc\x00\xFF"s);
}

TEST_F(StringForms, ChoosesTheCodeSetByTheFormat) {
  // 0x20 asks for raw text, 0x40 for native text in place of raw one.
  struct {
    unsigned char format, from, to;
  } const cases[] = {{0x21, 5, 0}, {0x21, 0, 0}, {0x41, 0, 1},    {0x41, 5, 5},
                     {0x61, 0, 1}, {0x61, 5, 0}, {0x61, 254, 254}};
  for (auto const & c : cases) {
    Bytes out(9, 'x');
    Bytes const src = "\x07\x00"s + static_cast<char>(c.from) + "\x02"s + "abc\x00\xFF"s;
    EXPECT_EQ(Translate(out, c.format, src, c.format), 9u);
    EXPECT_EQ(static_cast<unsigned char>(out[2]), c.to) << int(c.format) << ' ' << int(c.from);
    EXPECT_EQ(out.substr(3), src.substr(3));
  }
  Bytes native(20, 'x'), latin(20, 'x');
  ASSERT_EQ(Translate(native, 0xC1, Stored(Make("ab", 0, 1), 1), 1), 10u);
  ASSERT_EQ(Translate(latin, 0x81, Stored(Make("ab", 1, 1), 1), 1), 10u);
  EXPECT_EQ(native, latin);
  Bytes raw(9, 'x');
  ZnString const latinText = Make("abc", 1, 2);
  EXPECT_EQ(
      mgr.Translate(ZnSTRING_T, raw.data(), 0xA2, 9, const_cast<ZnString *>(&latinText), 8, 0, 1),
      9u);
  EXPECT_EQ(raw, "\x00\x07\x00\x02"s + "abc\x00\xFF"s);
  Bytes null(20, 'x');
  ASSERT_EQ(Translate(null, 0xC1, Stored(Null(), 1), 1), 6u);
  EXPECT_EQ(null.substr(0, 6), "\x04\x00\xFE\x00\x00\xFF"s);
  // A bound for keys: two units of each byte, one of each 16-bit unit, and the length field.
  EXPECT_EQ(mgr.DiskLenGet(ZnSTRING_T, Stored("abc", 1).data(), 0x81, 1, 1), 7u * 4 + 2);
  EXPECT_EQ(mgr.DiskLenGet(ZnSTRING_T, Stored(Make("ab", 253, 1), 1).data(), 0x81, 1, 1),
            8u * 2 + 2);
  EXPECT_EQ(mgr.DiskLenGet(ZnSTRING_T, Stored("abc", 1).data(), 0xA1, 1, 1), 9u);
}

TEST_F(StringForms, BuildsIndexKeys) {
  ZnString s = Make("Ab1", 1, 1);
  unsigned const most = mgr.DiskLenGet(ZnSTRING_T, &s, 0x81, 1, 8);
  EXPECT_EQ(most, 5u * 4 + 4);
  Bytes key(most, 'x');
  unsigned const size = mgr.Translate(ZnSTRING_T, key.data(), 0x81, most, &s, 8, 0, 1);
  ASSERT_EQ(size, 12u);
  Bytes const expected = "\x0A\x00\xFE"s + key[3] + "\x0C\x40\x10\x50\x0A\x3F\x00\xFF"s;
  EXPECT_EQ(key.substr(0, 12), expected) << "A, lower case b, the digit 1";
  Bytes big(size, 'x');
  EXPECT_EQ(Translate(big, 0x82, Stored(s, 2), 2), size);
  EXPECT_EQ(big, "\x00\x0A\xFE"s + key[3] + "\x40\x0C\x50\x10\x3F\x0A\x00\xFF"s);

  // In a small area the key is cut, and its length field counts the missing end mark.
  Bytes small(8, 'x');
  EXPECT_EQ(Translate(small, 0x81, Stored(s, 1), 1), 8u);
  EXPECT_EQ(small, "\x08\x00"s + expected.substr(2, 6));
  ZnString loaded;
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, &loaded, 8, 0, small.data(), 0x81, 8, 1), 8u);
  EXPECT_EQ(loaded.Len(), 2);
  EXPECT_EQ(loaded.codeSet, 254);
  Bytes torn = expected.substr(0, 8);
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, &loaded, 8, 0, torn.data(), 0x81, 8, 1), 8u);
  EXPECT_EQ(loaded.Len(), 2) << "no more than the area holds";
  Bytes open(20, 'x');
  EXPECT_EQ(Translate(open, 0x81, Stored(s, 1).substr(0, 6), 1), 8u);
  EXPECT_EQ(open.substr(0, 8), small) << "the end of the source is not the end of its text";
  ZnString none;
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, &none, 8, 0, small.data(), 0x81, 5, 1), 6u);
  EXPECT_EQ(none.codeSet, 0) << "five bytes hold no element";
  Bytes both(24, 'x');
  EXPECT_EQ(Translate(both, 0x81, Stored(s, 1) + Stored(s, 1), 1, 2), 24u);
  EXPECT_EQ(both, expected + expected);
  ZnString several[2];
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, several, 8, 0, key.data(), 0x81, 12, 2), 18u);
  EXPECT_EQ(several[0].Len(), 3);
  EXPECT_EQ(several[1].Len(), 0);
  EXPECT_EQ(several[1].codeSet, 254);

  // Above 256 bytes the last order number gives way to the end mark.
  ZnString longText;
  longText.Fill(300, 'a');
  Bytes large(300, 'x');
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, large.data(), 0x81, 300, &longText, 8, 0, 1), 300u);
  EXPECT_EQ(large.substr(0, 3) + large.substr(298), "\x2A\x01\xFE\x00\xFF"s);
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, large.data(), 0x81, 256, &longText, 8, 0, 1), 256u);
  EXPECT_EQ(large.substr(0, 2) + large.substr(254, 2), "\x00\x01"s + large.substr(4, 2));
  EXPECT_EQ(mgr.Translate(ZnSTRING_T, large.data(), 0x81, 257, &longText, 8, 0, 1), 256u);
  EXPECT_EQ(large.substr(0, 2) + large.substr(254, 2), "\xFE\x00\x00\xFF"s);
}

TEST_F(StringForms, EndsKeysWhereTheScriptChanges) {
  unsigned short const mixed[] = {'a', 0x3B1, 0}; // Latin and Greek
  ZnString s(mixed);
  Bytes key(20, 'x');
  ASSERT_EQ(mgr.Translate(ZnSTRING_T, key.data(), 0x81, 20, &s, 8, 0, 1), 8u);
  EXPECT_EQ(key[0], 6);
  EXPECT_EQ(key[3] & 0x80, 0x80);
  ZnString greek(mixed + 1);
  Bytes greekKey(20, 'x');
  ASSERT_EQ(mgr.Translate(ZnSTRING_T, greekKey.data(), 0x81, 20, &greek, 8, 0, 1), 8u);
  EXPECT_EQ(greekKey[3], 2) << "the class of the text, not of its language";
  ZnString loaded, out;
  mgr.Translate(ZnSTRING_T, &loaded, 8, 0, key.data(), 0x81, 8, 1);
  EXPECT_EQ(Latin(mgr.PrintToZnString(ZnSTRING_T, out, &loaded, "<%3M>", 1)),
            "<lower letter a><[MIX]>");
  EXPECT_EQ(Latin(mgr.PrintToZnString(ZnSTRING_T, out, &loaded, "<%4M>", 1)), "<a>");
}

TEST_F(StringForms, SurvivesAnyStoredBytes) {
  OverflowReports const unread(0); // takes the reports of formats that do not go together
  std::mt19937 random(5);
  for (int round = 0; round < 20000; ++round) {
    Bytes src(1 + random() % 24, '\0');
    for (char & c : src)
      c = static_cast<char>(random() % 3 ? random() : random() % 8);
    if (src.size() > 3 && random() % 2)
      src[2] = static_cast<char>(random() % 2 ? 253 : 254);
    // Exactly as large as told, so that a sanitizer sees every byte too many.
    std::vector<char> const area(src.begin(), src.end());
    unsigned char const formats[] = {1, 2, 0x81, 0x82, 0xA1, 0xC1};
    unsigned char const dstFormat = formats[random() % 6], srcFormat = formats[random() % 4];
    std::vector<char> dst(random() % 30);
    unsigned const size = mgr.Translate(
        ZnSTRING_T, dst.data(), dstFormat, static_cast<unsigned>(dst.size()),
        const_cast<char *>(area.data()), srcFormat, static_cast<unsigned>(area.size()), 1);
    ASSERT_LE(size, dst.size());
    ZnString values[2];
    if (src.size() >= 2)
      mgr.Translate(ZnSTRING_T, values, 8, 0, const_cast<char *>(area.data()), 0x81,
                    static_cast<unsigned>(area.size()), 2);
    MemFile file(area.data(), static_cast<unsigned>(area.size()));
    mgr.DiskLenGetFromMemFile(ZnSTRING_T, &file, dstFormat, 3);
  }
}

// ---- Text ---------------------------------------------------------------------------------------

TEST_F(StringForms, PrintsByItsFormat) {
  ZnString out("old");
  auto const print = [&](ZnString value, char const * format) {
    return Latin(mgr.PrintToZnString(ZnSTRING_T, out, &value, format, 1));
  };
  EXPECT_EQ(print("abc", nullptr), "abc");
  EXPECT_EQ(print("abc", "<%s>"), "<abc>");
  EXPECT_EQ(print("abc", "<%5.2s|%-5s>"), "<   ab|%-5s>") << "one text, one conversion";
  EXPECT_EQ(print("abc", "%-5s%%%n%d"), "abc  %%n%d");
  EXPECT_EQ(print("abc", "%999999999s").size(), 3u + 511 + 11);
  EXPECT_EQ(print(Null(), "<%s>"), "{NULL}");
  EXPECT_EQ(print(ZnString(), "<%s>"), "");
  EXPECT_EQ(print(Make("w\xE4", 253, 1), "<%s>"), "<w\xE4>");
  EXPECT_EQ(out.codeSet, 1);
  print(Make("wide", 225, 1), "%s");
  EXPECT_EQ(out.codeSet, 225);
  EXPECT_EQ(print(Make("\xA4", 14, 1), "%s"), "\xA4");
  EXPECT_EQ(out.codeSet, 14);
  ZnString euro(static_cast<unsigned short>(0x20AC));
  EXPECT_EQ(print(euro, "<%s>"), "<\xA4>") << "in the code set of the output";
  EXPECT_EQ(out.codeSet, 14);
  EXPECT_EQ(print("abc", "<%-05s|%.s>"), "<abc  |%.s>");
  EXPECT_EQ(print("abc", "<%.s>"), "<>");
}

TEST_F(StringForms, PrintsOrderText) {
  ZnString value;
  Bytes key(40, 'x');
  ZnString s = Make("A\xE4 7", 1, 1);
  mgr.Translate(ZnSTRING_T, key.data(), 0x81, 40, &s, 8, 0, 1);
  mgr.Load(ZnSTRING_T, &value, key.data(), 1, 1);
  ZnString out;
  auto const print = [&](char const * format) {
    return Latin(mgr.PrintToZnString(ZnSTRING_T, out, &value, format, 1));
  };
  EXPECT_EQ(print("%s"), "A\xE4 7");
  EXPECT_EQ(print("<%1M>"), "<Aa 7>");
  EXPECT_EQ(print("<%2M>"), "<A\xE4 7>");
  EXPECT_EQ(print("%3M;"), "upper letter A;lower letter a with diaeresis;space;digit 7;");
  EXPECT_EQ(print("%4M,"), "A,\\\"a, ,7,");
  ZnString::SetDefaultCodeSet(5);
  Bytes const letters = print("%s");
  ZnString::SetDefaultCodeSet(1);
  EXPECT_EQ(letters, "A\xE4 7") << "letters of code set 1, whatever the default";
}

TEST_F(StringForms, ScansNullsAndTexts) {
  ZnString value("old");
  ZnString nullText("{NULL}x"), text = Make("text", 253, 5);
  mgr.ScanFromZnString(ZnSTRING_T, &value, nullText, nullptr, 1);
  EXPECT_TRUE(value.IsNullValue());
  mgr.ScanFromZnString(ZnSTRING_T, &value, text, nullptr, 1);
  EXPECT_EQ(Latin(value), "text");
  EXPECT_EQ(value.codeSet, 253);
  EXPECT_EQ(value.language, 5);
}

TEST_F(StringForms, GoesThroughBoxes) {
  ZnString values[] = {Make("abc", 2, 3), Null(), ""};
  ZnTypeConvertData * const box = mgr.ConvertTo(ZnSTRING_T, values, 3);
  auto * const back = static_cast<ZnString *>(mgr.ConvertFrom(ZnSTRING_T, box, 4));
  EXPECT_EQ(Latin(back[0]), "abc");
  EXPECT_EQ(back[0].codeSet, 2);
  EXPECT_TRUE(back[1].IsNullValue());
  EXPECT_FALSE(back[2].IsNullValue());
  EXPECT_TRUE(back[3].IsNullValue()) << "no string in the box";
  mgr.Delete(ZnSTRING_T, back, 4);
  delete box;
  for (int const wantNull : {0, 1}) {
    auto * const fresh = static_cast<ZnString *>(mgr.DefaultValue(ZnSTRING_T, 2, wantNull));
    EXPECT_EQ(fresh[1].IsNullValue() != 0, wantNull != 0);
    mgr.Delete(ZnSTRING_T, fresh, 2);
  }
  EXPECT_EQ(mgr.SetNullValue(ZnSTRING_T, values), 0);
  EXPECT_TRUE(values[0].IsNullValue());
  EXPECT_EQ(old.SetNullValue(ZnSTRING_T, values + 2), 0);
  EXPECT_FALSE(values[2].IsNullValue());
}

} // namespace
