#include "zantms.h"

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

// Print and scan of numbers and truth values by formats. For the formats that it knows in the same
// way the C library is the judge.

namespace {

ZnTypeMgr mgr;

template <class Value>
std::string Print(char id, Value value, char const * format = nullptr, unsigned int count = 1) {
  ZnString out("replaced");
  EXPECT_EQ(&mgr.PrintToZnString(id, out, &value, format, count), &out);
  return out.StrGet();
}

template <class Value>
Value Scan(char id, char const * text, Value value, char const * format = nullptr) {
  ZnString in(text);
  EXPECT_EQ(mgr.ScanFromZnString(id, &value, in, format, 1), &value);
  return value;
}

TEST(NumberPrint, FollowsTheRowFormats) {
  EXPECT_EQ(Print<signed char>(Zn1B_T, 65), "A");
  EXPECT_EQ(Print<signed char>(Zn1B_T, 7), "0x07");
  EXPECT_EQ(Print<unsigned char>(ZnU1B_T, 200), "0xc8");
  EXPECT_EQ(Print<signed char>(Zn1B_T, 0), "0x00");
  EXPECT_EQ(Print<unsigned char>(ZnU1B_T, 127), "0x7f");
  EXPECT_EQ(Print<unsigned char>(ZnU1B_T, 126), "~");
  EXPECT_EQ(Print<unsigned char>(ZnU1B_T, 32), " ");
  EXPECT_EQ(Print<short>(Zn2B_T, -32768), "-32768");
  EXPECT_EQ(Print<unsigned short>(ZnU2B_T, 65535), "65535");
  EXPECT_EQ(Print<unsigned short>(ZnU2B_T, 65535, "%d"), "-1");
  EXPECT_EQ(Print<unsigned short>(ZnU2B_T, 65535, "%u"), "4294967295");
  EXPECT_EQ(Print<int>(Zn4B_T, -1), "-1");
  EXPECT_EQ(Print<unsigned int>(ZnU4B_T, 4294967295u), "4294967295");
  EXPECT_EQ(Print<unsigned int>(ZnBLOCKID_T, 17), "#17");
  EXPECT_EQ(Print<int>(ZnENUM_T, 3), "3");
  EXPECT_EQ(Print<long long>(Zn8B_T, std::numeric_limits<long long>::min()),
            "-9223372036854775808");
  EXPECT_EQ(Print<unsigned long long>(ZnU8B_T, ~0ull), "18446744073709551615");
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, 1.0), "1");
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, 0.1), "0.10000000000000001");
  EXPECT_EQ(Print<float>(ZnFLOAT_T, 0.1F), "0.10000000149011612");
  double const infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, infinity), "Infinity");
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, -infinity), "-Infinity");
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, -std::nan("1")), "NaN");
  EXPECT_EQ(Print<float>(ZnFLOAT_T, -std::numeric_limits<float>::infinity()), "-Infinity");
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, infinity, "%g"), "inf");
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, -std::nan("1"), "%6G|"), "  -NAN|");
  EXPECT_EQ(Print<double>(ZnDOUBLE_T, 12.0, "ldexp(%g,%d)"), "ldexp(0.75,4)");
  EXPECT_EQ(Print<float>(ZnFLOAT_T, -1.5F, "ldexp(%g,%d)"), "ldexp(-0.75,1)");
}

TEST(NumberPrint, TakesSizesFromTheFormatAndTextAsText) {
  struct Case {
    int value;
    char const * format;
    char const * text;
  };
  for (auto const & [value, format, text] :
       {Case{-1, "%ld", "-1"}, Case{-1, "%lx", "ffffffff"}, Case{-1, "%hx", "ffff"},
        Case{-1, "%hhu", "255"}, Case{-2, "%I64d", "-2"}, Case{-2, "%I32d", "-2"},
        Case{65, "%c%c", "A%c"}, Case{5, "%d of %d", "5 of %d"}, Case{5, "100%%: %d", "100%: 5"},
        Case{5, "%s %n %p %d", "%s %n %p 5"}, Case{5, "%*d", "%*d"}, Case{5, "%f %g", "%f %g"},
        Case{5, "%k%d%", "%k5%"}, Case{5, "", ""}, Case{5, "%5", "%5"}, Case{7, "%#o %d", "07 %d"},
        Case{7, "%I6d", "%I6d"}, Case{7, "%-4d|", "7   |"}, Case{7, "% 05d", " 0007"}})
    EXPECT_EQ(Print(ZnINT_T, value, format), text) << format;
  EXPECT_EQ(Print(ZnDOUBLE_T, 1.5, "%d %g %g"), "%d 1.5 %g");
  EXPECT_EQ(Print(Zn8B_T, -1ll, "%d %lld"), "-1 %lld");
  EXPECT_EQ(Print(Zn8B_T, 0x1234567890ll, "%llx"), "1234567890");
  // No more than 511 characters come out, whatever width and precision ask for.
  EXPECT_EQ(Print(ZnINT_T, 5, "%99999999999d"), std::string(511, ' '));
  EXPECT_EQ(Print(ZnINT_T, 5, "%.600d"), std::string(511, '0'));
  EXPECT_EQ(Print(ZnDOUBLE_T, 0.5, "%.5000f"), "0.5" + std::string(508, '0'));
  EXPECT_EQ(Print(ZnDOUBLE_T, 1e308, "%f").size(), 316u);
}

