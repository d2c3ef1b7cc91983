#include "CATPathElement.h"

#include "CATStatus.h"

#include <gtest/gtest.h>

namespace
{
class Assembly : public CATBaseUnknown
{};
class Part : public CATBaseUnknown
{};

/// An assembly, an assembly below it, and the part that was picked.
struct ThreeLevels
{
    CATHandle<Assembly> root = CATHandle<Assembly>::Adopt(new Assembly);
    CATHandle<Assembly> middle = CATHandle<Assembly>::Adopt(new Assembly);
    CATHandle<Part> leaf = CATHandle<Part>::Adopt(new Part);
    CATPathElement path{{root, middle, leaf}};
};
} // namespace

TEST(CATPathElement, PositionsCountFromTheRoot)
{
    const ThreeLevels levels;

    EXPECT_EQ(levels.path.Size(), 3);
    EXPECT_EQ(levels.path.Element(1), CATBaseUnknown_var(levels.root));
    EXPECT_EQ(levels.path.Element(2), CATBaseUnknown_var(levels.middle));
    EXPECT_EQ(levels.path.Element(3), CATBaseUnknown_var(levels.leaf));
}

TEST(CATPathElement, ThereIsNothingOutsideThePath)
{
    const ThreeLevels levels;

    EXPECT_TRUE(levels.path.Element(0).IsNull());
    EXPECT_TRUE(levels.path.Element(4).IsNull());
    EXPECT_TRUE(levels.path.Element(-1).IsNull());
}

TEST(CATPathElement, CursorBeginsOnTheLeaf)
{
    const ThreeLevels levels;

    EXPECT_EQ(levels.path.Position(), 3);
    EXPECT_EQ(levels.path.Current(), CATBaseUnknown_var(levels.leaf));
}

TEST(CATPathElement, CursorGoesUpToTheRootAndStaysThere)
{
    ThreeLevels levels;

    EXPECT_EQ(levels.path.ToParent(), S_OK);
    EXPECT_EQ(levels.path.Current(), CATBaseUnknown_var(levels.middle));
    EXPECT_EQ(levels.path.ToParent(), S_OK);
    EXPECT_EQ(levels.path.Position(), 1);
    EXPECT_EQ(levels.path.ToParent(), S_FALSE);
    EXPECT_EQ(levels.path.Position(), 1);
}

TEST(CATPathElement, CursorGoesDownToTheLeafAndStaysThere)
{
    ThreeLevels levels;

    EXPECT_EQ(levels.path.InitToTopElement(), S_OK);
    EXPECT_EQ(levels.path.Position(), 1);
    EXPECT_EQ(levels.path.ToChild(), S_OK);
    EXPECT_EQ(levels.path.ToChild(), S_OK);
    EXPECT_EQ(levels.path.Position(), 3);
    EXPECT_EQ(levels.path.ToChild(), S_FALSE);
    EXPECT_EQ(levels.path.Position(), 3);
}

TEST(CATPathElement, CursorIsPutBackOnTheLeaf)
{
    ThreeLevels levels;
    levels.path.InitToTopElement();

    EXPECT_EQ(levels.path.InitToLeafElement(), S_OK);

    EXPECT_EQ(levels.path.Position(), 3);
}

TEST(CATPathElement, EmptyPathHasNowhereToGo)
{
    CATPathElement path({});

    EXPECT_EQ(path.Size(), 0);
    EXPECT_EQ(path.Position(), 0);
    EXPECT_TRUE(path.Current().IsNull());
    EXPECT_EQ(path.InitToTopElement(), S_FALSE);
    EXPECT_EQ(path.Position(), 0);
    EXPECT_EQ(path.InitToLeafElement(), S_FALSE);
    EXPECT_EQ(path.ToParent(), S_FALSE);
    EXPECT_EQ(path.ToChild(), S_FALSE);
    EXPECT_EQ(path.Position(), 0);
}

TEST(CATPathElement, SearchFindsTheObjectNearestToTheLeaf)
{
    const ThreeLevels levels;

    EXPECT_EQ(levels.path.Search<Assembly>(), levels.middle);
    EXPECT_EQ(levels.path.Search<Part>(), levels.leaf);
    EXPECT_TRUE(levels.path.Search<CATPathElement>().IsNull());
}

TEST(CATPathElement, KeepsItsObjectsAlive)
{
    auto* part = new Part;
    {
        const CATPathElement path({CATBaseUnknown_var(part)});
        EXPECT_EQ(part->ReferenceCount(), 2);
    }
    EXPECT_EQ(part->ReferenceCount(), 1);
    part->Release();
}

TEST(CATPathElement, NamesItsClass)
{
    EXPECT_STREQ(CATPathElement({}).ClassName(), "CATPathElement");
}
