#include "WBReportAttributeNames.h"

#include "../ModuleSession.h"
#include "../ReportDoubles.h"
#include "../ReportUnitsSession.h"
#include "TraceCapture.h"

namespace
{

using testing::ElementsAre;

const DSTrace kTrace("Names");
constexpr bool kWithDate = false;
constexpr bool kWithoutDate = true;

class ReportAttributeNames : public testing::Test
{
protected:
    std::optional<WBInstanceAttributes> Instances(const std::string& text, bool withoutDate)
    {
        return ReadInstanceAttributes(kTrace, *Parsed(text), withoutDate);
    }
    /// Of a report whose part instances are these nodes.
    std::optional<WBInstanceAttributes> InstancesOf(std::vector<CATIDOMNode_var> nodes)
    {
        report.parts = NodesAsTold::List(std::move(nodes));
        return ReadInstanceAttributes(kTrace, *report.Handle(), kWithDate);
    }
    /// Of a report whose list of roots is this one.
    std::optional<CATListValCATUnicodeString> RootsOf(const CATIDOMNodeList_var& roots)
    {
        const auto mock = CATHandle<MockDocument>::Adopt(new testing::NiceMock<MockDocument>);
        ON_CALL(*mock, ElementsByTagName(CATUnicodeString("PRC")))
            .WillByDefault(testing::Return(roots));
        ON_CALL(*mock, NameText).WillByDefault([this](CATDOMName name) {
            return real->NameText(name);
        });
        return ReadRootAttributes(kTrace, *mock);
    }

    AnsweringDocument report{"<R A=\"1\" B=\"2\"/>"};
    CATIDOMDocument_var real = Parsed("<R A=\"1\" B=\"2\"/>");
    TraceCapture trace;
};

} // namespace

TEST_F(ReportAttributeNames, OfAllInstancesAreKeptOnceInTheOrderInWhichTheyAreMet)
{
    const auto names = Instances(
        R"(<R X="0"><PRC Y="0"/><PartInstance B="" A=""><PartInstance C="" B=""/></PartInstance>)"
        R"(<Other Z="0"/><PartInstance a="" D="" A=""/></R>)",
        kWithDate);
    ASSERT_TRUE(names);
    EXPECT_THAT(names->columns.Items(), ElementsAre("B", "A", "C", "a", "D"));
    EXPECT_THAT(names->magnitudes.Items(), ElementsAre());
    EXPECT_THAT(trace.lines, ElementsAre());
}

TEST_F(ReportAttributeNames, MagnitudesAreKeptApartOnceEachWhateverTheCaseOfThePrefix)
{
    const auto names = Instances(
        R"(<R><PartInstance __magnitude__Q="MASS" Q="1" __magnitude__P="MASS" __magnitude_="1"/>)"
        R"(<PartInstance __magnitude__P="LENGTH" x__magnitude__="" __Magnitude__Q=""/></R>)",
        kWithDate);
    ASSERT_TRUE(names);
    EXPECT_THAT(names->magnitudes.Items(),
                ElementsAre("__magnitude__Q", "__magnitude__P", "__Magnitude__Q"));
    EXPECT_THAT(names->columns.Items(), ElementsAre("Q", "__magnitude_", "x__magnitude__"));
}

TEST_F(ReportAttributeNames, AliasIsLeftOutByItsExactName)
{
    const auto names = Instances(
        R"(<R><PartInstance instIdAttrAlias="N" InstIdAttrAlias="N" N="1"/></R>)", kWithDate);
    ASSERT_TRUE(names);
    EXPECT_THAT(names->columns.Items(), ElementsAre("InstIdAttrAlias", "N"));
}

TEST_F(ReportAttributeNames, DateIsLeftOutWhenItShallBeWhateverItsLetterCase)
{
    const std::string text =
        R"(<R><PartInstance WB_Last_calculation_date="" wb_last_CALCULATION_date="" N=""/></R>)";
    EXPECT_THAT(Instances(text, kWithDate)->columns.Items(),
                ElementsAre("WB_Last_calculation_date", "wb_last_CALCULATION_date", "N"));
    EXPECT_THAT(Instances(text, kWithoutDate)->columns.Items(), ElementsAre("N"));
}

TEST_F(ReportAttributeNames, ReportWithoutInstancesHasNone)
{
    const auto names = Instances("<R/>", kWithDate);
    ASSERT_TRUE(names);
    EXPECT_THAT(names->columns.Items(), ElementsAre());
}

TEST_F(ReportAttributeNames, InstancesThatCannotBeHadAreTraced)
{
    report.missing = "PartInstance";
    EXPECT_FALSE(ReadInstanceAttributes(kTrace, *report.Handle(), kWithDate));
    EXPECT_THAT(trace.lines,
                ElementsAre("Unable to obtain the PartInstance elements from the DOM of the "
                            "current document"));
    EXPECT_THAT(trace.components, ElementsAre("Names"));
}

TEST_F(ReportAttributeNames, InstanceWithoutAMapEndsTheReading)
{
    EXPECT_FALSE(InstancesOf({ElementAsTold::WithMap({}), ElementAsTold::WithMap({})}));
    EXPECT_THAT(
        trace.lines,
        ElementsAre("Could not retrieve the list of attributes that a PartInstance node has!"));
}

