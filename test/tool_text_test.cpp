#include "tool_run.h"

#include <zantms.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <random>

using namespace tool_test;

namespace {

ZnString Text(std::string const & utf8) {
  ZnString text;
  ZnMBS2ZnString(utf8.c_str(), text, static_cast<int>(utf8.size()));
  return text;
}

/// Row numbers that a query gives, in rising order.
std::vector<int> RowsOf(Result const & result) {
  std::vector<int> rows;
  std::vector<std::string> lines = Lines(result.out);
  for (size_t i = 1; i < lines.size(); ++i)
    rows.push_back(std::stoi(lines[i].substr(lines[i].rfind(',') + 1)));
  std::sort(rows.begin(), rows.end());
  return rows;
}

struct Operator {
  char const * text;
  bool (*selects)(int);
};

constexpr Operator kOperators[] = {
    {"=", [](int order) { return order == 0; }}, {"!=", [](int order) { return order != 0; }},
    {"<", [](int order) { return order < 0; }},  {"<=", [](int order) { return order <= 0; }},
    {">", [](int order) { return order > 0; }},  {">=", [](int order) { return order >= 0; }},
};

} // namespace

// An index of texts gives what the compare row says of each text, also where a key does not tell
// all: texts that change script, and texts longer than a key.
TEST_F(ToolTest, SelectsTextsAsAFilterDoes) {
  std::mt19937 random(3);
  std::array const letters = {"a", "b", "B", "á", "ж", "Ж", "ω", " ", "-", "7", "ß"};
  std::vector<std::string> words = {"a", "ab", "á", "abж", "abжb", "жa", "abz", "z"};
  auto word = [&](size_t length) {
    std::string text = "b";
    for (size_t i = 0; i < length; ++i)
      text += letters[random() % (random() % 4 == 0 ? letters.size() : 3)];
    return text + "b";
  };
  for (int i = 0; i < 150; ++i)
    words.push_back(word(random() % 5));
  for (int i = 0; i < 10; ++i)
    words.push_back(std::string(130, 'a') + word(10));

  std::string csv = "word,row\n";
  std::vector<ZnString> texts;
  for (size_t row = 0; row < words.size(); ++row) {
    csv += words[row] + "," + std::to_string(row) + "\n";
    texts.push_back(Text(words[row]));
  }
  Result loaded =
      Run({"load", File("t.db"), Written("t.csv", csv), "--columns", "word:ZnString,row:int"});
  ASSERT_EQ(loaded.code, 0) << loaded.err;

  ZnTypeMgr manager;
  auto expect = [&](Operator const & op, std::string const & constant) {
    ZnString pattern = Text(constant);
    std::vector<int> expected;
    for (size_t row = 0; row < texts.size(); ++row)
      if (op.selects(manager.Cmp(ZnSTRING_T, &texts[row], &pattern, 0, 1, ZnFormatMemory)))
        expected.push_back(static_cast<int>(row));
    Result result = Run({"query", File("t.db"), std::string("word ") + op.text + " " + constant});
    EXPECT_EQ(RowsOf(result), expected) << op.text << " " << constant << "\n" << result.err;
  };
  for (Operator const & op : kOperators) {
    for (int trial = 0; trial < 4; ++trial)
      expect(op, words[random() % words.size()]);
    for (char const * constant : {"abж", "abα", "ж-", "ba*", "ж*"})
      expect(op, constant);
    expect(op, std::string(130, 'a') + "b");
  }
  for (std::string const & pattern :
       std::vector<std::string>{"*", "b*", "ba*", "b?b", "*b", "*ж*", "bá*", "a*", "?", "ж*",
                                "abж*", "b-*", "b *b", "7*", std::string(128, 'a') + "*"}) {
    expect(kOperators[0], pattern);
    expect(kOperators[1], pattern);
  }
}

