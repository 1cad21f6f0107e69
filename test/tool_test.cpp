#include "tool_run.h"

#include <cctype>
#include <string_view>

using namespace tool_test;

namespace {

/// A plain check of JSON's grammar.
class JsonCheck {
public:
  static bool Valid(std::string_view text) {
    JsonCheck check{text};
    return check.Value() && (check.Blanks(), check.at_ == text.size());
  }

private:
  explicit JsonCheck(std::string_view text) : text_(text) {}
  void Blanks() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_])))
      ++at_;
  }
  bool Take(char c) {
    Blanks();
    if (at_ == text_.size() || text_[at_] != c)
      return false;
    return ++at_, true;
  }
  bool String() {
    if (!Take('"'))
      return false;
    for (; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      if (static_cast<unsigned char>(text_[at_]) < 0x20)
        return false;
      if (text_[at_] == '\\')
        ++at_;
    }
    return ++at_ <= text_.size();
  }
  bool List(char end, bool named) {
    if (Take(end))
      return true;
    do {
      if (named && !(String() && Take(':')))
        return false;
      if (!Value())
        return false;
    } while (Take(','));
    return Take(end);
  }
  bool Value() {
    if (Take('{'))
      return List('}', true);
    if (Take('['))
      return List(']', false);
    Blanks();
    if (at_ < text_.size() && text_[at_] == '"')
      return String();
    size_t begin = at_;
    while (at_ < text_.size() && std::string_view(",]} \n").find(text_[at_]) == text_.npos)
      ++at_;
    std::string word(text_.substr(begin, at_ - begin));
    if (word == "true" || word == "false" || word == "null")
      return true;
    char * end = nullptr;
    if (word.empty() || !(word[0] == '-' || std::isdigit(static_cast<unsigned char>(word[0]))))
      return false;
    std::strtod(word.c_str(), &end);
    return *end == 0;
  }

  std::string_view text_;
  size_t at_ = 0;
};

} // namespace

TEST_F(ToolTest, EndsAsDocumented) {
  std::string csv = Written("a.csv", "n\n1\n2\n");
  ASSERT_EQ(Run({"load", File("a.db"), csv, "--columns", "n:int"}).code, 0);
  Written("no.db", "this is no database, and it is long enough to have a first page of its own");
  struct Case {
    std::vector<std::string> arguments;
    int code;
    char const * says;
  };
  std::string db = File("a.db");
  Case const cases[] = {
      {{"types"}, 0, ""},
      {{"types", "int"}, 0, ""},
      {{"types", "INT"}, 3, "no type is named 'INT'"},
      {{}, 2, "subcommand is required"},
      {{"frobnicate"}, 2, "no command"},
      {{"show", "int"}, 2, "TEXT is required"},
      {{"show", "int", "abc"}, 3, "'abc' is no value of type int"},
      {{"show", "illegal", "0"}, 3, "has no values"},
      {{"compare", "int", "1", "x"}, 3, "'x' is no value"},
      {{"sort", "int", File("absent")}, 4, "No such file"},
      {{"load", File("b.db"), File("absent"), "--columns", "n:int"}, 4, "No such file"},
      {{"load", File("b.db"), csv, "--columns", "n"}, 2, "--columns"},
      {{"load", File("b.db"), csv, "--columns", "n:int,n:int"}, 2, "two columns"},
      {{"load", File("b.db"), csv, "--columns", "n:integer"}, 3, "no type"},
      {{"load", db, csv, "--columns", "m:int"}, 3, "other columns"},
      {{"query", File("absent.db"), "n = 1"}, 4, "No such file"},
      {{"query", File("no.db"), "n = 1"}, 4, "no.db: "},
      {{"query", db, "m = 1"}, 3, "no column 'm', only n"},
      {{"query", db, "n ~ 1"}, 2, "no condition"},
      {{"query", db, "n = x"}, 3, "'x' is no value"},
      {{"query", db, "n = 1", "--limit", "x"}, 2, "--limit"},
      {{"query", db, "n = 1"}, 0, ""},
  };
  for (Case const & c : cases) {
    Result result = Run(c.arguments);
    SCOPED_TRACE(testing::PrintToString(c.arguments));
    EXPECT_EQ(result.code, c.code);
    if (c.code == 0)
      EXPECT_EQ(result.err, "");
    else
      ExpectOneErrorLine(result);
    EXPECT_NE(result.err.find(c.says), std::string::npos) << result.err;
  }
  EXPECT_FALSE(std::filesystem::exists(File("b.db"))) << "a load that failed leaves no file";
}

