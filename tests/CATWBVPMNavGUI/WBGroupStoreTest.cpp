#include "WBGroupStore.h"
#include "PanelSession.h"

#include "CATStatus.h"
#include "KR4WBClientSettings.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr auto kInstances = WBGroupKind::Instances;
constexpr auto kCriteria = WBGroupKind::Criteria;

class WBGroupStoreTest : public PanelSession
{
protected:
    static WBStoredGroup Instances(const char* name)
    {
        return {"", {{name}, {"PART"}, {"A"}, {"UP.1|TOP.1"}, {"Part, \"quoted\"\nsecond line"}}};
    }
    static WBStoredGroup Criteria(const char* joined, const char* value)
    {
        return {joined, {{"WB_Mass", "Name"}, {">", "is"}, {"1 kg", value}, {"MASS", ""}}};
    }
    static CATSettingRepository& Settings()
    {
        return *CATSettingRepository::GetRepository("KR4WBClientSettings");
    }
    static std::filesystem::path SettingsFile()
    {
        return std::filesystem::path(CATGetEnv("CATUserSettingPath")) /
               "KR4WBClientSettings.CATSettings";
    }
    /// As another session finds it.
    static void Reopen() { CATSettingRepository::CloseAll(); }
};

} // namespace

TEST_F(WBGroupStoreTest, NothingIsStoredAtFirst)
{
    EXPECT_THAT(WBStoredGroupNames(kInstances, "LA1").names, IsEmpty());
    EXPECT_FALSE(WBStoredGroupNames(kInstances, "LA1").isDamaged);
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), std::nullopt);
    EXPECT_FALSE(WBIsGroupStored(kInstances, "LA1", "X"));
}

TEST_F(WBGroupStoreTest, AnotherSessionFindsWhatWasSaved)
{
    EXPECT_TRUE(WBSaveGroup(kInstances, "LA1", "Left wing", Instances("A.1")));
    EXPECT_TRUE(WBSaveGroup(kInstances, "LA1", "Änderungen", Instances("B.1")));
    EXPECT_TRUE(WBSaveGroup(kCriteria, "LA1", "Heavy", Criteria("or", "x")));
    Reopen();
    EXPECT_THAT(WBStoredGroupNames(kInstances, "LA1").names,
                ElementsAre("Left wing", "Änderungen"));
    EXPECT_THAT(WBStoredGroupNames(kCriteria, "LA1").names, ElementsAre("Heavy"));
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "Left wing"), Instances("A.1"));
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "Änderungen"), Instances("B.1"));
    EXPECT_EQ(WBReadStoredGroup(kCriteria, "LA1", "Heavy"), Criteria("or", "x"));
    EXPECT_TRUE(WBIsGroupStored(kInstances, "LA1", "Left wing"));
}

TEST_F(WBGroupStoreTest, EachRootAndKindHasItsOwn)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    EXPECT_EQ(WBReadStoredGroup(kInstances, "SC1", "X"), std::nullopt);
    EXPECT_EQ(WBReadStoredGroup(kCriteria, "LA1", "X"), std::nullopt);
    EXPECT_THAT(WBStoredGroupNames(kInstances, "SC1").names, IsEmpty());
    EXPECT_THAT(WBStoredGroupNames(kCriteria, "LA1").names, IsEmpty());
}

TEST_F(WBGroupStoreTest, GroupsStandUnderTheKeysThatOthersRead)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    WBSaveGroup(kCriteria, "LA1", "Y", Criteria("and", "x"));
    Reopen();
    CATListValCATUnicodeString l1;
    CATListValCATUnicodeString l2;
    CATListValCATUnicodeString l3;
    CATListValCATUnicodeString l4;
    CATListValCATUnicodeString l5;
    EXPECT_EQ(KR4WBClientSettings::GetItemInstanceGroup("LA1.", "X", l1, l2, l3, l4, l5), S_OK);
    EXPECT_EQ(l1, CATListValCATUnicodeString{"A.1"});
    EXPECT_EQ(l4, CATListValCATUnicodeString{"UP.1|TOP.1"});
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString rest;
    EXPECT_EQ(KR4WBClientSettings::GetItemInstanceGroup("LA1.", "", names, rest, rest, rest, rest),
              S_OK);
    EXPECT_EQ(names, CATListValCATUnicodeString{"X"});
    CATUnicodeString joined;
    names.RemoveAll();
    EXPECT_EQ(KR4WBClientSettings::GetCriteriaGroup("LA1.", "", joined, names, rest, rest, rest),
              S_OK);
    EXPECT_EQ(names, CATListValCATUnicodeString{"Y"});
}

