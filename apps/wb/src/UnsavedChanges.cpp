#include "UnsavedChanges.h"

#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "PendingChanges.h"
#include "QtTexts.h"
#include "RunServerCode.h"

#include <QLabel>

#include <algorithm>
#include <array>
#include <string>

namespace
{
constexpr int kErrorStyle = 0x10000000;
constexpr int kWarningStyle = 0x8000000;
constexpr int kSave = 1;
constexpr int kLeaveForLater = 2;
/// The question names so many; nobody reads more before closing a window.
constexpr std::size_t kMostNamed = 5;

constexpr const char* kSaveMethod = "WBSaveManagement";
/// The methods after which the number may be another one.
constexpr std::array kChangingMethods{"WBApplyValues", kSaveMethod};

CATUnicodeString Text(const char* key, const char* defaultText,
                      const CATListValCATUnicodeString& parameters = {})
{
    return CATMsgCatalog::BuildMessage("UnsavedChanges", key, defaultText, parameters);
}

CATUnicodeString NumberText(std::size_t count)
{
    return count == 1 ? Text("Status.One", "@1 unsaved change")
                      : Text("Status.Many", "@/p1 unsaved changes",
                             {CATUnicodeString(std::to_string(count))});
}

std::vector<CATPendingChange> AskServer(std::string& problem)
{
    return ReadPendingChanges(RunServerCode("WBPendingChanges").View(), problem);
}

CATUnicodeString QuestionText(const std::vector<CATPendingChange>& changes)
{
    CATUnicodeString named;
    for (std::size_t index = 0; index < std::min(changes.size(), kMostNamed); ++index) {
        named += "\n- " + changes[index].subject + ", " + changes[index].fact;
    }
    if (changes.size() > kMostNamed) {
        named += "\n" + Text("Question.More", "@and /p1 more",
                             {CATUnicodeString(std::to_string(changes.size() - kMostNamed))});
    }
    return Text("Question.Text",
                "@You have /p1, which nobody else can see:/p2\nSave now? What you leave for later "
                "waits for you.",
                {NumberText(changes.size()), named});
}
} // namespace

UnsavedChanges::UnsavedChanges(QLabel* label, CATDlgDialog* window)
    : m_label(label), m_window(window), m_watch([this](const CATUnicodeString& method) {
          if (std::ranges::any_of(kChangingMethods,
                                  [&](const char* name) { return method == name; })) {
              Update();
          }
      })
{
    m_label->hide();
}

void UnsavedChanges::Update()
{
    std::string problem;
    const std::vector<CATPendingChange> changes = AskServer(problem);
    if (problem.empty()) {
        m_label->setText(ToQString(NumberText(changes.size())));
        m_label->setVisible(!changes.empty());
    }
}

bool UnsavedChanges::MayClose()
{
    std::string problem;
    const std::vector<CATPendingChange> changes = AskServer(problem);
    if (!problem.empty()) {
        Tell(kWarningStyle, Text("Unknown.Title", "@Unsaved changes"),
             Text("Unknown.Text",
                  "@The server cannot say whether changes of yours are not saved yet. If there are "
                  "any they wait for you.\n/p1",
                  {CATUnicodeString(problem)}));
        return true;
    }
    if (changes.empty()) {
        return true;
    }
    const int answer = Ask(changes);
    return answer == kSave ? Save() : answer == kLeaveForLater;
}

int UnsavedChanges::Ask(const std::vector<CATPendingChange>& changes)
{
    auto* box = new CATDlgNotify(m_window, "UnsavedChanges", CATDlgNotify::kQuestionWithCancel);
    box->SetTitle(Text("Question.Title", "@Unsaved changes"));
    box->SetText(QuestionText(changes));
    box->SetChoices(Text("Question.Save", "@Save"), Text("Question.Leave", "@Leave for later"));
    const int answer = box->DisplayBlocking();
    box->RequestDelayedDestruction();
    return answer;
}

bool UnsavedChanges::Save()
{
    const CATUnicodeString answer = RunServerCode(kSaveMethod, "Save");
    // Nothing to save is what somebody who works under the same name has left.
    if (answer == "Save|OK" || answer == "Save|NA") {
        return true;
    }
    if (answer == "Save|FALSE") {
        Tell(kErrorStyle, Text("Refused.Title", "@Your changes were not saved"),
             Text("Refused.Text", "@Nothing was saved; all of your changes are still there.\n/p1",
                  {RunServerCode("WBWarningMsg")}));
    } else {
        Tell(kErrorStyle, Text("Unsaid.Title", "@Were your changes saved?"),
             Text("Unsaid.Text", "@The server did not say whether your changes were saved. Close "
                                 "the window again to see which are left."));
    }
    return false;
}

void UnsavedChanges::Tell(int style, const CATUnicodeString& title, const CATUnicodeString& text)
{
    auto* box = new CATDlgNotify(m_window, "UnsavedChanges", style);
    box->SetTitle(title);
    box->SetText(text);
    box->DisplayBlocking();
    box->RequestDelayedDestruction();
}
