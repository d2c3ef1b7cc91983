#include "ProductTreeModel.h"

#include "CATPathElement.h"

#include <gtest/gtest.h>

namespace
{

/// An object with a name, for a tree of names.
class Named : public CATBaseUnknown
{
public:
    explicit Named(std::string text) : name(std::move(text)) {}
    std::string name;
};

/// A tree of three levels: every object has the children NAME.1 and NAME.2, except those of the
/// last level. Counts how often children are asked for.
struct Names
{
    int asked = 0;

    static bool HasChildren(const std::string& name)
    {
        return name.size() < 5;
    } // "R", "R.1", "R.1.1"
    ProductTreeSource Source()
    {
        return {CATBaseUnknown_var::Adopt(new Named("R")),
                [](const CATBaseUnknown_var& object) {
                    CATProductRow row;
                    row.instance = CATHandle<Named>(object)->name;
                    row.part = "part of " + row.instance;
                    row.version = "A";
                    row.name = "name of " + row.instance;
                    row.quantity = 3;
                    row.hasUses = HasChildren(row.instance.ToStdString());
                    return row;
                },
                [this](const CATBaseUnknown_var& object) {
                    ++asked;
                    const std::string name = CATHandle<Named>(object)->name;
                    return std::vector<CATBaseUnknown_var>{
                        CATBaseUnknown_var::Adopt(new Named(name + ".1")),
                        CATBaseUnknown_var::Adopt(new Named(name + ".2"))};
                }};
    }
};

} // namespace

TEST(ProductTreeModel, AnEmptySourceIsAnEmptyTree)
{
    const ProductTreeModel model;
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.hasChildren());
    EXPECT_TRUE(model.PathOf({}).IsNull());
}

TEST(ProductTreeModel, ChildrenAreReadWhenANodeIsOpened)
{
    Names names;
    ProductTreeModel model;
    model.SetSource(names.Source());
    const QModelIndex root = model.index(0, 0);
    EXPECT_TRUE(model.hasChildren(root));
    EXPECT_EQ(model.rowCount(root), 0);
    EXPECT_EQ(names.asked, 0) << "showing the root asks for nothing below it";

    ASSERT_TRUE(model.canFetchMore(root));
    model.fetchMore(root);
    EXPECT_EQ(model.rowCount(root), 2);
    EXPECT_EQ(names.asked, 1);
    EXPECT_FALSE(model.canFetchMore(root)) << "a node is read once";
}

TEST(ProductTreeModel, CellsShowInstancePartVersionNameAndPieces)
{
    Names names;
    ProductTreeModel model;
    model.SetSource(names.Source());
    const QModelIndex root = model.index(0, 0);
    model.fetchMore(root);
    const auto text = [&](int column) {
        return model.index(1, column, root).data().toString().toStdString();
    };
    EXPECT_EQ(text(ProductTreeModel::Instance), "R.2");
    EXPECT_EQ(text(ProductTreeModel::Part), "part of R.2");
    EXPECT_EQ(text(ProductTreeModel::Version), "A");
    EXPECT_EQ(text(ProductTreeModel::Name), "name of R.2");
    EXPECT_EQ(text(ProductTreeModel::Pieces), "3");
    EXPECT_EQ(model.headerData(ProductTreeModel::Name, Qt::Horizontal, Qt::DisplayRole).toString(),
              "Name");
    EXPECT_EQ(model.index(1, ProductTreeModel::Pieces, root).data(Qt::TextAlignmentRole).toInt(),
              static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
}

TEST(ProductTreeModel, ParentsAreFoundAgain)
{
    Names names;
    ProductTreeModel model;
    model.SetSource(names.Source());
    const QModelIndex leaf = model.Find({"R.2", "R.2.1"});
    ASSERT_TRUE(leaf.isValid());
    EXPECT_EQ(leaf.parent().data().toString(), "R.2");
    EXPECT_EQ(leaf.parent().row(), 1);
    EXPECT_EQ(leaf.parent().parent(), model.index(0, 0));
    EXPECT_FALSE(leaf.parent().parent().parent().isValid());
}

TEST(ProductTreeModel, PathsLeadFromTheRootToTheNode)
{
    Names names;
    ProductTreeModel model;
    model.SetSource(names.Source());
    const CATPathElement_var path = model.PathOf(model.Find({"R.2", "R.2.1"}));
    ASSERT_EQ(path->Size(), 3);
    EXPECT_EQ(CATHandle<Named>(path->Element(1))->name, "R");
    EXPECT_EQ(CATHandle<Named>(path->Element(2))->name, "R.2");
    EXPECT_EQ(CATHandle<Named>(path->Element(3))->name, "R.2.1");
}

TEST(ProductTreeModel, FindOpensWhatItPassesAndNothingElse)
{
    Names names;
    ProductTreeModel model;
    model.SetSource(names.Source());
    EXPECT_TRUE(model.Find({"R.1", "R.1.2"}).isValid());
    EXPECT_EQ(names.asked, 2);
    EXPECT_FALSE(model.Find({"R.3"}).isValid());
    EXPECT_EQ(model.Find({}), model.index(0, 0));
}
