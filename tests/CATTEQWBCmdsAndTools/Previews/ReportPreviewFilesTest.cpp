#include "ReportPreviewSession.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <functional>

// How a preview writes its report.

namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kTitle = "Save the report";
constexpr const char* kDefaultName = "WBReport_Legs_20251231235959.xml";
constexpr int kYes = 1;
constexpr int kNo = 2;

class ReportPreviewFiles : public ReportPreview
{
protected:
    ShownBox Success(const std::string& path) const
    {
        return {kTitle, "The report was saved to\n" + path, kInformationBox};
    }
    ShownBox Failure(const std::string& path) const
    {
        return {kTitle,
                "The report could not be saved. Check that the directory is there, that you may "
                "write to it and that its disk is not full, or save to another file. Nothing was "
                "written to\n" +
                    path,
                kErrorBox};
    }
    ShownBox Question(const std::string& path) const
    {
        return {kTitle, path + "\nis there already. Shall it be replaced?", kQuestionBox};
    }
    /// Has the user press "Save to..." and choose the file; the empty text: none.
    void SaveTo(const std::string& path)
    {
        chosenFile = path;
        Click(*preview, "SaveToPushB");
        Process(); // the box tells what the user chose,
        Process(); // and goes away
    }
    /// The report as the file holds it, without the declaration.
    static std::string Saved(const std::string& path)
    {
        CATIDOMDocument_var read;
        CATXMLProblem problem;
        EXPECT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseFile(path, read, problem), S_OK)
            << problem.sentence.View();
        return Written(read);
    }
};

/// Whether both nodes are the same down to the last text, attributes in their order.
testing::AssertionResult AreEqual(const CATIDOMNode_var& left, const CATIDOMNode_var& right)
{
    if (left->NodeType() != right->NodeType() || !(left->NodeName() == right->NodeName()) ||
        !(left->NodeValue() == right->NodeValue())) {
        return testing::AssertionFailure()
               << left->NodeName().View() << " '" << left->NodeValue().View() << "' is not "
               << right->NodeName().View() << " '" << right->NodeValue().View() << "'";
    }
    const CATIDOMNamedNodeMap_var attributes = left->Attributes();
    if (!attributes.IsNull()) {
        const CATIDOMNamedNodeMap_var others = right->Attributes();
        if (attributes->Length() != others->Length()) {
            return testing::AssertionFailure() << "attributes of " << left->NodeName().View();
        }
        for (int index = 0; index < attributes->Length(); ++index) {
            if (const auto equal = AreEqual(attributes->Item(index), others->Item(index)); !equal) {
                return equal;
            }
        }
    }
    const CATIDOMNodeList_var children = left->ChildNodes();
    const CATIDOMNodeList_var otherChildren = right->ChildNodes();
    const int length = attributes.IsNull() ? 0 : children->Length();
    if (!attributes.IsNull() && length != otherChildren->Length()) {
        return testing::AssertionFailure() << "children of " << left->NodeName().View();
    }
    for (int index = 0; index < length; ++index) {
        if (const auto equal = AreEqual(children->Item(index), otherChildren->Item(index));
            !equal) {
            return equal;
        }
    }
    return testing::AssertionSuccess();
}

/// Everything that has to be written in another way than it is read.
constexpr const char* kDifficultReport =
    "<R><PRC A=\"&lt;&amp;&quot;'&gt;\" WB_Mass=\"1\"><!-- kept -->text &lt; &amp; &#13;"
    "<PartInstance instIdAttrAlias=\"N\" N=\"b&#9;&#10;&#13;b\" Z=\"1\" Y=\"\" X=\"\xc3\xa4\"/>"
    "<PartInstance instIdAttrAlias=\"N\" N=\"a &quot;b&quot;\" COGx=\"25.4\" "
    "P=\"1\" __magnitude__P=\"LENGTH\"/></PRC></R>";

void ExpectSameInFile(const std::string& path, const CATIDOMDocument_var& document)
{
    CATIDOMDocument_var read;
    CATXMLProblem problem;
    ASSERT_EQ(CreateCATIXMLDOMDocumentBuilder()->ParseFile(path, read, problem), S_OK)
        << problem.sentence.View();
    EXPECT_TRUE(AreEqual(read->DocumentElement(), document->DocumentElement()));
}

} // namespace

// Under the default name

TEST_F(ReportPreviewFiles, SaveWritesUnderTheDefaultNameInTheDirectoryForReports)
{
    Built();
    Click(*preview, "SavePushB");
    EXPECT_THAT(preview->calls, Contains("Save"));
    EXPECT_EQ(Saved(reports.At(kDefaultName)), kReport);
    EXPECT_THAT(boxes, ElementsAre(Success(reports.Path() + "\\" + kDefaultName)));
}

