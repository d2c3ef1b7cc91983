#include "KR4WBClientSettings.h"

#include "../System/TestEnvironment.h"
#include "ModuleSession.h"
#include "TemporaryDirectory.h"
#include "WBSettingSteps.h"

#include "CATSettingRepository.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = CATListValCATUnicodeString;

constexpr const char* kFile = "KR4WBClientSettings.CATSettings";

class ClientSettings : public testing::Test
{
protected:
    ClientSettings()
    {
        m_environment.Set("CATUserSettingPath", m_user.Path());
        CATSettingRepository::CloseAll();
        CATSettingRepository::ReportProblemsTo(
            [this](const CATUnicodeString& sentence) { m_sentences.push_back(sentence); });
    }
    ~ClientSettings() override
    {
        CATSettingRepository::ReportProblemsTo({});
        CATSettingRepository::CloseAll();
    }
    /// The client's settings as a session that begins now reads them.
    static CATSettingRepository& NextSession()
    {
        CATSettingRepository::CloseAll();
        return Repository();
    }
    static CATSettingRepository& Repository()
    {
        return *CATSettingRepository::GetRepository("KR4WBClientSettings");
    }
    void TakeAwayEveryPlace()
    {
        CATSettingRepository::CloseAll();
        m_environment.Unset("CATUserSettingPath");
    }
    /// Stores a list as its entries and a count that need not fit.
    static void Store(const char* key, const Texts& entries, int count)
    {
        Repository().WriteSetting(key, entries);
        Repository().WriteSetting(CATUnicodeString(key) + "Count", count);
    }

    TemporaryDirectory m_user;
    TestEnvironment m_environment;
    DiagnosticCapture m_output{CATDiagnosticOutput()};
    DiagnosticCapture m_errors{CATDiagnosticErrors()};
    std::vector<CATUnicodeString> m_sentences;
};

struct Display
{
    unsigned char units = 77;
    unsigned char zeros = 77;
    int digits = 77;
    long status = 77;
};

Display ReadDisplay()
{
    Display display;
    display.status =
        KR4WBClientSettings::GetReportDisplay(display.units, display.zeros, display.digits);
    return display;
}

long WriteDisplay(unsigned char units, unsigned char zeros, int digits)
{
    return KR4WBClientSettings::SetReportDisplay(units, zeros, digits);
}

/// What is read behind what a list held before.
struct Instances
{
    Texts l1{"before"};
    Texts l2;
    Texts l3;
    Texts l4;
    Texts l5;
    long status = 77;
};

Instances ReadInstances(const char* prefix = "P.", const char* name = "g")
{
    Instances read;
    read.status = KR4WBClientSettings::GetItemInstanceGroup(prefix, name, read.l1, read.l2, read.l3,
                                                            read.l4, read.l5);
    return read;
}

struct Criteria
{
    CATUnicodeString criterion = "before";
    Texts m1{"before"};
    Texts m2;
    Texts m3;
    Texts m4;
    long status = 77;
};

Criteria ReadCriteria()
{
    Criteria read;
    read.status = KR4WBClientSettings::GetCriteriaGroup("P.", "g", read.criterion, read.m1, read.m2,
                                                        read.m3, read.m4);
    return read;
}

long WriteInstances(const char* prefix, const char* name, Texts l1, Texts l2, Texts l3, Texts l4,
                    Texts l5)
{
    return KR4WBClientSettings::SetItemInstanceGroup(prefix, name, l1, l2, l3, l4, l5);
}

long WriteCriteria(const char* criterion, Texts m1, Texts m2, Texts m3, Texts m4)
{
    return KR4WBClientSettings::SetCriteriaGroup("P.", "g", criterion, m1, m2, m3, m4);
}

int StoredInt(const char* key)
{
    int value = -99;
    CATSettingRepository::GetRepository("KR4WBClientSettings")->ReadSetting(key, value);
    return value;
}

Texts StoredTexts(const char* key)
{
    Texts texts{"nothing stored"};
    CATSettingRepository::GetRepository("KR4WBClientSettings")->ReadSetting(key, texts);
    return texts;
}

/// Writes down what is read and written, and fails at the step whose number it is given.
class WatchedRepository
{
public:
    explicit WatchedRepository(std::size_t failingStep = 0) : m_failing(failingStep) {}