TEST_F(ToolTest, HelpsWithExamples) {
  for (char const * command : {"types", "show", "sort", "compare", "load", "query"}) {
    Result result = Run({command, "--help"});
    EXPECT_EQ(result.code, 0);
    EXPECT_NE(result.out.find(std::string("Examples:\n  zantm ") + command), std::string::npos)
        << result.out;
  }
}

// A scan tells nothing, so the command proves each one.
TEST_F(ToolTest, TakesTheTextsOfAType) {
  struct Case {
    char const * type;
    char const * text;
    char const * prints; ///< null: refused
  };
  Case const cases[] = {
      {"int", "42", "42"},
      {"int", "007", "7"},
      {"int", "+5", "5"},
      {"int", " 5", "5"},
      {"int", "5.0", "5"},
      {"int", "-2147483648", "-2147483648"},
      {"int", "2147483648", nullptr},
      {"int", "4294967297", nullptr},
      {"int", "abc", nullptr},
      {"int", "", nullptr},
      {"int", "12xyz", nullptr},
      {"int", "5.5", nullptr},
      {"int", "1e3", nullptr},
      {"int", "0x10", nullptr},
      {"o_2b", "40000", nullptr},
      {"o_u2b", "40000", "40000"},
      {"o_u2b", "-1", nullptr},
      {"unsigned", "4294967295", "4294967295"},
      {"enum", "3", "3"},
      {"o_u8b", "18446744073709551615", "18446744073709551615"},
      {"o_u8b", "18446744073709551616", nullptr},
      {"o_8b", "-9223372036854775808", "-9223372036854775808"},
      {"o_8b", "9223372036854775808", nullptr},
      {"o_double", "0.1", "0.10000000000000001"},
      {"o_double", "1e3", "1000"},
      {"o_double", "abc", nullptr},
      {"o_double", "1.5x", nullptr},
      {"o_double", "1e999", nullptr},
      {"o_double", "-Infinity", "-Infinity"},
      {"o_double", "nan", "NaN"},
      {"o_float", "0.1", "0.10000000149011612"},
      {"o_float", "1e39", nullptr},
      {"o_float", "1,5", nullptr},
      {"o_char", "A", "A"},
      {"o_char", "0x07", "0x07"},
      {"o_char", "0x41", "A"},
      {"o_char", "AB", nullptr},
      {"o_char", "00", nullptr},
      {"BlockId", "#7", "#7"},
      {"ZnBoolean", "true", "TRUE"},
      {"ZnBoolean", "1", "TRUE"},
      {"ZnBoolean", "t", "TRUE"},
      {"ZnBoolean", "false", "FALSE"},
      {"ZnBoolean", "0", "FALSE"},
      {"ZnBoolean", "True", nullptr},
      {"ZnBoolean", "yes", nullptr},
      {"ZnBoolean", "{NULL}", "{NULL}"},
      {"ZnNull_int", "", "{NULL}"},
      {"ZnNull_int", "{NULL}", "{NULL}"},
      {"ZnNull_int", "{NULL}x", nullptr},
      {"ZnNull_int", "-3", "-3"},
      {"ZnNull_int", "none", nullptr},
      {"ZnNull_double", "2.5", "2.5"},
  };
  for (Case const & c : cases) {
    Result result = Run({"show", c.type, "--", c.text});
    SCOPED_TRACE(std::string(c.type) + " " + c.text);
    if (c.prints == nullptr) {
      EXPECT_EQ(result.code, 3);
      ExpectOneErrorLine(result);
    } else {
      ASSERT_EQ(result.code, 0) << result.err;
      EXPECT_EQ(Lines(result.out).at(2), std::string("prints  ") + c.prints);
    }
  }
}