TEST_F(ReportPreviewFiles, SaveNeverAsks)
{
    reports.Write(kDefaultName, "old");
    boxAnswer = kNo;
    Built();
    Click(*preview, "SavePushB");
    EXPECT_EQ(Saved(reports.At(kDefaultName)), kReport);
    EXPECT_THAT(boxes, ElementsAre(Success(reports.Path() + "\\" + kDefaultName)));
}

TEST_F(ReportPreviewFiles, SaveAgainTakesTheTimeAnew)
{
    Built();
    Click(*preview, "SavePushB");
    CATTime::SetClock([] { return kLastSecondOfTheYear + 1; });
    Click(*preview, "SavePushB");
    EXPECT_TRUE(reports.Has("WBReport_Legs_20260101000000.xml"));
    EXPECT_EQ(reports.FileCount(), 2U);
}

TEST_F(ReportPreviewFiles, WithoutADirectoryForReportsTheHostsOwnIsTaken)
{
    const TemporaryDirectory temporary;
    environment.Unset("ZALKR4REPORTPATH");
    Built(kReport, ("Legs" + std::to_string(getpid())).c_str());
    Click(*preview, "SavePushB");
    const std::string name = "WBReport_Legs" + std::to_string(getpid()) + "_20251231235959.xml";
    EXPECT_THAT(boxes, ElementsAre(Success("C:\\Temp\\" + name)));
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    EXPECT_EQ(Saved(path), kReport);
    std::filesystem::remove(path);
}

TEST_F(ReportPreviewFiles, FileHoldsWhatIsSeen)
{
    Built();
    Click(*preview, "UnitsDisplay");
    Click(*preview, "SavePushB");
    EXPECT_EQ(Saved(reports.At(kDefaultName)), Written(document));
    EXPECT_THAT(Saved(reports.At(kDefaultName)), HasSubstr(R"(WB_Mass="200lb")"));
}

TEST_F(ReportPreviewFiles, DirectoryThatIsNotThereIsToldByThePath)
{
    environment.Set("ZALKR4REPORTPATH", reports.At("nowhere"));
    Built();
    Click(*preview, "SavePushB");
    EXPECT_THAT(boxes, ElementsAre(Failure(reports.At("nowhere") + "\\" + kDefaultName)));
    EXPECT_EQ(reports.FileCount(), 0U);
    EXPECT_THAT(trace.Sentences(), Contains("There is no directory " + reports.At("nowhere")));
    EXPECT_FALSE(preview->IsDestructionRequested());
    EXPECT_EQ(Written(document), kReport);
    EXPECT_EQ(Instances().RowCount(), 3);
}

TEST_F(ReportPreviewFiles, SlashInTheSelectionFailsWithThePathAndLosesNothing)
{
    Built(kReport, "LA1/Legs");
    Click(*preview, "SavePushB");
    EXPECT_THAT(boxes,
                ElementsAre(Failure(reports.Path() + "\\WBReport_LA1/Legs_20251231235959.xml")));
    EXPECT_EQ(reports.FileCount(), 0U);
    SaveTo(reports.At("legs.xml"));
    EXPECT_EQ(Saved(reports.At("legs.xml")), kReport);
}

TEST_F(ReportPreviewFiles, MessagesAreGermanForThoseWhoSpeakIt)
{
    CATMsgCatalog::SetLanguage("de");
    reports.Write("legs.xml", "old");
    Built();
    SaveTo(reports.At("legs.xml"));
    SaveTo(reports.At("nowhere/legs.xml"));
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(boxes[0], (ShownBox{"Bericht speichern",
                                  reports.At("legs.xml") +
                                      "\nist schon vorhanden. Soll die Datei ersetzt werden?",
                                  kQuestionBox}));
    EXPECT_EQ(boxes[1], (ShownBox{"Bericht speichern",
                                  "Der Bericht wurde gespeichert:\n" + reports.At("legs.xml"),
                                  kInformationBox}));
    EXPECT_EQ(boxes[2].title, "Bericht speichern");
    EXPECT_THAT(boxes[2].text, testing::EndsWith("\n" + reports.At("nowhere/legs.xml")));
    EXPECT_EQ(requests.front().title, "Bericht in einer Datei speichern");
}

// Into a file that the user chooses

TEST_F(ReportPreviewFiles, SaveToOffersTheDefaultNameInTheDefaultDirectory)
{
    Built();
    SaveTo("");
    EXPECT_THAT(preview->calls, Contains("SaveTo"));
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].name, "Choose a directory");
    EXPECT_EQ(requests[0].title, "Save the report to a file");
    EXPECT_EQ(requests[0].mode, CATDlgFile::Mode::Save);
    EXPECT_EQ(requests[0].suggestedName, kDefaultName);
    EXPECT_EQ(requests[0].extension, "xml");
    EXPECT_EQ(requests[0].directory, reports.Path());
}

