#include "CATWBVPMNavSaveManagement.h"

#include "../CommandSession.h"
#include "ResourceKeys.h"
#include "Toolkit.h"
#include "VirtualSlots.h"

#include "CATCommandWatch.h"
#include "CATDlgApplication.h"
#include "CATDlgControls.h"

#include <QAbstractButton>
#include <QGridLayout>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

class SaveCommand : public CommandSession
{
protected:
    void Make()
    {
        command = dynamic_cast<CATWBVPMNavSaveManagement*>(fctCreateCATWBVPMNavSaveManagement());
        ASSERT_NE(command, nullptr);
        watch = command;
    }
    void Start()
    {
        Make();
        ASSERT_TRUE(CATSession::Start(command));
    }
    /// The control of that name, which must be there once.
    CATDialog& Find(const char* name) const
    {
        std::vector<CATDialog*> found;
        Collect(*command, name, found);
        EXPECT_EQ(found.size(), 1U) << name;
        if (found.empty()) {
            throw std::logic_error(std::string("no such control: ") + name);
        }
        return *found.front();
    }
    void Click(const char* button) const
    {
        auto* widget = qobject_cast<QAbstractButton*>(Find(button).Widget());
        ASSERT_NE(widget, nullptr) << button;
        widget->click();
    }
    /// What the user is told when the server answers so.
    std::string Told(const char* button, const std::string& answer)
    {
        boxes.clear();
        server->answer = answer;
        Click(button);
        EXPECT_EQ(boxes.size(), 1U) << answer;
        return boxes.empty() ? "nothing" : boxes.front().text;
    }
    void ExpectEnds()
    {
        EXPECT_FALSE(command->IsVisible());
        EXPECT_TRUE(command->IsDestructionRequested());
        CATSession::RunDelayedDestructions();
        EXPECT_EQ(watch.Get(), nullptr);
        EXPECT_EQ(CATSession::PendingDestructions(), 0);
    }

    CATWBVPMNavSaveManagement* command = nullptr;
    CATCommandWatch<CATWBVPMNavSaveManagement> watch;

private:
    static void Collect(const CATCommand& parent, const char* name, std::vector<CATDialog*>& found)
    {
        for (int position = 1; position <= parent.ChildCount(); ++position) {
            CATCommand* child = parent.Child(position);
            auto* dialog = dynamic_cast<CATDialog*>(child);
            if (dialog != nullptr && child->Name() == name) {
                found.push_back(dialog);
            }
            Collect(*child, name, found);
        }
    }
};

constexpr const char* kSave = "PushButton001";
constexpr const char* kDiscard = "PushButton002";

constexpr const char* kSaved = "All your changes were saved. They are there for everybody now.";
constexpr const char* kNotSaved =
    "Nothing was saved: all your changes are still pending.\n"
    "If somebody else was first with one of the values, the page Changes of the main panel says "
    "who.";
constexpr const char* kNothingToSave = "You have no changes to save.";
constexpr const char* kSaveUnknown =
    "The server did not say whether your changes were saved.\n"
    "The page Changes of the main panel shows which are still pending.";
constexpr const char* kDiscarded =
    "All your unsaved changes were discarded. The values are those that were saved last.";
constexpr const char* kNotDiscarded =
    "Your changes could not be discarded: all of them are still pending.\n"
    "Try it again; nothing was lost.";
constexpr const char* kDiscardUnknown =
    "The server did not say whether your changes were discarded.\n"
    "The page Changes of the main panel shows which are still pending.";

/// Row and column of the control in its parent's grid.
std::vector<int> CellOf(const CATDialog& control)
{
    const QWidget* widget = control.Widget();
    const auto* grid = qobject_cast<QGridLayout*>(widget->parentWidget()->layout());
    int row = -1;
    int column = -1;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(widget), &row, &column, &rows, &columns);
    return {row, column, rows, columns};
}

/// A command that wants the session for itself.
class OtherCommand : public CATCommand
{
public:
    OtherCommand() : CATCommand(nullptr, "OtherCommand") {}
};

} // namespace

// The command itself

