#include "zantms.h"

#include <gtest/gtest.h>

TEST(Options, StartCleared) { EXPECT_EQ(___ZnTypeMgrOptions(), 0); }