TEST_F(ReportPreviewFiles, SaveToWritesIntoTheChosenFile)
{
    Built();
    SaveTo(reports.At("legs.xml"));
    EXPECT_EQ(Saved(reports.At("legs.xml")), kReport);
    EXPECT_THAT(boxes, ElementsAre(Success(reports.At("legs.xml"))));
    EXPECT_THAT(trace.lines, Contains("Selected directory: " + reports.At("legs.xml")));
    EXPECT_EQ(reports.FileCount(), 1U);
}

TEST_F(ReportPreviewFiles, FileBoxGoesAwayWithTheChoice)
{
    Built();
    SaveTo(reports.At("legs.xml"));
    EXPECT_EQ(Look<CATDlgFile>(*preview, "Choose a directory"), nullptr);
    SaveTo("");
    EXPECT_EQ(Look<CATDlgFile>(*preview, "Choose a directory"), nullptr);
    EXPECT_EQ(reports.FileCount(), 1U);
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(ReportPreviewFiles, FileBoxStandsAboveThePreviewUntilTheUserIsDone)
{
    Built().SetVisibility(true);
    chosenFile.reset();
    Click(*preview, "SaveToPushB");
    EXPECT_NE(Look<CATDlgFile>(*preview, "Choose a directory"), nullptr);
    Click(*preview, "SaveToPushB");
    Process();
    int count = 0;
    for (int position = 1; position <= preview->ChildCount(); ++position) {
        count += preview->Child(position)->Name() == "Choose a directory" ? 1 : 0;
    }
    EXPECT_EQ(count, 1);
    preview->OnDlgStdFileDiaCancelNotification();
    Process();
    EXPECT_EQ(Look<CATDlgFile>(*preview, "Choose a directory"), nullptr);
    preview->OnDlgStdFileDiaOKNotification();
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ReportPreviewFiles, ExistingFileIsReplacedWhenTheUserSaysYes)
{
    reports.Write("legs.xml", "old");
    boxAnswer = kYes;
    Built();
    SaveTo(reports.At("legs.xml"));
    EXPECT_EQ(Saved(reports.At("legs.xml")), kReport);
    EXPECT_THAT(boxes,
                ElementsAre(Question(reports.At("legs.xml")), Success(reports.At("legs.xml"))));
}

TEST_F(ReportPreviewFiles, ExistingFileStaysWhenTheUserSaysNo)
{
    reports.Write("legs.xml", "old");
    boxAnswer = kNo;
    Built();
    SaveTo(reports.At("legs.xml"));
    EXPECT_EQ(reports.Read("legs.xml"), "old");
    EXPECT_THAT(boxes, ElementsAre(Question(reports.At("legs.xml"))));
}

struct ChosenName
{
    const char* chosen;
    const char* written;
};

TEST_F(ReportPreviewFiles, NamesGetTheEndingThatTheyLack)
{
    Built();
    for (const ChosenName& name :
         {ChosenName{"legs", "legs.xml"}, ChosenName{"a.xml", "a.xml"},
          ChosenName{"b.XmL", "b.XmL"}, ChosenName{"c.txt", "c.txt.xml"},
          ChosenName{"d.e.f", "d.e.f.xml"}, ChosenName{"xml", "xml.xml"}}) {
        SaveTo(reports.At(name.chosen));
        EXPECT_TRUE(reports.Has(name.written)) << name.chosen;
    }
    EXPECT_EQ(reports.FileCount(), 6U);
}

TEST_F(ReportPreviewFiles, EndingIsAddedBeforeTheUserIsAsked)
{
    reports.Write("legs.txt.xml", "old");
    boxAnswer = kNo;
    Built();
    SaveTo(reports.At("legs.txt"));
    EXPECT_THAT(boxes, ElementsAre(Question(reports.At("legs.txt.xml"))));
    EXPECT_THAT(trace.lines, Contains("Selected directory: " + reports.At("legs.txt")));
}

// What can go wrong on the disk

TEST_F(ReportPreviewFiles, FullDiskIsToldAndTheOldFileStays)
{
    const std::string old = R"(<Old/>)";
    reports.Write("legs.xml", old);
    Built();
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = before;
    small.rlim_cur = 100;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    SaveTo(reports.At("legs.xml"));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_THAT(boxes,
                ElementsAre(Question(reports.At("legs.xml")), Failure(reports.At("legs.xml"))));
    EXPECT_EQ(reports.Read("legs.xml"), old);
    EXPECT_EQ(reports.FileCount(), 1U);
    EXPECT_THAT(trace.Sentences(),
                Contains("cannot write " + reports.At("legs.xml") + ": File too large"));
    EXPECT_EQ(Written(document), kReport);
}

TEST_F(ReportPreviewFiles, DeviceWithoutRoomIsTold)
{
    Built();
    boxAnswer = kYes;
    preview->WriteReportToFile("/dev/full");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes.back(), Failure("/dev/full"));
}