TEST_F(WBGroupStoreTest, SavingAgainReplacesTheGroupAndKeepsItsPlaceInTheList)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    WBSaveGroup(kInstances, "LA1", "Y", Instances("B.1"));
    WBSaveGroup(kInstances, "LA1", "X", Instances("C.1"));
    Reopen();
    EXPECT_THAT(WBStoredGroupNames(kInstances, "LA1").names, ElementsAre("X", "Y"));
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), Instances("C.1"));
}

TEST_F(WBGroupStoreTest, EmptyGroupsAreGroups)
{
    const WBStoredGroup empty{"", std::vector<CATListValCATUnicodeString>(5)};
    EXPECT_TRUE(WBSaveGroup(kInstances, "LA1", "X", empty));
    Reopen();
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), empty);
    EXPECT_TRUE(WBIsGroupStored(kInstances, "LA1", "X"));
}

TEST_F(WBGroupStoreTest, DeletedGroupsAreGoneForEverySession)
{
    for (const WBGroupKind kind : {kInstances, kCriteria}) {
        const WBStoredGroup group = kind == kInstances ? Instances("A.1") : Criteria("or", "x");
        WBSaveGroup(kind, "LA1", "X", group);
        WBSaveGroup(kind, "LA1", "Y", group);
        EXPECT_TRUE(WBDeleteGroup(kind, "LA1", "X"));
        Reopen();
        EXPECT_THAT(WBStoredGroupNames(kind, "LA1").names, ElementsAre("Y"));
        EXPECT_FALSE(WBIsGroupStored(kind, "LA1", "X"));
        EXPECT_TRUE(WBIsGroupStored(kind, "LA1", "Y"));
    }
}

TEST_F(WBGroupStoreTest, GroupWithEntriesMissingIsDamaged)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    WBSaveGroup(kCriteria, "LA1", "Y", Criteria("and", "x"));
    // A list that is an entry short, and a count that agrees with it.
    Settings().WriteSetting("LA1.XInstances", CATListValCATUnicodeString{"A.1", "PART", "A", ""});
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), std::nullopt);
    Settings().WriteSetting("LA1.XInstancesCount", 4);
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), std::nullopt);
    EXPECT_TRUE(WBIsGroupStored(kInstances, "LA1", "X"));
    Settings().WriteSetting("LA1.YCriteriaCount", 0);
    Settings().WriteSetting("LA1.YCriteria", CATListValCATUnicodeString());
    EXPECT_EQ(WBReadStoredGroup(kCriteria, "LA1", "Y"), std::nullopt);
}

TEST_F(WBGroupStoreTest, GroupOfAnotherFormIsDamaged)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    Settings().WriteSetting("LA1.XInstances", CATUnicodeString("A.1"));
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), std::nullopt);
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    Settings().RemoveSetting("LA1.XInstancesCount");
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), std::nullopt);
    EXPECT_TRUE(WBIsGroupStored(kInstances, "LA1", "X"));
    Settings().WriteSetting("LA1.XInstancesCount", -5);
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), std::nullopt);
}

TEST_F(WBGroupStoreTest, GroupsAreFoundWhenTheListOfTheirNamesIsDamaged)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    WBSaveGroup(kInstances, "LA1", "Gone", Instances("A.1"));
    WBSaveGroup(kInstances, "LA1", "Left wing", Instances("B.1"));
    WBSaveGroup(kInstances, "LA1.2", "Another root's", Instances("B.1"));
    WBSaveGroup(kCriteria, "LA1", "Another kind", Criteria("or", "x"));
    WBDeleteGroup(kInstances, "LA1", "Gone");
    Settings().WriteSetting("LA1.InstancesCount", 3);
    const WBStoredNames names = WBStoredGroupNames(kInstances, "LA1");
    EXPECT_TRUE(names.isDamaged);
    EXPECT_THAT(names.names, ElementsAre("Left wing", "X"));
    EXPECT_FALSE(WBStoredGroupNames(kCriteria, "LA1").isDamaged);
    EXPECT_TRUE(WBSaveGroup(kInstances, "LA1", "New", Instances("C.1")));
    Reopen();
    EXPECT_FALSE(WBStoredGroupNames(kInstances, "LA1").isDamaged);
    EXPECT_THAT(WBStoredGroupNames(kInstances, "LA1").names, ElementsAre("Left wing", "X", "New"));
}