    long ReadSetting(const CATUnicodeString& key, int& value) const
    {
        value = 1; // a failed reading may leave anything there
        return Step("read " + key.ToStdString());
    }
    long ReadSetting(const CATUnicodeString& key, Texts& values) const
    {
        values = Texts{"a", "b"};
        return Step("read " + key.ToStdString());
    }
    long WriteSetting(const CATUnicodeString& key, int value)
    {
        return Step(key.ToStdString() + " = " + std::to_string(value));
    }
    long WriteSetting(const CATUnicodeString& key, const Texts& values)
    {
        std::string all = key.ToStdString() + " =";
        for (const CATUnicodeString& value : values.Items()) {
            all += " " + value.ToStdString();
        }
        return Step(all);
    }
    const std::vector<std::string>& Steps() const { return m_steps; }

private:
    long Step(const std::string& step) const
    {
        m_steps.push_back(step);
        // Any count of items but 1 is a failure, that of an unknown setting too.
        return m_steps.size() == m_failing ? S_FALSE : S_OK;
    }

    std::size_t m_failing;
    mutable std::vector<std::string> m_steps;
};

} // namespace

// Version, file and memory

TEST_F(ClientSettings, VersionIsKeptUnderItsKey)
{
    EXPECT_EQ(KR4WBClientSettings::SetVersion("V5 \"beta\""), S_OK);
    CATUnicodeString stored;
    EXPECT_EQ(Repository().ReadSetting("Version", stored), S_OK);
    EXPECT_EQ(stored, "V5 \"beta\"");
    CATUnicodeString version;
    EXPECT_EQ(KR4WBClientSettings::GetVersion(version), S_OK);
    EXPECT_EQ(version, "V5 \"beta\"");
}

TEST_F(ClientSettings, VersionThatIsMissingOrNoTextFails)
{
    CATUnicodeString version = "before";
    EXPECT_EQ(KR4WBClientSettings::GetVersion(version), E_FAIL);
    Repository().WriteSetting("Version", 5);
    EXPECT_EQ(KR4WBClientSettings::GetVersion(version), E_FAIL);
    EXPECT_EQ(version, "before");
}

TEST_F(ClientSettings, StandInTheFileOfTheirNameOnceTheyAreSaved)
{
    KR4WBClientSettings::SetVersion("1");
    EXPECT_FALSE(m_user.Has(kFile));
    EXPECT_EQ(KR4WBClientSettings::Save(), S_OK);
    EXPECT_EQ(m_user.Read(kFile), "Version = \"1\"\n");
    NextSession();
    CATUnicodeString version;
    EXPECT_EQ(KR4WBClientSettings::GetVersion(version), S_OK);
    EXPECT_EQ(version, "1");
}

TEST_F(ClientSettings, RollbackBringsTheCommittedValuesBack)
{
    KR4WBClientSettings::SetVersion("1");
    EXPECT_EQ(KR4WBClientSettings::Commit(), S_OK);
    KR4WBClientSettings::SetVersion("2");
    EXPECT_EQ(KR4WBClientSettings::Rollback(), S_OK);
    CATUnicodeString version;
    KR4WBClientSettings::GetVersion(version);
    EXPECT_EQ(version, "1");
}

TEST_F(ClientSettings, SaveHandsOnThatTheFileCannotBeWritten)
{
    m_user.Write("blocked", "");
    m_environment.Set("CATUserSettingPath", m_user.At("blocked"));
    NextSession();
    KR4WBClientSettings::SetVersion("1");
    EXPECT_EQ(KR4WBClientSettings::Save(), E_FAIL);
}

TEST_F(ClientSettings, RepositoryOpenedFirstServesTheWholeSession)
{
    KR4WBClientSettings::SetVersion("1");
    const TemporaryDirectory other;
    m_environment.Set("CATUserSettingPath", other.Path());
    CATUnicodeString version;
    EXPECT_EQ(KR4WBClientSettings::GetVersion(version), S_OK);
    EXPECT_EQ(version, "1");
    EXPECT_EQ(KR4WBClientSettings::Save(), S_OK);
    EXPECT_TRUE(m_user.Has(kFile));
    EXPECT_FALSE(other.Has(kFile));
}

