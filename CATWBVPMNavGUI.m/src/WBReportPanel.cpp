#include "WBReportPanel.h"

#include "WBPanelControls.h"
#include "WBPickReading.h"
#include "WBReportContents.h"
#include "WBReportOpening.h"
#include "WBReportPicks.h"
#include "WBReportPlacing.h"
#include "WBServerAnswer.h"
#include "WBServerNames.h"
#include "WBSumChoices.h"

#include "CATPDMServices.h"
#include "CATWBServices.h"
#include "CATWBVPMNavFilterPanel.h"
#include "RunServerCode.h"

#include <optional>

namespace
{

constexpr int kPreferredWidth = 900;
constexpr int kPreferredHeight = 680;
constexpr int kErrorStyle = 0x10000000;
constexpr int kWarningStyle = 0x8000000;

/// Empty where no root is open.
CATUnicodeString CurrentRoot()
{
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString values;
    CATUnicodeString type;
    const long status = CATImmCAAServices::GetCurrentRootIdentifiers(names, values, type);
    return status != S_OK || values.IsEmpty() ? CATUnicodeString() : values[1];
}

} // namespace

WBReportPanel::WBReportPanel(CATCommand* parent)
    : CATWBVPMNavReportPanel(parent), m_unitWatch([this](const CATICkeMagnitude_var&) {
          if (m_placing != nullptr) {
              m_placing->FollowLengthUnit();
          }
      })
{
    SetPreferredSize(kPreferredWidth, kPreferredHeight);
}

WBReportPanel::~WBReportPanel() = default;

const char* WBReportPanel::ClassName() const
{
    return "WBReportPanel";
}

CATString WBReportPanel::GetResourceFilename(int level) const
{
    return level == 0 ? CATString(kName) : CATWBVPMNavReportPanel::GetResourceFilename(level - 1);
}

bool WBReportPanel::RecoverFromFault()
{
    return true;
}

CATDlgPushButton* WBReportPanel::GetCloseButton()
{
    return m_close;
}

void WBReportPanel::Build()
{
    BuildHeading();
    m_picks = new WBReportPicks(this);
    m_picks->SetPlacement(1, 0);
    m_contents = new WBReportContents(this);
    m_contents->SetPlacement(2, 0);
    BuildSums();
    m_placing = new WBReportPlacing(this);
    m_placing->SetPlacement(4, 0);
    SetRowStretch(1, 2);
    SetRowStretch(2, 1);
    BuildLastLine();
    Subscribe(m_picks, WBReportPicks::TakenOut, [this](const CATNotification&) { Say({}); });
    Subscribe(m_contents, WBReportContents::Changed,
              [this](const CATNotification&) { ShowWhatCounts(); });
    FollowRoot();
    const WBServerNames names = WBAskServerNames();
    m_sums->Offer(names.massTypes);
    m_contents->OfferProperties(names.properties);
}

void WBReportPanel::BuildHeading()
{
    auto* frame = new CATDlgFrame(this, "Heading", kWBPlainFrame);
    frame->SetPlacement(0, 0);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(3, 1);
    m_product = WBAddFact(frame, "Product", 0);
    m_filter = WBAddFact(frame, "Filter", 0, 2);
}

void WBReportPanel::BuildSums()
{
    auto* frame = new CATDlgFrame(this, "Sums");
    frame->SetPlacement(3, 0);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(3, 1);
    // A report looks at every part, so there is no level below which it could look away.
    m_sums = std::make_unique<WBSumChoices>(frame, WBSumChoices::Cell{0, 0},
                                            WBSumChoices::Cell{0, 2}, WBSumChoices::Level::Absent);
}

void WBReportPanel::BuildLastLine()
{
    auto* frame = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    frame->SetPlacement(5, 0);
    frame->SetColumnStretch(0, 1);
    m_word = WBAddNote(frame, "Word", 0);
    m_word->SetTitle({});
    auto* generate = new CATDlgPushButton(frame, "GenerateButton");
    generate->SetPlacement(0, 1);
    generate->SetDefault();
    m_close = new CATDlgPushButton(frame, "CloseButton");
    m_close->SetPlacement(0, 2);
    Subscribe(generate, CATDlgPushButton::Activated,
              [this](const CATNotification&) { Generate(); });
    Subscribe(m_close, CATDlgPushButton::Activated,
              [this](const CATNotification&) { SetVisibility(false); });
}

bool WBReportPanel::IsInstanceInputActive() const
{
    return m_picks != nullptr && m_picks->IsInputActive();
}

