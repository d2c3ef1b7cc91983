#include "CATWBVPMNavSaveManagement.h"

#include "WBMainWindow.h"

#include "CATWBServices.h"

#include "CATDlgControls.h"
#include "CATMsgCatalog.h"
#include "RunServerCode.h"

#include <array>
#include <span>

namespace
{

constexpr int kWindowStyle = 0x10000201; // with Close
constexpr int kFrameStyle = 0x40001;     // no title
constexpr int kPlainMessage = 0;

struct LabelRow
{
    const char* name;
    int row;
    int column;
};
constexpr std::array kLabels{LabelRow{"Label005", 0, 0}, LabelRow{"Label007", 0, 1},
                             LabelRow{"Label006", 1, 0}, LabelRow{"Label008", 1, 1}};

/// What the user is told of an answer, which must be that text and nothing more.
struct OutcomeRow
{
    const char* answer;
    const char* key;
    const char* defaultText;
};
constexpr std::array kSaved{
    OutcomeRow{"Save|OK", "WBMessage001.Message", "@All changes were saved."},
    OutcomeRow{"Save|FALSE", "WBMessage002.Message",
               "@Nothing was saved. All changes are still pending."},
    OutcomeRow{"Save|NA", "WBMessage003.Message", "@There are no changes to save."}};
constexpr OutcomeRow kSaveUnknown{nullptr, "WBMessage004.Message",
                                  "@The server did not say whether the changes were saved."};
// The server says in the same words that it could not save and that it could not discard.
constexpr std::array kDiscarded{
    OutcomeRow{"Abort|OK", "WBMessage005.Message", "@All unsaved changes were discarded."},
    OutcomeRow{"Save|FALSE", "WBMessage006.Message",
               "@The changes could not be discarded. All of them are still pending."}};
constexpr OutcomeRow kDiscardUnknown{nullptr, "WBMessage007.Message",
                                     "@The server did not say whether the changes were discarded."};

CATUnicodeString Message(const char* key, const char* defaultText)
{
    return CATMsgCatalog::BuildMessage(CATWBVPMNavSaveManagement::kName, key, defaultText);
}

/// Asks the server and tells the user, in one box, what came of it.
void AskAndTell(CATDlgDialog& window, const char* request, std::span<const OutcomeRow> outcomes,
                const OutcomeRow& unknown)
{
    const CATUnicodeString answer = RunServerCode("WBSaveManagement", request);
    const OutcomeRow* outcome = &unknown;
    for (const OutcomeRow& row : outcomes) {
        if (answer == row.answer) {
            outcome = &row;
        }
    }
    CATWBServices::DisplayMsg(&window, Message("WBMessage001.Title", "@Changes"),
                              Message(outcome->key, outcome->defaultText), kPlainMessage);
}

} // namespace

CATWBVPMNavSaveManagement::CATWBVPMNavSaveManagement()
    : CATDlgDialog(WBMainWindow(), kName, kWindowStyle)
{
    RequestStatusChange(CATCommandMode::Shared);
}

const char* CATWBVPMNavSaveManagement::ClassName() const
{
    return kName;
}

CATString CATWBVPMNavSaveManagement::GetResourceFilename(int level) const
{
    return level > 0 ? CATDlgDialog::GetResourceFilename(level - 1) : CATString(kName);
}

long CATWBVPMNavSaveManagement::Activate(CATCommand*, const CATNotification*)
{
    // The session activates the command again when another one no longer hides it.
    if (!m_isBuilt) {
        m_isBuilt = true;
        EndOlderOnes();
        Build();
    }
    SetVisibility(true);
    return S_OK;
}

long CATWBVPMNavSaveManagement::Desactivate(CATCommand*, const CATNotification*)
{
    SetVisibility(false);
    return S_OK;
}

long CATWBVPMNavSaveManagement::Cancel(CATCommand*, const CATNotification*)
{
    SetVisibility(false);
    RequestDelayedDestruction();
    return S_OK;
}

void CATWBVPMNavSaveManagement::EndOlderOnes()
{
    const CATCommand* parent = Parent();
    const int count = parent == nullptr ? 0 : parent->ChildCount();
    for (int position = 1; position <= count; ++position) {
        auto* sibling = dynamic_cast<CATWBVPMNavSaveManagement*>(parent->Child(position));
        if (sibling != nullptr && sibling != this) {
            sibling->Cancel(this, nullptr);
        }
    }
}

void CATWBVPMNavSaveManagement::Build()
{
    // The window owns its controls, and the frame those in it.
    auto* introduction = new CATDlgLabel(this, "Label003");
    introduction->SetPlacement(0, 0);
    auto* frame = new CATDlgFrame(this, "Frame004", kFrameStyle);
    frame->SetPlacement(1, 0);
    for (const LabelRow& row : kLabels) {
        auto* label = new CATDlgLabel(frame, row.name);
        label->SetPlacement(row.row, row.column);
    }
    auto* save = new CATDlgPushButton(frame, "PushButton001");
    save->SetPlacement(0, 2);
    auto* discard = new CATDlgPushButton(frame, "PushButton002");
    discard->SetPlacement(1, 2);

    const Handler close = [this](const CATNotification&) {
        Cancel(this, nullptr);
    };
    Subscribe(this, CloseActivated, close);
    Subscribe(this, WindowClosed, close);
    Subscribe(save, CATDlgPushButton::Activated,
              [this](const CATNotification&) { OnPushButton001PushBActivateNotification(); });
    Subscribe(discard, CATDlgPushButton::Activated,
              [this](const CATNotification&) { OnPushButton002PushBActivateNotification(); });
}

void CATWBVPMNavSaveManagement::OnPushButton001PushBActivateNotification()
{
    AskAndTell(*this, "Save", kSaved, kSaveUnknown);
}

void CATWBVPMNavSaveManagement::OnPushButton002PushBActivateNotification()
{
    AskAndTell(*this, "Abort", kDiscarded, kDiscardUnknown);
}

CATCommand* fctCreateCATWBVPMNavSaveManagement()
{
    return new CATWBVPMNavSaveManagement(); // handed to the command tree
}
