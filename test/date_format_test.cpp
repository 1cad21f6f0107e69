#include "date_support.h"

#include <fstream>
#include <sstream>

/// The format language: what the documentation shows, what printing and scanning make of every
/// directive, and that the two undo one another.

namespace {

ZnTypeMgr & Mgr() {
  static ZnTypeMgr mgr;
  return mgr;
}

ZnDateTimeN Fields(int year, int month, int day, int hour, int minute, int second, int ns) {
  return ZnTimeSpan(year, month, day, hour, minute, second, ns).AsDateTimeN();
}

struct Scanned {
  std::string fields;
  bool complete;
  bool operator==(Scanned const &) const = default;
};

std::ostream & operator<<(std::ostream & out, Scanned const & s) {
  return out << s.fields << (s.complete ? "" : " (text ended)");
}

Scanned Scan(char const * text, char const * format) {
  ZnString in(text);
  ZnDateTimeN value(9, 9, 9, 9, 9, 9, 9);
  bool const complete = ScanDateTime(&value, in, format, 1) == &value;
  return {Raw(value), complete};
}

} // namespace

// The lines of the table of directives that have an example: `%m` | ... | `value` | `text` |.
TEST(Formats, ExamplesOfTheDocumentation) {
  std::ifstream doc(ZANTMS_TEST_DATA "/../../doc/formats.md");
  std::string line;
  int examples = 0;
  while (std::getline(doc, line)) {
    std::vector<std::string> quoted;
    for (std::size_t at = 0; (at = line.find('`', at)) != std::string::npos;) {
      std::size_t const end = line.find('`', at + 1);
      quoted.push_back(line.substr(at + 1, end - at - 1));
      at = end + 1;
    }
    if (line.rfind("| `%", 0) != 0 || quoted.size() < 3)
      continue;
    std::string const & value = quoted[quoted.size() - 2];
    bool const isSpan = value.find('T') == std::string::npos;
    ZnString in(value.c_str());
    ZnDateTimeN parsed;
    ASSERT_NE(ScanDateTime(&parsed, in, isSpan ? "%V" : "%X", 1), nullptr) << line;
    EXPECT_EQ(Print(parsed, quoted[0].c_str()), quoted.back()) << line;
    ++examples;
  }
  EXPECT_GE(examples, 30);
}