TEST_F(SaveCommand, IsMadeByItsFactoryAsAHiddenWindowWithoutControls)
{
    Make();
    EXPECT_EQ(command->Name(), "CATWBVPMNavSaveManagement");
    EXPECT_STREQ(command->ClassName(), "CATWBVPMNavSaveManagement");
    EXPECT_EQ(command->Mode(), CATCommandMode::Shared);
    EXPECT_EQ(command->Style(), 0x10000201);
    EXPECT_EQ(command->Parent(), frame->MainWindow());
    EXPECT_FALSE(command->IsVisible());
    EXPECT_EQ(command->ChildCount(), 0);
}

TEST_F(SaveCommand, HasItsOwnCatalogAtLevelZeroAndBelowAndTheDialogsAbove)
{
    Make();
    const CATCommand* base = command;
    EXPECT_EQ(base->GetResourceFilename(0), "CATWBVPMNavSaveManagement");
    EXPECT_EQ(base->GetResourceFilename(-1), "CATWBVPMNavSaveManagement");
    EXPECT_EQ(base->GetResourceFilename(1), "");
    EXPECT_EQ(base->GetResourceFilename(2), "");
}

TEST_F(SaveCommand, AddsNoVirtualOperationToTheDialog)
{
    EXPECT_EQ(SlotOf(&SlotProbe<CATWBVPMNavSaveManagement>::Added),
              SlotOf(&SlotProbe<CATDlgDialog>::Added));
    EXPECT_EQ(SlotOf(&CATWBVPMNavSaveManagement::Activate), SlotOf(&CATCommand::Activate));
    EXPECT_EQ(SlotOf(&CATWBVPMNavSaveManagement::Desactivate), SlotOf(&CATCommand::Activate) + 1);
    EXPECT_EQ(SlotOf(&CATWBVPMNavSaveManagement::Cancel), SlotOf(&CATCommand::Activate) + 2);
    EXPECT_EQ(SlotOf(&CATWBVPMNavSaveManagement::GetResourceFilename),
              SlotOf(&CATCommand::Activate) + 3);
}

TEST_F(SaveCommand, WorksWithoutAMainWindowToo)
{
    frame.reset();
    Start();
    EXPECT_TRUE(command->IsVisible());
    EXPECT_EQ(Told(kSave, "Save|OK"), kSaved);
}

// The window

TEST_F(SaveCommand, HasItsControlsAtTheirPlaces)
{
    const struct
    {
        const char* name;
        const char* parent;
        int row;
        int column;
        bool isButton;
    } controls[] = {{"Label003", "CATWBVPMNavSaveManagement", 0, 0, false},
                    {"Frame004", "CATWBVPMNavSaveManagement", 1, 0, false},
                    {"Label005", "Frame004", 0, 0, false},
                    {"Label007", "Frame004", 0, 1, false},
                    {"PushButton001", "Frame004", 0, 2, true},
                    {"Label006", "Frame004", 1, 0, false},
                    {"Label008", "Frame004", 1, 1, false},
                    {"PushButton002", "Frame004", 1, 2, true}};
    Start();
    for (const auto& each : controls) {
        const CATDialog& control = Find(each.name);
        EXPECT_EQ(control.Parent()->Name(), each.parent) << each.name;
        EXPECT_THAT(CellOf(control), ElementsAre(each.row, each.column, 1, 1)) << each.name;
        EXPECT_TRUE(control.IsVisible()) << each.name;
        EXPECT_EQ(dynamic_cast<const CATDlgPushButton*>(&control) != nullptr, each.isButton)
            << each.name;
    }
    EXPECT_EQ(Find("Frame004").Style(), 0x40001);
    EXPECT_EQ(command->ChildCount(), 2);
    EXPECT_EQ(Find("Frame004").ChildCount(), 6);
}

TEST_F(SaveCommand, SaysWhatIsSavedAndWhatIsDiscarded)
{
    Start();
    EXPECT_EQ(command->Title(), "Save or discard changes");
    EXPECT_EQ(Find("Label003").Title(), "Until you save them, only you see your changes.\n"
                                        "All of them are saved or discarded, in every product.");
    EXPECT_EQ(Find("Label005").Title(), "Save");
    EXPECT_EQ(Find("Label007").Title(), "Everybody gets your changes. If somebody else changed\n"
                                        "one of the values meanwhile, nothing is saved.");
    EXPECT_EQ(Find(kSave).Title(), "Save all");
    EXPECT_EQ(Find("Label006").Title(), "Discard");
    EXPECT_EQ(Find("Label008").Title(), "Your changes are given up and cannot be brought back.\n"
                                        "The values are again those that were saved last.");
    EXPECT_EQ(Find(kDiscard).Title(), "Discard all");
}