TEST_F(WBGroupStoreTest, DamagedCriteriaListFindsItsGroups)
{
    WBSaveGroup(kCriteria, "LA1", "Heavy", Criteria("or", "x"));
    WBSaveGroup(kCriteria, "LA1", "Gone", Criteria("or", "x"));
    WBDeleteGroup(kCriteria, "LA1", "Gone");
    Settings().RemoveSetting("LA1.CriteriaCount");
    EXPECT_TRUE(WBStoredGroupNames(kCriteria, "LA1").isDamaged);
    EXPECT_THAT(WBStoredGroupNames(kCriteria, "LA1").names, ElementsAre("Heavy"));
}

TEST_F(WBGroupStoreTest, GroupThatTheListLacksIsNotOverwrittenUnasked)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    Settings().RemoveSetting("LA1.Instances");
    Settings().RemoveSetting("LA1.InstancesCount");
    EXPECT_THAT(WBStoredGroupNames(kInstances, "LA1").names, IsEmpty());
    EXPECT_TRUE(WBIsGroupStored(kInstances, "LA1", "X"));
}

TEST_F(WBGroupStoreTest, FailedSavingLeavesWhatWasStored)
{
    WBSaveGroup(kInstances, "LA1", "X", Instances("A.1"));
    // A directory in the place of the file that is written first: nothing can be written.
    const std::filesystem::path file = SettingsFile();
    const std::filesystem::path kept = file.string() + ".kept";
    std::filesystem::rename(file, kept);
    std::filesystem::create_directories(file / "in the way");
    EXPECT_FALSE(WBSaveGroup(kInstances, "LA1", "X", Instances("B.1")));
    EXPECT_FALSE(WBSaveGroup(kInstances, "LA1", "Y", Instances("B.1")));
    EXPECT_FALSE(WBDeleteGroup(kInstances, "LA1", "X"));
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), Instances("A.1"));
    EXPECT_THAT(WBStoredGroupNames(kInstances, "LA1").names, ElementsAre("X"));
    EXPECT_FALSE(WBIsGroupStored(kInstances, "LA1", "Y"));
    std::filesystem::remove_all(file);
    std::filesystem::rename(kept, file);
    EXPECT_TRUE(WBSaveGroup(kInstances, "LA1", "X", Instances("B.1")));
    Reopen();
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), Instances("B.1"));
}

TEST_F(WBGroupStoreTest, WithoutAPlaceForSettingsNothingIsStoredAndNothingFails)
{
    CATSetEnvironmentSource([](const char*) { return std::nullopt; });
    Reopen();
    EXPECT_THAT(WBStoredGroupNames(kInstances, "LA1").names, IsEmpty());
    EXPECT_FALSE(WBSaveGroup(kInstances, "LA1", "X", Instances("A.1")));
    EXPECT_FALSE(WBDeleteGroup(kCriteria, "LA1", "X"));
    EXPECT_EQ(WBReadStoredGroup(kInstances, "LA1", "X"), std::nullopt);
}

TEST_F(WBGroupStoreTest, NamesWithAPointOrWithoutALetterAreRefused)
{
    EXPECT_EQ(WBGroupNameProblem(""), "The group has no name. Type one.");
    EXPECT_THAT(WBGroupNameProblem("B.X").ToStdString(), HasSubstr("\"B.X\" cannot be the name"));
    EXPECT_FALSE(WBGroupNameProblem("a\tb").IsEmpty());
    EXPECT_EQ(WBGroupNameProblem("Left wing, Größe 2"), "");
}
