#include "OtherPreviewSession.h"

#include "CATIXMLDOMDocumentBuilder.h"

#include <array>

// What the preview of distributive reports and that of material statistics have in common.

namespace
{

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

/// A report whose first list shows a pound in a cell, and what differs between the two.
template <class Preview>
struct Case;

template <>
struct Case<CATWBVPMNavDistributiveReportPreview>
{
    static constexpr const char* name = "CATWBVPMNavDistributiveReportPreview";
    static constexpr const char* component = "CATWBDistributiveRepPreview";
    static constexpr int style = 0x4001;
    static constexpr const char* nullTrace = "_hDOMDocument is null! Can't continue";
    static constexpr const char* report =
        R"(<R><PRC WB_Mass="1"><PartInstance WB_Mass="1"/></PRC></R>)";
    static constexpr const char* otherReport =
        R"(<R><PRC WB_Mass="2"><PartInstance WB_Mass="1"/></PRC></R>)";
    static constexpr const char* list = "ReportMultiListPRC";
    static constexpr int column = 1;
    static constexpr std::array buttons{"SavePushB", "SaveToPushB", "ClosePushB"};
};
template <>
struct Case<CATWBVPMNavMatStatPreview>
{
    static constexpr const char* name = "CATWBVPMNavMatStatPreview";
    static constexpr const char* component = "CATWBVPMNavMatStatPreview";
    static constexpr int style = 0x4201;
    static constexpr const char* nullTrace = "_hDOMDocument is null! We cannot continue";
    static constexpr const char* report = R"(<R><PRC><MassTypeStat Mass="0.45359237"/></PRC></R>)";
    static constexpr const char* otherReport =
        R"(<R><PRC><MassTypeStat Mass="0.90718474"/></PRC></R>)";
    static constexpr const char* list = "MassTypePRCMultiList";
    static constexpr int column = 2;
    static constexpr std::array buttons{"SavePushButton", "SaveAsPushButton", "ClosePushButton"};
};

template <class Preview>
class OtherPreviews : public OtherPreviewSession<Preview>
{
protected:
    using Differs = Case<Preview>;

    void Show() { this->Built(Differs::report); }
    /// The cell that shows a mass.
    std::string Cell() const
    {
        return this->List(Differs::list).Cell(Differs::column, 1).ToStdString();
    }
    static std::string CellOf(const Preview& preview)
    {
        return OtherPreviews::template Find<CATDlgMultiList>(preview, Differs::list)
            .Cell(Differs::column, 1)
            .ToStdString();
    }
    void Press(std::size_t button) { this->Click(*this->preview, Differs::buttons[button]); }
    void Save() { Press(0); }
    void SaveAs() { Press(1); }
    void Close() { Press(2); }
    std::string FileText() const
    {
        return CreateCATIXMLDOMDocumentBuilder()->WriteText(this->document);
    }
    /// Whether the display options were remembered so.
    static void ExpectRemembered(int units, int zeros, int digits)
    {
        unsigned char rememberedUnits = 9;
        unsigned char rememberedZeros = 9;
        int rememberedDigits = 9;
        EXPECT_EQ(KR4WBClientSettings::GetReportDisplay(rememberedUnits, rememberedZeros,
                                                        rememberedDigits),
                  S_OK);
        EXPECT_EQ(rememberedUnits, units);
        EXPECT_EQ(rememberedZeros, zeros);
        EXPECT_EQ(rememberedDigits, digits);
    }
};

using Both = testing::Types<CATWBVPMNavDistributiveReportPreview, CATWBVPMNavMatStatPreview>;
TYPED_TEST_SUITE(OtherPreviews, Both);

constexpr const char* kDefaultName = "WBReport_Legs_20251231235959.xml";

} // namespace

// The window

TYPED_TEST(OtherPreviews, IsADialogOfItsNameAboveTheMainWindow)
{
    this->Make("<R/>");
    EXPECT_EQ(this->preview->Name(), TestFixture::Differs::name);
    EXPECT_STREQ(this->preview->ClassName(), TestFixture::Differs::name);
    EXPECT_EQ(this->preview->Style(), TestFixture::Differs::style);
    EXPECT_EQ(this->preview->Parent(), this->frame->MainWindow());
    EXPECT_FALSE(this->preview->IsVisible());
    EXPECT_EQ(this->preview->ChildCount(), 0);
    EXPECT_THAT(this->trace.Sentences(), IsEmpty());
}

