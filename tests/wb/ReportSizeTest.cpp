#include "ReportSize.h"

#include <gtest/gtest.h>

TEST(ReportSize, IsSaidInWords)
{
    EXPECT_EQ(InWords({1, 1, 1}), "1 root, 1 part instance, 1 section");
    EXPECT_EQ(InWords({2, 300, 0}), "2 roots, 300 part instances, 0 sections");
}