TEST(NumberPrint, AgreesWithTheCLibrary) {
  std::mt19937_64 random(7);
  auto const pick = [&random](char const * from) { return from[random() % std::strlen(from)]; };
  for (int round = 0; round < 20000; ++round) {
    std::string format = "<%";
    for (int flags = random() % 3; flags > 0; --flags)
      format += pick("-+ #0");
    if (random() % 2 != 0)
      format += std::to_string(random() % 30);
    if (random() % 2 != 0)
      format.append(".").append(std::to_string(random() % 25));
    bool const isFloat = random() % 2 != 0;
    if (!isFloat)
      format += std::initializer_list<char const *>{"", "h", "hh"}.begin()[random() % 3];
    format += isFloat ? pick("eEfFgGaA") : pick("diuoxX");
    format += '>';
    char expected[600];
    if (isFloat) {
      double const number = random() % 2 != 0 ? std::bit_cast<double>(random())
                                              : double(int(random() % 4000) - 2000) / 8;
      std::snprintf(expected, 512, format.c_str(), number);
      ASSERT_EQ(Print(ZnDOUBLE_T, number, format.c_str()), expected) << format;
    } else {
      int const number = random() % 2 != 0 ? static_cast<int>(random()) : int(random() % 20) - 10;
      std::snprintf(expected, 512, format.c_str(), number);
      ASSERT_EQ(Print(ZnINT_T, number, format.c_str()), expected) << format;
    }
  }
}

TEST(NumberScan, ReadsWhatTheTextBeginsWith) {
  struct Case {
    char const * text;
    char const * format;
    int value; // 42 stands for: as it was
  };
  for (auto const & [text, format, value] :
       {Case{"12xyz", "%d", 12},      Case{"xyz", "%d", 42},    Case{"", "%d", 42},
        Case{"  -7", "%d", -7},       Case{"+7", "%ld", 7},     Case{"0x1F", "%i", 31},
        Case{"0x1F", "%d", 0},        Case{"017", "%i", 15},    Case{"017", "%d", 17},
        Case{"17", "%o", 15},         Case{"ff", "%x", 255},    Case{"0Xfg", "%x", 15},
        Case{"123456", "%3d", 123},   Case{"1 2", "%*d %d", 2}, Case{"1", "%*d %d", 42},
        Case{"a=5", "a=%d", 5},       Case{"b=5", "a=%d", 42},  Case{"a  5", "a %d", 5},
        Case{"4294967295", "%u", -1}, Case{"-1", "%u", -1},     Case{"2147483648", "%d", INT_MIN},
        Case{"5", "%%%d", 42},        Case{"%5", "%%%d", 5},    Case{"5 6", "%d %d", 5},
        Case{"5", "%s", 42},          Case{"5", "%n%d", 42},    Case{"5", "%f", 42},
        Case{"5", "%", 42},           Case{"- 5", "%d", 42}})
    EXPECT_EQ(Scan(ZnINT_T, text, 42, format), value) << text << " by " << format;
  EXPECT_EQ(Scan<unsigned int>(ZnBLOCKID_T, "#17", 0), 17u);
  EXPECT_EQ(Scan<unsigned short>(ZnU2B_T, "65535", 0), 65535);
  EXPECT_EQ(Scan<long long>(Zn8B_T, "-9223372036854775808", 0),
            std::numeric_limits<long long>::min());
  EXPECT_EQ(Scan<unsigned long long>(ZnU8B_T, "18446744073709551615", 0), ~0ull);
  // No scan stores more than the value has room for, or than the conversion asks for.
  short pair[] = {1, 2};
  ZnString text("-1");
  mgr.ScanFromZnString(Zn2B_T, pair, text, "%I64d", 1);
  EXPECT_EQ(pair[0], -1);
  EXPECT_EQ(pair[1], 2);
  EXPECT_EQ(Scan(ZnINT_T, "-1", 0, "%hd"), 0xFFFF);
  EXPECT_EQ(Scan(Zn8B_T, "-1", 0ll, "%ld"), 0xFFFFFFFF);
  EXPECT_EQ(mgr.ScanFromZnString(ZnINT_T, nullptr, text, nullptr, 1), nullptr);
  // Text of a 16-bit code set, whatever the width of the default one.
  unsigned short const wide[] = {'-', '1', '2', 0x3B1, 0};
  ZnString wideText(wide);
  unsigned char const usual = ZnString::GetDefaultCodeSet();
  for (unsigned char codeSet : {usual, ZnString::GetDefault16CodeSet()}) {
    ZnString::SetDefaultCodeSet(codeSet);
    int value = 0;
    mgr.ScanFromZnString(ZnINT_T, &value, wideText, nullptr, 1);
    EXPECT_EQ(value, -12);
  }
  ZnString::SetDefaultCodeSet(usual);
}