TEST(Formats, Print) {
  struct {
    ZnDateTimeN value;
    char const * format;
    char const * text;
  } const cases[] = {
      {Fields(2024, 2, 1, 0, 0, 0, 0), "%a %e.%b %Y", "Thu 01.Feb 2024"},
      {Fields(7, 1, 2, 0, 0, 0, 0), "%Y-%m-%d", "0007-01-02"},
      {Fields(-2, 1, 2, 0, 0, 0, 0), "%Y-%m-%d", "-0002-01-02"},
      {Fields(-2, 1, 2, 0, 0, 0, 0), "%y", "-02"},
      {Fields(12345, 1, 2, 0, 0, 0, 0), "%Y", "12345"},
      {Fields(-1, 3, 15, 0, 0, 0, 0), "%Y-%m-%d", "*-03-15"},
      {Fields(2000, 0, 5, 0, 0, 0, 0), "%b %B %e", "000 000 05"},
      {Fields(2000, -5, 5, 0, 0, 0, 0), "%b", "-005"},
      {Fields(2000, 1, -1, 0, 0, 0, 0), "%B %a%A%d%e", "Januar ****"},
      {Fields(0, 0, 0, 0, 30, 0, 0), "%I %p", "12 am"},
      {Fields(0, 0, 0, 12, 30, 0, 0), "%I %P", "12 PM"},
      {Fields(0, 0, 0, 13, 30, 0, 0), "%I %p", "01 pm"},
      {Fields(0, 0, 0, 0, 30, 0, 0), "%I", "00"},
      {Fields(0, 0, 0, 12, 30, 0, 0), "%I", "12"},
      {Fields(0, 0, 0, 0, 30, 0, 0), "%I%%p", "00%p"},
      {Fields(0, 0, 0, 0, 30, 0, 0), "%I %?p", "00 am"},
      {Fields(0, 0, 0, 13, 30, 0, 0), "%I %?p", "01 am"},
      {Fields(0, 0, 0, -1, 30, 0, 0), "%H %p%%", "* am%"},
      {Fields(0, 0, 0, 0, 0, 5, 250000000), "%f", "05.250"},
      {Fields(0, 0, 0, 0, 0, 5, 250500000), "%f", "05.250500"},
      {Fields(0, 0, 0, 0, 0, 5, 250500123), "%f", "05.250500123"},
      {Fields(0, 0, 0, 0, 0, 59, 999999999), "%f", "59.999999999"},
      {Fields(0, 0, 0, 0, 0, 0, 0), "%f", "00"},
      {Fields(0, 0, 0, 0, 0, 0, 0), "%?f", ""},
      {Fields(0, 0, 0, 0, 0, 0, 500000000), "%?f", "00.500"},
      {Fields(0, 0, 0, 0, 0, -4, -500000000), "%f", "-4.500"},
      {Fields(0, 0, 0, 0, 0, -4, 0), "%f %S", "-4 -04"},
      {Fields(0, 0, 0, 0, 0, -1, 5), "%f %N", "* 5"},
      {Fields(0, 0, 0, 0, 0, 0, -1), "%N", "*"},
      {Fields(0, 0, 0, 0, 0, 0, -2000000000), "%N", "-2000000000"},
      {Fields(0, 1, 2, 3, 4, 5, 0), "%V", "32.03:04:05"},
      {Fields(-1, -1, -1, 0, 0, 0, 0), "%J", "*"},
      {Fields(0, 0, -1, 23, 59, 59, 0), "%V", "-1.23:59:59"},
      {Fields(0, 0, 0, 3, 4, 5, 0), "%?J.%H:%M:%f", ".03:04:05"},
      {Fields(0, 0, 0, 3, 4, 5, 0), "%?(J.)%H:%M:%f", "03:04:05"},
      {Fields(0, 1, 2, 3, 4, 5, 0), "%?(J.)%H:%M:%f", "32.03:04:05"},
      {Fields(0, 0, 0, 0, 5, 0, 0), "%?H:%M", ":05"},
      {Fields(0, 0, 0, 1, 5, 0, 0), "%?H:%M:%?S", "01:05:00"},
      {Fields(0, 0, 0, 0, 5, 0, 0), "%?(H:%?(M:)%S", ":05:00"}, // the second group moves the start
      {Fields(0, 0, 0, 0, 0, 5, 0), "%?(H:%?(M:)%S", ":05"},
      {Fields(0, 0, 0, 0, 0, 0, -1), "%?(N)x", "x"}, // a wildcard does not count as printed
      {Fields(0, 0, 0, 0, 0, 0, 0), "a)b%?(H)", "a)b"},
      {Fields(0, 0, 0, 5, 0, 0, 0), "%?(H)x)", "05x)"},
      {Fields(0, 0, 0, 1, 0, 0, 0), "%H %?f", "01 00"},
      {Fields(2000, 1, 2, 3, 4, 5, 0), "<%D> %?T|%O", "<2000-01-02> 03:04:05|2000-01-02T03:04:05"},
      {Fields(2000, 1, 2, 3, 4, 5, 0), "%q%5%", "q5"},
      {Fields(0, 0, 0, 0, 0, 0, 0), "%??%?(?)%?%", "??%"},
      {Fields(2000, 1, 2, 3, 4, 5, 0), "x%?", "x"},
      {Fields(2000, 1, 2, 3, 4, 5, 0), "x%?(", "x"},
      {Fields(2000, 1, 2, 3, 4, 5, 0), "", ""},
      {ZnDateTimeN::NullValue(), "%Y", "{NULL}"},
  };
  for (auto const & c : cases)
    EXPECT_EQ(Print(c.value, c.format), c.text) << c.format << " on " << Raw(c.value);
}