TEST_F(ReportPreviewFiles, DirectoryInThePlaceOfTheFileIsTold)
{
    std::filesystem::create_directory(reports.At("legs.xml"));
    Built();
    SaveTo(reports.At("legs.xml"));
    EXPECT_THAT(boxes,
                ElementsAre(Question(reports.At("legs.xml")), Failure(reports.At("legs.xml"))));
}

TEST_F(ReportPreviewFiles, DirectoryThatMayNotBeWrittenIsTold)
{
    // Where the kernel tells its own state even the superuser writes no files.
    environment.Set("ZALKR4REPORTPATH", "/proc/self/net");
    Built();
    Click(*preview, "SavePushB");
    EXPECT_THAT(boxes, ElementsAre(Failure(std::string("/proc/self/net\\") + kDefaultName)));
}

TEST_F(ReportPreviewFiles, NoDocumentCannotBeWritten)
{
    Of({});
    preview->WriteReportToFile(reports.At("legs.xml"));
    EXPECT_THAT(boxes, ElementsAre(Failure(reports.At("legs.xml"))));
    EXPECT_EQ(reports.FileCount(), 0U);
}

// There and back

TEST_F(ReportPreviewFiles, WrittenReportReadAgainIsTheDocumentNodeByNode)
{
    Built(kDifficultReport);
    SaveTo(reports.At("difficult.xml"));
    ExpectSameInFile(reports.At("difficult.xml"), document);
    EXPECT_EQ(Saved(reports.At("difficult.xml")), Written(Parsed(kDifficultReport)));
}

TEST_F(ReportPreviewFiles, SortedReportWithItsUnitsReadAgainIsTheDocumentNodeByNode)
{
    UseStableOrder(1);
    Remember(1, 1, 4);
    Built(kDifficultReport);
    Click(*preview, "TrailingZero");
    SaveTo(reports.At("difficult.xml"));
    ExpectSameInFile(reports.At("difficult.xml"), document);
    EXPECT_THAT(Column("N"), ElementsAre("a \"b\"", "b\t\n\rb"));
    EXPECT_THAT(Saved(reports.At("difficult.xml")), HasSubstr(R"(COGx="25.4in")"));
}

TEST_F(ReportPreviewFiles, DifferentDocumentsAreNotTakenForTheSame)
{
    const auto differ = [](const char* left, const char* right) {
        return !AreEqual(Parsed(left)->DocumentElement(), Parsed(right)->DocumentElement());
    };
    EXPECT_TRUE(differ("<R A=\"1\" B=\"2\"/>", "<R B=\"2\" A=\"1\"/>"));
    EXPECT_TRUE(differ("<R A=\"1\"/>", "<R A=\"2\"/>"));
    EXPECT_TRUE(differ("<R A=\"1\"/>", "<R/>"));
    EXPECT_TRUE(differ("<R><A/></R>", "<R/>"));
    EXPECT_TRUE(differ("<R>a</R>", "<R>b</R>"));
    EXPECT_FALSE(differ("<R A=\"1\">a<B/></R>", "<R A=\"1\">a<B/></R>"));
}

// Texts where the installation's catalog lacks them

TEST_F(ReportPreviewFiles, TextsThatTheCatalogLacksAreEnglish)
{
    const TemporaryDirectory resources;
    resources.Write("catalogs/CATWBVPMNavReportPreview.toml", "Other = \"text\"\n");
    environment.Set("WB_RESOURCE_PATH", resources.Path());
    CATMsgCatalog::SetLanguage("en");
    reports.Write("legs.xml", "old");
    Built();
    SaveTo(reports.At("legs.xml"));
    SaveTo(reports.At("nowhere/legs.xml"));
    EXPECT_EQ(Titles(Instances()).front(), "Level");
    EXPECT_EQ(requests.front().title, "Save the report");
    EXPECT_THAT(
        boxes,
        ElementsAre(
            Question(reports.At("legs.xml")),
            ShownBox{kTitle, "The report was saved as " + reports.At("legs.xml"), kInformationBox},
            ShownBox{kTitle, "The report could not be saved as " + reports.At("nowhere/legs.xml"),
                     kErrorBox}));
}
