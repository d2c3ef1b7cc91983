#include "WBMassTypeNames.h"

#include "../ModuleSession.h"
#include "../ReportDocuments.h"

namespace
{

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::NiceMock;
using testing::Return;

/// A list of nodes that a test has put together, missing ones included.
class NodesOfATest : public CATIDOMNodeList
{
public:
    explicit NodesOfATest(std::vector<CATIDOMNode_var> nodes) : m_nodes(std::move(nodes)) {}
    int Length() const override { return static_cast<int>(m_nodes.size()); }
    CATIDOMNode_var Item(int index) const override
    {
        return m_nodes[static_cast<std::size_t>(index)];
    }
    CATIDOMDocument_var OwnerDocument() const override { return {}; }

private:
    std::vector<CATIDOMNode_var> m_nodes;
};

class WBMassTypeNames : public testing::Test
{
protected:
    DiagnosticCapture output{CATDiagnosticOutput()};
    CATHandle<MockDocument> mock = CATHandle<MockDocument>::Adopt(new NiceMock<MockDocument>);
};

} // namespace

TEST_F(WBMassTypeNames, AreReadInTheOrderOfTheDocument)
{
    EXPECT_THAT(
        WBReadMassTypeNames(Parsed(R"(<Answer><massType name="Weighed"/><attribute name="x"/>)"
                                   R"(<group><massType name="Estimated"/></group>)"
                                   R"(<massType name=""/></Answer>)")),
        ElementsAre("Weighed", "Estimated", ""));
    EXPECT_THAT(output.Lines(), IsEmpty());
}

TEST_F(WBMassTypeNames, NoElementsAreNoNames)
{
    EXPECT_THAT(WBReadMassTypeNames(Parsed("<Answer/>")), IsEmpty());
    EXPECT_THAT(output.Lines(), IsEmpty());
}

TEST_F(WBMassTypeNames, ElementsThatCannotBeHadAreSaid)
{
    EXPECT_CALL(*mock, ElementsByTagName(CATUnicodeString("massType")))
        .WillOnce(Return(CATIDOMNodeList_var()));
    EXPECT_THAT(WBReadMassTypeNames(mock), IsEmpty());
    EXPECT_THAT(output.Lines(), ElementsAre("Could not retrieve the \"massTypes\" elements"));
}

TEST_F(WBMassTypeNames, AMissingNodeEndsTheWalk)
{
    const CATIDOMDocument_var real =
        Parsed(R"(<Answer><massType name="Weighed"/><massType name="Estimated"/></Answer>)");
    const CATIDOMNodeList_var nodes = real->ElementsByTagName("massType");
    EXPECT_CALL(*mock, ElementsByTagName(_))
        .WillOnce(Return(CATIDOMNodeList_var::Adopt(
            new NodesOfATest({nodes->Item(0), CATIDOMNode_var(), nodes->Item(1)}))));
    EXPECT_THAT(WBReadMassTypeNames(mock), ElementsAre("Weighed"));
    EXPECT_THAT(output.Lines(), ElementsAre("The node at iteration 1 is null!"));
}

TEST_F(WBMassTypeNames, AnElementWithoutANameEndsTheWalk)
{
    EXPECT_THAT(WBReadMassTypeNames(Parsed(R"(<Answer><massType name="Weighed"/>)"
                                           R"(<massType name="Target"/><massType title="x"/>)"
                                           R"(<massType name="Estimated"/></Answer>)")),
                ElementsAre("Weighed", "Target"));
    EXPECT_THAT(output.Lines(), ElementsAre("Could not get the value of the attribute name for the "
                                            "node at iteration 2"));
}

TEST_F(WBMassTypeNames, ANodeThatIsNoElementHasNoName)
{
    const CATIDOMDocument_var real = Parsed("<Answer>text</Answer>");
    EXPECT_CALL(*mock, ElementsByTagName(_))
        .WillOnce(Return(
            CATIDOMNodeList_var::Adopt(new NodesOfATest({real->DocumentElement()->FirstChild()}))));
    EXPECT_THAT(WBReadMassTypeNames(mock), IsEmpty());
    EXPECT_THAT(output.Lines(), ElementsAre("Could not get the value of the attribute name for the "
                                            "node at iteration 0"));
}
