#include "CATCommandLoader.h"

#include "CATDiagnostics.h"
#include "CATEnvironment.h"
#include "CATSession.h"

#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{
std::string LibraryPath(const std::string& name)
{
    return fs::canonical(WB_BINARY_DIR "/lib").string() + "/lib" + name + ".so";
}

class CATCommandLoader : public testing::Test
{
protected:
    void TearDown() override { CATSession::Close(); }

    /// The command, which the session then owns, or null.
    CATCommand* Create(const char* className, const char* library, const char* companion = "")
    {
        CATCommandHeader header;
        header.className = className;
        header.library = library;
        header.companion = companion;
        CATUnicodeString problem;
        CATCommand* command = CATCreateCommand(header, problem);
        m_problem = problem.ToStdString();
        CATRequestDelayedDestruction(command);
        return command;
    }

    std::string m_problem;
};

/// Two resource directories of its own, looked through before the session's.
class CATCommandHeaders : public testing::Test
{
protected:
    void SetUp() override
    {
        fs::create_directories(m_first / "workbenches");
        fs::create_directories(m_second / "workbenches");
        const std::string path = m_first.string() + ";" + m_second.string();
        CATSetEnvironmentSource([path](const char* name) {
            return std::string(name) == "WB_RESOURCE_PATH" ? std::optional(path) : std::nullopt;
        });
    }
    void TearDown() override
    {
        CATSetEnvironmentSource({});
        fs::remove_all(m_root);
    }

    static std::string Entry(const std::string& name)
    {
        return "[[command]]\nclass = \"" + name + "\"\nlibrary = \"TestLibrary\"\ntitle = \"" +
               name + "\"\n";
    }
    static void Write(const fs::path& directory, const std::string& name, const std::string& text)
    {
        std::ofstream(directory / "workbenches" / name) << text;
    }
    /// Reads; what the session's own resources offer is left out.
    std::vector<CATCommandHeader> Read()
    {
        std::vector<std::string> problems;
        std::vector<CATCommandHeader> headers = CATReadCommandHeaders(problems);
        std::erase_if(headers, [](const auto& header) { return header.library != "TestLibrary"; });
        std::erase_if(problems,
                      [this](const auto& text) { return !text.starts_with(m_root.string()); });
        m_problems = problems;
        return headers;
    }
    std::vector<std::string> ReadNames()
    {
        std::vector<std::string> names;
        for (const CATCommandHeader& header : Read()) {
            names.push_back(header.className.ToStdString());
        }
        return names;
    }

    fs::path m_root = fs::path(testing::TempDir()) /
                      (std::string("workbenches_") +
                       testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::path m_first = m_root / "first";
    fs::path m_second = m_root / "second";
    std::vector<std::string> m_problems;
};
} // namespace

TEST_F(CATCommandLoader, MakesTheCommandThatTheHeaderNames)
{
    CATCommand* command = Create("GoodCommand", "TestModuleGood");

    ASSERT_NE(command, nullptr);
    EXPECT_STREQ(command->ClassName(), "GoodCommand");
    EXPECT_EQ(command->Parent(), nullptr);
    EXPECT_EQ(m_problem, "");
}

TEST_F(CATCommandLoader, LibraryStaysLoadedAfterItsCommand)
{
    Create("GoodCommand", "TestModuleGood");
    CATSession::RunDelayedDestructions();

    void* library = dlopen(LibraryPath("TestModuleGood").c_str(), RTLD_NOW | RTLD_NOLOAD);

    ASSERT_NE(library, nullptr);
    dlclose(library);
}

TEST_F(CATCommandLoader, MissingLibraryIsNamed)
{
    EXPECT_EQ(Create("GoodCommand", "NoSuchLibrary"), nullptr);

    EXPECT_THAT(m_problem, AllOf(StartsWith("The library " + LibraryPath("NoSuchLibrary") +
                                            " cannot be loaded: "),
                                 HasSubstr("No such file")));
}

