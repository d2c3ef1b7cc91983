#include "CATWBVPMMainPanel.h"
#include "CATWBVPMNavFilterPanel.h"
#include "CATWBVPMNavGUITable.h"

#include "PanelSession.h"

#include <gtest/gtest.h>

extern "C" void CATWBVPMNavGUIRegister();

namespace
{

class CATWBVPMNavGUIRegisterTest : public PanelSession
{
protected:
    CATWBVPMNavGUIRegisterTest()
    {
        CATWBVPMNavGUISetTable({});
        CATWBVPMNavGUIRegister();
        table = CATWBVPMNavGUISetTable({});
        CATWBVPMNavGUISetTable(table);
    }
    ~CATWBVPMNavGUIRegisterTest() override
    {
        CATWBVPMNavGUISetTable({});
        CATSession::Close();
    }

    CATWBVPMNavGUITable table;
};

const CATWBRecordTable* Find(const std::vector<CATWBRecordTable>& tables, const char* name)
{
    for (const CATWBRecordTable& table : tables) {
        if (table.name == name) {
            return &table;
        }
    }
    return nullptr;
}

} // namespace

TEST_F(CATWBVPMNavGUIRegisterTest, OffersItsPanelsAndARecordsTables)
{
    EXPECT_NE(table.createMainPanel, nullptr);
    EXPECT_NE(table.describeRecord, nullptr);
    EXPECT_NE(table.unitsPanel, nullptr);
    EXPECT_NE(table.createReportPanel, nullptr);
}

TEST_F(CATWBVPMNavGUIRegisterTest, FiltersComeFromTheSettingsOfTheirRoot)
{
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetFilter("LA1"), "0|No Filter");
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetDisplayFilter("LA1"), "No filter");
    EXPECT_EQ(CATWBVPMNavFilterPanel::selectedPRCConfigHandler, "NoConfig");
    CATSettingRepository::GetRepository("CATWBVPMNavFilterPanel")
        ->WriteSetting("LA1.Filter", CATUnicodeString("1|Bare wing|I|WNG-000.1|WNG-000|A|0"));
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetFilter("LA1"), "1|Bare wing|I|WNG-000.1|WNG-000|A|0");
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetDisplayFilter("LA1"), "Bare wing");
    EXPECT_EQ(CATWBVPMNavFilterPanel::GetDisplayFilter("SAT1"), "No filter");
}

TEST_F(CATWBVPMNavGUIRegisterTest, MadePanelIsFilledAndBelongsToItsParent)
{
    const RecordHandle record = RecordOf(FirewallStream());
    CATWBVPMMainPanel* panel = CATWBVPMMainPanel::Create(&CATSession::Root(), record.Get());
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->Parent(), &CATSession::Root());
    EXPECT_EQ(panel->Title(), "Weight and balance of FUS-110");
    EXPECT_EQ(record->ReferenceCount(), 2);
}

TEST_F(CATWBVPMNavGUIRegisterTest, DescribedRecordAsksWhichFiguresAreKnown)
{
    server->details = DetailsSaid{"Firewall", {{"Calculated", "1|0|1|"}}}.Text();
    const std::vector<CATWBRecordTable> tables = table.describeRecord(*RecordOf(FirewallStream()));
    EXPECT_THAT(
        server->calls,
        testing::ElementsAre("WBGetValueDetails: 0|1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|1|"
                             "Stainless steel 321|Active|0|0|LA1|0|No Filter|0|"));
    const CATWBRecordTable* massTypes = Find(tables, "mass_types");
    ASSERT_NE(massTypes, nullptr);
    ASSERT_EQ(massTypes->rows.size(), 5U);
    const auto& calculated = massTypes->rows[2];
    EXPECT_EQ(calculated[0].text, "Calculated");
    EXPECT_EQ(calculated[2].text, "1.92");
    EXPECT_EQ(calculated[5].kind, CATWBRecordCell::Kind::Unknown); // cgx
    EXPECT_EQ(calculated[8].text, "0.275557");                     // ixx
}

TEST_F(CATWBVPMNavGUIRegisterTest, DescribedRecordIsWholeWithoutAServer)
{
    CATSetServerCaller(nullptr);
    const std::vector<CATWBRecordTable> tables = table.describeRecord(*RecordOf(FirewallStream()));
    const CATWBRecordTable* part = Find(tables, "part");
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(part->rows.front()[2].text, "FUS-110");
    EXPECT_EQ(Find(tables, "mass_types")->rows[2][5].text, "2"); // cgx
}
