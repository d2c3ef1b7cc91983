#include "WBPanelTexts.h"

#include "PanelSession.h"
#include "ResourceKeys.h"

namespace
{

class WBPanelTextsTest : public PanelSession
{
protected:
    static WBPanelRecord Record()
    {
        WBPanelRecord record;
        record.part = "FUS-110";
        record.partName = "Firewall";
        record.version = "A";
        record.instance = "FUS-110.1";
        record.path = {"LA1", "FUS-000.1", "FUS-110.1"};
        record.activeMassType = "Calculated";
        record.lastImposedMassType = "Estimated";
        WBPanelMassType calculated;
        calculated.name = "Calculated";
        calculated.status = CATENOWBCSCommonDefinitions::Assigned;
        calculated.mass = 2.0;
        calculated.lowerDeviation = 0.5;
        calculated.upperDeviation = 0.25;
        calculated.centre = CATMathPoint(1, -2.5, 3);
        record.massTypes = {calculated};
        return record;
    }
};

} // namespace

TEST_F(WBPanelTextsTest, SummaryTellsWhoThePartIs)
{
    const WBPanelSummary summary = WBSummarise(Record());
    EXPECT_EQ(summary.windowTitle, "Weight and balance of Firewall");
    EXPECT_EQ(summary.name, "Firewall");
    EXPECT_EQ(summary.part, "FUS-110, version A");
    EXPECT_EQ(summary.instance, "FUS-110.1");
    EXPECT_EQ(summary.path, "LA1 / FUS-000.1 / FUS-110.1");
}

TEST_F(WBPanelTextsTest, PartWithoutANameIsCalledByItsIdentifier)
{
    WBPanelRecord record = Record();
    record.partName = "";
    record.version = "";
    const WBPanelSummary summary = WBSummarise(record);
    EXPECT_EQ(summary.name, "FUS-110");
    EXPECT_EQ(summary.part, "FUS-110");
    EXPECT_EQ(summary.windowTitle, "Weight and balance of FUS-110");
}

TEST_F(WBPanelTextsTest, SummaryTellsTheActiveValues)
{
    const WBPanelSummary summary = WBSummarise(Record());
    EXPECT_EQ(summary.active, "Calculated");
    EXPECT_EQ(summary.imposed, "Estimated");
    EXPECT_EQ(summary.mass, "2 kg");
    EXPECT_EQ(summary.bounds, "1.5 to 2.25 kg");
    EXPECT_EQ(summary.centre, "x 1   y -2.5   z 3 mm");
}

TEST_F(WBPanelTextsTest, SummaryStandsInTheUsersUnitsAndLanguage)
{
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "cm");
    CATMsgCatalog::SetLanguage("de");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    const WBPanelSummary summary = WBSummarise(Record());
    EXPECT_EQ(summary.mass, "2000 g");
    EXPECT_EQ(summary.bounds, "1500 bis 2250 g");
    EXPECT_EQ(summary.centre, "x 0,1   y -0,25   z 0,3 cm");
    EXPECT_EQ(summary.part, "FUS-110, Version A");
    EXPECT_EQ(summary.upToDate, "Nicht aktuell");
    EXPECT_EQ(summary.kind, "Baugruppe");
}

TEST_F(WBPanelTextsTest, SummaryOfNothingIsDashes)
{
    const WBPanelSummary summary = WBSummarise(WBPanelRecord());
    for (const CATUnicodeString* text :
         {&summary.name, &summary.part, &summary.instance, &summary.path, &summary.active,
          &summary.imposed, &summary.mass, &summary.bounds, &summary.centre}) {
        EXPECT_EQ(*text, "–");
    }
}

TEST_F(WBPanelTextsTest, MassWithoutDeviationsHasNoBounds)
{
    WBPanelRecord record = Record();
    record.massTypes[0].lowerDeviation.reset();
    EXPECT_EQ(WBSummarise(record).bounds, "–");
    record = Record();
    record.massTypes[0].upperDeviation.reset();
    EXPECT_EQ(WBSummarise(record).bounds, "–");
    record = Record();
    record.massTypes[0].mass.reset();
    EXPECT_EQ(WBSummarise(record).bounds, "–");
    EXPECT_EQ(WBSummarise(record).mass, "–");
}

