#include "WBGroupPanel.h"

#include "WBGroupCriteriaPage.h"
#include "WBGroupFoundPage.h"
#include "WBGroupInstancesPage.h"
#include "WBGroupStoreBar.h"
#include "WBGroupTexts.h"
#include "WBGroupTotalsFrame.h"
#include "WBNavigatorPlaces.h"
#include "WBPanelControls.h"
#include "WBPickReading.h"
#include "WBReportOpening.h"
#include "WBServerAnswer.h"

#include "CATDlgNotify.h"
#include "CATWBServices.h"
#include "CATWBVPMNavFilterPanel.h"
#include "RunServerCode.h"

#include <algorithm>

namespace
{

constexpr int kPreferredWidth = 760;
constexpr int kPreferredHeight = 600;
constexpr int kErrorStyle = 0x10000000;
constexpr int kYes = 1;
constexpr int kNo = 2;

CATUnicodeString UnusableText(const CATUnicodeString& instance)
{
    return WBGroupText("Unusable.Text",
                       "@\"/p1\" was not taken: what the server says of it cannot be read.",
                       {instance});
}

/// All of the product with all its values, under its filter.
CATUnicodeString FiguresRequest(const CATUnicodeString& root)
{
    WBReportOptions options;
    options.values = {"*"};
    options.properties = {"*"};
    options.root = root;
    options.filter = CATWBVPMNavFilterPanel::GetFilter(root);
    return WBReportRequest(options);
}

} // namespace

WBGroupPanel::WBGroupPanel(CATCommand* parent, const CATUnicodeString& root)
    : CATWBVPMNavGroupPanel(parent),
      m_root(root),
      m_drafts(WBGroupDrafts::Below(parent)),
      m_unitWatch([this](const CATICkeMagnitude_var&) { FollowUnits(); })
{
    SetPreferredSize(kPreferredWidth, kPreferredHeight);
}

WBGroupPanel::~WBGroupPanel()
{
    WBGroupDrafts* const drafts = m_drafts.Get();
    if (drafts != nullptr && m_totals != nullptr) {
        m_instances->Store().PutDraft(*drafts);
        m_criteria->Store().PutDraft(*drafts);
    }
}

const char* WBGroupPanel::ClassName() const
{
    return "WBGroupPanel";
}

CATString WBGroupPanel::GetResourceFilename(int level) const
{
    return level == 0 ? CATString(kName) : CATWBVPMNavGroupPanel::GetResourceFilename(level - 1);
}

bool WBGroupPanel::RecoverFromFault()
{
    return true;
}

CATDlgPushButton* WBGroupPanel::GetCloseButton()
{
    return m_close;
}

void WBGroupPanel::Build()
{
    BuildHeading();
    BuildPages();
    m_totals = new WBGroupTotalsFrame(this);
    m_totals->SetPlacement(2, 0);
    BuildLastLine();
    SetRowStretch(1, 1);
    for (WBGroupPage* page : m_pages) {
        Subscribe(page, WBGroupPage::Said, [this](const CATNotification&) { ShowWord(); });
    }
    for (WBGroupPage* page :
         {static_cast<WBGroupPage*>(m_instances), static_cast<WBGroupPage*>(m_found)}) {
        Subscribe(page, WBGroupPage::Changed, [this](const CATNotification&) { ShowTotals(); });
    }
    Subscribe(m_criteria, WBGroupPage::Changed,
              [this](const CATNotification&) { m_found->Forget(); });
    SetGuard([this] { return MayClose(); });
    m_close->SetGuard([this] { return MayClose(); });
    if (WBGroupDrafts* const drafts = m_drafts.Get()) {
        m_instances->Store().TakeDraft(*drafts);
        m_criteria->Store().TakeDraft(*drafts);
    }
    ReadFigures();
    ShowWord();
}

void WBGroupPanel::BuildHeading()
{
    auto* frame = new CATDlgFrame(this, "Heading", kWBPlainFrame);
    frame->SetPlacement(0, 0);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(3, 1);
    WBAddFact(frame, "Product", 0)->SetTitle(m_root);
    m_filter = WBAddFact(frame, "Filter", 0, 2);
}

void WBGroupPanel::BuildPages()
{
    m_container = new CATDlgTabContainer(this, "Pages");
    m_container->SetPlacement(1, 0);
    m_instances = new WBGroupInstancesPage(m_container, m_root);
    m_criteria = new WBGroupCriteriaPage(m_container, m_root);
    m_found = new WBGroupFoundPage(m_container, m_root);
    m_pages = {m_instances, m_criteria, m_found};
    Subscribe(m_container, CATDlgTabContainer::PageSelected,
              [this](const CATNotification&) { ShowPageInFront(); });
    Subscribe(m_criteria, WBGroupCriteriaPage::FindAsked,
              [this](const CATNotification&) { Find(); });
    Subscribe(m_found, WBGroupFoundPage::AddAsked, [this](const CATNotification&) { AddFound(); });
}

void WBGroupPanel::BuildLastLine()
{
    auto* frame = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    frame->SetPlacement(3, 0);
    frame->SetColumnStretch(0, 1);
    m_word = WBAddNote(frame, "Word", 0);
    m_word->SetTitle({});
    auto* refresh = new CATDlgPushButton(frame, "RefreshButton");
    refresh->SetPlacement(0, 1);
    m_close = new CATDlgPushButton(frame, "CloseButton");
    m_close->SetPlacement(0, 2);
    Subscribe(refresh, CATDlgPushButton::Activated,
              [this](const CATNotification&) { ReadFigures(); });
    Subscribe(m_close, CATDlgPushButton::Activated,
              [this](const CATNotification&) { SetVisibility(false); });
}