std::uint64_t Bits(double number) { return std::bit_cast<std::uint64_t>(number); }

TEST(NumberScan, ReadsFloats) {
  double const infinity = std::numeric_limits<double>::infinity();
  struct Case {
    char const * text;
    double value;
  };
  for (auto const & [text, value] : {Case{"0.1", 0.1},
                                     Case{" -12.5km", -12.5},
                                     Case{"abc", 0.0},
                                     Case{"", 0.0},
                                     Case{"-infinity", -infinity},
                                     Case{"INFINITY", infinity},
                                     Case{"infinityx", 0.0},
                                     Case{"1e999", infinity},
                                     Case{"-1e999", -infinity},
                                     Case{"1e-999", 0.0},
                                     Case{"-1e-999", -0.0},
                                     Case{"3e-324", 4.9406564584124654e-324},
                                     Case{"0x1p-1080", 0.0},
                                     Case{"0x1p4", 16.0},
                                     Case{"1e", 1.0},
                                     Case{".5", 0.5},
                                     Case{"5.", 5.0},
                                     Case{".", 0.0},
                                     Case{"1,5", 1.0},
                                     Case{"+2", 2.0}}) {
    EXPECT_EQ(Bits(Scan(ZnDOUBLE_T, text, 42.0)), Bits(value)) << text;
    EXPECT_EQ(Scan(ZnFLOAT_T, text, 42.0F), static_cast<float>(value)) << text;
  }
  EXPECT_EQ(Bits(Scan(ZnDOUBLE_T, "nan", 42.0)), 0xFFF8000000000000);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(Scan(ZnFLOAT_T, "NaN", 42.0F)), 0xFFC00000u);
  EXPECT_EQ(Scan(ZnDOUBLE_T, "2.5", 42.0, "%lf"), 2.5);
  EXPECT_EQ(Scan(ZnDOUBLE_T, "x", 42.0, "%lf"), 42.0);
  EXPECT_EQ(Scan(ZnDOUBLE_T, "inf", 42.0, "%lg"), infinity);
  EXPECT_EQ(Scan(ZnDOUBLE_T, "12", 42.0, "%d"), 42.0);
  EXPECT_EQ(Scan(ZnFLOAT_T, "2.5", 42.0F, "%f"), 2.5F);
  EXPECT_EQ(Scan(ZnDOUBLE_T, "ldexp(0.75,4)", 42.0, "ldexp(%lg,%d)"), 12.0);
  EXPECT_EQ(Scan(ZnFLOAT_T, "ldexp(-0.75,1)", 42.0F, "ldexp(%lg,%d)"), -1.5F);
}

TEST(NumberScan, ReadsBackWhatItPrinted) {
  std::mt19937_64 random(9);
  for (int round = 0; round < 20000; ++round) {
    double const number = std::bit_cast<double>(random());
    if (std::isfinite(number)) {
      ASSERT_EQ(Bits(Scan(ZnDOUBLE_T, Print(ZnDOUBLE_T, number).c_str(), 0.0)), Bits(number));
    }
  }
}

TEST(CharacterText, IsOneTextForAllValues) {
  char characters[] = {'a', 'b', 'c'};
  ZnString out("gone");
  mgr.PrintToZnString(Zn1B_T, out, characters, nullptr, 3);
  EXPECT_STREQ(out.StrGet(), "abc");
  mgr.PrintToZnString(Zn1B_T, out, characters, "[%c]", 3);
  EXPECT_STREQ(out.StrGet(), "[a][b][c]");
  mgr.PrintToZnString(ZnU1B_T, out, characters, nullptr, 0);
  EXPECT_TRUE(out.IsEmpty());
  struct Case {
    char const * text;
    char values[4];
  };
  for (auto const & [text, values] :
       {Case{"abc", {'a', 'b', 'c', '?'}}, Case{"ab", {'a', 'b', '?', '?'}},
        Case{"0x41", {'A', 'x', '4', '?'}}, Case{"0xZ", {'0', 'x', 'Z', '?'}},
        Case{"", {'?', '?', '?', '?'}}, Case{"z0x142", {'z', 'B', 'x', '?'}}}) {
    char scanned[] = {'?', '?', '?', '?'};
    ZnString in(text);
    mgr.ScanFromZnString(Zn1B_T, scanned, in, nullptr, 3);
    EXPECT_EQ(std::memcmp(scanned, values, 4), 0) << text;
  }
}