TEST_F(SaveCommand, SpeaksGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    Start();
    EXPECT_EQ(command->Title(), "Änderungen speichern oder verwerfen");
    EXPECT_EQ(Find(kSave).Title(), "Alle speichern");
    EXPECT_EQ(Find(kDiscard).Title(), "Alle verwerfen");
    EXPECT_EQ(Told(kSave, "Save|NA"), "Sie haben keine Änderungen, die zu speichern wären.");
    EXPECT_EQ(boxes.front().title, "Änderungen speichern oder verwerfen");
}

TEST_F(SaveCommand, ShowsItsTextsWholeInEitherLanguage)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        Start();
        CATDlgApplication::ProcessEvents();
        for (const char* name : {"Label003", "Label005", "Label006", "Label007", "Label008"}) {
            const QWidget& label = *Find(name).Widget();
            const QString text = QString::fromStdString(Find(name).Title().ToStdString());
            EXPECT_LE(label.fontMetrics().size(0, text).width(), label.contentsRect().width())
                << language << ": " << name;
        }
        CATSession::RunDelayedDestructions();
    }
}

TEST_F(SaveCommand, EveryEnglishTextHasAGermanOne)
{
    for (const char* file :
         {"catalogs/CATWBVPMNavSaveManagement.toml", "dialogs/CATWBVPMNavSaveManagement.toml"}) {
        EXPECT_EQ(ResourceKeys(file), ResourceKeys(std::string("de/") + file)) << file;
    }
}

TEST_F(SaveCommand, HiddenWindowComesBackAsItWas)
{
    Start();
    EXPECT_EQ(command->Desactivate(nullptr, nullptr), S_OK);
    EXPECT_FALSE(command->IsVisible());
    EXPECT_FALSE(command->IsDestructionRequested());
    EXPECT_EQ(command->Activate(nullptr, nullptr), S_OK);
    EXPECT_TRUE(command->IsVisible());
    EXPECT_EQ(command->ChildCount(), 2); // its controls are made once
    EXPECT_EQ(Told(kSave, "Save|OK"), kSaved);
    EXPECT_THAT(server->calls, ElementsAre("WBSaveManagement: Save"));
}

TEST_F(SaveCommand, IsHiddenWhileAnExclusiveCommandRuns)
{
    Start();
    CATSession::Start(new OtherCommand);
    EXPECT_FALSE(command->IsVisible());
    CATSession::CancelRunningCommand();
    EXPECT_TRUE(command->IsVisible());
    EXPECT_EQ(command->ChildCount(), 2);
}

TEST_F(SaveCommand, StartedWhileAnotherCommandRunsStaysBesideIt)
{
    auto* other = new OtherCommand;
    CATSession::Start(other);
    Start();
    EXPECT_TRUE(command->IsVisible());
    EXPECT_EQ(CATSession::RunningCommand(), other);
}

TEST_F(SaveCommand, CloseButtonEndsTheCommand)
{
    Start();
    command->Send(CATDlgDialog::CloseActivated);
    ExpectEnds();
}