TEST_F(ToolTest, WalksOnlyTheRangeOfAText) {
  std::string csv = "name,n\n";
  for (char first = 'a'; first <= 'j'; ++first)
    for (char second = 'a'; second <= 'j'; ++second)
      csv += std::string{first, second} + "x,0\n";
  csv += ",1\nжя,2\nжю,3\n";
  ASSERT_EQ(
      Run({"load", File("t.db"), Written("t.csv", csv), "--columns", "name:ZnString,n:int"}).code,
      0);
  struct Case {
    char const * condition;
    int walked, hits;
  };
  for (Case const & c : std::vector<Case>{{"name = bc*", 1, 1},
                                          {"name = b*", 10, 10},
                                          {"name = b?x", 10, 10},
                                          {"name = b*c", 10, 0},
                                          {"name = bcx", 1, 1},
                                          {"name = bc", 0, 0},
                                          {"name < b", 11, 11},
                                          {"name >= j", 12, 12},
                                          {"name = ж*", 2, 2},
                                          {"name is null", 1, 1},
                                          {"name = *x", 103, 100}}) {
    Result const result = Run({"query", File("t.db"), c.condition, "--explain"});
    std::vector<std::string> const lines = Lines(result.out);
    ASSERT_GE(lines.size(), 6u) << result.err;
    EXPECT_EQ(lines[lines.size() - 2], "# entries walked   " + std::to_string(c.walked) + " of 103")
        << c.condition;
    EXPECT_EQ(lines.back(), "# hits             " + std::to_string(c.hits)) << c.condition;
  }
}

TEST_F(ToolTest, SelectsDatesByRangeAndPattern) {
  using Date = std::array<int, 3>;
  std::mt19937 random(4);
  std::vector<Date> dates;
  std::string csv = "day,row\n";
  for (int row = 0; row < 200; ++row) {
    Date date = {1999 + static_cast<int>(random() % 4), 1 + static_cast<int>(random() % 3),
                 1 + static_cast<int>(random() % 28)};
    if (row % 20 == 0)
      date = {2000, 2, 29};
    char text[32] = "";
    if (row % 25 == 1)
      date = {};
    else
      std::snprintf(text, sizeof text, "%04d-%02d-%02d", date[0], date[1], date[2]);
    dates.push_back(date);
    csv += std::string(text) + "," + std::to_string(row) + "\n";
  }
  Result loaded =
      Run({"load", File("t.db"), Written("t.csv", csv), "--columns", "day:ZnDate,row:int"});
  ASSERT_EQ(loaded.code, 0) << loaded.err;
  struct Case {
    char const * condition;
    std::function<bool(Date const &)> selects;
  };
  Case const cases[] = {
      {"day = 2000-02-29",
       [](Date d) {
         return d == Date{2000, 2, 29};
       }},
      {"day = *-02-29", [](Date d) { return d[1] == 2 && d[2] == 29; }},
      {"day = 2001-*-*", [](Date d) { return d[0] == 2001; }},
      {"day = 2001-03-*", [](Date d) { return d[0] == 2001 && d[1] == 3; }},
      {"day != *-*-05", [](Date d) { return d[2] != 5; }},
      {"day >= 2001-02-10",
       [](Date d) {
         return d >= Date{2001, 2, 10};
       }},
      {"day < 2000-01-15",
       [](Date d) {
         return d < Date{2000, 1, 15};
       }}, // nulls come first
      {"day is null", [](Date d) { return d == Date{}; }},
      {"day is not null", [](Date d) { return d != Date{}; }},
  };
  for (Case const & c : cases) {
    std::vector<int> expected;
    for (size_t row = 0; row < dates.size(); ++row)
      if (c.selects(dates[row]))
        expected.push_back(static_cast<int>(row));
    Result result = Run({"query", File("t.db"), c.condition});
    EXPECT_EQ(RowsOf(result), expected) << c.condition << "\n" << result.err;
  }
  EXPECT_EQ(Lines(Run({"query", File("t.db"), "day = 2000-02-29", "--limit", "1"}).out).at(1),
            "2000-02-29,0");
}

TEST_F(ToolTest, SortsAndMatchesText) {
  EXPECT_EQ(Run({"sort", "ZnString", "--language", "sv"}, "öl\nål\nzoo\nÄra\nara\n").out,
            "ara\nzoo\nål\nÄra\nöl\n");
  EXPECT_EQ(Run({"sort", "ZnString"}, "öl\nål\nzoo\nÄra\nara\n").out, "ål\nara\nÄra\nöl\nzoo\n");

  std::string words = "Zeitung\nHeizung\nzeit\nÉtude\netude\nice cream\nicecream\n";
  struct Case {
    std::vector<std::string> arguments;
    char const * out;
  };
  for (Case const & c : {Case{{"match", "*ung"}, "Zeitung\nHeizung\n"},
                         Case{{"match", "-i", "ZEIT*"}, "Zeitung\nzeit\n"},
                         Case{{"match", "-i", "-a", "ETUDE"}, "Étude\netude\n"},
                         Case{{"match", "-n", "?eit"}, "3:zeit\n"},
                         Case{{"match", "-s", "icecream"}, "ice cream\nicecream\n"}}) {
    Result result = Run(c.arguments, words);
    EXPECT_EQ(result.out, c.out) << testing::PrintToString(c.arguments);
    EXPECT_EQ(result.code, 0);
  }
  EXPECT_EQ(Run({"match", "x*"}, words).code, 1);
  EXPECT_EQ(Run({"match", "--language", "xx-none", "x"}, words).code, 3);
}