TEST(Formats, Names) {
  char const * const months[] = {"Januar",    "Februar", "March",    "April",
                                 "May",       "June",    "July",     "August",
                                 "September", "October", "November", "December"};
  for (int i = 0; i < 12; ++i) {
    std::string const name = months[i];
    EXPECT_EQ(Print(Fields(2024, i + 1, 1, 0, 0, 0, 0), "%b %B"), name.substr(0, 3) + ' ' + name);
  }
  char const * const days[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                               "Friday", "Saturday", "Sunday"};
  for (int i = 0; i < 7; ++i) { // 1 July 2024 was a Monday
    std::string const name = days[i];
    EXPECT_EQ(Print(Fields(2024, 7, i + 1, 0, 0, 0, 0), "%a %A"), name.substr(0, 3) + ' ' + name);
    EXPECT_EQ(Str(static_cast<ZnDate const &>(ZnDate(2024, 7, i + 1)).PrintDayOfTheDate()), name);
  }
}

TEST(Formats, Scan) {
  struct {
    char const * text;
    char const * format;
    Scanned result;
  } const cases[] = {
      {"2000/01/02", "%Y-%m-%d", {"2000 1 2 0 0 0 0", true}},
      {"2000-01", "%Y-%m-%d", {"2000 1 0 0 0 0 0", false}},
      {"*-03-15", "%Y-%m-%d", {"-1 3 15 0 0 0 0", true}},
      {" 2000 -  1-2", "%Y-%m-%d", {"2000 1 2 0 0 0 0", true}},
      {"\v2000\f-\r+1\n-2", "%Y\n-%m\t-%d", {"2000 1 2 0 0 0 0", true}},
      {"2000 12", "%Y-%m", {"2000 12 0 0 0 0 0", true}}, // a digit is no other literal
      {" 15", "1%d", {"0 0 5 0 0 0 0", true}},
      {"20000102", "%Y-%m-%d", {"11622 0 0 0 0 0 0", false}},
      {"12:00:00 AM", "%H:%M:%S %p", {"0 0 0 0 0 0 0", true}},
      {"01:00:00 pm", "%I:%M:%S %P", {"0 0 0 13 0 0 0", true}},
      {"pm 01", "%p %I:%M", {"0 0 0 1 0 0 0", false}},
      {"13 am", "%I %p", {"0 0 0 13 0 0 0", true}},
      {"12 pm 12 xx", "%I %p %I %p", {"0 0 0 12 0 0 0", true}},
      {"pm 01 xx", "%p %I %p", {"0 0 0 13 0 0 0", true}},
      {"99", "%y", {"1999 0 0 0 0 0 0", true}},
      {"30", "%y", {"2030 0 0 0 0 0 0", true}},
      {"31", "%y", {"1931 0 0 0 0 0 0", true}},
      {"Thu 01.Feb 2024", "%a %e.%b %Y", {"2024 2 1 0 0 0 0", true}},
      {"Thursday, January 5",
       "%A, %B %d",
       {"0 1 0 0 0 0 0", true}}, // the "y" stays behind "Januar"
      {"Januar5", "%B%d", {"0 1 5 0 0 0 0", true}},
      {"jan5", "%b%d", {"0 0 5 0 0 0 0", true}},
      {"01234", "%b%d", {"0 12 34 0 0 0 0", true}},
      {"*** x", "%a%p%H %M", {"0 0 0 -1 0 0 0", true}},
      {"*", "%X", {"-1 0 0 0 0 0 0", false}},
      {"*", "%J", {"-1 -1 -1 0 0 0 0", true}},
      {"*", "%f", {"0 0 0 0 0 -1 -1", true}},
      {"* 7", "%%%S", {"0 0 0 0 0 7 0", true}},
      {"-400", "%J", {"-1 -1 -10 0 0 0 0", true}},
      {"05.250500123", "%f", {"0 0 0 0 0 5 250500123", true}},
      {"-4.5+1", "%f", {"0 0 0 0 0 -4 -500000000", true}},
      {"1.9999999999", "%f", {"0 0 0 0 0 1 999999999", true}},
      {"2.5e1x", "%f", {"0 0 0 0 0 25 0", true}},
      {"2.5E1x", "%f", {"0 0 0 0 0 25 0", true}},
      {"nan", "%f", {"0 0 0 0 0 0 0", true}},
      {"-12", "%N", {"0 0 0 0 0 0 -12", true}},
      {"1.2", "%?(J.)%H", {"0 0 1 2 0 0 0", true}},
      {"1.2)3", "%?(J.)%H)%M", {"0 0 1 2 3 0 0", true}},
      {"*5", "%??%Y", {"5 0 0 0 0 0 0", true}},
      {"x", "%Y", {"0 0 0 0 0 0 0", true}},
      {"-:05", "%H:%M", {"0 0 0 0 5 0 0", true}},
      {"99999999999999999999", "%H", {"0 0 0 -1 0 0 0", true}}, // cut to the field
      {"", "abc", {"0 0 0 0 0 0 0", true}},
      {"", "%%", {"0 0 0 0 0 0 0", false}},
      {"5", "%d  )  ", {"0 0 5 0 0 0 0", true}},
      {"5", "%d%", {"0 0 5 0 0 0 0", true}},
      {"5", "%d%?(", {"0 0 5 0 0 0 0", true}},
      {"{NULL} and more", "%Y", {Raw(ZnDateTimeN::NullValue()), true}},
  };
  for (auto const & c : cases) {
    EXPECT_EQ(Scan(c.text, c.format), c.result) << c.text << " under " << c.format;
  }
  ZnString empty("5");
  EXPECT_EQ(ScanDateTime(nullptr, empty, "%d", 1), nullptr);
}