TEST_F(ToolTest, ShowsBytesUnderTheirNames) {
  Result result = Run({"show", "ZnNull_short", "258"});
  EXPECT_EQ(result.out, "type    ZnNull_short, id 30\n"
                        "text    258\n"
                        "prints  258\n"
                        "null    no\n"
                        "hash    0x49db09da\n"
                        "next    259\n"
                        "memory, 4 bytes\n"
                        "    02 01 00     ..\n"
                        "    value isNull gap\n"
                        "little-endian, 3 bytes\n"
                        "    00     02 01\n"
                        "    isNull value\n"
                        "big-endian, 3 bytes\n"
                        "    00     01 02\n"
                        "    isNull value\n");
  EXPECT_NE(Run({"show", "int", "2147483647"}).out.find("next    none"), std::string::npos);
}

TEST_F(ToolTest, WritesJson) {
  std::string csv = Written("a.csv", "n,s\n1,\n,\"a\"\"b\"\n");
  ASSERT_EQ(Run({"load", File("a.db"), csv, "--columns", "n:ZnNull_int,s:ZnNull_char"}).code, 3);
  ASSERT_EQ(Run({"load", File("a.db"), Written("b.csv", "n,s\n1,\n,\"\"\"\"\n"), "--columns",
                 "n:ZnNull_int,s:ZnNull_char"})
                .code,
            0);
  for (auto const & arguments : std::vector<std::vector<std::string>>{
           {"types", "--json"},
           {"types", "o_float", "--json"},
           {"show", "o_double", "0.5", "--json"},
           {"show", "ZnNull_int", "{NULL}", "--json"},
           {"show", "o_char", "\"", "--json"},
           {"query", File("a.db"), "n >= 0", "--json"},
           {"query", File("a.db"), "n is null", "--json", "--explain"},
           {"query", File("a.db"), "n = 77", "--json"}}) {
    Result result = Run(arguments);
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_TRUE(JsonCheck::Valid(result.out)) << result.out;
  }
  EXPECT_EQ(Run({"query", File("a.db"), "n is not null", "--json"}).out,
            "{\"rows\":[{\"n\":1,\"s\":null}]}\n");
  EXPECT_EQ(Run({"query", File("a.db"), "n is null"}).out, "n,s\n,\"\"\"\"\n");
}

TEST_F(ToolTest, SortsAndKeepsAside) {
  Result result = Run({"sort", "int"}, "10\n9\nten\n-3\n+9\n\n");
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, "-3\n9\n+9\n10\n");
  std::vector<std::string> errors = Lines(result.err);
  ASSERT_EQ(errors.size(), 3u) << result.err;
  EXPECT_EQ(errors[0], "zantm: standard input:3: 'ten' is no value of type int");
  EXPECT_EQ(errors[1], "zantm: standard input:6: '' is no value of type int");
  EXPECT_EQ(errors[2], "zantm: 2 lines were kept aside");
  EXPECT_EQ(Run({"sort", "-r", "ZnNull_double"}, "1\n{NULL}\nInfinity\n").out,
            "Infinity\n1\n{NULL}\n");
}

TEST_F(ToolTest, Compares) {
  struct Case {
    char const *type, *a, *b, *order;
  };
  for (Case const & c :
       {Case{"int", "-5", "3", "<"}, Case{"int", "10", "9", ">"}, Case{"o_double", "-0", "0", "="},
        Case{"o_double", "NaN", "-Infinity", "<"}, Case{"ZnNull_int", "{NULL}", "-2147483648", "<"},
        Case{"ZnBoolean", "TRUE", "FALSE", ">"}})
    EXPECT_EQ(Run({"compare", c.type, "--", c.a, c.b}).out, std::string(c.order) + "\n");
}
