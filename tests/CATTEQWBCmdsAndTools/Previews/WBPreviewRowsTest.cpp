#include "WBPreviewRows.h"

#include "../ReportDoubles.h"
#include "PreviewSession.h"

#include <QAbstractItemView>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBPreviewRows : public PreviewSession
{
protected:
    WBPreviewRows() { list->SetColumnTitles({"0", "1", "2"}); }
    static CATIDOMElement_var First(const CATIDOMDocument_var& document, const char* name)
    {
        return document->ElementsByTagName(name)->Item(0);
    }
    static int Steps(const CATIDOMNode_var& node)
    {
        int count = 0;
        CountStepsToRoot(node, count);
        return count;
    }

    CATDlgMultiList* list =
        new CATDlgMultiList(new CATDlgDialog(frame->MainWindow(), "Window", 0), "List");
    const DSTrace component{"Component"};
    const CATIDOMDocument_var document =
        Parsed(R"(<R><PRC A="1" B=""><Part><Part A="3"/></Part></PRC><Part/></R>)");
};

TEST_F(WBPreviewRows, AnAttributeIsPrintedAsItStandsAndMakesItsRow)
{
    const CATIDOMElement_var root = First(document, "PRC");
    EXPECT_EQ(PrintAttribute(component, root, "A", 1, 0, *list), S_OK);
    EXPECT_EQ(PrintAttribute(component, root, "B", 2, 0, *list), S_OK);
    EXPECT_EQ(PrintAttribute(component, First(document, "PRC"), "A", 0, 1, *list), S_OK);
    EXPECT_THAT(Rows(*list), ElementsAre(ElementsAre("", "1", ""), ElementsAre("1", "", "")));
    EXPECT_THAT(trace.lines, IsEmpty());
}

TEST_F(WBPreviewRows, AMissingAttributeIsTracedAndMakesNoCell)
{
    EXPECT_EQ(PrintAttribute(component, First(document, "PRC"), "C", 0, 0, *list), E_FAIL);
    EXPECT_EQ(list->RowCount(), 0);
    EXPECT_THAT(trace.components, ElementsAre("Component"));
    EXPECT_THAT(trace.lines, ElementsAre("Could not get the value of the attribute C"));
}

TEST_F(WBPreviewRows, ANullElementHasNoAttributes)
{
    EXPECT_EQ(PrintAttribute(component, {}, "A", 0, 0, *list), E_FAIL);
    EXPECT_EQ(list->RowCount(), 0);
    EXPECT_THAT(trace.lines, ElementsAre("Could not get the value of the attribute A"));
}

TEST_F(WBPreviewRows, AColumnThatTheListLacksShowsNothing)
{
    EXPECT_EQ(PrintAttribute(component, First(document, "PRC"), "A", 3, 0, *list), S_OK);
    EXPECT_EQ(list->RowCount(), 0);
}

TEST_F(WBPreviewRows, TheStepsToTheRootAreThoseAboveTheElement)
{
    EXPECT_EQ(Steps(First(document, "PRC")), 0);
    EXPECT_EQ(Steps(document->ElementsByTagName("Part")->Item(0)), 1);
    EXPECT_EQ(Steps(document->ElementsByTagName("Part")->Item(1)), 2);
}

TEST_F(WBPreviewRows, WithoutARootEveryNodeUpToTheDocumentCounts)
{
    EXPECT_EQ(Steps(document->ElementsByTagName("Part")->Item(2)), 3);
    EXPECT_EQ(Steps(document->DocumentElement()), 2);
    EXPECT_EQ(Steps(document), 1);
    EXPECT_EQ(Steps({}), 0);
    EXPECT_EQ(Steps(Parsed("<prc><Part/></prc>")->DocumentElement()->FirstChild()), 3);
}

TEST_F(WBPreviewRows, TheStepsAreAddedToTheCount)
{
    int count = 5;
    CountStepsToRoot(document->ElementsByTagName("Part")->Item(1), count);
    EXPECT_EQ(count, 7);
}

TEST_F(WBPreviewRows, TheFirstRootIsTheFirstElementOfThatName)
{
    EXPECT_EQ(Written(Parsed("<R/>")), "<R/>");
    EXPECT_TRUE(FirstRoot(*Parsed("<R/>")).IsNull());
    const CATIDOMDocument_var two = Parsed(R"(<R><X><PRC A="1"/></X><PRC A="2"/></R>)");
    EXPECT_EQ(FirstRoot(*two)->AttributeText(0), "1");
    AnsweringDocument document1("<R><PRC/></R>");
    EXPECT_FALSE(FirstRoot(*document1.Handle()).IsNull());
    document1.missing = "PRC";
    EXPECT_TRUE(FirstRoot(*document1.Handle()).IsNull());
    document1.missing.clear();
    document1.hasDocumentElement = false;
    EXPECT_TRUE(FirstRoot(*document1.Handle()).IsNull());
}

TEST_F(WBPreviewRows, AWalkEndsAtTheFirstItemThatIsNoElement)
{
    const CATIDOMDocument_var mixed = Parsed("<R><A/><B/>text<C/></R>");
    std::vector<std::string> visited;
    ForLeadingElements(*mixed->DocumentElement()->ChildNodes(),
                       [&visited](const CATIDOMElement_var& element, int index) {
                           visited.push_back(element->NodeName().ToStdString() +
                                             std::to_string(index));
                       });
    EXPECT_THAT(visited, ElementsAre("A0", "B1"));
}

TEST_F(WBPreviewRows, AWalkDoesNotAskForTheLength)
{
    int visits = 0;
    ForLeadingElements(*NodesAsTold::OfLength(-1, {First(document, "PRC")}),
                       [&visits](const CATIDOMElement_var&, int) { ++visits; });
    EXPECT_EQ(visits, 1);
}

TEST_F(WBPreviewRows, ColumnsOfSingleNumbersAreRightAligned)
{
    WBPreviewColumns columns;
    const std::vector<const char*> numbers{
        "Quantity",           "COGx",  "COGz",  "WB_Mass",    "WB_Lower_deviation",
        "WB_Upper_deviation", "MOIxx", "POIyz", "WB_Density", "Cut_Volume"};
    const std::vector<const char*> texts{"Name", "Density", "WB_Mass_Details", "wb_mass"};
    for (const char* name : numbers) {
        columns.Append(name);
    }
    for (const char* name : texts) {
        columns.Append(name);
    }
    ShowColumns(columns, "Level", *list);
    const auto* model = qobject_cast<QAbstractItemView*>(list->Widget())->model();
    const auto isRight = [model](int column) {
        return (model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
                Qt::AlignRight) != 0;
    };
    EXPECT_EQ(Titles(*list)[0], "Level");
    EXPECT_EQ(Titles(*list)[5], "WB Lower deviation");
    for (int column = 0; column < list->ColumnCount(); ++column) {
        EXPECT_EQ(isRight(column), column <= static_cast<int>(numbers.size())) << column;
    }
}

} // namespace
