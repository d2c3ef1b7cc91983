#include "CATDlgControls.h"
#include "Toolkit.h"

#include <QTabWidget>

CATDlgTabPage::CATDlgTabPage(CATDlgTabContainer* parent, const CATString& name, int style)
    : CATDialog(parent, name, style)
{
    auto* tabs = qobject_cast<QTabWidget*>(Inside(parent));
    if (tabs == nullptr) {
        return;
    }
    const Quiet quiet; // the first page becomes the selected one
    auto* page = new QWidget;
    tabs->addTab(page, QString()); // the tabs delete it
    Adopt(page, nullptr, page);
}