TEST_F(SaveCommand, ClosingTheWindowEndsTheCommand)
{
    Start();
    command->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(SaveCommand, CancelHidesTheWindowAndEndsTheCommand)
{
    Start();
    EXPECT_EQ(command->Cancel(nullptr, nullptr), S_OK);
    ExpectEnds();
}

TEST_F(SaveCommand, NewerWindowTakesThePlaceOfTheOlderOne)
{
    Start();
    const CATCommandWatch<CATWBVPMNavSaveManagement> older = watch;
    Start();
    EXPECT_FALSE(older.Get()->IsVisible());
    EXPECT_TRUE(older.Get()->IsDestructionRequested());
    EXPECT_TRUE(command->IsVisible());
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(older.Get(), nullptr);
    ASSERT_NE(watch.Get(), nullptr);
    EXPECT_FALSE(command->IsDestructionRequested());
}

// Saving and discarding

TEST_F(SaveCommand, SavesWithOneWord)
{
    Start();
    EXPECT_THAT(server->calls, IsEmpty());
    server->answer = "Save|OK";
    Click(kSave);
    EXPECT_THAT(server->calls, ElementsAre("WBSaveManagement: Save"));
}

TEST_F(SaveCommand, DiscardsWithOneWord)
{
    Start();
    server->answer = "Abort|OK";
    Click(kDiscard);
    EXPECT_THAT(server->calls, ElementsAre("WBSaveManagement: Abort"));
}

TEST_F(SaveCommand, HandlersDoWhatTheButtonsDo)
{
    Start();
    command->OnPushButton001PushBActivateNotification();
    command->OnPushButton002PushBActivateNotification();
    EXPECT_THAT(server->calls, ElementsAre("WBSaveManagement: Save", "WBSaveManagement: Abort"));
    EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(SaveCommand, TellsTheOutcomeOfSaving)
{
    Start();
    EXPECT_EQ(Told(kSave, "Save|OK"), kSaved);
    EXPECT_EQ(Told(kSave, "Save|FALSE"), kNotSaved);
    EXPECT_EQ(Told(kSave, "Save|NA"), kNothingToSave);
    // The whole answer counts, nothing less and nothing more.
    for (const char* answer :
         {"", "Save|OK ", " Save|OK", "Save|OK\n", "Save|OK|", "save|ok", "Save", "OK", "Abort|OK",
          "Save|TRUE", "Save|FALSE ", "Save|NA\n", "#WB_ERROR#The call was cancelled."}) {
        EXPECT_EQ(Told(kSave, answer), kSaveUnknown) << answer;
    }
}

TEST_F(SaveCommand, TellsTheOutcomeOfDiscarding)
{
    Start();
    EXPECT_EQ(Told(kDiscard, "Abort|OK"), kDiscarded);
    // The server has one text for both failures.
    EXPECT_EQ(Told(kDiscard, "Save|FALSE"), kNotDiscarded);
    for (const char* answer :
         {"", "Abort|OK ", "Abort|OK\n", "abort|ok", "Abort", "Abort|FALSE", "Abort|NA", "Save|OK",
          "Save|NA", "Save|FALSE\n", "#WB_ERROR#The call was cancelled."}) {
        EXPECT_EQ(Told(kDiscard, answer), kDiscardUnknown) << answer;
    }
}

TEST_F(SaveCommand, TellsInAPlainBoxThatWaitsForNobody)
{
    Start();
    for (const char* button : {kSave, kDiscard}) {
        for (const char* answer : {"Save|OK", "Save|FALSE", "Save|NA", "Abort|OK", ""}) {
            Told(button, answer);
            EXPECT_EQ(boxes.front().title, "Save or discard changes") << answer;
            EXPECT_EQ(boxes.front().style, 0) << answer;
            EXPECT_FALSE(boxes.front().blocking) << answer;
        }
    }
}

TEST_F(SaveCommand, WithoutAServerNobodyKnowsWhatCameOfIt)
{
    CATSetServerCaller(nullptr);
    Start();
    EXPECT_EQ(Told(kSave, "Save|OK"), kSaveUnknown);
    EXPECT_EQ(Told(kDiscard, "Abort|OK"), kDiscardUnknown);
}

TEST_F(SaveCommand, StaysOpenAfterEitherButton)
{
    Start();
    Told(kSave, "Save|OK");
    EXPECT_TRUE(command->IsVisible());
    Told(kDiscard, "Save|FALSE");
    EXPECT_TRUE(command->IsVisible());
    EXPECT_FALSE(command->IsDestructionRequested());
}

TEST_F(SaveCommand, EveryOutcomeHasADefaultTextWhereTheCatalogLacksIt)
{
    LoseTextsOf("CATWBVPMNavSaveManagement");
    Start();
    EXPECT_EQ(Told(kSave, "Save|OK"), "All changes were saved.");
    EXPECT_EQ(boxes.front().title, "Changes");
    EXPECT_EQ(Told(kSave, "Save|FALSE"), "Nothing was saved. All changes are still pending.");
    EXPECT_EQ(Told(kSave, "Save|NA"), "There are no changes to save.");
    EXPECT_EQ(Told(kSave, ""), "The server did not say whether the changes were saved.");
    EXPECT_EQ(Told(kDiscard, "Abort|OK"), "All unsaved changes were discarded.");
    EXPECT_EQ(Told(kDiscard, "Save|FALSE"),
              "The changes could not be discarded. All of them are still pending.");
    EXPECT_EQ(Told(kDiscard, ""), "The server did not say whether the changes were discarded.");
}