TEST_F(CATCommandLoader, LibraryWithAMissingSymbolIsRefusedWithItsName)
{
    EXPECT_EQ(Create("GoodCommand", "TestModuleHasMissingSymbol"), nullptr);

    EXPECT_THAT(m_problem, AllOf(HasSubstr("libTestModuleHasMissingSymbol.so cannot be loaded"),
                                 HasSubstr("FunctionThatNoLibraryHas")));
}

TEST_F(CATCommandLoader, MissingFactoryIsNamed)
{
    EXPECT_EQ(Create("UnknownCommand", "TestModuleGood"), nullptr);

    EXPECT_THAT(m_problem,
                StartsWith("The function fctCreateUnknownCommand is missing in the library " +
                           LibraryPath("TestModuleGood") + ": "));
}

TEST_F(CATCommandLoader, FactoryThatMakesNoCommandIsNamed)
{
    EXPECT_EQ(Create("NoCommand", "TestModuleMakesNoCommand"), nullptr);

    EXPECT_EQ(m_problem, "The function fctCreateNoCommand made no command.");
}

TEST_F(CATCommandLoader, FaultOfTheConstructorIsASentence)
{
    EXPECT_EQ(Create("FailingCommand", "TestModuleFailsToConstruct"), nullptr);

    EXPECT_EQ(m_problem, "The function fctCreateFailingCommand failed: a null handle was used.");
}

TEST_F(CATCommandLoader, CompanionRegistersOnce)
{
    std::vector<std::string> lines;
    auto former =
        CATDiagnosticOutput().SetListener([&](std::string_view line) { lines.emplace_back(line); });

    EXPECT_NE(Create("GoodCommand", "TestModuleGood", "TestCompanionGood"), nullptr);
    EXPECT_NE(Create("GoodCommand", "TestModuleGood", "TestCompanionGood"), nullptr);
    CATDiagnosticOutput().SetListener(std::move(former));

    EXPECT_THAT(lines, ElementsAre("TestCompanionGood registers"));
}

TEST_F(CATCommandLoader, CommandWithoutItsCompanionIsNotMade)
{
    EXPECT_EQ(Create("GoodCommand", "TestModuleGood", "NoSuchCompanion"), nullptr);

    EXPECT_THAT(m_problem, StartsWith("The library " + LibraryPath("NoSuchCompanion") +
                                      " cannot be loaded: "));
}

TEST_F(CATCommandLoader, CompanionWithoutItsRegisterFunctionIsRefused)
{
    EXPECT_EQ(Create("GoodCommand", "TestModuleGood", "TestCompanionHasNoRegister"), nullptr);

    EXPECT_THAT(
        m_problem,
        StartsWith("The function TestCompanionHasNoRegisterRegister is missing in the library " +
                   LibraryPath("TestCompanionHasNoRegister") + ": "));
}

TEST_F(CATCommandLoader, CompanionThatFailsToRegisterIsAskedAgainTheNextTime)
{
    for (int attempt = 1; attempt <= 2; ++attempt) {
        EXPECT_EQ(Create("GoodCommand", "TestModuleGood", "TestCompanionFailsToRegister"), nullptr);
        EXPECT_EQ(m_problem, "The function TestCompanionFailsToRegisterRegister failed: "
                             "a null handle was used.");
    }
}

TEST_F(CATCommandHeaders, EveryFieldIsRead)
{
    Write(m_first, "a.toml",
          "[[command]]\nclass = \"C\"\nlibrary = \"TestLibrary\"\ncompanion = \"Panels\"\n"
          "title = \"Title\"\ntooltip = \"Tip\"\nicon = \"c.svg\"\nworkshop = \"W\"\n"
          "shortcut = \"Ctrl+1\"\n");

    const auto headers = Read();

    ASSERT_EQ(headers.size(), 1U);
    EXPECT_EQ(headers[0].className, "C");
    EXPECT_EQ(headers[0].library, "TestLibrary");
    EXPECT_EQ(headers[0].companion, "Panels");
    EXPECT_EQ(headers[0].title, "Title");
    EXPECT_EQ(headers[0].tooltip, "Tip");
    EXPECT_EQ(headers[0].icon, "c.svg");
    EXPECT_EQ(headers[0].workshop, "W");
    EXPECT_EQ(headers[0].shortcut, "Ctrl+1");
    EXPECT_THAT(m_problems, IsEmpty());
}

