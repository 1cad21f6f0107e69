#include "zanin.h"
#include "zantms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

/// Ids that the library gives out are stored by its callers: they are held to a list that only
/// ever grows. `scripts/check-numbers` holds the constants of the headers to the same list.

namespace {

using Lines = std::set<std::string>;

Lines Listed() {
  std::ifstream file(ZANTMS_TEST_DATA "/numbers.txt");
  Lines lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && !line.starts_with('#') && !line.starts_with("constant "))
      lines.insert(line);
  }
  return lines;
}

Lines Actual() {
  Lines lines;
  ZnTypeMgr const mgr;
  for (int id = 0; id < 47; ++id)
    lines.insert("type " + std::to_string(id) + ' ' + mgr.NameGet(static_cast<char>(id)) + ' ' +
                 mgr.TypeIdNameGet(static_cast<char>(id)));
  for (int id = 1; id < 255; ++id) {
    if (ZnLanguageContext::HasCodeSet(static_cast<unsigned char>(id)))
      lines.insert("codeset " + std::to_string(id) + ' ' +
                   ZnLanguageContext::QueryCodeSet(static_cast<unsigned char>(id))->name);
  }
  for (int id = 0; id < 256; ++id) {
    if (auto const * language = ZnLanguageContext::QueryLanguage(static_cast<unsigned char>(id)))
      lines.insert("language " + std::to_string(id) + ' ' + language->tag);
  }
  return lines;
}

std::vector<std::string> Without(Lines const & lines, Lines const & others) {
  std::vector<std::string> rest;
  std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(),
                      std::back_inserter(rest));
  return rest;
}

} // namespace

TEST(Numbers, StayAsListed) {
  Lines const listed = Listed();
  Lines const actual = Actual();
  ASSERT_FALSE(listed.empty());
  EXPECT_EQ(Without(listed, actual), std::vector<std::string>()) << "changed or gone";
  EXPECT_EQ(Without(actual, listed), std::vector<std::string>()) << "new: add to numbers.txt";
}
