#include "CATVariant.h"
#include "CATStatus.h"

#include <gtest/gtest.h>

namespace
{

TEST(CATVariant, WrapsAndUnwrapsAText)
{
    CATVariant variant;
    EXPECT_TRUE(variant.IsEmpty());
    EXPECT_EQ(BuildVariant("first", variant), S_OK);
    EXPECT_EQ(BuildVariant("second", variant), S_OK);
    EXPECT_FALSE(variant.IsEmpty());
    CATUnicodeString text;
    EXPECT_EQ(ConvertVariant(variant, text), S_OK);
    EXPECT_EQ(text, "second");
}

TEST(CATVariant, EmptyTextIsAValue)
{
    CATVariant variant;
    BuildVariant("", variant);
    EXPECT_FALSE(variant.IsEmpty());
    CATUnicodeString text = "before";
    EXPECT_EQ(ConvertVariant(variant, text), S_OK);
    EXPECT_EQ(text, "");
}

TEST(CATVariant, EmptyVariantGivesTheEmptyText)
{
    CATVariant variant;
    BuildVariant("x", variant);
    variant.Clear();
    EXPECT_TRUE(variant.IsEmpty());
    CATUnicodeString text = "before";
    EXPECT_EQ(ConvertVariant(variant, text), S_FALSE);
    EXPECT_EQ(text, "");
}

} // namespace
