#include "CATCkeUnitFiles.h"
#include "CATDiagnostics.h"
#include "CATStatus.h"
#include "UnitsSession.h"

#include <array>
#include <gmock/gmock.h>
#include <sstream>

namespace
{

class CATCkeGlobalFunctionsTest : public UnitsSession
{
protected:
    void WriteUserFile(const std::string& text)
    {
        WriteFile(m_userFile, text);
        StartAgain();
    }
    static std::string Current(const char* magnitude)
    {
        return Magnitude(magnitude)->CurrentUnit()->Symbol().ToStdString();
    }

    std::filesystem::path m_userFile = m_settings / "units.toml";
    std::filesystem::path m_company = m_directory / "company";
};

TEST_F(CATCkeGlobalFunctionsTest, MagnitudeNamesAreExact)
{
    EXPECT_FALSE(Magnitude("LENGTH").IsNull());
    EXPECT_TRUE(Magnitude("Length").IsNull());
    EXPECT_TRUE(Magnitude("").IsNull());
}

TEST_F(CATCkeGlobalFunctionsTest, TheDictionaryIsReadOnce)
{
    const CATICkeParmDictionary_var first = CATCkeGlobalFunctions::GetParmDictionary();
    EXPECT_TRUE(first == CATCkeGlobalFunctions::GetParmDictionary());
    EXPECT_STREQ(first->ClassName(), "CATCkeParmDictionary");
}

TEST_F(CATCkeGlobalFunctionsTest, AnotherDictionaryTakesTheSessionsPlace)
{
    const auto empty = CATHandle<CATCkeParmDictionary>::Adopt(new CATCkeParmDictionary);
    CATCkeGlobalFunctions::SetParmDictionary(empty);
    EXPECT_TRUE(Magnitude("LENGTH").IsNull());
    CATCkeGlobalFunctions::SetParmDictionary({});
    EXPECT_FALSE(Magnitude("LENGTH").IsNull());
}

TEST_F(CATCkeGlobalFunctionsTest, WithoutUnitFilesTheDictionaryIsEmptyAndThatIsReported)
{
    std::vector<std::string> sentences;
    const auto dictionary = CATCkeReadDictionary(
        {}, [&](const std::string& sentence) { sentences.push_back(sentence); });
    EXPECT_TRUE(dictionary->MagnitudeNames().IsEmpty());
    EXPECT_THAT(sentences, testing::ElementsAre(testing::StartsWith("no magnitude is known")));
}

/// Unit listeners that write their letter when they are told and then do what the test asks; those
/// that are left go with it.
class Listeners
{
public:
    Listeners() = default;
    Listeners(const Listeners&) = delete;
    Listeners& operator=(const Listeners&) = delete;
    ~Listeners()
    {
        for (const int number : numbers) {
            CATCkeGlobalFunctions::RemoveUnitListener(number);
        }
    }
    void Add(
        char letter, std::function<void()> also = [] {})
    {
        numbers.push_back(CATCkeGlobalFunctions::AddUnitListener(
            [this, letter, also = std::move(also)](const CATICkeMagnitude_var& /*magnitude*/) {
                // What it holds must stay while it removes itself.
                also();
                told += letter;
            }));
    }
    void Remove(std::size_t index) { CATCkeGlobalFunctions::RemoveUnitListener(numbers.at(index)); }

