#include "tool_run.h"

#include <chrono>
#include <thread>

using namespace tool_test;

namespace {

std::string Numbers(int rows, int first) {
  std::string text = "a,b\n";
  for (int i = 0; i < rows; ++i)
    text += std::to_string(first + i) + "," + std::to_string(i * 7919 % 1000) + "\n";
  return text;
}

} // namespace

TEST_F(ToolTest, RefusesBadRowsWithTheirPlace) {
  struct Case {
    char const * csv;
    char const * says; ///< behind the file's name; null: loads
  };
  Case const cases[] = {
      {"a,b\n1,2\n", nullptr},
      {"1,2\n3,4\n", nullptr}, // no header
      {"b,x,a\n2,junk,1\n", nullptr},
      {"\xEF\xBB\xBF"
       "a,b\r\n1,2\r\n",
       nullptr},
      {"a,b\n1,2", nullptr},
      {"a,b\n\n1,2\n\n", nullptr},
      {"a,b\n\"1\",\" 2\"\n", nullptr},
      {"a,b\n1,x\n", ":2:2: 'x' is no value of type int"},
      {"a,b\n1,2\n3\n", ":3:2: the row has 1 fields"},
      {"a,b\n1,2,3\n", ":2:3: the row has 3 fields"},
      {"a,b\n,2\n", ":2:1: the value is missing"},
      {"a,b\n\n\n1,2\n\"\n\n3\",4\nq,5\n", ":8:1: 'q'"}, // quoted line ends count
      {"a,b\n1,2\n\"3,4\n", ":3: a quoted field has no end"},
      {"a,b\n1,2\n\"3\"x,4\n", ":3: a quote stands"},
      {"a,b\n1,2\nq,5\n", ":3:1: 'q'"},
  };
  for (Case const & c : cases) {
    std::string csv = Written("t.csv", c.csv);
    Result result = Run({"load", File("t.db"), csv, "--columns", "a:int,b:int"});
    SCOPED_TRACE(c.csv);
    if (c.says == nullptr) {
      EXPECT_EQ(result.code, 0) << result.err;
      EXPECT_EQ(Lines(Run({"query", File("t.db"), "b = 2"}).out).at(1), "1,2");
    } else {
      EXPECT_EQ(result.code, 3);
      ExpectOneErrorLine(result);
      std::string says = csv + c.says;
      for (char & character : says)
        if (character == '\n')
          character = ' ';
      EXPECT_NE(result.err.find(says), std::string::npos) << result.err;
      EXPECT_FALSE(std::filesystem::exists(File("t.db")));
    }
    std::filesystem::remove(File("t.db"));
  }
}

TEST_F(ToolTest, AddsRowsAndReplacesTables) {
  auto load = [&](std::string const & csv, std::vector<std::string> more) {
    std::vector<std::string> arguments = {"load", File("t.db"), Written("t.csv", csv), "--columns"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Run(arguments).code;
  };
  auto all = [&](std::string const & condition) {
    return Lines(Run({"query", File("t.db"), condition}).out).size() - 1;
  };
  EXPECT_EQ(load(Numbers(1000, 0), {"a:int,b:int"}), 0);
  EXPECT_EQ(load(Numbers(1000, 500), {"a:int,b:int"}), 0);
  EXPECT_EQ(all("a >= 0"), 2000u);
  EXPECT_EQ(all("a = 700"), 2u);
  EXPECT_EQ(load("x\n5\n", {"x:o_double", "--replace"}), 0);
  EXPECT_EQ(Run({"query", File("t.db"), "x > 0"}).out, "x\n5\n");
}

// Whatever ends a load, the database stays what it was.
TEST_F(ToolTest, LoadsWholeOrNotAtAll) {
  ASSERT_EQ(
      Run({"load", File("t.db"), Written("t.csv", Numbers(500, 0)), "--columns", "a:int,b:int"})
          .code,
      0);
  std::string before = Run({"query", File("t.db"), "a >= 0"}).out;
  std::string big = Written("big.csv", Numbers(200000, 1000));
  std::string bad = Written("bad.csv", Numbers(20000, 1000) + "x,1\n");
  std::vector<std::string> load = {"load", File("t.db"), big, "--columns", "a:int,b:int"};
  auto expectUnchanged = [&](char const * what) {
    EXPECT_EQ(Run({"query", File("t.db"), "a >= 0"}).out, before) << what;
  };

  Result result = Run({"load", File("t.db"), bad, "--columns", "a:int,b:int"});
  EXPECT_EQ(result.code, 3);
  EXPECT_NE(result.err.find("bad.csv:20002:1: 'x'"), std::string::npos) << result.err;
  expectUnchanged("after a bad row");

  std::vector<std::string> small = load;
  small.insert(small.end(), {"--map-size", "1048576"});
  result = Run(small);
  EXPECT_EQ(result.code, 4);
  ExpectOneErrorLine(result);
  expectUnchanged("after a full map");

  result = Finish(Start(load, 512 * 1024));
  EXPECT_EQ(result.code, 4) << result.err;
  ExpectOneErrorLine(result);
  expectUnchanged("after a full disk");

  for (int milliseconds : {5, 40, 80, 160}) {
    pid_t child = Start(load);
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    kill(child, SIGKILL);
    if (Finish(child).code == 0)
      break; // it was faster
    expectUnchanged("after a kill");
  }
}

TEST_F(ToolTest, RefusesKeysOfOtherOrderTables) {
  ASSERT_EQ(Run({"load", File("t.db"), Written("t.csv", "a\n1\n"), "--columns", "a:int"}).code, 0);
  std::string bytes = Read(File("t.db"));
  size_t at = bytes.find(", version ");
  ASSERT_NE(at, std::string::npos);
  bytes[at - 1] = bytes[at - 1] == '0' ? '1' : '0';
  Written("t.db", bytes);
  Result result = Run({"query", File("t.db"), "a = 1"});
  EXPECT_EQ(result.code, 4);
  ExpectOneErrorLine(result);
  EXPECT_NE(result.err.find("order tables"), std::string::npos) << result.err;
}