TEST_F(ClientSettings, WithoutAPlaceEveryOperationFailsAndLeavesItsOutputs)
{
    TakeAwayEveryPlace();
    CATUnicodeString version = "before";
    EXPECT_EQ(KR4WBClientSettings::GetVersion(version), E_FAIL);
    EXPECT_EQ(version, "before");
    EXPECT_EQ(KR4WBClientSettings::SetVersion("1"), E_FAIL);
    EXPECT_EQ(KR4WBClientSettings::Save(), E_FAIL);
    EXPECT_EQ(KR4WBClientSettings::Commit(), E_FAIL);
    EXPECT_EQ(KR4WBClientSettings::Rollback(), E_FAIL);
    EXPECT_EQ(WriteDisplay(1, 1, 3), E_FAIL);
    const Display display = ReadDisplay();
    EXPECT_EQ(display.status, E_FAIL);
    EXPECT_EQ(display.units, 0); // as for a new user
    EXPECT_EQ(display.zeros, 77);
    EXPECT_EQ(display.digits, 77);
    EXPECT_EQ(WriteInstances("P.", "g", {"a"}, {"b"}, {"c"}, {"d"}, {"e"}), E_FAIL);
    const Instances instances = ReadInstances();
    EXPECT_EQ(instances.status, E_FAIL);
    EXPECT_EQ(instances.l1, Texts{"before"});
    EXPECT_EQ(WriteCriteria("and", {"a"}, {"b"}, {"c"}, {"d"}), E_FAIL);
    const Criteria criteria = ReadCriteria();
    EXPECT_EQ(criteria.status, S_FALSE); // nothing is stored
    EXPECT_EQ(criteria.criterion, "before");
    EXPECT_EQ(criteria.m1, Texts{"before"});
}

// The display of reports

TEST_F(ClientSettings, NewUserHasNoDisplayOptions)
{
    const Display display = ReadDisplay();
    EXPECT_EQ(display.status, E_FAIL);
    EXPECT_EQ(display.units, 0);
    EXPECT_EQ(display.zeros, 77);
    EXPECT_EQ(display.digits, 77);
}

TEST_F(ClientSettings, DisplayOptionsComeBack)
{
    const struct
    {
        unsigned char units;
        unsigned char zeros;
        int digits;
    } cases[] = {{1, 0, 5}, {0, 1, 1}, {1, 1, 8}, {0, 0, -3}};
    for (const auto& each : cases) {
        EXPECT_EQ(WriteDisplay(each.units, each.zeros, each.digits), S_OK);
        const Display display = ReadDisplay();
        EXPECT_EQ(display.status, S_OK);
        EXPECT_EQ(display.units, each.units);
        EXPECT_EQ(display.zeros, each.zeros);
        EXPECT_EQ(display.digits, each.digits);
    }
}

TEST_F(ClientSettings, DisplayOptionsAreNumbersUnderTheirKeys)
{
    EXPECT_EQ(WriteDisplay(255, 2, 0), S_OK);
    EXPECT_EQ(StoredInt("DisplayUnits"), 1);
    EXPECT_EQ(StoredInt("DisplayZeros"), 1);
    EXPECT_EQ(StoredInt("NbZeros"), 0);
    EXPECT_EQ(WriteDisplay(0, 0, 5), S_OK);
    EXPECT_EQ(StoredInt("DisplayUnits"), 0);
    EXPECT_EQ(StoredInt("DisplayZeros"), 0);
    EXPECT_EQ(StoredInt("NbZeros"), 5);
    EXPECT_EQ(Repository().Keys().Size(), 3);
}

TEST_F(ClientSettings, DisplayFlagIsOnOnlyForOne)
{
    for (const int stored : {2, -1, 0}) {
        WriteDisplay(1, 1, 4);
        Repository().WriteSetting("DisplayUnits", stored);
        Repository().WriteSetting("DisplayZeros", stored);
        const Display display = ReadDisplay();
        EXPECT_EQ(display.status, S_OK) << stored;
        EXPECT_EQ(display.units, 0) << stored;
        EXPECT_EQ(display.zeros, 0) << stored;
        EXPECT_EQ(display.digits, 4) << stored;
    }
}