WBGroupPage& WBGroupPanel::PageInFront() const
{
    const int index = std::max(m_container->SelectedPage(), 0); // -1 without a screen
    return *m_pages[static_cast<std::size_t>(index)];
}

void WBGroupPanel::GoTo(const WBGroupPage* page)
{
    const auto found = std::ranges::find(m_pages, page);
    m_container->SelectPage(static_cast<int>(found - m_pages.begin()));
    ShowPageInFront();
}

void WBGroupPanel::ShowPageInFront()
{
    m_criteria->EndValueInput(); // nobody sees any more that a pick is waited for
    ShowTotals();
    ShowWord();
}

void WBGroupPanel::ReadFigures()
{
    std::unique_ptr<WBGroupFigures> figures;
    m_filter->SetTitle(CATWBVPMNavFilterPanel::GetDisplayFilter(m_root));
    const std::optional<CATUnicodeString> answer = WBCheckedAnswer(
        this, RunServerCode("WBMakeReport", FiguresRequest(m_root)),
        WBGroupText("NoAnswer.Text", "@The server did not answer, so there are no figures. Check "
                                     "that it is running, then refresh."));
    if (answer) {
        CATUnicodeString problem;
        const CATIDOMDocument_var report = WBReadReport(*answer, problem);
        if (report.IsNull()) {
            CATWBServices::DisplayMsg(
                this, WBGroupText("Unreadable.Title", "@The figures cannot be read"),
                WBGroupText("Unreadable.Text",
                            "@The server's answer is no report of the product: /p1", {problem}),
                kErrorStyle);
        } else {
            figures = std::make_unique<WBGroupFigures>(report);
        }
    }
    for (WBGroupPage* page : m_pages) {
        page->TakeFigures(figures.get());
    }
    m_figures = std::move(figures); // the old ones go when nobody looks at them any more
    ShowTotals();
}

bool WBGroupPanel::IsInstanceInputActive() const
{
    // A window that the user has closed waits for nothing: a pick then shows it again.
    return m_criteria != nullptr && IsVisible() && m_criteria->IsValueInputActive();
}

void WBGroupPanel::AddValuesInMultiList(const CATUnicodeString& instance,
                                        const CATUnicodeString& part,
                                        const CATUnicodeString& version,
                                        const CATUnicodeString& path, int count,
                                        const CATUnicodeString& partName)
{
    if (m_instances == nullptr) {
        return;
    }
    if (WBIsOtherRootOpen(m_root)) {
        PageInFront().Say(WBGroupText("OtherRoot.Text",
                                      "@/p1 was not added: these are groups of /p2, and another "
                                      "product is open. Close this window first.",
                                      {instance, m_root}));
        return;
    }
    const std::optional<WBPickedInstance> picked =
        WBReadPickedInstance(instance, part, version, path, count);
    if (!picked) {
        PageInFront().Say(UnusableText(instance));
        return;
    }
    m_instances->Add({*picked, partName});
    if (&PageInFront() != m_instances) {
        PageInFront().Say(
            WBGroupText("Added.Text", "@/p1 is in the group of instances.", {instance}));
    }
}

void WBGroupPanel::SetWMMInstance(CATUnicodeString instance, CATUnicodeString part,
                                  CATUnicodeString version, CATUnicodeString path, int count)
{
    if (m_criteria == nullptr) {
        return;
    }
    const std::optional<WBPickedInstance> picked =
        WBReadPickedInstance(instance, part, version, path, count);
    if (picked) {
        m_criteria->TakeValueOf(*picked);
    } else {
        m_criteria->Say(UnusableText(instance));
    }
}

void WBGroupPanel::Find()
{
    m_found->Find(m_criteria->Criteria());
    GoTo(m_found);
}

void WBGroupPanel::AddFound()
{
    const int added = m_instances->AddAll(m_found->Found());
    m_found->Say(WBGroupCount("AddFound", added, "@1 instance was added to the group.",
                              "@/p1 instances were added to the group."));
}

void WBGroupPanel::ShowTotals()
{
    // Criteria add up to what matches them.
    const WBGroupPage& page =
        &PageInFront() == m_instances ? static_cast<WBGroupPage&>(*m_instances) : *m_found;
    m_totals->Show(page.Totals(), page.WhatCounts());
}

void WBGroupPanel::ShowWord()
{
    m_word->SetTitle(PageInFront().Word());
}

void WBGroupPanel::FollowUnits()
{
    if (m_totals == nullptr) {
        return; // nothing is built yet
    }
    for (WBGroupPage* page : m_pages) {
        page->FollowUnits();
    }
    ShowTotals();
}

bool WBGroupPanel::MayClose()
{
    return MayLeave(*m_instances, m_instances->Store(),
                    WBGroupText("Close.Instances",
                                "@The group of instances is not saved. Shall it be saved before "
                                "the window closes?")) &&
           MayLeave(*m_criteria, m_criteria->Store(),
                    WBGroupText("Close.Criteria", "@The group of criteria is not saved. Shall it "
                                                  "be saved before the window closes?"));
}

bool WBGroupPanel::MayLeave(const WBGroupPage& page, WBGroupStoreBar& store,
                            const CATUnicodeString& question)
{
    if (!store.HasUnsaved()) {
        return true;
    }
    GoTo(&page); // whoever is asked sees what is meant
    auto* box = new CATDlgNotify(this, "UnsavedGroup", CATDlgNotify::kQuestionWithCancel);
    box->SetTitle(Title());
    box->SetText(question);
    const int answer = box->DisplayBlocking();
    box->RequestDelayedDestruction();
    if (answer == kNo) {
        store.GiveUp();
        return true;
    }
    return answer == kYes && store.Save();
}
