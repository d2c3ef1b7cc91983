#pragma once

#include "PanelChecks.h"
#include "PanelSession.h"
#include "WBMainPanel.h"

#include "CATDlgMultiList.h"

#include <QTabWidget>

/// A main panel with its record, in a window.
class MainPanelSession : public PanelSession
{
protected:
    ~MainPanelSession() override { CATSession::Close(); }

    void Open(const RecordHandle& record)
    {
        panel = new WBMainPanel(&CATSession::Root(), record.Get());
        panel->SetVisibility(true);
        Settle();
    }
    void Resize(int width, int height)
    {
        panel->Widget()->resize(width, height);
        Settle();
    }
    template <class T>
    T* Find(const char* name) const
    {
        return FindBelow<T>(*panel, name);
    }
    std::string Text(const char* label) const
    {
        const auto* found = Find<CATDlgLabel>(label);
        return found == nullptr ? "no such label" : found->Title().ToStdString();
    }
    /// What the label "Words" of that page says.
    std::string WordsOn(const char* page) const
    {
        return FindBelow<CATDlgLabel>(*Find<CATDlgTabPage>(page), "Words")->Title().ToStdString();
    }
    CATDlgMultiList* List(const char* page, const char* name = "List") const
    {
        return FindBelow<CATDlgMultiList>(*Find<CATDlgTabPage>(page), name);
    }
    /// Turns to the page of that name.
    void TurnTo(const char* page) const
    {
        auto* tabs = Tabs();
        auto* wanted = Find<CATDlgTabPage>(page)->Widget();
        tabs->setCurrentWidget(wanted);
        for (int tab = 0; tab < tabs->count() && !wanted->isVisible(); ++tab) {
            tabs->setCurrentIndex(tab);
        }
        Settle();
    }
    QTabWidget* Tabs() const { return panel->Widget()->findChild<QTabWidget*>(); }
    WBMainPanel* panel = nullptr;
};