TEST_F(ClientSettings, FirstDisplayOptionThatCannotBeReadEndsTheReading)
{
    WriteDisplay(1, 1, 4);
    Repository().RemoveSetting("NbZeros");
    Display display = ReadDisplay();
    EXPECT_EQ(display.status, E_FAIL);
    EXPECT_EQ(display.units, 1);
    EXPECT_EQ(display.zeros, 1);
    EXPECT_EQ(display.digits, 77);

    WriteDisplay(1, 1, 4);
    Repository().WriteSetting("DisplayZeros", CATUnicodeString("1"));
    display = ReadDisplay();
    EXPECT_EQ(display.status, E_FAIL);
    EXPECT_EQ(display.units, 1);
    EXPECT_EQ(display.zeros, 0);
    EXPECT_EQ(display.digits, 77);

    WriteDisplay(1, 1, 4);
    Repository().RemoveSetting("DisplayUnits");
    display = ReadDisplay();
    EXPECT_EQ(display.status, E_FAIL);
    EXPECT_EQ(display.units, 0);
    EXPECT_EQ(display.zeros, 77);
    EXPECT_EQ(display.digits, 77);
}

TEST(ClientSettingSteps, DisplayOptionsAreReadInTheirOrderUntilOneFails)
{
    const std::vector<std::string> all{"read DisplayUnits", "read DisplayZeros", "read NbZeros"};
    for (std::size_t failing = 0; failing <= all.size(); ++failing) {
        const WatchedRepository repository(failing);
        unsigned char units = 77;
        unsigned char zeros = 77;
        int digits = 77;
        EXPECT_EQ(WBReadReportDisplay(repository, units, zeros, digits),
                  failing == 0 ? S_OK : E_FAIL);
        EXPECT_EQ(units, failing == 1 ? 0 : 1);
        EXPECT_EQ(zeros, failing == 1 ? 77 : failing == 2 ? 0 : 1);
        const auto steps = static_cast<std::ptrdiff_t>(failing == 0 ? all.size() : failing);
        EXPECT_EQ(repository.Steps(), std::vector<std::string>(all.begin(), all.begin() + steps));
    }
}

TEST(ClientSettingSteps, DisplayOptionsAreWrittenInTheirOrderUntilOneFails)
{
    const std::vector<std::string> all{"DisplayUnits = 1", "DisplayZeros = 0", "NbZeros = 6"};
    for (std::size_t failing = 0; failing <= all.size(); ++failing) {
        WatchedRepository repository(failing);
        EXPECT_EQ(WBWriteReportDisplay(repository, 1, 0, 6), failing == 0 ? S_OK : E_FAIL);
        const auto steps = static_cast<std::ptrdiff_t>(failing == 0 ? all.size() : failing);
        EXPECT_EQ(repository.Steps(), std::vector<std::string>(all.begin(), all.begin() + steps));
    }
}

TEST(ClientSettingSteps, ListIsWrittenAsItsCountAndThenItsEntries)
{
    WatchedRepository repository;
    EXPECT_EQ(WBWriteSettingList(repository, "K", {"x", "y"}), S_OK);
    EXPECT_EQ(repository.Steps(), (std::vector<std::string>{"KCount = 2", "K = x y"}));
}

TEST(ClientSettingSteps, ListThatIsWrittenHalfIsAFailure)
{
    for (const std::size_t failing : {1U, 2U}) {
        WatchedRepository repository(failing);
        EXPECT_EQ(WBWriteSettingList(repository, "K", {"x"}), E_FAIL) << failing;
    }
}

TEST(ClientSettingSteps, EntriesThatCannotBeReadAreEmptyTexts)
{
    const WatchedRepository repository(1);
    Texts list{"before"};
    EXPECT_EQ(WBReadSettingItems(repository, "K", 2, list), E_FAIL);
    EXPECT_EQ(list, (Texts{"before", "", ""}));
}

TEST(ClientSettingSteps, CountOfZeroDoesNotLookAtTheEntries)
{
    const WatchedRepository repository(1);
    Texts list;
    EXPECT_EQ(WBReadSettingItems(repository, "K", 0, list), S_OK);
    EXPECT_THAT(repository.Steps(), IsEmpty());
    EXPECT_TRUE(list.IsEmpty());
}

