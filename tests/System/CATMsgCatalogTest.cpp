#include "CATMsgCatalog.h"
#include "DiagnosticCapture.h"
#include "TemporaryDirectory.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>

namespace
{

class CATMsgCatalogTest : public testing::Test
{
protected:
    CATMsgCatalogTest()
    {
        m_environment.Set("WB_RESOURCE_PATH", m_resources.Path());
        CATMsgCatalog::SetLanguage("");
        CATMsgCatalog::ReportProblemsTo(
            [this](const CATUnicodeString& sentence) { m_sentences.push_back(sentence); });
    }
    ~CATMsgCatalogTest() override
    {
        CATMsgCatalog::ReportProblemsTo({});
        CATMsgCatalog::SetLanguage("");
    }

    TemporaryDirectory m_resources;
    TestEnvironment m_environment;
    DiagnosticCapture m_errors{CATDiagnosticErrors()};
    std::vector<CATUnicodeString> m_sentences;
};

TEST_F(CATMsgCatalogTest, FindsKeysWrittenAsTablesAndAsQuotedNames)
{
    m_resources.Write("catalogs/Cmd.toml",
                      "Plain = \"p\"\n\"initialState.Message\" = \"quoted\"\n"
                      "ServerError.Title = \"dotted\"\nignored = 7\n"
                      "[Communication]\nTitle = \"table\"\n[A.B]\n\"C.D\" = \"deep\"\n");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "Plain", "d"), "p");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "initialState.Message", "d"), "quoted");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "ServerError.Title", "d"), "dotted");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "Communication.Title", "d"), "table");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "A.B.C.D", "d"), "deep");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "ignored", "d"), "d");
    EXPECT_TRUE(m_sentences.empty());
}

TEST_F(CATMsgCatalogTest, DefaultThatBeginsWithAtIsLiteral)
{
    m_resources.Write("catalogs/Cmd.toml", "");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "k", "@No filter\nGo on?"), "No filter\nGo on?");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "k", "k"), "k");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "k", "a@b"), "a@b");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "k", ""), "");
}

TEST_F(CATMsgCatalogTest, FillsInParametersInOnePass)
{
    m_resources.Write("catalogs/Cmd.toml", "m = \"/p2 before /p1, /p3 and /p, /p0\"\n");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "m", "", {"/p2", "two"}),
              "two before /p2, /p3 and /p, /p0");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "m", ""), "/p2 before /p1, /p3 and /p, /p0");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "k", "@<//p1>", {"x"}), "</x>");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "k", "@/p10",
                                          {"1", "2", "3", "4", "5", "6", "7", "8", "9", "ten"}),
              "ten");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "k", "@/p99999999999", {"x"}), "/p99999999999");
}

TEST_F(CATMsgCatalogTest, LanguageOfTheUserComesBeforeEnglish)
{
    m_resources.Write("catalogs/Cmd.toml", "a = \"mass\"\nb = \"only English\"\n");
    m_resources.Write("de/catalogs/Cmd.toml", "a = \"Masse\"\n");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "Masse");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "b", "d"), "only English");
    CATMsgCatalog::SetLanguage("en");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "mass");
    CATMsgCatalog::SetLanguage("");
    m_environment.Set("LANG", "de_DE.UTF-8");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "Masse");
    m_environment.Set("LANG", "fr_FR.UTF-8");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "mass");
    EXPECT_TRUE(m_sentences.empty());
}

TEST_F(CATMsgCatalogTest, CatalogInTheUsersLanguageAloneIsEnough)
{
    m_resources.Write("de/catalogs/Cmd.toml", "a = \"Masse\"\n");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "Masse");
    EXPECT_TRUE(m_sentences.empty());
}

TEST_F(CATMsgCatalogTest, LanguageIsTheFirstMessageLocaleThatIsNotEmpty)
{
    EXPECT_EQ(CATMsgCatalog::Language(), "en");
    m_environment.Set("LANG", "de_DE.UTF-8");
    EXPECT_EQ(CATMsgCatalog::Language(), "de");
    m_environment.Set("LC_MESSAGES", "it");
    EXPECT_EQ(CATMsgCatalog::Language(), "it");
    m_environment.Set("LC_ALL", "");
    EXPECT_EQ(CATMsgCatalog::Language(), "it");
    m_environment.Set("LC_ALL", "fr@euro");
    EXPECT_EQ(CATMsgCatalog::Language(), "fr");
    for (const char* english : {"C", "POSIX", "C.UTF-8", "../x", "_DE"}) {
        m_environment.Set("LC_ALL", english);
        EXPECT_EQ(CATMsgCatalog::Language(), "en") << english;
    }
}

TEST_F(CATMsgCatalogTest, MissingCatalogIsReportedOnceAndItsDefaultsAreUsed)
{
    EXPECT_EQ(CATMsgCatalog::BuildMessage("None", "a", "@default"), "default");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("None", "b", "@other"), "other");
    EXPECT_EQ(m_sentences, (std::vector<CATUnicodeString>{
                               "The message catalog is missing: catalogs/None.toml"}));
    EXPECT_EQ(m_errors.Lines(),
              (std::vector<std::string>{"The message catalog is missing: catalogs/None.toml"}));
}

TEST_F(CATMsgCatalogTest, BrokenCatalogIsReportedWithItsLineAndTheOtherLanguageServes)
{
    m_resources.Write("catalogs/Cmd.toml", "a = \"mass\"\n");
    const std::string broken = m_resources.Write("de/catalogs/Cmd.toml", "a = \"Masse\"\nb = \n");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "mass");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "mass");
    ASSERT_EQ(m_sentences.size(), 1U);
    EXPECT_EQ(m_sentences[0].Find("The message catalog cannot be read: " + broken + ":2:"), 0)
        << m_sentences[0].Text();
}

TEST_F(CATMsgCatalogTest, CatalogIsReadOnceUntilTheLanguageIsSet)
{
    m_resources.Write("catalogs/Cmd.toml", "a = \"old\"\n");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "old");
    m_resources.Write("catalogs/Cmd.toml", "a = \"new\"\n");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "old");
    CATMsgCatalog::SetLanguage("en");
    EXPECT_EQ(CATMsgCatalog::BuildMessage("Cmd", "a", "d"), "new");
    CATMsgCatalog::BuildMessage("None", "a", "d");
    CATMsgCatalog::SetLanguage("en");
    CATMsgCatalog::BuildMessage("None", "a", "d");
    EXPECT_EQ(m_sentences.size(), 2U);
}

TEST_F(CATMsgCatalogTest, NobodyNeedListen)
{
    CATMsgCatalog::ReportProblemsTo({});
    EXPECT_EQ(CATMsgCatalog::BuildMessage("None", "a", "@default"), "default");
    EXPECT_EQ(m_errors.Lines().size(), 1U);
}

} // namespace
