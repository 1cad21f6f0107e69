#include "tool_run.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <random>

using namespace tool_test;

namespace {

using Number = long double; ///< holds every number of every type exactly
using Cell = std::optional<Number>;

struct NumberType {
  char const * name;
  Number low, high;
  bool fractions;
  bool nulls;
};

constexpr Number kTwo32 = 4294967296.0L;
constexpr Number kTwo63 = 9223372036854775808.0L;

constexpr NumberType kTypes[] = {
    {"o_2b", -32768, 32767, false, false},
    {"o_u2b", 0, 65535, false, false},
    {"o_4b", -kTwo32 / 2, kTwo32 / 2 - 1, false, false},
    {"o_u4b", 0, kTwo32 - 1, false, false},
    {"int", -kTwo32 / 2, kTwo32 / 2 - 1, false, false},
    {"unsigned", 0, kTwo32 - 1, false, false},
    {"enum", -kTwo32 / 2, kTwo32 / 2 - 1, false, false},
    {"o_8b", -kTwo63, kTwo63 - 1, false, false},
    {"o_u8b", 0, kTwo63 * 2 - 1, false, false},
    {"o_double", -1e30L, 1e30L, true, false},
    {"o_float", -1e30L, 1e30L, true, false},
    {"ZnNull_short", -32768, 32767, false, true},
    {"ZnNull_ushort", 0, 65535, false, true},
    {"ZnNull_int", -kTwo32 / 2, kTwo32 / 2 - 1, false, true},
    {"ZnNull_unsigned", 0, kTwo32 - 1, false, true},
    {"ZnNull_long", -kTwo32 / 2, kTwo32 / 2 - 1, false, true},
    {"ZnNull_ulong", 0, kTwo32 - 1, false, true},
    {"ZnNull_8b", -kTwo63, kTwo63 - 1, false, true},
    {"ZnNull_u8b", 0, kTwo63 * 2 - 1, false, true},
    {"ZnNull_double", -1e30L, 1e30L, true, true},
    {"ZnNull_float", -1e30L, 1e30L, true, true},
};

struct Operator {
  char const * text;
  std::function<bool(int)> selects;
};

Operator const kOperators[] = {
    {"=", [](int order) { return order == 0; }}, {"!=", [](int order) { return order != 0; }},
    {"<", [](int order) { return order < 0; }},  {"<=", [](int order) { return order <= 0; }},
    {">", [](int order) { return order > 0; }},  {">=", [](int order) { return order >= 0; }},
};

int Order(Cell const & a, Cell const & b) {
  if (!a || !b)
    return a.has_value() - b.has_value();
  return *a < *b ? -1 : *a > *b;
}

std::string Text(Cell const & cell, bool fractions) {
  if (!cell)
    return "";
  char text[64];
  // A fraction is written as the nearest float, which every type with fractions holds exactly.
  std::snprintf(text, sizeof text, fractions ? "%.9Lg" : "%.0Lf", *cell);
  return text;
}

/// Small numbers that repeat, the ends of the range, and numbers from all over it.
Cell Draw(NumberType const & type, std::mt19937_64 & random) {
  switch (random() % (type.nulls ? 5 : 4)) {
  case 0:
    return static_cast<Number>(random() % 20);
  case 1:
    return random() % 2 != 0 ? type.low : type.high;
  case 2:
    return std::max(type.low, -static_cast<Number>(random() % 20));
  case 3: {
    Number share = static_cast<Number>(random()) / (kTwo63 * 2);
    Number number = std::floor(type.low + (type.high - type.low) * share);
    return type.fractions ? std::strtof(Text(number, true).c_str(), nullptr) : number;
  }
  default:
    return std::nullopt;
  }
}

} // namespace

TEST_F(ToolTest, SelectsWhatAFilterSelects) {
  std::mt19937_64 random(20);
  for (NumberType const & type : kTypes) {
    std::vector<Cell> cells;
    std::string csv = "value,row\n";
    for (int row = 0; row < 150; ++row) {
      Cell cell = Draw(type, random);
      if (cell && type.fractions)
        cell = std::strtof(Text(cell, true).c_str(), nullptr);
      cells.push_back(cell);
      csv += Text(cell, type.fractions) + "," + std::to_string(row) + "\n";
    }
    Result loaded = Run({"load", File(type.name), Written("t.csv", csv), "--columns",
                         std::string("value:") + type.name + ",row:int"});
    ASSERT_EQ(loaded.code, 0) << loaded.err;

    auto expect = [&](std::string const & condition, std::function<bool(Cell const &)> hit) {
      std::vector<int> expected, got;
      for (size_t row = 0; row < cells.size(); ++row)
        if (hit(cells[row]))
          expected.push_back(static_cast<int>(row));
      Result result = Run({"query", File(type.name), condition});
      ASSERT_EQ(result.code, 0) << result.err;
      std::vector<std::string> lines = Lines(result.out);
      for (size_t i = 1; i < lines.size(); ++i)
        got.push_back(std::stoi(lines[i].substr(lines[i].find(',') + 1)));
      for (size_t i = 1; i < got.size(); ++i)
        EXPECT_LE(Order(cells[got[i - 1]], cells[got[i]]), 0) << "not in the column's order";
      std::sort(got.begin(), got.end());
      EXPECT_EQ(got, expected) << type.name << ": " << condition;
    };
    for (Operator const & op : kOperators)
      for (int trial = 0; trial < 3; ++trial) {
        Cell constant = Draw(type, random);
        if (constant && type.fractions)
          constant = std::strtof(Text(constant, true).c_str(), nullptr);
        expect(std::string("value ") + op.text + " " +
                   (constant ? Text(constant, type.fractions) : "{NULL}"),
               [&](Cell const & cell) { return op.selects(Order(cell, constant)); });
      }
    expect("value is null", [](Cell const & cell) { return !cell; });
    expect("value is not null", [](Cell const & cell) { return cell.has_value(); });
  }
}

TEST_F(ToolTest, ExplainsItsWay) {
  std::string csv = "n\n";
  for (int i = 0; i < 100; ++i)
    csv += std::to_string(i) + "\n";
  ASSERT_EQ(Run({"load", File("t.db"), Written("t.csv", csv), "--columns", "n:o_4b"}).code, 0);
  struct Case {
    char const *condition, *share, *low, *high;
    int walked, hits;
  };
  for (Case const & c : {Case{"n = 50", "0.01", "32 00 00 00", "32 00 00 00", 1, 1},
                         Case{"n < 50", "0.5", "open", "32 00 00 00", 51, 50},
                         Case{"n >= 50", "0.5", "32 00 00 00", "open", 50, 50},
                         Case{"n != 50", "0.99", "open", "open", 100, 99},
                         Case{"n > 500", "0", "f4 01 00 00", "open", 0, 0}}) {
    std::vector<std::string> lines =
        Lines(Run({"query", File("t.db"), c.condition, "--explain"}).out);
    ASSERT_GE(lines.size(), 5u);
    lines.erase(lines.begin(), lines.end() - 5);
    EXPECT_EQ(lines[0], std::string("# estimated share  ") + c.share);
    EXPECT_EQ(lines[1], std::string("# low key          ") + c.low);
    EXPECT_EQ(lines[2], std::string("# high key         ") + c.high);
    EXPECT_EQ(lines[3], "# entries walked   " + std::to_string(c.walked) + " of 100");
    EXPECT_EQ(lines[4], "# hits             " + std::to_string(c.hits));
  }
  EXPECT_EQ(Run({"query", File("t.db"), "n >= 7", "--limit", "2"}).out, "n\n7\n8\n");
}