TEST_F(WBPanelTextsTest, UpToDateAndKindAreSaidInWords)
{
    WBPanelRecord record = Record();
    EXPECT_EQ(WBSummarise(record).upToDate, "Not up to date");
    EXPECT_EQ(WBSummarise(record).kind, "Assembly");
    record.isUpToDate = true;
    record.isLeaf = true;
    EXPECT_EQ(WBSummarise(record).upToDate, "Up to date");
    EXPECT_EQ(WBSummarise(record).kind, "Single part");
    record.isStandardPart = true;
    EXPECT_EQ(WBSummarise(record).kind, "Single part, standard part");
}

TEST_F(WBPanelTextsTest, MaterialFactsSayWhatIsKnown)
{
    WBPanelRecord record;
    record.density = {CATENOWBCSCommonDefinitions::Assigned, 7900.0, "Steel"};
    record.appliedOn = "PartInst";
    record.partDensity = {CATENOWBCSCommonDefinitions::PartiallyAssigned, std::nullopt, ""};
    WBMaterialFacts facts = WBReadMaterialFacts(record);
    EXPECT_EQ(facts.density, "7900 kg/m3");
    EXPECT_EQ(facts.material, "Steel");
    EXPECT_EQ(facts.appliedOn, "this instance alone");
    EXPECT_EQ(facts.partDensity, "known of some of the parts below");
    EXPECT_EQ(facts.partMaterial, "–");
    EXPECT_EQ(facts.priority, "the density stated for the part");

    record.appliedOn = "PartRef";
    record.isMaterialDensityFirst = true;
    record.density = {};
    facts = WBReadMaterialFacts(record);
    EXPECT_EQ(facts.density, "–");
    EXPECT_EQ(facts.appliedOn, "the part, wherever it is used");
    EXPECT_EQ(facts.priority, "the density of the material");
    record.appliedOn = "";
    EXPECT_EQ(WBReadMaterialFacts(record).appliedOn, "–");
}

TEST_F(WBPanelTextsTest, DocumentFactsSayWhatIsKnown)
{
    WBPanelRecord record;
    WBDocumentFacts facts = WBReadDocumentFacts(record);
    EXPECT_EQ(facts.active, "–");
    EXPECT_EQ(facts.attached, "–");
    EXPECT_EQ(facts.computedOn, "the latest revision");
    EXPECT_EQ(facts.oldRevisions, "no");
    EXPECT_EQ(facts.specificRevision, "no");
    EXPECT_EQ(facts.saving, "no");

    record.activeDocument = "DOC-55";
    EXPECT_EQ(WBReadDocumentFacts(record).active, "DOC-55");
    record.activeDocumentVersion = "B";
    record.attachedRevision = "DOC-55 2";
    record.isAttachedRevisionUsed = true;
    record.areOldRevisionsUsable = true;
    facts = WBReadDocumentFacts(record);
    EXPECT_EQ(facts.active, "DOC-55, version B");
    EXPECT_EQ(facts.attached, "DOC-55 2");
    EXPECT_EQ(facts.computedOn, "the attached revision");
    EXPECT_EQ(facts.oldRevisions, "yes");
    EXPECT_EQ(facts.specificRevision, "no");
    record.hasUsedSpecificRevision = true;
    record.areOldRevisionsUsable = false;
    facts = WBReadDocumentFacts(record);
    EXPECT_EQ(facts.oldRevisions, "no");
    EXPECT_EQ(facts.specificRevision, "yes");
    record.isPersistent = true;
    EXPECT_EQ(WBReadDocumentFacts(record).saving, "yes");
}

TEST_F(WBPanelTextsTest, EveryEnglishTextHasAGermanOne)
{
    for (const char* file : {"catalogs/CATWBVPMMainPanel.toml", "dialogs/CATWBVPMMainPanel.toml"}) {
        EXPECT_EQ(ResourceKeys(file), ResourceKeys(std::string("de/") + file)) << file;
    }
}

TEST_F(WBPanelTextsTest, TextThatNoCatalogHasIsItsDefault)
{
    EXPECT_EQ(WBPanelText("No.Such.Key", "@/p1 of /p2", {"2", "5"}), "2 of 5");
}