TEST(ArrayPrint, PutsCommasBetween) {
  int numbers[] = {1, -2, 3};
  ZnString out("x=");
  mgr.PrintToZnString(ZnINT_T, out, numbers, nullptr, 3);
  EXPECT_STREQ(out.StrGet(), "x=1,-2,3");
  mgr.PrintToZnString(ZnINT_T, out, numbers, "<%d>", 1);
  EXPECT_STREQ(out.StrGet(), "<1>");
  ZnNull_short halves[] = {{5, 0}, {}};
  out = "";
  mgr.PrintToZnString(ZnNULL_2B_T, out, halves, nullptr, 2);
  EXPECT_STREQ(out.StrGet(), "5,{NULL}");
}

TEST(BooleanText, KnowsItsWords) {
  EXPECT_EQ(Print(ZnBOOLEAN_T, ZnBoolean(1)), "TRUE");
  EXPECT_EQ(Print(ZnBOOLEAN_T, ZnBoolean(0)), "FALSE");
  EXPECT_EQ(Print<unsigned char>(ZnBOOLEAN_T, 255), "{NULL}");
  EXPECT_EQ(Print<unsigned char>(ZnBOOLEAN_T, 2), "FALSE");
  for (char const * text : {"T", "t", "TRUE", "true", "1"})
    EXPECT_EQ(Scan<unsigned char>(ZnBOOLEAN_T, text, 7), 1) << text;
  for (char const * text : {"True", "tRUE", "yes", "0", "", "1 ", " T", "{NULL", "TRUEX"})
    EXPECT_EQ(Scan<unsigned char>(ZnBOOLEAN_T, text, 7), 0) << text;
  EXPECT_EQ(Scan<unsigned char>(ZnBOOLEAN_T, "{NULL}", 7), 255);
  EXPECT_EQ(Scan<unsigned char>(ZnBOOLEAN_T, "{NULL}T", 7), 255);
}

/// Restores the null print string.
struct NullText {
  explicit NullText(char const * text) { ZnTypeMgr::SetNullPrintString(text); }
  ~NullText() { ZnTypeMgr::SetNullPrintString("{NULL}"); }
};

TEST(NullableText, KnowsTheNullPrintString) {
  EXPECT_STREQ(ZnTypeMgr::GetNullPrintString().StrGet(), "{NULL}");
  EXPECT_EQ(Print(ZnNULL_INT_T, ZnNull_int{}), "{NULL}");
  EXPECT_EQ(Print(ZnNULL_INT_T, ZnNull_int{-7, 0}), "-7");
  EXPECT_EQ(Print(ZnNULL_INT_T, ZnNull_int{-7, 0}, "<%x>"), "<fffffff9>");
  EXPECT_EQ(Print(ZnNULL_1B_T, ZnNull_char{'A', 0}), "A");
  EXPECT_EQ(Print(ZnNULL_U8B_T, ZnNull_u8b{~0ull, 0}), "18446744073709551615");
  EXPECT_EQ(Print(ZnNULL_DOUBLE_T, ZnNull_double{0.1, 0}), "0.10000000000000001");
  struct Case {
    char const * nullText;
    char const * text;
    int value;
    int isNull;
  };
  for (auto const & [nullText, text, value, isNull] :
       {Case{"{NULL}", "{NULL}", 0, 1}, Case{"{NULL}", "{NULL}x", 0, 1}, Case{"{NULL}", "", 0, 1},
        Case{"{NULL}", "12x", 12, 0}, Case{"{NULL}", "xyz", 0, 0}, Case{"{NULL}", "{null}", 0, 0},
        Case{"nil", "nil", 0, 1}, Case{"nil", "{NULL}", 0, 0}, Case{"", "12", 0, 1}}) {
    NullText const scope(nullText);
    auto const scanned = Scan(ZnNULL_INT_T, text, ZnNull_int{9, 1});
    EXPECT_EQ(scanned.value, value) << text;
    EXPECT_EQ(scanned.isNull, isNull) << text;
  }
  EXPECT_EQ(Scan(ZnNULL_FLOAT_T, "2.5", ZnNull_float{}).value, 2.5F);
  EXPECT_EQ(Scan(ZnNULL_1B_T, "0x41", ZnNull_char{}).value, 'A');
  ZnString text("5");
  EXPECT_EQ(mgr.ScanFromZnString(ZnNULL_INT_T, nullptr, text, nullptr, 1), nullptr);
}

} // namespace
