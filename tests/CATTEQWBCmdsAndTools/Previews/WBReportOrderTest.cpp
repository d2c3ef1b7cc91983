#include "WBReportOrder.h"

#include "../ModuleSession.h"
#include "../ReportDoubles.h"
#include "TraceCapture.h"

namespace
{

using testing::ElementsAre;
using testing::NiceMock;
using testing::Return;

const DSTrace kTrace("Order");

/// Sorts the whole of a document as a preview does.
long Sort(const CATIDOMDocument_var& document)
{
    CATIDOMNode_var top;
    CATIDOMNodeList_var children;
    const long status = ReadTopLevel(kTrace, document, top, children);
    return status == S_OK ? SortReportNodes(kTrace, top, children) : status;
}

std::string Sorted(const std::string& text)
{
    const CATIDOMDocument_var document = Parsed(text);
    Sort(document);
    return Written(document);
}

class ReportOrder : public testing::Test
{
protected:
    CATHandle<MockDocument> mock = CATHandle<MockDocument>::Adopt(new NiceMock<MockDocument>);
    TraceCapture trace;
};

} // namespace

TEST_F(ReportOrder, ElementsAreSortedByTheAttributeThatTheirAliasNames)
{
    EXPECT_EQ(
        Sorted(R"(<R><I instIdAttrAlias="N" N="b" M="1"/><I instIdAttrAlias="N" N="c" M="0"/>)"
               R"(<I instIdAttrAlias="N" N="a" M="2"/></R>)"),
        R"(<R><I instIdAttrAlias="N" N="a" M="2"/><I instIdAttrAlias="N" N="b" M="1"/>)"
        R"(<I instIdAttrAlias="N" N="c" M="0"/></R>)");
}

TEST_F(ReportOrder, EachElementHasAnAliasOfItsOwn)
{
    EXPECT_EQ(
        Sorted(R"(<R><I instIdAttrAlias="N" N="2" M="1"/><I instIdAttrAlias="M" N="9" M="1"/>)"
               R"(<I instIdAttrAlias="N" N="0" M="9"/></R>)"),
        R"(<R><I instIdAttrAlias="N" N="0" M="9"/><I instIdAttrAlias="M" N="9" M="1"/>)"
        R"(<I instIdAttrAlias="N" N="2" M="1"/></R>)");
}

TEST_F(ReportOrder, KeysAreTextsAndNotNumbers)
{
    EXPECT_EQ(Sorted(R"(<R><I instIdAttrAlias="N" N="2"/><I instIdAttrAlias="N" N="a"/>)"
                     R"(<I instIdAttrAlias="N" N="10"/><I instIdAttrAlias="N" N="B"/></R>)"),
              R"(<R><I instIdAttrAlias="N" N="10"/><I instIdAttrAlias="N" N="2"/>)"
              R"(<I instIdAttrAlias="N" N="B"/><I instIdAttrAlias="N" N="a"/></R>)");
}

// U+10400 is written with the code units D801 DC00, which stand before FF21.
TEST_F(ReportOrder, KeysAreOrderedByTheirCodeUnits)
{
    EXPECT_EQ(Sorted("<R><I instIdAttrAlias=\"N\" N=\"\xef\xbc\xa1\"/>"
                     "<I instIdAttrAlias=\"N\" N=\"\xf0\x90\x90\x80\"/></R>"),
              "<R><I instIdAttrAlias=\"N\" N=\"\xf0\x90\x90\x80\"/>"
              "<I instIdAttrAlias=\"N\" N=\"\xef\xbc\xa1\"/></R>");
}

TEST_F(ReportOrder, ElementsWithoutAKeyComeFirstAndEqualKeysStayAsTheyAre)
{
    EXPECT_EQ(Sorted(R"(<R><I instIdAttrAlias="N" N="a" M="1"/><I M="2"/>)"
                     R"(<I instIdAttrAlias="Q" M="3"/><I instIdAttrAlias="N" N="a" M="0"/>)"
                     R"(<I instIdAttrAlias="N" M="4"/></R>)"),
              R"(<R><I M="2"/><I instIdAttrAlias="Q" M="3"/><I instIdAttrAlias="N" M="4"/>)"
              R"(<I instIdAttrAlias="N" N="a" M="1"/><I instIdAttrAlias="N" N="a" M="0"/></R>)");
}

TEST_F(ReportOrder, ChildrenThatAreNoElementsStayAheadOfTheOthers)
{
    EXPECT_EQ(
        Sorted(R"(<R><I instIdAttrAlias="N" N="b"/>one<!--two--><I instIdAttrAlias="N" N="a"/>)"
               R"(three</R>)"),
        R"(<R>one<!--two-->three<I instIdAttrAlias="N" N="a"/><I instIdAttrAlias="N" N="b"/></R>)");
}

TEST_F(ReportOrder, EveryListThatIsNotEmptyEndsInAFailureBehindItsLastNode)
{
    EXPECT_EQ(Sort(Parsed("<R><I/><I/></R>")), E_FAIL);
    EXPECT_THAT(trace.lines,
                ElementsAre("SortDOMDocument", "SortListOfNodes", "SortListOfNodes",
                            "SortListOfNodes", "Failed to retrieve the node at index 2!"));
    EXPECT_THAT(trace.components, testing::Each("Order"));
}

TEST_F(ReportOrder, ReportWithoutElementsNeedsNoOrder)
{
    EXPECT_EQ(Sort(Parsed("<R/>")), S_OK);
    EXPECT_THAT(trace.Sentences(), ElementsAre());
}

