#include "zanbs.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace {
std::string reported;
}

TEST(Reports, AssertionGoesToTheHandlerOrToStandardError) {
  ASSERT_EQ(ZantSetAssertHandler([](char const * message, char const * file, int line) {
              reported = std::string(message) + '@' + file + ':' + std::to_string(line);
            }),
            nullptr);
  ZANT_assert("length", "a.cpp", 12);
  EXPECT_EQ(reported, "length@a.cpp:12");
  EXPECT_NE(ZantSetAssertHandler(nullptr), nullptr);

  testing::internal::CaptureStderr();
  ZANT_assert("100%s", "a.cpp", -1);
  ZANT_assert(nullptr, nullptr, 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "assertion failed: 100%s (a.cpp:-1)\nassertion failed: ? (?:0)\n");
}

TEST(ReportsDeathTest, MemoryHandlerNeverReturns) {
  EXPECT_EXIT(ZnCallMemoryHandler(0xFFFFFFFFFFFFFFFF), testing::KilledBySignal(SIGABRT),
              "out of memory: 18446744073709551615 bytes");
  ASSERT_EQ(ZnSetMemoryHandler([](unsigned long long) { reported = "called"; }), nullptr);
  EXPECT_EXIT(ZnCallMemoryHandler(5), testing::KilledBySignal(SIGABRT), "out of memory: 5 bytes");
  ZnSetMemoryHandler([](unsigned long long) { throw std::bad_alloc(); });
  EXPECT_THROW(ZnCallMemoryHandler(5), std::bad_alloc);
  ZnSetMemoryHandler(nullptr);
}

TEST(Version, MajorMustAgreeAndMinorMayNotBeNewer) {
  struct {
    unsigned int major, minor;
    int flags, result;
  } const cases[] = {{1, 0, 3, 0}, {2, 0, 3, 1}, {0, 9, 3, 1}, {1, 1, 3, 2},
                     {1, 1, 1, 0}, {2, 0, 2, 0}, {2, 9, 0, 0}, {1, 0, 7, 0}};
  for (auto const & c : cases)
    EXPECT_EQ(CheckZnVersionNumber(c.major, c.minor, 99, 99, 99, c.flags), c.result);
}