TEST_F(ReportAttributeNames, InstanceThatIsNoElementEndsTheReading)
{
    EXPECT_FALSE(InstancesOf({Parsed("<R>text</R>")->DocumentElement()->FirstChild()}));
    EXPECT_THAT(
        trace.lines,
        ElementsAre("Could not retrieve the list of attributes that a PartInstance node has!"));
}

TEST_F(ReportAttributeNames, InstanceWhoseAttributesCannotBeCountedEndsTheReading)
{
    EXPECT_FALSE(InstancesOf({ElementAsTold::WithMap(MapAsTold::OfLength(-1))}));
    EXPECT_THAT(trace.lines, ElementsAre("Could not obtain a valid CATUnicodeString dynamic array "
                                         "(for a PartInstance node)!"));
}

TEST_F(ReportAttributeNames, NullAttributeOfAnInstanceIsTracedAndPassedOver)
{
    const CATDOMName a = real->FindName("A");
    const CATDOMName b = real->FindName("B");
    const auto names =
        InstancesOf({ElementAsTold::WithMap(MapAsTold::OfLength(3), {a, CATDOMName{}, b})});
    ASSERT_TRUE(names);
    EXPECT_THAT(names->columns.Items(), ElementsAre("A", "B"));
    EXPECT_THAT(trace.lines, ElementsAre("PartInstance node: attribute 1 is null"));
}

TEST_F(ReportAttributeNames, OfTheFirstRootAreAllKept)
{
    const auto names = ReadRootAttributes(
        kTrace, *Parsed(R"(<R><X><PRC instIdAttrAlias="" __magnitude__P="" )"
                        R"(WB_Last_calculation_date="" P=""/></X><PRC Q=""/></R>)"));
    ASSERT_TRUE(names);
    EXPECT_THAT(names->Items(),
                ElementsAre("instIdAttrAlias", "__magnitude__P", "WB_Last_calculation_date", "P"));
    EXPECT_THAT(trace.lines, ElementsAre());
}

TEST_F(ReportAttributeNames, ReportWithoutARootIsTraced)
{
    EXPECT_FALSE(ReadRootAttributes(kTrace, *Parsed("<R><prc/></R>")));
    EXPECT_THAT(trace.lines, ElementsAre("Unable to retrieve the first node (of type PRC) from the "
                                         "list!"));
}

TEST_F(ReportAttributeNames, RootsThatCannotBeHadAreTraced)
{
    EXPECT_FALSE(RootsOf({}));
    EXPECT_THAT(trace.lines,
                ElementsAre("Unable to obtain the PRC elements from the DOM of the current "
                            "document!"));
}

TEST_F(ReportAttributeNames, RootWithoutAMapIsTraced)
{
    EXPECT_FALSE(RootsOf(NodesAsTold::List({ElementAsTold::WithMap({})})));
    EXPECT_THAT(trace.lines, ElementsAre("Could not retrieve the list of attributes that the "
                                         "element PRC node has!"));
}

TEST_F(ReportAttributeNames, RootWhoseAttributesCannotBeCountedIsTraced)
{
    EXPECT_FALSE(RootsOf(NodesAsTold::List({ElementAsTold::WithMap(MapAsTold::OfLength(-1))})));
    EXPECT_THAT(trace.lines, ElementsAre("Could not obtain a valid CATUnicodeString dynamic array "
                                         "(for PRC node)!"));
}

TEST_F(ReportAttributeNames, NullAttributeOfTheRootIsTracedAndPassedOver)
{
    const CATDOMName b = real->FindName("B");
    const auto names = RootsOf(
        NodesAsTold::List({ElementAsTold::WithMap(MapAsTold::OfLength(2), {CATDOMName{}, b})}));
    ASSERT_TRUE(names);
    EXPECT_THAT(names->Items(), ElementsAre("B"));
    EXPECT_THAT(trace.lines, ElementsAre("PRC node: Item 0 is null"));
}

TEST_F(ReportAttributeNames, AttributesOfASectionThatCannotBeReadAreTracedAsThose)
{
    const auto ofSection = [this](const CATIDOMNode_var& section) {
        return ReadAttributes(kTrace, *real, section, WBReportElement::Section);
    };
    EXPECT_FALSE(ofSection(ElementAsTold::WithMap({})));
    EXPECT_FALSE(ofSection(ElementAsTold::WithMap(MapAsTold::OfLength(-1))));
    const CATDOMName b = real->FindName("B");
    const auto names = ofSection(ElementAsTold::WithMap(MapAsTold::OfLength(2), {CATDOMName{}, b}));
    ASSERT_TRUE(names);
    EXPECT_THAT(names->Items(), ElementsAre("B"));
    EXPECT_THAT(
        trace.lines,
        ElementsAre("Could not retrieve the list of attributes that a section node has!",
                    "Could not obtain a valid CATUnicodeString dynamic array (for a section node)!",
                    "Section node: Item 0 is null"));
}
