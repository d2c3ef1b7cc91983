#include "WBPickedInstances.h"

#include "PanelSession.h"

namespace
{

const WBPickedInstance kWing{"WNG-000.1", "WNG-000", "A", {}};
const WBPickedInstance kFirewall{"FUS-110.1", "FUS-110", "B", {"FUS-100.1", "FUS-000.1"}};

class WBPickedInstancesTest : public PanelSession
{
protected:
    WBPickedInstancesTest() { picked.SetRoot("LA1"); }

    WBPickedInstances picked;
};

} // namespace

TEST_F(WBPickedInstancesTest, OrderOfPickingStays)
{
    EXPECT_TRUE(picked.Add(kWing));
    EXPECT_TRUE(picked.Add(kFirewall));
    EXPECT_THAT(picked.Items(), testing::ElementsAre(kWing, kFirewall));
}

TEST_F(WBPickedInstancesTest, InstanceIsTakenOnce)
{
    EXPECT_TRUE(picked.Add(kWing));
    EXPECT_TRUE(picked.Add(kFirewall));
    EXPECT_FALSE(picked.Add(kWing));
    EXPECT_EQ(picked.Items().size(), 2U);
}

TEST_F(WBPickedInstancesTest, SameNameElsewhereIsAnotherInstance)
{
    EXPECT_TRUE(picked.Add({"SEAT.1", "SEAT", "A", {"ROW.1"}}));
    EXPECT_TRUE(picked.Add({"SEAT.1", "SEAT", "A", {"ROW.2"}}));
}

TEST_F(WBPickedInstancesTest, OneIsRemovedByItsPosition)
{
    picked.Add(kWing);
    picked.Add(kFirewall);
    picked.Remove(0);
    picked.Remove(3);
    EXPECT_EQ(picked.Items().size(), 2U);
    picked.Remove(1);
    EXPECT_THAT(picked.Items(), testing::ElementsAre(kFirewall));
    picked.Clear();
    EXPECT_TRUE(picked.Items().empty());
}

TEST_F(WBPickedInstancesTest, InstancesGoWithTheirRoot)
{
    picked.Add(kWing);
    picked.SetRoot("LA1");
    EXPECT_EQ(picked.Items().size(), 1U);
    picked.SetRoot("SC1");
    EXPECT_TRUE(picked.Items().empty());
    EXPECT_EQ(picked.Root(), "SC1");
}

TEST_F(WBPickedInstancesTest, TableShowsPathsRootFirst)
{
    picked.Add(kWing);
    picked.Add(kFirewall);
    const WBPanelTable table = picked.Table();
    ASSERT_EQ(table.columns.size(), 4U);
    EXPECT_EQ(table.columns[0].title, "Instance");
    EXPECT_EQ(table.columns[1].title, "Part");
    EXPECT_EQ(table.columns[2].title, "Version");
    EXPECT_EQ(table.columns[3].title, "Path");
    EXPECT_THAT(table.rows,
                testing::ElementsAre(
                    WBPanelRow{"WNG-000.1", "WNG-000", "A", "LA1/WNG-000.1"},
                    WBPanelRow{"FUS-110.1", "FUS-110", "B", "LA1/FUS-000.1/FUS-100.1/FUS-110.1"}));
}

TEST_F(WBPickedInstancesTest, SelectionTextNamesTheRootTheFirstAndHowManyMore)
{
    EXPECT_EQ(picked.SelectionText(), "LA1");
    picked.Add(kWing);
    EXPECT_EQ(picked.SelectionText(), "LA1 WNG-000.1");
    picked.Add(kFirewall);
    picked.Add({"TAIL.1", "TAIL", "A", {}});
    EXPECT_EQ(picked.SelectionText(), "LA1 WNG-000.1 +2");
}

TEST_F(WBPickedInstancesTest, SelectionTextCanBePartOfAFilesName)
{
    picked.SetRoot("A/B\\C");
    picked.Add({R"(x:*?"<>|y)", "P", "A", {}});
    EXPECT_EQ(picked.SelectionText(), "A-B-C x-------y");
}

TEST_F(WBPickedInstancesTest, SelectionTextStaysShortEnoughForAFilesName)
{
    // 80 characters of two bytes: 45 of them take 90 bytes.
    std::string letters;
    std::string shortened;
    for (int count = 0; count < 80; ++count) {
        letters += "ä";
        shortened += count < 45 ? "ä" : "";
    }
    picked.SetRoot(std::string(100, 'R'));
    picked.Add({letters, "P", "A", {}});
    EXPECT_EQ(picked.SelectionText().ToStdString(), std::string(90, 'R') + " " + shortened);
}

TEST_F(WBPickedInstancesTest, EmptyTextSaysWhatTheReportIsAbout)
{
    EXPECT_EQ(picked.EmptyText(), "Nothing picked: the report is about all of LA1");
    picked.SetRoot("");
    EXPECT_EQ(picked.EmptyText(), "No product is open");
}

TEST_F(WBPickedInstancesTest, TextsAreTranslated)
{
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(picked.EmptyText(), "Nichts gewählt: Der Bericht handelt von ganz LA1");
    EXPECT_EQ(picked.Table().columns[3].title, "Pfad");
}