    std::string told;
    std::vector<int> numbers;
};

TEST_F(CATCkeGlobalFunctionsTest, UnitListenersAreToldInTheOrderInWhichTheyCame)
{
    Listeners listeners;
    listeners.Add('a');
    listeners.Add('b');
    listeners.Add('c');
    EXPECT_EQ(Magnitude("MASS")->UseUnit("lb"), S_OK);
    EXPECT_EQ(listeners.told, "abc");
    EXPECT_GT(listeners.numbers[0], 0);
    EXPECT_NE(listeners.numbers[0], listeners.numbers[1]);
}

TEST_F(CATCkeGlobalFunctionsTest, ARemovedUnitListenerHearsNoMoreAndItsNumberIsNotUsedAgain)
{
    Listeners listeners;
    listeners.Add('a');
    listeners.Add('b');
    listeners.Remove(1);
    listeners.Add('c');
    listeners.Remove(1);
    EXPECT_EQ(Magnitude("MASS")->UseUnit("lb"), S_OK);
    EXPECT_EQ(listeners.told, "ac");
}

TEST_F(CATCkeGlobalFunctionsTest, ANumberThatMeansNoUnitListenerDoesNothing)
{
    Listeners listeners;
    listeners.Add('a');
    CATCkeGlobalFunctions::RemoveUnitListener(0);
    CATCkeGlobalFunctions::RemoveUnitListener(-1);
    CATCkeGlobalFunctions::RemoveUnitListener(listeners.numbers[0] + 1);
    EXPECT_EQ(Magnitude("MASS")->UseUnit("lb"), S_OK);
    EXPECT_EQ(listeners.told, "a");
}

TEST_F(CATCkeGlobalFunctionsTest, AnEmptyFunctionIsNoUnitListener)
{
    EXPECT_EQ(CATCkeGlobalFunctions::AddUnitListener({}), 0);
    EXPECT_EQ(Magnitude("MASS")->UseUnit("lb"), S_OK);
}

TEST_F(CATCkeGlobalFunctionsTest, UnitListenersRemoveThemselvesAndOthersWhileTheyAreTold)
{
    Listeners listeners;
    listeners.Add('a', [&] { listeners.Remove(0); });
    listeners.Add('b', [&] { listeners.Remove(2); });
    listeners.Add('c');
    listeners.Add('d');
    EXPECT_EQ(Magnitude("MASS")->UseUnit("lb"), S_OK);
    EXPECT_EQ(listeners.told, "abd");
    EXPECT_EQ(Magnitude("MASS")->UseUnit("kg"), S_OK);
    EXPECT_EQ(listeners.told, "abdbd");
}

TEST_F(CATCkeGlobalFunctionsTest, AUnitListenerAddedWhileOthersAreToldHearsOfTheNextChange)
{
    Listeners listeners;
    listeners.Add('a', [&, isFirst = true]() mutable {
        if (isFirst) {
            listeners.Add('n');
        }
        isFirst = false;
    });
    listeners.Add('b');
    EXPECT_EQ(Magnitude("MASS")->UseUnit("lb"), S_OK);
    EXPECT_EQ(listeners.told, "ab");
    EXPECT_EQ(Magnitude("MASS")->UseUnit("kg"), S_OK);
    EXPECT_EQ(listeners.told, "ababn");
}

// a answers the first change with a choice of its own: b hears of that one first, then of the
// first, and finds the last choice both times.
TEST_F(CATCkeGlobalFunctionsTest, AUnitListenerMayChangeAUnitItself)
{
    std::vector<std::string> heard;
    const int first = CATCkeGlobalFunctions::AddUnitListener(
        [](const CATICkeMagnitude_var& magnitude) { magnitude->SetCurrentUnit("t"); });
    const int second =
        CATCkeGlobalFunctions::AddUnitListener([&](const CATICkeMagnitude_var& magnitude) {
            heard.push_back(magnitude->CurrentUnit()->Symbol().ToStdString());
        });
    EXPECT_EQ(Magnitude("MASS")->SetCurrentUnit("lb"), S_OK);
    CATCkeGlobalFunctions::RemoveUnitListener(first);
    CATCkeGlobalFunctions::RemoveUnitListener(second);
    EXPECT_THAT(heard, testing::ElementsAre("t", "t"));
    StartAgain();
    EXPECT_EQ(Current("MASS"), "t");
}

TEST_F(CATCkeGlobalFunctionsTest, AUserAddsUnitsToKnownMagnitudes)
{
    WriteUserFile(R"([[magnitude]]
name = "LENGTH"
[[magnitude.unit]]
symbol = "yd"
names = ["yard"]
factor = "3 * 304.8"
decimals = 4
)");
    EXPECT_EQ(Unit("LENGTH", "yd")->ToStorage(2.0), 1828.8);
    EXPECT_EQ(Unit("LENGTH", "Yard")->Show(914.4, 2).ToStdString(), "1.00yd");
    EXPECT_EQ(Current("LENGTH"), "mm");
    EXPECT_EQ(m_reports, std::vector<std::string>());
}

TEST_F(CATCkeGlobalFunctionsTest, AUserAddsMagnitudes)
{
    WriteUserFile(R"([[magnitude]]
name = "DOSE"
storage = "Gy"
default = "rd"
[[magnitude.unit]]
symbol = "Gy"
factor = "1"
decimals = 3
[[magnitude.unit]]
symbol = "rd"
factor = "1 / 100"
decimals = 1
small = "exponent"
)");
    EXPECT_EQ(Magnitude("DOSE")->StorageUnit()->Symbol(), CATUnicodeString("Gy"));
    EXPECT_EQ(Current("DOSE"), "rd");
    EXPECT_EQ(Unit("DOSE", "rd")->Show(0.5, 0).ToStdString(), "50rd");
    EXPECT_EQ(Unit("DOSE", "rd")->Show(5e-6, 0).ToStdString(), "5e-04rd");
    EXPECT_EQ(m_reports, std::vector<std::string>());
}

TEST_F(CATCkeGlobalFunctionsTest, ADefaultWithoutWordIsTheStorageUnit)
{
    WriteUserFile("[[magnitude]]\nname = \"DOSE\"\nstorage = \"Gy\"\n"
                  "[[magnitude.unit]]\nsymbol = \"rd\"\nfactor = \"0.01\"\ndecimals = 1\n"
                  "[[magnitude.unit]]\nsymbol = \"Gy\"\nfactor = \"1\"\ndecimals = 3\n");
    EXPECT_EQ(Current("DOSE"), "Gy");
}

TEST_F(CATCkeGlobalFunctionsTest, AUserNamesAnotherDefaultAndTheSettingsStillWin)
{
    WriteFile(m_settings / "Units.CATSettings", "MASS = \"t\"\n");
    WriteUserFile("[[magnitude]]\nname = \"LENGTH\"\ndefault = \"in\"\n"
                  "[[magnitude]]\nname = \"MASS\"\ndefault = \"lb\"\n");
    EXPECT_EQ(Current("LENGTH"), "in");
    EXPECT_EQ(Current("MASS"), "t");
    EXPECT_EQ(Magnitude("LENGTH")->DefaultUnit()->Symbol().ToStdString(), "in");
    EXPECT_EQ(Magnitude("MASS")->DefaultUnit()->Symbol().ToStdString(), "lb");
}

TEST_F(CATCkeGlobalFunctionsTest, ResourceDirectoriesAddUnitsAfterTheShippedOnes)
{
    const char* const form =
        "[[magnitude]]\nname = \"LENGTH\"\n[[magnitude.unit]]\nsymbol = \"yd\"\nfactor = \"";
    WriteFile(m_company / "units" / "b.toml", std::string(form) + "2\"\ndecimals = 1\n");
    WriteFile(m_company / "units" / "a.toml", std::string(form) + "914.4\"\ndecimals = 4\n");
    WriteFile(m_company / "units" / "notes.txt", "no units");
    m_environment["WB_RESOURCE_PATH"] = m_company.string() + ";" + m_company.string();
    StartAgain();
    EXPECT_EQ(Unit("LENGTH", "yd")->ToStorage(1.0), 914.4);
    const CATListValCATUnicodeString symbols = Magnitude("LENGTH")->UnitSymbols();
    EXPECT_EQ(symbols[1], CATUnicodeString("mm"));
    EXPECT_EQ(symbols[symbols.Size()], CATUnicodeString("yd"));
    EXPECT_THAT(m_reports,
                testing::ElementsAre((m_company / "units" / "b.toml").string() +
                                     ":3: unit \"yd\" of LENGTH is left out: expected a symbol and "
                                     "names that no other unit has"));
}

TEST_F(CATCkeGlobalFunctionsTest, EveryDirectoryOfTheSettingsPathMayHoldAUserFile)
{
    WriteFile(m_company / "units.toml",
              "[[magnitude]]\nname = \"LENGTH\"\n"
              "[[magnitude.unit]]\nsymbol = \"yd\"\nfactor = \"914.4\"\ndecimals = 4\n");
    m_environment["CATUserSettingPath"] = m_settings.string() + ";;" + m_company.string();
    StartAgain();
    EXPECT_FALSE(Unit("LENGTH", "yd").IsNull());
}

TEST_F(CATCkeGlobalFunctionsTest, AUnitThatIsKnownAlikeIsNotReported)
{
    WriteUserFile("[[magnitude]]\nname = \"LENGTH\"\nstorage = \"mm\"\n"
                  "[[magnitude.unit]]\nsymbol = \"in\"\nnames = [\"inch\", \"inches\"]\nfactor = "
                  "\"254 / 10\"\n"
                  "decimals = 4\n");
    EXPECT_EQ(Magnitude("LENGTH")->UnitSymbols().Size(), 7);
    EXPECT_EQ(m_reports, std::vector<std::string>());
}

TEST_F(CATCkeGlobalFunctionsTest, AKnownUnitIsNotRedefined)
{
    WriteUserFile("[[magnitude]]\nname = \"LENGTH\"\n"
                  "[[magnitude.unit]]\nsymbol = \"in\"\nfactor = \"25\"\ndecimals = 4\n");
    EXPECT_EQ(Unit("LENGTH", "in")->ToStorage(1.0), 25.4);
    EXPECT_EQ(m_reports.size(), 1U);
}

TEST_F(CATCkeGlobalFunctionsTest, ABrokenFileIsReportedByPlaceAndTheShippedUnitsStay)
{
    WriteUserFile("[[magnitude]]\nname = \"LENGTH\nstorage = \"mm\"\n");
    EXPECT_FALSE(Unit("LENGTH", "in").IsNull());
    EXPECT_THAT(m_reports, testing::ElementsAre(testing::StartsWith(m_userFile.string() + ":2:")));
}

TEST_F(CATCkeGlobalFunctionsTest, AUserFileThatCannotBeReadIsReported)
{
    std::filesystem::create_directories(m_userFile);
    StartAgain();
    EXPECT_FALSE(Unit("LENGTH", "in").IsNull());
    EXPECT_THAT(m_reports, testing::ElementsAre(testing::HasSubstr(m_userFile.string())));
}

TEST_F(CATCkeGlobalFunctionsTest, EveryBadEntryOfAFileIsReportedAndEveryGoodOneIsRead)
{
    WriteUserFile(R"([[magnitude]]
name = "LENGTH"
[[magnitude.unit]]
symbol = "yd"
factor = "914.4"
decimals = 4
[[magnitude.unit]]
symbol = "mil"
factor = "1e-3"
decimals = 1
[[magnitude.unit]]
symbol = "NM"
factor = "1852000"
decimals = 6
[[magnitude.unit]]
symbol = "fathom"
factor = "1828.8"
decimals = "2"
[[magnitude]]
name = "DOSE"
[[magnitude]]
name = "MASS"
[[magnitude.unit]]
symbol = "ct"
factor = "0.0002"
decimals = 2
)");
    EXPECT_FALSE(Unit("LENGTH", "yd").IsNull());
    EXPECT_TRUE(Unit("LENGTH", "mil").IsNull());
    EXPECT_FALSE(Unit("LENGTH", "NM").IsNull());
    EXPECT_TRUE(Unit("LENGTH", "fathom").IsNull());
    EXPECT_FALSE(Unit("MASS", "ct").IsNull());
    EXPECT_THAT(m_reports, testing::ElementsAre(
                               testing::StartsWith(m_userFile.string() + ":9: unit \"mil\""),
                               testing::StartsWith(m_userFile.string() + ":18: unit \"fathom\""),
                               testing::StartsWith(m_userFile.string() + ":19: magnitude DOSE")));
}

std::string UnitsPage()
{
    std::ifstream file(std::string(WB_SOURCE_DIR) + "/docs/units.md");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST_F(CATCkeGlobalFunctionsTest, TheExampleForUsersIsReadWithoutAReport)
{
    const std::string page = UnitsPage();
    const std::string_view fence = "```toml\n";
    const std::size_t begin = page.find(fence) + fence.size();
    WriteUserFile(page.substr(begin, page.find("```", begin) - begin));
    EXPECT_EQ(Current("LENGTH"), "in");
    EXPECT_EQ(Unit("LENGTH", "yards")->ToStorage(2.0), 1828.8);
    EXPECT_EQ(Current("LINEAR_MASS"), "g/m");
    EXPECT_EQ(Unit("LINEAR_MASS", "g/m")->Show(0.25, 0).ToStdString(), "250g/m");
    EXPECT_EQ(m_reports, std::vector<std::string>());
}

TEST_F(CATCkeGlobalFunctionsTest, TheListForUsersHasEveryShippedUnit)
{
    const std::string page = UnitsPage();
    const CATListValCATUnicodeString names =
        CATCkeGlobalFunctions::GetParmDictionary()->MagnitudeNames();
    for (const CATUnicodeString& name : names.Items()) {
        const CATICkeMagnitude_var magnitude = Magnitude(name.Text());
        std::string row = "| " + name.ToStdString() + " | " +
                          magnitude->StorageUnit()->Symbol().ToStdString() + " | " +
                          magnitude->CurrentUnit()->Symbol().ToStdString();
        const char* before = " | ";
        const CATListValCATUnicodeString symbols = magnitude->UnitSymbols();
        for (const CATUnicodeString& symbol : symbols.Items()) {
            row += before + symbol.ToStdString();
            before = ", ";
        }
        EXPECT_NE(page.find(row + " |\n"), std::string::npos) << row;
    }
}

TEST_F(CATCkeGlobalFunctionsTest, WithoutAListenerProblemsGoToTheDiagnosticErrors)
{
    std::vector<std::string> lines;
    auto before =
        CATDiagnosticErrors().SetListener([&](std::string_view line) { lines.emplace_back(line); });
    CATCkeGlobalFunctions::ReportProblemsTo({});
    WriteUserFile("wrong = 1\n");
    EXPECT_FALSE(Magnitude("LENGTH").IsNull());
    CATDiagnosticErrors().SetListener(before);
    EXPECT_THAT(lines,
                testing::ElementsAre(m_userFile.string() +
                                     ":1: \"wrong\" is left out: expected [[magnitude]] alone"));
}

/// A user's file of which one entry is wrong, the line that is named, and the words that are said.
struct BadFile
{
    const char* text;
    int line;
    const char* words;
};

// The rows of kBadUnits follow these three lines.
constexpr const char* kLengthUnit = "[[magnitude]]\nname = \"LENGTH\"\n[[magnitude.unit]]\n";

constexpr std::array kBadFiles{
    BadFile{"[magnitude]\nname = \"LENGTH\"\n", 1,
            "\"magnitude\" is left out: expected [[magnitude]] alone"},
    BadFile{"magnitude = [3]\n", 1, "a magnitude is left out: expected name"},
    BadFile{"\n[[magnitude]]\nstorage = \"Gy\"\n", 2, "a magnitude is left out: expected name"},
    BadFile{"[[magnitude]]\nname = \"\"\n", 1, "a magnitude is left out: expected name"},
    BadFile{"[[magnitude]]\nname = \"DOSE\"\n", 1, "magnitude DOSE is left out: expected storage"},
    BadFile{"[[magnitude]]\nname = \"DOSE\"\nstorage = \"Gy\"\n", 1,
            "magnitude DOSE is left out: expected its storage unit \"Gy\" among its units"},
    BadFile{"[[magnitude]]\nname = \"DOSE\"\nstorage = \"Gy\"\nunits = 1\n", 4,
            "magnitude DOSE is left out: unknown key \"units\""},
    BadFile{"[[magnitude]]\nname = \"LENGTH\"\nstorage = \"m\"\n", 3,
            "magnitude LENGTH is left out: expected its storage unit to stay \"mm\""},
    BadFile{"[[magnitude]]\nname = \"LENGTH\"\nstorage = 1\n", 3, "magnitude LENGTH is left out"},
    BadFile{"[[magnitude]]\nname = \"LENGTH\"\ndefault = \"yd\"\n", 3,
            "default of LENGTH is left out: expected the symbol of one of its units"},
    BadFile{"[[magnitude]]\nname = \"LENGTH\"\ndefault = 1\n", 3, "default of LENGTH is left out"},
    BadFile{"[[magnitude]]\nname = \"LENGTH\"\nunit = 1\n", 3, "units of LENGTH are left out"},
    BadFile{"[[magnitude]]\nname = \"LENGTH\"\nunit = [1]\n", 3,
            "unit without symbol of LENGTH is left out: expected [[magnitude.unit]]"},
};

constexpr std::array kBadUnits{
    BadFile{"factor = \"1\"\ndecimals = 1\n", 3,
            "unit without symbol of LENGTH is left out: symbol is missing: expected a text"},
    BadFile{"symbol = 3\nfactor = \"1\"\ndecimals = 1\n", 4, "symbol: expected a text"},
    BadFile{"symbol = \"e3\"\nfactor = \"1\"\ndecimals = 1\n", 4,
            "unit \"e3\" of LENGTH is left out: symbol: expected a text of at most 32 bytes"},
    BadFile{"symbol = \"yd\"\ndecimals = 1\n", 3, "factor is missing: expected a text such as"},
    BadFile{"symbol = \"yd\"\nfactor = 914.4\ndecimals = 1\n", 5,
            "factor: expected a text such as"},
    BadFile{"symbol = \"yd\"\nfactor = \"914.4\"\n", 3,
            "decimals is missing: expected a whole number"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 13\n", 6,
            "unit \"yd\" of LENGTH is left out: decimals: expected a whole number from 0 to 12"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = -1\n", 6, "decimals: expected"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = \"1\"\n", 6, "decimals: expected"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\noffset = 3\n", 7,
            "offset: expected a text such as \"273.15\""},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\noffset = \"+3\"\n", 7,
            "offset: expected"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\nsmall = \"tiny\"\n", 7,
            "small: expected \"exponent\" or \"plain\""},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\nsmall = 1\n", 7, "small: expected"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\nsource = 1\n", 7,
            "source: expected a text"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\nnames = \"yard\"\n", 7,
            "names: expected a list of texts"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\nnames = [\"yard\", 3]\n", 7,
            "names: expected"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\nnames = [\"\"]\n", 7,
            "names: expected"},
    BadFile{
        "symbol = \"yd\"\nfactor = \"1\"\ndecimals = 1\nnames = [\"Inch\"]\n", 3,
        "unit \"yd\" of LENGTH is left out: expected a symbol and names that no other unit has"},
    BadFile{"symbol = \"inch\"\nfactor = \"25\"\ndecimals = 1\n", 3, "that no other unit has"},
    BadFile{"symbol = \"yd\"\nfactor = \"1\"\ndecimal = 1\n", 6,
            "unit \"yd\" of LENGTH is left out: unknown key \"decimal\""},
};

TEST_F(CATCkeGlobalFunctionsTest, ABadEntryIsReportedByFileLineAndExpectationAndTheRestIsRead)
{
    std::vector<std::pair<std::string, BadFile>> files;
    files.reserve(kBadFiles.size() + kBadUnits.size());
    for (const BadFile& bad : kBadFiles) {
        files.emplace_back(bad.text, bad);
    }
    for (const BadFile& bad : kBadUnits) {
        files.emplace_back(std::string(kLengthUnit) + bad.text, bad);
    }
    const std::string good =
        "[[magnitude]]\nname = \"MASS\"\n"
        "[[magnitude.unit]]\nsymbol = \"ct\"\nfactor = \"0.0002\"\ndecimals = 2\n";
    for (const auto& [text, bad] : files) {
        SCOPED_TRACE(text);
        // A file that spends the word on something else has no room for a list of magnitudes.
        const bool hasRoom = text.find("[[magnitude]]") != std::string::npos;
        WriteUserFile(text + (hasRoom ? good : std::string()));
        EXPECT_EQ(!Unit("MASS", "ct").IsNull(), hasRoom);
        EXPECT_TRUE(Unit("LENGTH", "yd").IsNull());
        EXPECT_EQ(Current("LENGTH"), "mm");
        EXPECT_TRUE(Magnitude("DOSE").IsNull());
        EXPECT_THAT(m_reports, testing::ElementsAre(testing::AllOf(
                                   testing::StartsWith(m_userFile.string() + ":" +
                                                       std::to_string(bad.line) + ": "),
                                   testing::HasSubstr(bad.words))));
    }
}

TEST_F(CATCkeGlobalFunctionsTest, AStorageUnitWithAFactorOrAnOffsetLeavesItsMagnitudeOut)
{
    for (const char* unit : {"factor = \"2\"\n", "factor = \"1\"\noffset = \"1\"\n"}) {
        WriteUserFile(std::string("[[magnitude]]\nname = \"DOSE\"\nstorage = \"Gy\"\n"
                                  "[[magnitude.unit]]\nsymbol = \"Gy\"\ndecimals = 1\n") +
                      unit);
        EXPECT_TRUE(Magnitude("DOSE").IsNull());
        EXPECT_THAT(
            m_reports,
            testing::ElementsAre(
                testing::HasSubstr(":4: unit \"Gy\" of DOSE is left out: expected factor \"1\""),
                testing::HasSubstr(":1: magnitude DOSE is left out")));
    }
}

struct FactorText
{
    const char* text;
    double factor; // 0: refused
};
constexpr std::array kFactorTexts{
    FactorText{"1", 1.0},
    FactorText{"25.4", 25.4},
    FactorText{" 0.5 *4/ 8 ", 0.25},
    FactorText{"2 / 3 * 4", 2.0 / 12.0},
    FactorText{"3.14159265358979323846", 3.14159265358979323846},
    FactorText{"100000000000000000000", 1e20},
    FactorText{"0.00000000000000000000000001", 1e-26},
    FactorText{"10000000000 * 10000000000 * 3", 3e20},
    FactorText{"1 / 10000000000 * 10000000000 * 10000000000", 1e-30},
    FactorText{"18446744073709551615", 18446744073709551615.0},
    FactorText{"", 0.0},
    FactorText{" ", 0.0},
    FactorText{"0", 0.0},
    FactorText{"1 / 0.0", 0.0},
    FactorText{"-1", 0.0},
    FactorText{"+1", 0.0},
    FactorText{"1e3", 0.0},
    FactorText{"1,5", 0.0},
    FactorText{".5", 0.0},
    FactorText{"5.", 0.0},
    FactorText{"1.2.3", 0.0},
    FactorText{"1 2", 0.0},
    FactorText{"1 *", 0.0},
    FactorText{"* 1", 0.0},
    FactorText{"1 /", 0.0},
    FactorText{"/ 2", 0.0},
    FactorText{"1 / 2 / 3", 0.0},
    FactorText{"inf", 0.0},
};

TEST_F(CATCkeGlobalFunctionsTest, AFactorIsAProductOfDecimalsOverAProductOfDecimals)
{
    for (const FactorText& row : kFactorTexts) {
        SCOPED_TRACE(row.text);
        WriteUserFile(std::string(kLengthUnit) + "symbol = \"yd\"\ndecimals = 1\nfactor = \"" +
                      row.text + "\"\n");
        const CATICkeUnit_var unit = Unit("LENGTH", "yd");
        ASSERT_EQ(unit.IsNull(), row.factor == 0.0);
        if (!unit.IsNull()) {
            EXPECT_DOUBLE_EQ(unit->ToStorage(1.0), row.factor);
        }
    }
}

TEST_F(CATCkeGlobalFunctionsTest, AFactorThatNoDoubleHoldsIsRefused)
{
    const std::string huge = "1" + std::string(309, '0');
    const std::string large = "1" + std::string(200, '0');
    const std::string tiny = "0." + std::string(320, '0') + "1";
    const std::string largeSquared = std::string(large).append(" * ").append(large);
    for (const std::string& text : {huge, largeSquared, "1 / " + largeSquared, tiny}) {
        std::string file = kLengthUnit;
        WriteUserFile(
            file.append("symbol = \"yd\"\ndecimals = 1\nfactor = \"").append(text).append("\"\n"));
        EXPECT_TRUE(Unit("LENGTH", "yd").IsNull()) << text;
    }
}

TEST_F(CATCkeGlobalFunctionsTest, AnOffsetMayBeNegative)
{
    WriteUserFile("[[magnitude]]\nname = \"TEMPERATURE\"\n[[magnitude.unit]]\nsymbol = \"warm\"\n"
                  "factor = \"1\"\noffset = \"-10.5\"\ndecimals = 2\n");
    EXPECT_EQ(Unit("TEMPERATURE", "warm")->ToStorage(20.0), 9.5);
    EXPECT_EQ(Unit("TEMPERATURE", "warm")->FromStorage(9.5), 20.0);
}

TEST_F(CATCkeGlobalFunctionsTest, UnitFilesReadAlikeWhereTheSeparatorIsAComma)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    StartAgain();
    EXPECT_EQ(Unit("LENGTH", "in")->ToStorage(1.0), 25.4);
    EXPECT_EQ(m_reports, std::vector<std::string>());
}

} // namespace