TEST_F(CATCommandHeaders, FieldsThatMayBeMissingAreEmpty)
{
    Write(m_first, "a.toml", Entry("C"));

    const auto headers = Read();

    ASSERT_EQ(headers.size(), 1U);
    EXPECT_EQ(headers[0].companion, "");
    EXPECT_EQ(headers[0].tooltip, "");
    EXPECT_EQ(headers[0].shortcut, "");
}

TEST_F(CATCommandHeaders, CommandsStandInTheOrderOfFilesAndEntries)
{
    Write(m_first, "b.toml", Entry("Third"));
    Write(m_second, "a.toml", Entry("Second") + Entry("First"));

    EXPECT_THAT(ReadNames(), ElementsAre("Second", "First", "Third"));
}

TEST_F(CATCommandHeaders, OfTwoFilesOfOneNameTheFirstDirectorysCounts)
{
    Write(m_second, "a.toml", Entry("Hidden"));
    Write(m_first, "a.toml", Entry("Seen"));

    EXPECT_THAT(ReadNames(), ElementsAre("Seen"));
}

TEST_F(CATCommandHeaders, OtherFilesAreNotRead)
{
    Write(m_first, "a.toml~", Entry("Backup"));

    EXPECT_THAT(ReadNames(), IsEmpty());
    EXPECT_THAT(m_problems, IsEmpty());
}

TEST_F(CATCommandHeaders, BrokenFileIsReportedAndTheOthersStay)
{
    Write(m_first, "a.toml", "[[command\n");
    Write(m_first, "b.toml", Entry("Whole"));

    EXPECT_THAT(ReadNames(), ElementsAre("Whole"));
    EXPECT_THAT(m_problems,
                ElementsAre(StartsWith((m_first / "workbenches/a.toml").string() + ":1:")));
}

TEST_F(CATCommandHeaders, FileWithoutCommandsIsReported)
{
    Write(m_first, "a.toml", "title = \"Nothing\"\n");
    Write(m_first, "b.toml", "command = \"C\"\n");

    EXPECT_THAT(ReadNames(), IsEmpty());
    const std::string folder = (m_first / "workbenches").string();
    EXPECT_THAT(m_problems, ElementsAre(folder + "/a.toml: there is no [[command]] in it.",
                                        folder + "/b.toml: there is no [[command]] in it."));
}

TEST_F(CATCommandHeaders, EntryThatLacksAFieldIsReportedByLineAndLeftOut)
{
    const std::string file = (m_first / "workbenches/a.toml").string();
    const std::string whole = Entry("Whole"); // four lines
    for (const std::string field : {"class", "library", "title"}) {
        std::string entry = "[[command]]\n";
        for (const std::string other : {"class", "library", "title"}) {
            entry += other == field ? "" : other + " = \"TestLibrary\"\n";
        }
        Write(m_first, "a.toml", whole + entry);

        EXPECT_THAT(ReadNames(), ElementsAre("Whole"));
        EXPECT_THAT(m_problems, ElementsAre(file + ":5: a command lacks its \"" + field + "\"."));
    }
}

TEST_F(CATCommandHeaders, FieldThatIsNoTextIsReported)
{
    Write(m_first, "a.toml", Entry("C") + "tooltip = 3\n" + Entry(""));

    EXPECT_THAT(ReadNames(), IsEmpty());
    EXPECT_THAT(
        m_problems,
        ElementsAre(
            HasSubstr("a.toml:1: the \"tooltip\" of a command must be a text."),
            HasSubstr("a.toml:6: the \"class\" of a command must be a text that is not empty.")));
}