// Groups of instances

TEST_F(ClientSettings, InstanceGroupIsOneListWithItsCount)
{
    EXPECT_EQ(WriteInstances("ROOT.", "wing", {"a1", "a2"}, {"b1", "b2"}, {"c1", "c2"},
                             {"d1", "d2"}, {"e1", "e2"}),
              S_OK);
    EXPECT_EQ(StoredInt("ROOT.wingInstancesCount"), 10);
    EXPECT_EQ(StoredTexts("ROOT.wingInstances"),
              (Texts{"a1", "a2", "b1", "b2", "c1", "c2", "d1", "d2", "e1", "e2"}));
    EXPECT_EQ(Repository().Keys().Size(), 2);
}

TEST_F(ClientSettings, InstanceGroupComesBackBehindWhatTheListsHold)
{
    WriteInstances("P.", "g", {"a1", "a2"}, {"", "b|2"}, {"c1", "c2"}, {"d1", "d2"}, {"e1", "ä"});
    KR4WBClientSettings::Save();
    NextSession();
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.l1, (Texts{"before", "a1", "a2"}));
    EXPECT_EQ(read.l2, (Texts{"", "b|2"}));
    EXPECT_EQ(read.l3, (Texts{"c1", "c2"}));
    EXPECT_EQ(read.l4, (Texts{"d1", "d2"}));
    EXPECT_EQ(read.l5, (Texts{"e1", "ä"}));
}

TEST_F(ClientSettings, GroupsAreToldApartByPrefixNameAndKind)
{
    WriteInstances("P.", "g", {"1"}, {"2"}, {"3"}, {"4"}, {"5"});
    WriteInstances("Q.", "g", {"6"}, {"7"}, {"8"}, {"9"}, {"10"});
    WriteInstances("P.", "h", {"11"}, {"12"}, {"13"}, {"14"}, {"15"});
    WriteCriteria("and", {"m1"}, {"m2"}, {"m3"}, {"m4"});
    EXPECT_EQ(ReadInstances("P.", "g").l5, Texts{"5"});
    EXPECT_EQ(ReadInstances("Q.", "g").l5, Texts{"10"});
    EXPECT_EQ(ReadInstances("P.", "h").l5, Texts{"15"});
    EXPECT_EQ(ReadCriteria().m4, Texts{"m4"});
}

TEST_F(ClientSettings, SevenStoredEntriesGiveOneInstance)
{
    Store("P.gInstances", {"1", "2", "3", "4", "5", "6", "7"}, 7);
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.l1, (Texts{"before", "1"}));
    EXPECT_EQ(read.l2, Texts{"2"});
    EXPECT_EQ(read.l3, Texts{"3"});
    EXPECT_EQ(read.l4, Texts{"4"});
    EXPECT_EQ(read.l5, Texts{"5"});
}

TEST_F(ClientSettings, InstanceGroupThatWasNeverStoredIsEmpty)
{
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.l1, Texts{"before"});
    EXPECT_TRUE(read.l5.IsEmpty());
}

TEST_F(ClientSettings, EmptyInstanceGroupReplacesTheOneBefore)
{
    WriteInstances("P.", "g", {"1"}, {"2"}, {"3"}, {"4"}, {"5"});
    EXPECT_EQ(WriteInstances("P.", "g", {}, {}, {}, {}, {}), S_OK);
    EXPECT_EQ(StoredInt("P.gInstancesCount"), 0);
    EXPECT_TRUE(StoredTexts("P.gInstances").IsEmpty());
    EXPECT_EQ(ReadInstances().l1, Texts{"before"});
}

TEST_F(ClientSettings, EntriesBehindTheCountAreNotRead)
{
    Store("P.gInstances", {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}, 5);
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.l1, (Texts{"before", "1"}));
    EXPECT_EQ(read.l5, Texts{"5"});
}

TEST_F(ClientSettings, MissingEntriesAreEmptyTextsAndAFailure)
{
    Store("P.gInstances", {"1", "2", "3"}, 10);
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, E_FAIL);
    EXPECT_EQ(read.l1, (Texts{"before", "1", "2"}));
    EXPECT_EQ(read.l2, (Texts{"3", ""}));
    EXPECT_EQ(read.l3, (Texts{"", ""}));
    EXPECT_EQ(read.l5, (Texts{"", ""}));
}

