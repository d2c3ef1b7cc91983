#include "WBRootFilter.h"

#include "PanelSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBRootFilterTest : public PanelSession
{
protected:
    static CATSettingRepository& Settings()
    {
        return *CATSettingRepository::GetRepository("CATWBVPMNavFilterPanel");
    }
    static void Store(const char* root, const char* filter)
    {
        Settings().WriteSetting(CATUnicodeString(root) + ".Filter", CATUnicodeString(filter));
    }
    /// The filter, and what the diagnostic error stream hears.
    CATUnicodeString FilterOf(const char* root)
    {
        errors.clear();
        const CATLineStream::Listener before = CATDiagnosticErrors().SetListener(
            [this](std::string_view line) { errors.emplace_back(line); });
        const CATUnicodeString filter = WBFilterOfRoot(root);
        CATDiagnosticErrors().SetListener(before);
        return filter;
    }

    std::vector<std::string> errors;
};

} // namespace

TEST_F(WBRootFilterTest, RootWithoutAStoredFilterHasNone)
{
    EXPECT_EQ(FilterOf("LA1"), "0|No Filter");
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "No filter");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "Kein Filter");
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(WBRootFilterTest, EachRootHasItsOwn)
{
    Store("LA1", "1|Without doors|X|DOR-000.1|DOR-000|A|1|FUS-000.1");
    Store("SAT1", "1|Panels|I|P.1|P|B|0");
    EXPECT_EQ(FilterOf("LA1"), "1|Without doors|X|DOR-000.1|DOR-000|A|1|FUS-000.1");
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "Without doors");
    EXPECT_EQ(WBShownFilterOfRoot("SAT1"), "Panels");
    EXPECT_EQ(FilterOf("XX"), "0|No Filter");
}

TEST_F(WBRootFilterTest, FilterIsThereAgainInTheNextSession)
{
    Store("LA1", "1|Panels|I|P.1|P|B|0");
    ASSERT_EQ(Settings().SaveRepository(), S_OK);
    CATSettingRepository::CloseAll();
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "Panels");
}

TEST_F(WBRootFilterTest, StoredNoFilterIsNoneInTheUsersLanguage)
{
    Store("LA1", "0|No Filter");
    EXPECT_EQ(FilterOf("LA1"), "0|No Filter");
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "No filter");
}

TEST_F(WBRootFilterTest, DamagedFilterCountsAsNoneAndIsTold)
{
    Store("LA1", "2|Panels|I|P.1|P|B|0");
    EXPECT_EQ(FilterOf("LA1"), "0|No Filter");
    EXPECT_THAT(errors, ElementsAre("The stored filter of LA1 cannot be read and is left out: "
                                    "2|Panels|I|P.1|P|B|0"));
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "No filter: the stored one cannot be read");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "Kein Filter: Der gespeicherte ist nicht lesbar");
}

TEST_F(WBRootFilterTest, SettingOfAnotherKindCountsAsNoneAndIsTold)
{
    Settings().WriteSetting("LA1.Filter", 3);
    EXPECT_EQ(FilterOf("LA1"), "0|No Filter");
    EXPECT_THAT(errors, ElementsAre("The setting LA1.Filter of CATWBVPMNavFilterPanel is no text; "
                                    "there is no filter then"));
}

TEST_F(WBRootFilterTest, FilterHasAsManyLinesAsItSaysAndNothingElse)
{
    for (const char* good : {
             "1|Panels|I|P.1|P|B|0",
             "1|Root alone|X||ROOT|A|0",
             "2|Two|I|P.1|P|B|0|X|D.1|D|A|2|F.1|G.1",
         }) {
        EXPECT_TRUE(WBIsFilter(good)) << good;
    }
    for (const char* bad : {
             "",
             "1",
             "0|No Filter",
             "1|Panels",
             "1||I|P.1|P|B|0", // no name
             "x|Panels|I|P.1|P|B|0",
             "-1|Panels|I|P.1|P|B|0",
             "1 |Panels|I|P.1|P|B|0",
             "1|Panels|Y|P.1|P|B|0",
             "1|Panels|I|P.1|P|B|",
             "1|Panels|I|P.1|P|B|-1",
             "1|Panels|I|P.1|P|B|1",      // a name short
             "1|Panels|I|P.1|P|B|1||F.1", // an empty one
             "1|Panels|I|P.1|P|B|0|F.1",
             "2|Panels|I|P.1|P|B|0",
             "1|Panels|I|P.1|P|B|0|X|P.1|P|B|0",
             "1|Panels|I|P.1|P|B|0|", // would shift what follows it in a request
             "1|Panels|I|P.1|P|B|2000000000",
         }) {
        EXPECT_FALSE(WBIsFilter(bad)) << bad;
    }
}