TEST(Formats, FormatsOfTheClasses) {
  ZnDateTime const stamp(ZnDate(2000, 1, 2), ZnTime(3, 4, 5));
  ZnDateTime back;
  ZnString text(Print(stamp).c_str());
  EXPECT_EQ(Str(text), "2000-01-02T03:04:05");
  back.ScanFromZnString(text, nullptr);
  EXPECT_EQ(Raw(back), Raw(stamp));
  ZnTimeSpan const span(32, 3, 4, 5, 6000);
  ZnTimeSpan spanBack;
  text = Print(span).c_str();
  EXPECT_EQ(Str(text), "32.03:04:05.000006");
  spanBack.ScanFromZnString(text, nullptr);
  EXPECT_EQ(Raw(spanBack), Raw(span));
}

/// What was printed over keeps nothing, neither length nor labels.
TEST(Formats, TextPrintedOver) {
  unsigned short const wide[] = {'x', 'y', 0};
  for (ZnString out : {ZnString("xxxxx"), ZnString("a longer text"), ZnString(wide), ZnString()}) {
    if (out.codeSet == 1)
      out.language = 7;
    ZnDate(12345, 1, 2).PrintToZnString(out, "%Y");
    EXPECT_EQ(Str(out), "12345");
    EXPECT_EQ(out.capacity, 6);
    EXPECT_EQ(out.codeSet, ZnString::GetDefault8CodeSet());
    EXPECT_EQ(out.language, ZnString::GetDefaultLanguage());
  }
}

TEST(Formats, TextOfTwoByteCharacters) {
  unsigned short const wide[] = {'2', '0', '0', '0', '-', '1', '-', '2', 0};
  ZnString in(wide);
  ZnDate date(0);
  date.ScanFromZnString(in, nullptr);
  EXPECT_EQ(Raw(date), "2000 1 2");
  EXPECT_EQ(in.Len(), 8);
}

TEST(Formats, TextWhoseTerminatorIsOverwritten) {
  ZnString in("2000-01-2");
  in.text[in.capacity - 1] = '3';
  ZnDate date(0);
  date.ScanFromZnString(in, nullptr);
  EXPECT_EQ(Raw(date), "2000 1 23");
}

TEST(Formats, LongResultsAreCut) {
  ZnDateTimeN const value(2000, 9, 27, 3, 4, 5, 123456789);
  for (int directives : {100, 255, 256, 284, 1000, 5000}) {
    std::string format;
    std::string expected;
    for (int i = 0; i < directives; ++i) {
      format += i % 2 ? "%A%B" : "%f|";
      expected += i % 2 ? "WednesdaySeptember" : "05.123456789|";
    }
    EXPECT_EQ(Print(value, format.c_str()), expected.substr(0, 2559));
  }
  EXPECT_EQ(Print(value, std::string(9000, 'x').c_str()), std::string(2559, 'x'));
}