TYPED_TEST(OtherPreviews, HasItsOwnResourcesAndThenThoseOfTheDialog)
{
    this->Make("<R/>");
    EXPECT_EQ(this->preview->GetResourceFilename(-1), TestFixture::Differs::name);
    EXPECT_EQ(this->preview->GetResourceFilename(0), TestFixture::Differs::name);
    EXPECT_EQ(this->preview->GetResourceFilename(1),
              this->preview->CATDlgDialog::GetResourceFilename(0));
}

TYPED_TEST(OtherPreviews, ANullDocumentIsTracedAndNothingIsBuilt)
{
    this->Of({});
    this->preview->Build();
    EXPECT_THAT(this->trace.Sentences(), ElementsAre("The DOM Doc received as argument is null!",
                                                     TestFixture::Differs::nullTrace));
    EXPECT_EQ(this->preview->ChildCount(), 0);
}

TYPED_TEST(OtherPreviews, ANullDocumentIsNeitherShownNorSaved)
{
    this->Of({});
    this->preview->Build();
    this->preview->UpdatePreviewPanelList();
    this->preview->OnUnitsDisplayNotification();
    this->preview->OnSaveNotification();
    EXPECT_THAT(this->boxes, IsEmpty());
    EXPECT_EQ(this->reports.FileCount(), 0U);
}

TYPED_TEST(OtherPreviews, OperationsOfAWindowThatIsNotBuiltAreHarmless)
{
    this->Make(TestFixture::Differs::report);
    this->preview->UpdatePreviewPanelList();
    this->preview->OnUnitsDisplayNotification();
    EXPECT_EQ(this->preview->ChildCount(), 0);
}

TYPED_TEST(OtherPreviews, IsMadeAndGoesWithoutAMainWindow)
{
    CATSession::Close();
    this->frame.reset();
    const CATCommandWatch<TypeParam> orphan(
        new TypeParam("Legs", Parsed(TestFixture::Differs::report), 0));
    EXPECT_EQ(orphan.Get()->Parent(), nullptr);
    orphan.Get()->Build();
    orphan.Get()->Release(); // a command without parent belongs to whoever made it
    EXPECT_EQ(orphan.Get(), nullptr);
}

// The options

TYPED_TEST(OtherPreviews, ANewUserSeesBareNumbersAndEightHiddenDigits)
{
    this->Show();
    EXPECT_EQ(this->Cell(), "1");
    EXPECT_FALSE(this->Units().IsChecked());
    EXPECT_FALSE(this->Zeros().IsChecked());
    EXPECT_FALSE(this->Digits().IsVisible());
    EXPECT_EQ(this->Digits().Value(), 8.0);
    EXPECT_THAT(this->preview->calls, ElementsAre("Update"));
    EXPECT_EQ(this->Digits().UpSensitivity(), 0);
}

TYPED_TEST(OtherPreviews, RememberedOptionsAreAppliedOneAfterTheOther)
{
    this->Remember(1, 1, 5);
    this->Show();
    EXPECT_THAT(this->preview->calls,
                ElementsAre("Update", "Units", "Update", "TrailingDigits", "Units", "Update",
                            "TrailingZero", "Units", "Update"));
    EXPECT_TRUE(this->Units().IsChecked());
    EXPECT_TRUE(this->Zeros().IsChecked());
    EXPECT_EQ(this->Digits().Value(), 5.0);
    EXPECT_EQ(this->Cell(), "1.000lb");
}

TYPED_TEST(OtherPreviews, DigitsOutsideOneToEightBecomeEightWithoutAWord)
{
    for (const int digits : {0, 9, -1}) {
        this->Remember(0, 0, digits);
        this->Show();
        EXPECT_EQ(this->Digits().Value(), 8.0) << digits;
        EXPECT_THAT(this->preview->calls, ElementsAre("Update")) << digits;
    }
    for (const int digits : {1, 8}) {
        this->Remember(0, 0, digits);
        this->Show();
        EXPECT_EQ(this->Digits().Value(), digits);
        EXPECT_THAT(this->preview->calls,
                    ElementsAre("Update", "TrailingDigits", "Units", "Update"));
    }
}

TYPED_TEST(OtherPreviews, TheUserTurnsSymbolsOnAndOff)
{
    this->Show();
    this->Click(*this->preview, "UnitsDisplay");
    EXPECT_EQ(this->Cell(), "1lb");
    EXPECT_EQ(this->Digits().UpSensitivity(), 16);
    this->Click(*this->preview, "UnitsDisplay");
    EXPECT_EQ(this->Cell(), "1");
}