TEST_F(ToolTest, ShowsTheOrderOfTexts) {
  std::vector<std::string> lines = Lines(Run({"order", "Ab7"}).out);
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_NE(lines[1].find("upper letter A"), std::string::npos) << lines[1];
  EXPECT_NE(lines[3].find("digit 7"), std::string::npos) << lines[3];

  struct Case {
    char const *a, *b, *order, *level;
  };
  for (Case const & c :
       {Case{"abc", "abd", "<", "<  letters"}, Case{"résumé", "Resume", ">", ">  acc"},
        Case{"Resume", "resume", ">", ">  case"}, Case{"ab", "a-b", "<", "<  spaces"}}) {
    Result result = Run({"compare", "ZnString", "--explain", c.a, c.b});
    EXPECT_EQ(Lines(result.out).at(0), c.order) << c.a << " " << c.b;
    EXPECT_NE(result.out.find(c.level), std::string::npos) << result.out;
  }
  EXPECT_EQ(Run({"compare", "int", "--explain", "1", "2"}).code, 2);
}

TEST_F(ToolTest, KeepsTextsAsTheyAre) {
  struct Case {
    std::vector<std::string> arguments;
    int code;
  };
  for (Case const & c :
       {Case{{"show", "ZnString", "Καλημέρα, жизнь"}, 0}, Case{{"show", "ZnString", ""}, 0},
        Case{{"show", "ZnString", "\xF0\x9F\x98\x80"}, 3}, // beyond 16 bits
        Case{{"show", "ZnString", "\xC3"}, 3}, Case{{"show", "ZnString", "\xC0\x80"}, 3},
        Case{{"show", "ZnString", "\xED\xA0\x80"}, 3},
        Case{{"show", "ZnString", "--codeset", "ISO-8859-2", "Łódź"}, 0},
        Case{{"show", "ZnString", "--codeset", "ISO-8859-1", "Łódź"}, 3},
        Case{{"show", "ZnString", "--codeset", "none", "a"}, 3}}) {
    Result result = Run(c.arguments);
    EXPECT_EQ(result.code, c.code) << c.arguments.back() << result.err;
    if (c.code == 0)
      EXPECT_EQ(Lines(result.out).at(2), "prints  " + c.arguments.back());
    else
      ExpectOneErrorLine(result);
  }
}

// Every type's fields cover its bytes, in memory and stored.
TEST_F(ToolTest, NamesTheFieldsOfEveryType) {
  struct Case {
    char const *type, *text;
  };
  for (Case const & c : std::vector<Case>{{"o_char", "a"},
                                          {"ZnString", "abc"},
                                          {"ZnDate", "2024-02-29"},
                                          {"ZnTime", "12:30:00"},
                                          {"ZnObjId", "(0-34#5)"},
                                          {"ZnClassId", "(12v3)"},
                                          {"ZnRef", "(3:0-9#4, 12)"},
                                          {"ZnBlob", "{NULL}"},
                                          {"ZnDateTime", "2024-02-29T12:30:00"},
                                          {"ZnIString", "abc"},
                                          {"ZnCaseIString", "abc"},
                                          {"d_Date", "2024-02-29"},
                                          {"d_Time", "12:30:00"},
                                          {"d_Timestamp", "2024-02-29T12:30:00"},
                                          {"ZnInt64", "-1"},
                                          {"ZnBoolean", "t"},
                                          {"ZnNull_ZnInt64", "5"},
                                          {"ZnSeal", "5"},
                                          {"ZnDateTimeN", "2024-02-29T12:30:00.250"},
                                          {"ZnTimeSpan", "32.03:04:05"},
                                          {"ZnNull_u8b", "5"}}) {
    Result result = Run({"show", "--", c.type, c.text});
    ASSERT_EQ(result.code, 0) << c.type << ": " << result.err;
    for (std::string const & line : Lines(result.out))
      EXPECT_FALSE(line.starts_with("    ") && line.ends_with("bytes") &&
                   c.type != std::string("ZnBlob"))
          << c.type << "\n"
          << result.out;
  }
}
