#include "zanbs.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kFile = "\xEF\xBB\xBF"
                                   "oldIndexUnicodeOrder = Yes\r\n"
                                   "# comment = 1\n"
                                   " ; comment = 1\n"
                                   "twice = 1\n"
                                   "twice = 2\n"
                                   "no equals sign\n"
                                   "text = a = b # c\n"
                                   "empty =\n"
                                   "octal = 017\n"
                                   "hex = -0x10\n"
                                   "large = 9223372036854775807\n"
                                   "small = -9223372036854775808\n"
                                   "tooLarge = 9223372036854775808\n"
                                   "signs = --1\n"
                                   "fraction = -2.5e3\n"
                                   "units = 12 km\n"
                                   "wide = 65536\n"
                                   "[ debug ]\n"
                                   "stringOverflow=1\n"
                                   "[]\n"
                                   "lost = 1\n"
                                   "[unclosed\n"
                                   "[other]\n"
                                   "stringOverflow = off\n"
                                   "last = 1";

ZnFileConfig Config(std::string_view text) {
  MemFile file(text.data(), static_cast<unsigned int>(text.size()));
  return ZnFileConfig(file);
}

constexpr ZnConfigName kDebug = {"debug", 0, 0, 0};
constexpr ZnConfigName kOther = {"other", 0, 0, 0};
constexpr ZnConfigName kNone = {"none", 0, 0, 0};

} // namespace

TEST(FileConfig, Texts) {
  auto const config = Config(kFile);
  struct {
    char const * key;
    char const * value; ///< null: no such key
  } const cases[] = {{"twice", "2"},       {"text", "a = b # c"}, {"empty", ""},
                     {"comment", nullptr}, {"lost", nullptr},     {"Twice", nullptr},
                     {"", nullptr},        {"last", nullptr},     {"stringOverflow", nullptr}};
  for (auto const & c : cases) {
    char const * const value = config.GetText(c.key, nullptr);
    EXPECT_STREQ(value, c.value) << c.key;
  }
}

TEST(FileConfig, Numbers) {
  auto const config = Config(kFile);
  constexpr long long kUntouched = -77;
  struct {
    char const * key;
    long long number;
  } const cases[] = {{"twice", 2},           {"octal", 15},
                     {"hex", -16},           {"large", INT64_MAX},
                     {"small", INT64_MIN},   {"tooLarge", kUntouched},
                     {"signs", kUntouched},  {"empty", kUntouched},
                     {"units", kUntouched},  {"fraction", kUntouched},
                     {"missing", kUntouched}};
  for (auto const & c : cases) {
    long long number = kUntouched;
    config.GetNumber(c.key, &number, nullptr);
    EXPECT_EQ(number, c.number) << c.key;
  }
  double fraction = 0;
  config.GetDouble("fraction", &fraction, nullptr);
  EXPECT_EQ(fraction, -2500);
  config.GetDouble("units", &fraction, nullptr);
  EXPECT_EQ(fraction, -2500);
}

TEST(FileConfig, FlagsAndSections) {
  auto const config = Config(kFile);
  ZnConfigName const * const debugFirst[] = {&kNone, &kDebug, &kOther, nullptr};
  ZnConfigName const * const otherFirst[] = {&kOther, &kDebug, nullptr};
  ZnConfigName const * const none[] = {nullptr};
  struct {
    char const * key;
    ZnConfigName const * const * sections;
    unsigned short flag;
  } const cases[] = {{"oldIndexUnicodeOrder", nullptr, 1},
                     {"oldIndexUnicodeOrder", none, 9},
                     {"oldIndexUnicodeOrder", debugFirst, 9},
                     {"stringOverflow", nullptr, 9},
                     {"stringOverflow", debugFirst, 1},
                     {"stringOverflow", otherFirst, 0},
                     {"last", debugFirst, 1},
                     {"wide", nullptr, 9},
                     {"hex", nullptr, 9}};
  for (auto const & c : cases) {
    unsigned short flag = 9;
    config.GetFlag(c.key, &flag, c.sections);
    EXPECT_EQ(flag, c.flag) << c.key;
  }
}

TEST(FileConfig, ReadsAnyBytes) {
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    std::string text(random() % 64, '\0');
    for (char & c : text)
      c = "[]=#; \n\r\0\xFF"
          "a1"[random() % 12];
    auto const config = Config(text);
    long long number = 0;
    config.GetNumber("a", &number, nullptr);
  }
}

TEST(DefaultConfig, ReadsAndReplaces) {
  auto config = Config("key = 5\n");
  ZnConfig * const before = DefaultConfig(ZnConfigQuery());
  EXPECT_EQ(DefaultConfig(&config), before);
  EXPECT_EQ(DefaultConfig(ZnConfigQuery()), &config);
  EXPECT_EQ(DefaultConfig(nullptr), &config);
  EXPECT_EQ(DefaultConfig(before), nullptr);
}

TEST(DefaultConfigDeathTest, IsTheFileThatTheEnvironmentNames) {
  GTEST_FLAG_SET(death_test_style, "threadsafe"); // a process that has not asked yet
  std::string const path = testing::TempDir() + "zanbs_config_test";
  std::FILE * const out = std::fopen(path.c_str(), "wb");
  ASSERT_NE(out, nullptr);
  std::fputs("[debug]\nstringOverflow = 1\n", out);
  std::fclose(out);
  auto const ask = [] {
    unsigned short flag = 0;
    ZnConfigName const * const sections[] = {&kDebug, nullptr};
    if (ZnConfig const * const config = DefaultConfig(ZnConfigQuery()))
      config->GetFlag("stringOverflow", &flag, sections);
    std::exit(flag);
  };
  EXPECT_EXIT((setenv("ZANTMS_CONFIG", path.c_str(), 1), ask()), testing::ExitedWithCode(1), "");
  EXPECT_EXIT((setenv("ZANTMS_CONFIG", "/no/such/file", 1), ask()), testing::ExitedWithCode(0), "");
  std::remove(path.c_str());
}