void WBReportPanel::SetWMMInstance(CATUnicodeString instance, CATUnicodeString part,
                                   CATUnicodeString version, CATUnicodeString path, int count)
{
    if (m_picks == nullptr) {
        return;
    }
    FollowRoot();
    const std::optional<WBPickedInstance> picked =
        WBReadPickedInstance(instance, part, version, path, count);
    if (!picked) {
        Say(WBReportText("Unusable.Text",
                         "@\"/p1\" was not added: what the server says of it cannot be read.",
                         {instance}));
    } else if (!m_picks->Add(*picked)) {
        Say(WBReportText("Known.Text", "@/p1 is in the list already.", {instance}));
    }
}

bool WBReportPanel::FollowRoot()
{
    const CATUnicodeString before = m_root;
    m_root = CurrentRoot();
    m_product->SetTitle(WBOrDash(m_root));
    m_filter->SetTitle(m_root.IsEmpty() ? WBOrDash({})
                                        : CATWBVPMNavFilterPanel::GetDisplayFilter(m_root));
    const bool areKept = m_picks->SetRoot(m_root);
    if (!areKept) {
        Say(WBReportText("OtherRoot.Text",
                         "@The instances of /p1 were taken out of the list: "
                         "another product is open now.",
                         {before}));
    }
    return areKept;
}

void WBReportPanel::Say(const CATUnicodeString& text)
{
    m_word->SetTitle(text);
}

void WBReportPanel::ShowWhatCounts()
{
    m_placing->ShowWhatCounts(m_contents->HasCentre(), m_contents->HasInertia());
}

void WBReportPanel::Generate()
{
    Say({});
    // Whoever picked instances of another product does not mean all of this one.
    if (!FollowRoot()) {
        CATWBServices::DisplayMsg(this, Title(), m_word->Title(), kWarningStyle);
        return;
    }
    if (m_root.IsEmpty()) {
        CATWBServices::DisplayMsg(
            this, Title(),
            WBReportText("NoRoot.Text", "@No product is open. Open one, then generate again."),
            kErrorStyle);
        return;
    }
    const WBReportPlacing::Reading placing = m_placing->Read();
    if (!placing.problem.IsEmpty()) {
        CATWBServices::DisplayMsg(this, WBReportText("NumberError.Title", "@This is no number"),
                                  placing.problem, kErrorStyle);
        return;
    }
    const WBReportOptions options = Options();
    CATIDOMDocument_var report = AskForReport(options);
    if (!report.IsNull()) {
        OpenReport(options, placing.placing, report);
    }
}

WBReportOptions WBReportPanel::Options() const
{
    WBReportOptions options;
    m_contents->Read(options);
    options.picked = m_picks->Picked().Items();
    m_sums->Read(options.sum);
    options.root = m_root;
    options.filter = CATWBVPMNavFilterPanel::GetFilter(m_root);
    return options;
}

CATIDOMDocument_var WBReportPanel::AskForReport(const WBReportOptions& options)
{
    const std::optional<CATUnicodeString> answer = WBCheckedAnswer(
        this, RunServerCode("WBMakeReport", WBReportRequest(options)),
        WBReportText("NoAnswer.Text", "@The server did not answer, so there is no report. Check "
                                      "that it is running, then generate again."));
    if (!answer) {
        return {};
    }
    CATUnicodeString problem;
    CATIDOMDocument_var report = WBReadReport(*answer, problem);
    if (report.IsNull()) {
        CATWBServices::DisplayMsg(
            this, WBReportText("Unreadable.Title", "@The report cannot be read"),
            WBReportText("Unreadable.Text",
                         "@The server's answer is no report that can be shown: /p1", {problem}),
            kErrorStyle);
    }
    return report;
}

void WBReportPanel::OpenReport(const WBReportOptions& options, const WBPlacing& placing,
                               CATIDOMDocument_var& document)
{
    // Before the server is asked for anything else: they belong to this report.
    CATUnicodeString warning;
    CATWBServices::GetWarningMsgFromEnovia(warning);
    WBTreatReport(document, options.kind, placing);
    const bool isOfEveryInstance =
        options.kind == WBReportKind::MaterialStatistics && options.isOfEveryInstance;
    const CATUnicodeString selection = m_picks->Picked().SelectionText();
    CATDialog* const preview =
        WBOpenPreview(options.kind, selection, document, isOfEveryInstance ? 1 : 0);
    Say(WBReportText("Opened.Text", "@The report of /p1 was opened.", {selection}));
    // Above the report: whoever closes the box has the report before them, not this panel.
    WBShowWarning(preview, warning,
                  {WBReportText("Warnings.Title", "@Warnings of the report"),
                   WBReportText("Errors.Title", "@Errors in the report")});
}