TEST_F(ClientSettings, CountWithoutItsListGivesEmptyTextsAndAFailure)
{
    Repository().WriteSetting("P.gInstancesCount", 5);
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, E_FAIL);
    EXPECT_EQ(read.l1, (Texts{"before", ""}));
    EXPECT_EQ(read.l5, Texts{""});
}

TEST_F(ClientSettings, CountThatIsNoNumberIsZero)
{
    Store("P.gInstances", {"1", "2", "3", "4", "5"}, 5);
    Repository().WriteSetting("P.gInstancesCount", CATUnicodeString("5"));
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.l1, Texts{"before"});
}

TEST_F(ClientSettings, NegativeCountGivesNothingAndAFailure)
{
    Store("P.gInstances", {"1", "2", "3", "4", "5"}, -5);
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, E_FAIL);
    EXPECT_EQ(read.l1, Texts{"before"});
}

TEST_F(ClientSettings, GarbledCountDoesNotCostTheSessionsMemory)
{
    Store("P.gInstances", {"1", "2", "3", "4", "5"}, 2147483647);
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, E_FAIL);
    EXPECT_EQ(read.l1.Size(), 1 + 200'000); // a fifth of what is filled up at most
    EXPECT_EQ(read.l1[6], "5");
    EXPECT_EQ(read.l5.Size(), 200'000);
}

TEST_F(ClientSettings, LongListIsReadWhateverTheLimitOfFillingUp)
{
    Texts stored;
    stored.Resize(kWBMostFilledUp + 5, "x");
    Store("P.gInstances", stored, stored.Size());
    EXPECT_EQ(ReadInstances().l5.Size(), 200'001);
    // With one entry missing nothing is filled up, and what is there is all read.
    Store("P.gInstances", stored, stored.Size() + 1);
    const Instances read = ReadInstances();
    EXPECT_EQ(read.status, E_FAIL);
    EXPECT_EQ(read.l5.Size(), 200'001);
}

// Groups of criteria

TEST_F(ClientSettings, CriteriaGroupIsTheCriterionAndFourListsWithTheirCount)
{
    EXPECT_EQ(WriteCriteria("and", {"a1", "a2"}, {"b1", "b2"}, {"c1", "c2"}, {"d1", "d2"}), S_OK);
    EXPECT_EQ(StoredInt("P.gCriteriaCount"), 9);
    EXPECT_EQ(StoredTexts("P.gCriteria"),
              (Texts{"and", "a1", "a2", "b1", "b2", "c1", "c2", "d1", "d2"}));
    EXPECT_EQ(Repository().Keys().Size(), 2);
}

TEST_F(ClientSettings, CriteriaGroupComesBackBehindWhatTheListsHold)
{
    WriteCriteria("or", {"a1", "a2"}, {"b1", "b2"}, {"c1", "c2"}, {"d1", ""});
    KR4WBClientSettings::Save();
    NextSession();
    const Criteria read = ReadCriteria();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.criterion, "or");
    EXPECT_EQ(read.m1, (Texts{"before", "a1", "a2"}));
    EXPECT_EQ(read.m2, (Texts{"b1", "b2"}));
    EXPECT_EQ(read.m3, (Texts{"c1", "c2"}));
    EXPECT_EQ(read.m4, (Texts{"d1", ""}));
}

TEST_F(ClientSettings, CriterionAloneComesBackWithoutCriteria)
{
    EXPECT_EQ(WriteCriteria("and", {}, {}, {}, {}), S_OK);
    EXPECT_EQ(StoredInt("P.gCriteriaCount"), 1);
    const Criteria read = ReadCriteria();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.criterion, "and");
    EXPECT_EQ(read.m1, Texts{"before"});
    EXPECT_TRUE(read.m4.IsEmpty());
}

TEST_F(ClientSettings, CriteriaGroupThatWasNeverStoredAnswersOneAndLeavesItsOutputs)
{
    const Criteria read = ReadCriteria();
    EXPECT_EQ(read.status, 1);
    EXPECT_EQ(read.criterion, "before");
    EXPECT_EQ(read.m1, Texts{"before"});
    EXPECT_TRUE(read.m4.IsEmpty());
}

TEST_F(ClientSettings, CriteriaThatCannotBeSharedOutEvenlyAreLeftOut)
{
    Store("P.gCriteria", {"and", "1", "2", "3", "4", "5", "6", "7"}, 8);
    const Criteria read = ReadCriteria();
    EXPECT_EQ(read.status, S_OK);
    EXPECT_EQ(read.m1, (Texts{"before", "1"}));
    EXPECT_EQ(read.m2, Texts{"2"});
    EXPECT_EQ(read.m3, Texts{"3"});
    EXPECT_EQ(read.m4, Texts{"4"});
}

TEST_F(ClientSettings, IncompleteCriteriaAreGivenWithAFailure)
{
    Store("P.gCriteria", {"and", "1", "2"}, 5);
    const Criteria read = ReadCriteria();
    EXPECT_EQ(read.status, E_FAIL);
    EXPECT_EQ(read.criterion, "and");
    EXPECT_EQ(read.m1, (Texts{"before", "1"}));
    EXPECT_EQ(read.m2, Texts{"2"});
    EXPECT_EQ(read.m3, Texts{""});
    EXPECT_EQ(read.m4, Texts{""});
}

// Where the file is

TEST_F(ClientSettings, OriginIsTheFirstDirectoryOfTheUsersPath)
{
    const struct
    {
        const char* variable;
        const char* path;
    } cases[] = {{"/home/me", "/home/me"},
                 {"/home/me;/site", "/home/me"},
                 {"/home/me;/site;/more", "/home/me"},
                 {"/home/me;", "/home/me"},
                 {"x;y", "x"},
                 {";/home/me;/site", ";/home/me;/site"},
                 {"", ""}};
    for (const auto& each : cases) {
        m_environment.Set("CATUserSettingPath", each.variable);
        const DiagnosticCapture lines;
        CATUnicodeString path = "before";
        EXPECT_EQ(KR4WBClientSettings::GetCATSettingsOrigin(path), S_OK);
        EXPECT_EQ(path, each.path);
        EXPECT_THAT(lines.Lines(), ElementsAre("User setting path = " + std::string(each.path)));
    }
}

TEST_F(ClientSettings, OriginWithoutTheVariableIsAFailure)
{
    m_environment.Unset("CATUserSettingPath");
    CATUnicodeString path = "before";
    EXPECT_EQ(KR4WBClientSettings::GetCATSettingsOrigin(path), E_FAIL);
    EXPECT_EQ(path, "");
    EXPECT_THAT(m_output.Lines(), ElementsAre("User setting path = "));
}

TEST_F(ClientSettings, FileIsFoundInTheUsersFirstDirectory)
{
    m_user.Write(kFile, "");
    m_environment.Set("CATUserSettingPath", m_user.Path() + ";/nowhere");
    EXPECT_EQ(KR4WBClientSettings::GetFileExist(), 0);
    EXPECT_THAT(m_output.Lines(), ElementsAre("User setting path = " + m_user.Path()));
}

TEST_F(ClientSettings, FileInAnotherOfTheUsersDirectoriesIsNotFound)
{
    m_user.Write("second/" + std::string(kFile), "");
    m_environment.Set("CATUserSettingPath", m_user.Path() + ";" + m_user.At("second"));
    EXPECT_EQ(KR4WBClientSettings::GetFileExist(), 1);
    EXPECT_THAT(m_output.Lines(),
                ElementsAre("User setting path = " + m_user.Path(),
                            "No KR4WBClientSettings.CATSettings.CATSettings file has been found "
                            "in " +
                                m_user.Path()));
}

TEST_F(ClientSettings, FileIsFoundInAnyDirectoryOfTheReferencePath)
{
    m_user.Write("second/" + std::string(kFile), "");
    m_environment.Set("CATReferenceSettingPath", "/nowhere;" + m_user.At("second"));
    EXPECT_EQ(KR4WBClientSettings::GetFileExist(), 0);
    EXPECT_EQ(m_output.Lines().size(), 2U);
}

TEST_F(ClientSettings, FileIsFoundInAnyDirectoryOfAUsersPathThatBeginsWithTheSeparator)
{
    m_user.Write("second/" + std::string(kFile), "");
    const std::string whole = ";" + m_user.Path() + ";" + m_user.At("second");
    m_environment.Set("CATUserSettingPath", whole);
    EXPECT_EQ(KR4WBClientSettings::GetFileExist(), 0);
    EXPECT_THAT(m_output.Lines(), ElementsAre("User setting path = " + whole));
}

TEST_F(ClientSettings, FileIsNotFoundWithoutVariables)
{
    m_environment.Unset("CATUserSettingPath");
    EXPECT_EQ(KR4WBClientSettings::GetFileExist(), 1);
    EXPECT_THAT(m_output.Lines(),
                ElementsAre("User setting path = ",
                            "No KR4WBClientSettings.CATSettings.CATSettings file has been found "
                            "in "));
}

// What a crash or a damaged disk leaves

TEST_F(ClientSettings, FileCutInHalfIsSetAsideAndReadsAsANewUsers)
{
    WriteDisplay(1, 1, 3);
    WriteInstances("P.", "g", {"a"}, {"b"}, {"c"}, {"d"}, {"e"});
    KR4WBClientSettings::Save();
    const std::string whole = m_user.Read(kFile);
    // In the middle of the list, so that it does not read as a shorter file.
    const std::string half = whole.substr(0, whole.find("\"c\""));
    ASSERT_LT(half.size(), whole.size());
    m_user.Write(kFile, half);
    NextSession();

    EXPECT_EQ(ReadDisplay().status, E_FAIL);
    EXPECT_EQ(ReadInstances().l1, Texts{"before"});
    ASSERT_EQ(m_sentences.size(), 1U);
    EXPECT_TRUE(m_sentences[0].Contains("The file was kept as " + m_user.At(kFile) + ".damaged-1"))
        << m_sentences[0].Text();

    // The session goes on and saves, and what was damaged is still there for a rescue by hand.
    EXPECT_EQ(WriteDisplay(0, 1, 2), S_OK);
    EXPECT_EQ(KR4WBClientSettings::Save(), S_OK);
    EXPECT_EQ(m_user.Read(std::string(kFile) + ".damaged-1"), half);
    NextSession();
    EXPECT_EQ(ReadDisplay().digits, 2);
}

TEST_F(ClientSettings, SurviveACrashAtAnyMomentOfSaving)
{
    constexpr int kCrashes = 30;
    // A round writes one number everywhere: a file made of two rounds would show two.
    const auto saveRound = [](int round) {
        const CATUnicodeString text = CATUnicodeString::FromInt(round);
        Texts entries;
        entries.Resize(2000, text);
        WriteDisplay(1, 0, round);
        KR4WBClientSettings::SetItemInstanceGroup("P.", "g", entries, entries, entries, entries,
                                                  entries);
        KR4WBClientSettings::SetVersion(text);
        // The last round's values are rolled back and this round's written again, as a panel does
        // that is cancelled and confirmed.
        KR4WBClientSettings::Commit();
        KR4WBClientSettings::SetVersion("never saved");
        KR4WBClientSettings::Rollback();
        return KR4WBClientSettings::Save();
    };
    ASSERT_EQ(saveRound(0), S_OK);
    std::mt19937 random(20260722);
    for (int crash = 0; crash < kCrashes; ++crash) {
        const pid_t child = fork();
        if (child == 0) {
            for (int round = 1;; ++round) {
                saveRound(round);
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);

        NextSession();
        const Display display = ReadDisplay();
        ASSERT_EQ(display.status, S_OK);
        const CATUnicodeString round = CATUnicodeString::FromInt(display.digits);
        CATUnicodeString version;
        ASSERT_EQ(KR4WBClientSettings::GetVersion(version), S_OK);
        ASSERT_EQ(version, round);
        const Instances read = ReadInstances();
        ASSERT_EQ(read.status, S_OK);
        ASSERT_EQ(read.l1[2], round);
        ASSERT_EQ(read.l5.Size(), 2000);
        ASSERT_EQ(read.l5[2000], round);
    }
    EXPECT_THAT(m_sentences, IsEmpty());
}