// A2 and B2 are the children of the first of the sorted; C2's own children stay, and so do D's.
TEST_F(ReportOrder, BelowTheTopOnlyTheFirstChildWithChildrenIsSorted)
{
    const CATIDOMDocument_var document =
        Parsed(R"(<R><I instIdAttrAlias="N" N="d"><I instIdAttrAlias="N" N="d2"/>)"
               R"(<I instIdAttrAlias="N" N="d1"/></I><I instIdAttrAlias="N" N="a"/>)"
               R"(<I instIdAttrAlias="N" N="b"><I instIdAttrAlias="N" N="b2"/>)"
               R"(<I instIdAttrAlias="N" N="b1"><I instIdAttrAlias="N" N="z"/>)"
               R"(<I instIdAttrAlias="N" N="y"/></I></I></R>)");
    EXPECT_EQ(Sort(document), E_FAIL);
    EXPECT_EQ(Written(document),
              R"(<R><I instIdAttrAlias="N" N="a"/><I instIdAttrAlias="N" N="b">)"
              R"(<I instIdAttrAlias="N" N="b1"><I instIdAttrAlias="N" N="y"/>)"
              R"(<I instIdAttrAlias="N" N="z"/></I><I instIdAttrAlias="N" N="b2"/></I>)"
              R"(<I instIdAttrAlias="N" N="d"><I instIdAttrAlias="N" N="d2"/>)"
              R"(<I instIdAttrAlias="N" N="d1"/></I></R>)");
    EXPECT_THAT(trace.Sentences(), ElementsAre("Failed to retrieve the node at index 2!",
                                               "SortListOfNodes() failed for node at index 0!",
                                               "SortListOfNodes() failed for node at index 1!"));
}

TEST_F(ReportOrder, NullDocumentIsRefused)
{
    CATIDOMNode_var top = Parsed("<R/>")->DocumentElement();
    CATIDOMNodeList_var children = top->ChildNodes();
    EXPECT_EQ(ReadTopLevel(kTrace, {}, top, children), E_INVALIDARG);
    EXPECT_TRUE(top.IsNull());
    EXPECT_TRUE(children.IsNull());
    EXPECT_THAT(trace.lines, ElementsAre("SortDOMDocument", "Invalid argument has been received!"));
}

TEST_F(ReportOrder, DocumentWithoutAnElementIsAFailure)
{
    EXPECT_EQ(Sort(mock), E_FAIL);
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Failed to retrieve the root element of the document!"));
}

TEST_F(ReportOrder, ChildrenThatCannotBeHadAreAFailure)
{
    ON_CALL(*mock, DocumentElement)
        .WillByDefault(Return(CATIDOMElement_var(ElementAsTold::WithChildren({}))));
    EXPECT_EQ(Sort(mock), E_FAIL);
    EXPECT_THAT(trace.Sentences(), ElementsAre("Could not retrieve root element's children!"));
}

TEST_F(ReportOrder, ChildrenThatCannotBeCountedAreAFailure)
{
    ON_CALL(*mock, DocumentElement)
        .WillByDefault(
            Return(CATIDOMElement_var(ElementAsTold::WithChildren(NodesAsTold::OfLength(-1)))));
    EXPECT_EQ(Sort(mock), E_FAIL);
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Unable to determine the size of root element's child list!"));
}

TEST_F(ReportOrder, NullListIsRefused)
{
    EXPECT_EQ(SortReportNodes(kTrace, Parsed("<R/>"), {}), E_INVALIDARG);
    EXPECT_THAT(trace.lines, ElementsAre("SortListOfNodes"));
}

TEST_F(ReportOrder, ListThatCannotBeCountedIsAFailure)
{
    EXPECT_EQ(SortReportNodes(kTrace, Parsed("<R/>"), NodesAsTold::OfLength(-1)), E_FAIL);
    EXPECT_THAT(trace.Sentences(), ElementsAre("Unable to determine the size of the list!"));
}

TEST_F(ReportOrder, MissingNodeIsAFailureThatChangesNothing)
{
    const CATIDOMDocument_var document =
        Parsed(R"(<R><I instIdAttrAlias="N" N="b"/><I instIdAttrAlias="N" N="a"/></R>)");
    const CATIDOMNode_var parent = document->DocumentElement();
    const CATIDOMNodeList_var list =
        NodesAsTold::List({parent->FirstChild(), parent->LastChild(), {}});
    EXPECT_EQ(SortReportNodes(kTrace, parent, list), E_FAIL);
    EXPECT_EQ(Written(document),
              R"(<R><I instIdAttrAlias="N" N="b"/><I instIdAttrAlias="N" N="a"/></R>)");
    EXPECT_THAT(trace.Sentences(), ElementsAre("Failed to retrieve the node at index 2!"));
}

TEST_F(ReportOrder, ChildWithoutAListOfChildrenIsAFailure)
{
    const CATIDOMNode_var child = ElementAsTold::WithChildren({});
    const CATIDOMNodeList_var children = NodesAsTold::List({child});
    EXPECT_EQ(SortReportNodes(kTrace, ElementAsTold::WithChildren(children), children), E_FAIL);
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Could not retrieve the children of the node at index 0"));
}

TEST_F(ReportOrder, ListThatGoesOnBehindItsEndIsSortedWithoutAFailure)
{
    const CATIDOMDocument_var document = Parsed("<R>text<I/></R>");
    const CATIDOMNode_var text = document->DocumentElement()->FirstChild();
    EXPECT_EQ(SortReportNodes(kTrace, document, NodesAsTold::OfLength(1, {text, text})), S_OK);
    // A text has no children to be sorted.
    EXPECT_THAT(trace.lines, ElementsAre("SortListOfNodes"));
}
