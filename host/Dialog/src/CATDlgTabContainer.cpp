#include "CATDlgControls.h"
#include "Toolkit.h"

#include <QTabBar>
#include <QTabWidget>

const CATEvent CATDlgTabContainer::PageSelected("TabPageSelected");

CATDlgTabContainer::CATDlgTabContainer(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    QWidget* inside = Inside(parent);
    if (inside == nullptr) {
        return;
    }
    auto* tabs = new QTabWidget(inside);
    tabs->setElideMode(Qt::ElideRight);
    tabs->setUsesScrollButtons(true);
    Adopt(tabs, nullptr, tabs);
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs,
                     [this](int index) { SendFromUser(*this, PageSelected, index); });
}

int CATDlgTabContainer::SelectedPage() const
{
    auto* tabs = qobject_cast<QTabWidget*>(Widget());
    return tabs == nullptr ? -1 : tabs->currentIndex();
}

void CATDlgTabContainer::SelectPage(int index)
{
    if (auto* tabs = qobject_cast<QTabWidget*>(Widget())) {
        const Quiet quiet;
        tabs->setCurrentIndex(index);
    }
}