TYPED_TEST(OtherPreviews, TheUserTurnsTrailingZerosOnAndOff)
{
    this->Show();
    this->Click(*this->preview, "TrailingZero");
    EXPECT_EQ(this->Cell(), "1.000");
    EXPECT_THAT(this->preview->calls, Contains("TrailingZero"));
    this->Click(*this->preview, "TrailingZero");
    EXPECT_EQ(this->Cell(), "1");
}

TYPED_TEST(OtherPreviews, TheDigitsAreNotShownWith)
{
    this->Show();
    this->Digits().SetValue(1, CATDlgTelling::Notify);
    EXPECT_THAT(this->preview->calls, ElementsAre("Update", "TrailingDigits", "Units", "Update"));
    EXPECT_EQ(this->Cell(), "1");
}

TYPED_TEST(OtherPreviews, NumbersAreWrittenAsTheSessionWritesThem)
{
    const NumberLocale comma(kCommaLocale);
    this->Remember(1, 1, 8);
    this->Show();
    EXPECT_EQ(this->Cell(), "1,000lb");
}

TYPED_TEST(OtherPreviews, TheOptionsAreRememberedWhenItGoes)
{
    this->Show();
    this->Click(*this->preview, "UnitsDisplay");
    this->Digits().SetValue(3);
    this->preview->RequestDelayedDestruction();
    this->Process();
    ASSERT_EQ(this->watch.Get(), nullptr);
    this->ExpectRemembered(1, 0, 3);
    EXPECT_TRUE(this->settings.Has("KR4WBClientSettings.CATSettings"));
    KR4WBClientSettings::Rollback();
    this->ExpectRemembered(1, 0, 3);
}

TYPED_TEST(OtherPreviews, OneThatWasNeverBuiltLeavesEverythingOff)
{
    this->Remember(1, 1, 5);
    this->Make("<R/>");
    this->preview->RequestDelayedDestruction();
    this->Process();
    this->ExpectRemembered(0, 0, 0);
}

// Saving

TYPED_TEST(OtherPreviews, SaveWritesTheDefaultFileAndTellsWhere)
{
    this->Show();
    this->Save();
    EXPECT_THAT(this->preview->calls, Contains("Save"));
    EXPECT_EQ(this->reports.Read(kDefaultName), this->FileText());
    EXPECT_THAT(this->boxes, ElementsAre(ShownBox{"Save the report",
                                                  "The report was saved to\n" +
                                                      this->reports.Path() + "\\" + kDefaultName,
                                                  kInformationBox}));
}

TYPED_TEST(OtherPreviews, SaveReplacesWhatIsThereWithoutAsking)
{
    this->reports.Write(kDefaultName, "old");
    this->Show();
    this->Save();
    EXPECT_EQ(this->reports.Read(kDefaultName), this->FileText());
    EXPECT_EQ(this->boxes.size(), 1U);
}

TYPED_TEST(OtherPreviews, WhatIsSavedIsWhatIsSeen)
{
    this->Remember(1, 1, 8);
    this->Show();
    this->Save();
    EXPECT_THAT(this->reports.Read(kDefaultName), testing::HasSubstr("=\"1.000lb\""));
}

TYPED_TEST(OtherPreviews, SaveAsAsksForAFileOfReports)
{
    this->Show();
    this->SaveAs();
    this->Process();
    EXPECT_THAT(this->preview->calls, Contains("SaveAs"));
    ASSERT_EQ(this->requests.size(), 1U);
    const CATDlgFile::Request& request = this->requests.front();
    EXPECT_EQ(request.name, "Choose a directory");
    EXPECT_EQ(request.title, "Save the report to a file");
    EXPECT_EQ(request.mode, CATDlgFile::Mode::Save);
    EXPECT_EQ(request.suggestedName, kDefaultName);
    EXPECT_EQ(request.extension, "xml");
    EXPECT_EQ(request.directory, this->reports.Path());
}

TYPED_TEST(OtherPreviews, ACancelledBoxSavesNothing)
{
    this->Show();
    this->SaveAs();
    this->Process();
    EXPECT_THAT(this->boxes, IsEmpty());
    EXPECT_EQ(this->reports.FileCount(), 0U);
    this->Process();
    EXPECT_EQ(this->template Look<CATDlgFile>(*this->preview, "Choose a directory"), nullptr);
}