TEST(Formats, RowsTellWhetherTheTextWasLongEnough) {
  ZnString in("2000-01");
  ZnDate date(5, 5, 5);
  EXPECT_EQ(Mgr().ScanFromZnString(ZnDATE_T, &date, in, "%Y-%m-%d", 1), nullptr);
  EXPECT_EQ(Raw(date), "2000 1 0");
  ZnDateTime stamp(date, ZnTime(5, 5, 5));
  EXPECT_EQ(Mgr().ScanFromZnString(ZnDATIME_T, &stamp, in, "%D", 1), nullptr);
  EXPECT_EQ(Raw(stamp), "2000 1 0 0 0 0");
  ZnTime time(5, 5, 5);
  EXPECT_EQ(Mgr().ScanFromZnString(ZnTIME_T, &time, in = "12:34", "%H:%M:%S", 1), nullptr);
  EXPECT_EQ(Raw(time), "12 34 0");
  in = "2000-01";
  d_Date standard(5, 5, 5);
  EXPECT_EQ(Mgr().ScanFromZnString(D_DATE_T, &standard, in, "%Y-%m-%d", 1), &standard);
  EXPECT_EQ(standard.year(), 2000);
  EXPECT_EQ(Mgr().ScanFromZnString(ZnDATE_T, nullptr, in, "%Y", 1), nullptr);
}

TEST(Formats, TableFormats) {
  auto const print = [](char id, auto value, char const * format = nullptr) {
    ZnString out;
    return Str(Mgr().PrintToZnString(id, out, &value, format, 1));
  };
  ZnDateTime const stamp(ZnDate(2024, 2, 1), ZnTime(13, 5, 9));
  EXPECT_EQ(print(ZnDATE_T, stamp.date), "Thu 01.Feb 2024");
  EXPECT_EQ(print(ZnTIME_T, stamp.time), "01:05:09 pm");
  EXPECT_EQ(print(ZnDATIME_T, stamp), "Thu 01.Feb 2024 01:05:09 pm");
  EXPECT_EQ(print(ZnDATIME_N_T, ZnDateTimeN(stamp)), "2024-02-01T13:05:09");
  EXPECT_EQ(print(ZnTIMESPAN_T, ZnTimeSpan(32, 3, 4, 5, 0)), "32.03:04:05");
  EXPECT_EQ(print(D_DATE_T, d_Date(2024, 2, 1)), "Thu Feb 01");
  EXPECT_EQ(print(D_TIME_T, d_Time(13, 5, 9.75F)), "01:05:09 pm");
  EXPECT_EQ(print(D_TIMESTAMP_T, d_Timestamp(2024, 2, 1, 0, 5, 9)), "Thu Feb 01 12:05:09 am");
  EXPECT_EQ(print(D_INTERVAL_T, d_Interval(0, 13, 0, 0)),
            "00 days, 01 hours, 00 minutes, 00 seconds");
  EXPECT_EQ(print(D_INTERVAL_T, d_Interval(2, 12, 4, 5.75F)),
            "02 days, 12 hours, 04 minutes, 05 seconds");
  EXPECT_EQ(print(D_INTERVAL_T, d_Interval(2, 12, 4, 5), "%X"), "0000-01-02T12:04:05");
  EXPECT_EQ(print(D_TIME_T, d_Time(13, 5, 9, 2, 30), "%X"), "0000-01-01T13:05:09");
  EXPECT_EQ(print(ZnDATE_T, ZnDate::NullValue()), "{NULL}");
  EXPECT_EQ(print(ZnTIME_T, ZnTime::NullValue()), "{NULL}");
  ZnDate dates[] = {{2024, 2, 1}, ZnDate::NullValue()};
  ZnString out("<");
  EXPECT_EQ(Str(Mgr().PrintToZnString(ZnDATE_T, out, dates, "%Y", 2)), "<2024,{NULL}");
}

