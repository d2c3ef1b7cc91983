#include "CATCollections.h"
#include "FatalErrorCapture.h"

#include <gtest/gtest.h>

namespace
{

using Integers = CATRawCollint;

TEST(CATList, CountsPositionsFromOne)
{
    Integers list{7, 8};
    list.Append(9);
    EXPECT_EQ(list.Size(), 3);
    EXPECT_EQ(list[1], 7);
    EXPECT_EQ(list[3], 9);
    list[1] = 5;
    EXPECT_EQ(list, Integers(std::vector<int>{5, 8, 9}));
    EXPECT_FALSE(list.IsEmpty());
    EXPECT_TRUE(Integers().IsEmpty());
}

TEST(CATList, AppendsAnotherListAndItself)
{
    Integers list{1, 2};
    list.Append(Integers{3});
    EXPECT_EQ(list, (Integers{1, 2, 3}));
    list.Append(list);
    EXPECT_EQ(list, (Integers{1, 2, 3, 1, 2, 3}));
}

TEST(CATList, InsertsBeforeAPositionAndAppendsBeyondTheEnd)
{
    Integers list{1, 3};
    list.Insert(2, 2);
    EXPECT_EQ(list, (Integers{1, 2, 3}));
    list.Insert(9, 4);
    EXPECT_EQ(list, (Integers{1, 2, 3, 4}));
    list.Insert(1, 0);
    EXPECT_EQ(list, (Integers{0, 1, 2, 3, 4}));
}

TEST(CATList, RemovesAndResizes)
{
    Integers list{1, 2, 3};
    list.RemovePosition(2);
    EXPECT_EQ(list, (Integers{1, 3}));
    list.Resize(4, 9);
    EXPECT_EQ(list, (Integers{1, 3, 9, 9}));
    list.Resize(1);
    EXPECT_EQ(list, (Integers{1}));
    list.Resize(-1);
    EXPECT_EQ(list.Size(), 0);
    list.Append(1);
    list.RemoveAll();
    EXPECT_EQ(list.Size(), 0);
}

TEST(CATList, LocatesTheFirstEqualItem)
{
    const CATListValCATUnicodeString list{"a", "b", "b"};
    EXPECT_EQ(list.Locate("b"), 2);
    EXPECT_EQ(list.Locate("B"), 0);
    EXPECT_EQ(list.Items().size(), 3U);
}

TEST(CATList, PositionOutsideRaisesTheFatalErrorAndThrowsWhereTheHandlerReturns)
{
    const FatalErrorCapture fatal;
    Integers list{1, 2, 3};
    EXPECT_THROW(list[4], CATFatalError);
    EXPECT_THROW(list[0], CATFatalError);
    EXPECT_THROW(list.RemovePosition(4), CATFatalError);
    EXPECT_THROW(list.Insert(0, 1), CATFatalError);
    ASSERT_EQ(fatal.Errors().size(), 4U);
    EXPECT_EQ(fatal.Errors()[0].Text(), "position 4 asked of a list with 3 items");
    EXPECT_EQ(fatal.Errors()[0].Source(), "CATCollections");
    try {
        list[-2] = 1;
        FAIL();
    } catch (const CATFatalError& error) {
        EXPECT_EQ(error.Text(), "position -2 asked of a list with 3 items");
        EXPECT_EQ(error.Line(), fatal.Errors().back().Line());
    }
}

} // namespace