TYPED_TEST(OtherPreviews, WithoutAChosenFileNothingIsWritten)
{
    this->Show();
    this->preview->OnDlgStdFileDiaOKNotification();
    EXPECT_THAT(this->boxes, IsEmpty());
    EXPECT_EQ(this->reports.FileCount(), 0U);
    EXPECT_THAT(this->trace.Sentences(), Contains("Selected directory: "));
}

TYPED_TEST(OtherPreviews, AChosenFileIsWrittenWithItsEnding)
{
    this->chosenFile = this->reports.At("mine");
    this->Show();
    this->SaveAs();
    this->Process();
    EXPECT_EQ(this->reports.Read("mine.xml"), this->FileText());
    EXPECT_THAT(this->boxes,
                ElementsAre(ShownBox{"Save the report",
                                     "The report was saved to\n" + this->reports.At("mine.xml"),
                                     kInformationBox}));
    EXPECT_THAT(this->trace.Sentences(),
                Contains(StartsWith("Selected directory: " + this->reports.At("mine"))));
}

TYPED_TEST(OtherPreviews, AChosenFileThatIsThereIsReplacedOnlyWhenTheUserAgrees)
{
    this->chosenFile = this->reports.Write("mine.XML", "old");
    this->boxAnswer = 2;
    this->Show();
    this->SaveAs();
    this->Process();
    EXPECT_EQ(this->reports.Read("mine.XML"), "old");
    ASSERT_EQ(this->boxes.size(), 1U);
    EXPECT_EQ(this->boxes.front(),
              (ShownBox{"Save the report",
                        this->reports.At("mine.XML") + "\nis there already. Shall it be replaced?",
                        kQuestionBox}));
    this->boxAnswer = 1;
    this->SaveAs();
    this->Process();
    EXPECT_EQ(this->reports.Read("mine.XML"), this->FileText());
}

TYPED_TEST(OtherPreviews, AReportThatCannotBeWrittenIsAnError)
{
    const std::string below = this->reports.Write("file", "") + "/directory";
    this->environment.Set("ZALKR4REPORTPATH", below);
    this->Show();
    this->Save();
    ASSERT_EQ(this->boxes.size(), 1U);
    EXPECT_EQ(this->boxes.front().style, kErrorBox);
    EXPECT_THAT(this->boxes.front().text, StartsWith("The report could not be saved."));
    EXPECT_THAT(this->boxes.front().text, testing::EndsWith(below + "\\" + kDefaultName));
    EXPECT_FALSE(this->preview->IsDestructionRequested());
}

TYPED_TEST(OtherPreviews, MessagesAreGermanForThoseWhoSpeakIt)
{
    CATMsgCatalog::SetLanguage("de");
    this->chosenFile = this->reports.Write("mine.xml", "old");
    this->Show();
    this->SaveAs();
    this->Process();
    ASSERT_EQ(this->boxes.size(), 2U);
    EXPECT_EQ(this->boxes[0].title, "Bericht speichern");
    EXPECT_EQ(this->boxes[0].text, this->reports.At("mine.xml") +
                                       "\nist schon vorhanden. Soll die Datei ersetzt werden?");
    EXPECT_EQ(this->boxes[1].text,
              "Der Bericht wurde gespeichert:\n" + this->reports.At("mine.xml"));
    EXPECT_EQ(this->requests.front().title, "Bericht in einer Datei speichern");
}

// Closing

TYPED_TEST(OtherPreviews, CloseHidesTheWindowAndDestroysItLater)
{
    this->Show();
    this->preview->SetVisibility(true);
    this->Close();
    EXPECT_THAT(this->preview->calls, Contains("Close"));
    EXPECT_FALSE(this->preview->IsVisible());
    EXPECT_TRUE(this->preview->IsDestructionRequested());
    this->Process();
    EXPECT_EQ(this->watch.Get(), nullptr);
}

TYPED_TEST(OtherPreviews, TheWindowFrameClosesItToo)
{
    this->Show();
    this->preview->SetVisibility(true);
    this->preview->Widget()->close();
    EXPECT_THAT(this->preview->calls, Contains("Close"));
    this->Process();
    EXPECT_EQ(this->watch.Get(), nullptr);
}

// Copies