/// What prints without loss comes back.
TEST(Formats, RoundTrips) {
  char const * const full[] = {"%X",
                               "%Y-%m-%dT%H:%M:%f",
                               "%O.%N",
                               "%D %T %N",
                               "%a %e.%b %Y %I:%M:%S %p %N",
                               "%A, %d %B %Y, %H h %M min %f s",
                               "%P %I.%M.%S/%N|%e-%m-%Y",
                               "%N,%S,%M,%H,%d,%m,%Y",
                               "%%%Y%%%m%%%d%%%H%%%M%%%f",
                               "%?(Y)-%m-%d %T;%N",
                               "  %Y  %b  %d  %H  %M  %f  "};
  char const * const spans[] = {"%V", "%J.%H:%M:%f", "%J days %T and %N", "%?(J.)%H:%M:%f%%",
                                "%N %S %M %H %J"};
  std::mt19937_64 random(6);
  for (int i = 0; i < 20000; ++i) {
    int const kind = static_cast<int>(random() % 4);
    auto ns = static_cast<int>(random() % 1000000000);
    ns = kind == 0 ? 0 : kind == 1 ? ns / 1000000 * 1000000 : kind == 2 ? ns / 1000 * 1000 : ns;
    // Years with a wildcard's number, and others that leave four digits, are part of the set.
    ZnDateTimeN value(ZnDate(1500000 + static_cast<int>(random() % 5000000)),
                      ZnTime(static_cast<int>(random() % 86400)));
    value.nanoseconds = ns;
    for (char const * format : full) {
      if (format[1] == '?' && (value.year == 0 || value.year == -1))
        continue; // the group is dropped
      ZnDateTimeN back;
      ZnString text(Print(value, format).c_str());
      ASSERT_EQ(ScanDateTime(&back, text, format, 1), &back) << Str(text) << " under " << format;
      ASSERT_EQ(Raw(back), Raw(value)) << Str(text) << " under " << format;
    }
    ZnTimeSpan span = ZnTimeSpan::ZeroValue();
    span.AddDays(static_cast<int>(random() % 20000) - 10000);
    span.SetHours(value.hour);
    span.SetMinutes(value.minute);
    span.SetSeconds(value.second);
    span.SetNanoSeconds(ns);
    for (char const * format : spans) {
      if (format[1] == '?' && span.GetTotalDays() == 0)
        continue; // likewise
      ZnTimeSpan back;
      ZnString text(Print(span, format).c_str());
      back.ScanFromZnString(text, format);
      // Days of a negative span come back in fields of one sign.
      ASSERT_EQ(back.GetTotalNanoSeconds(), span.GetTotalNanoSeconds())
          << Str(text) << ' ' << format;
    }
    // The classes with fewer fields, by their own formats and those of the table.
    for (char const * format : {static_cast<char const *>(nullptr), "%a %e.%b %Y", "%d/%m/%Y"}) {
      ZnDate const date(value.year, value.month, value.day);
      ZnDate back(0);
      ZnString text(Print(date, format).c_str());
      back.ScanFromZnString(text, format);
      ASSERT_EQ(Raw(back), Raw(date)) << Str(text);
    }
    for (char const * format : {static_cast<char const *>(nullptr), "%I:%M:%S %p", "%S.%M.%H"}) {
      ZnTime const time(value.hour, value.minute, value.second);
      ZnTime back(0);
      ZnString text(Print(time, format).c_str());
      back.ScanFromZnString(text, format);
      ASSERT_EQ(Raw(back), Raw(time)) << Str(text);
    }
    d_Timestamp stamp(value.year, static_cast<unsigned short>(value.month),
                      static_cast<unsigned short>(value.day), 0, 0, 0);
    stamp = d_Timestamp(stamp.date(), d_Time(ZnTime(value.hour, value.minute, value.second)));
    d_Timestamp back;
    ZnString text;
    Mgr().PrintToZnString(D_TIMESTAMP_T, text, &stamp, "%O", 1);
    Mgr().ScanFromZnString(D_TIMESTAMP_T, &back, text, "%O", 1);
    ASSERT_TRUE(back == stamp) << Str(text);
  }
}

TEST(Formats, WildcardsComeBack) {
  for (int mask = 1; mask < 128; ++mask) {
    ZnDateTimeN value(2000, 1, 2, 3, 4, 5, 6);
    int field = 0;
    for (auto * byte : {&value.month, &value.day, &value.hour, &value.minute, &value.second})
      if (mask >> field++ & 1)
        *byte = -1;
    if (mask & 32)
      value.year = -1;
    if (mask & 64)
      value.nanoseconds = -1;
    ZnString text(Print(value, "%Y-%m-%d %H:%M:%S,%N").c_str());
    ZnDateTimeN back;
    back.ScanFromZnString(text, "%Y-%m-%d %H:%M:%S,%N");
    EXPECT_EQ(Raw(back), Raw(value)) << Str(text);
  }
}