TYPED_TEST(OtherPreviews, ACopyIsAnotherWindowForTheSameReport)
{
    this->Show();
    auto* copy = new TypeParam(*this->preview); // the command tree owns it
    EXPECT_EQ(copy->ChildCount(), 0);
    EXPECT_EQ(copy->Parent(), this->frame->MainWindow());
    EXPECT_EQ(copy->Style(), TestFixture::Differs::style);
    copy->Build();
    EXPECT_EQ(this->CellOf(*copy), "1");
    copy->OnSaveNotification();
    EXPECT_TRUE(this->reports.Has(kDefaultName));
}

TYPED_TEST(OtherPreviews, AnAssignedPreviewShowsTheOtherReport)
{
    auto* other = // the command tree owns it
        new TypeParam("Feet", Parsed(TestFixture::Differs::otherReport), 1);
    this->Show();
    *this->preview = *other;
    EXPECT_EQ(this->Cell(), "2");
    this->Save();
    EXPECT_TRUE(this->reports.Has("WBReport_Feet_20251231235959.xml"));
    other->Build();
    EXPECT_EQ(this->CellOf(*other), "2");
}

TYPED_TEST(OtherPreviews, AnAssignedPreviewOfNothingLeavesEmptyLists)
{
    auto* empty = new TypeParam("", {}, 0); // the command tree owns it
    auto* rootless = new TypeParam("", Parsed("<R/>"), 0);
    this->Show();
    *this->preview = *rootless;
    EXPECT_EQ(this->List(TestFixture::Differs::list).RowCount(), 0);
    this->Show();
    *this->preview = *empty;
    EXPECT_EQ(this->List(TestFixture::Differs::list).RowCount(), 0);
    this->preview->UpdatePreviewPanelList();
    this->preview->OnUnitsDisplayNotification();
    EXPECT_EQ(this->List(TestFixture::Differs::list).RowCount(), 0);
}

TYPED_TEST(OtherPreviews, AssigningAPreviewToItselfChangesNothing)
{
    this->Show();
    this->preview->calls.clear();
    const TypeParam& same = *this->preview;
    *this->preview = same;
    EXPECT_THAT(this->preview->calls, IsEmpty());
    EXPECT_EQ(this->Cell(), "1");
}

// The screen of the tests is 800 pixels wide and high; the window fits it and leaves nothing out.
TYPED_TEST(OtherPreviews, OpensAsWideAsTheScreenAllows)
{
    this->Show();
    this->preview->SetVisibility(true);
    EXPECT_EQ(this->preview->Widget()->width(), 800);
    EXPECT_GE(this->preview->Widget()->height(), 600);
    EXPECT_LE(this->preview->Widget()->height(), 800);
}

TYPED_TEST(OtherPreviews, OneThatIsNotBuiltTakesOverTheReport)
{
    this->Make(TestFixture::Differs::report);
    auto* other = new TypeParam("Feet", {}, 0); // the command tree owns it
    const std::string before = this->FileText();
    *other = *this->preview;
    EXPECT_EQ(other->ChildCount(), 0);
    EXPECT_EQ(this->FileText(), before);
    other->Build();
    EXPECT_EQ(this->CellOf(*other), "1");
}

// The trace

TYPED_TEST(OtherPreviews, EveryOperationIsTraced)
{
    this->Show();
    this->preview->OnSaveNotification();
    this->preview->OnSaveAsNotification();
    this->preview->OnDlgStdFileDiaCancelNotification();
    this->preview->OnDlgStdFileDiaOKNotification();
    this->preview->OnTrailingZeroNotification();
    this->preview->OnTrailingDigitsNotification();
    *this->preview = TypeParam(*this->preview);
    this->preview->OnCloseNotification();
    this->Process();
    const std::string name = TestFixture::Differs::name;
    EXPECT_THAT(this->trace.lines,
                IsSupersetOf({name, std::string("operator="), std::string("Build"),
                              std::string("UpdatePreviewPanelList"), std::string("PrintNode"),
                              std::string("OnSaveNotification"), std::string("WriteReportToFile"),
                              std::string("SetDefaultFileName"), std::string("SetDefaultFileDir"),
                              std::string("OnSaveAsNotification"),
                              std::string("OnDlgStdFileDiaOKNotification"),
                              std::string("OnDlgStdFileDiaCancelNotification"),
                              std::string("OnUnitsDisplayNotification"),
                              std::string("OnTrailingZeroNotification"),
                              std::string("OnTrailingDigitsNotification"),
                              std::string("OnCloseNotification"), "~" + name}));
    EXPECT_THAT(this->trace.components, Each(TestFixture::Differs::component));
}
