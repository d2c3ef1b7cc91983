#include "CATDialog.h"

#include "CATCommandWatch.h"
#include "CATFindPath.h"
#include "CATSession.h"
#include "ControlGrid.h"
#include "DialogResources.h"
#include "StyleWords.h"
#include "TextLabel.h"
#include "Toolkit.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QIcon>
#include <QPointer>
#include <QTabWidget>
#include <QTimer>

#include <array>
#include <optional>

namespace
{

/// Where a control stands in its cell.
enum class Place
{
    Fills,
    KeepsSize
};
constexpr std::array kPlaces{StyleWord<Place>{30, Place::Fills},
                             StyleWord<Place>{4, Place::KeepsSize}};

constexpr int kFillCell = 30;
// How far the classes of a dialog are asked for resource files of their own.
constexpr int kMostLevels = 8;

QTabWidget* TabsOf(const QWidget* page)
{
    // A page stands in the tab widget's stack.
    QWidget* stack = page->parentWidget();
    return stack == nullptr ? nullptr : qobject_cast<QTabWidget*>(stack->parentWidget());
}

/// Whether a control of that kind shows a text at all (an editor and a list do not), so that a
/// missing one is to be seen.
bool ShowsTitle(const QWidget* widget)
{
    return widget->isWindow() || qobject_cast<const QGroupBox*>(widget) != nullptr ||
           qobject_cast<const QLabel*>(widget) != nullptr ||
           qobject_cast<const QAbstractButton*>(widget) != nullptr || TabsOf(widget) != nullptr;
}

void PutTitle(QWidget* widget, const QString& title)
{
    if (widget->isWindow()) {
        widget->setWindowTitle(title);
    } else if (auto* box = qobject_cast<QGroupBox*>(widget)) {
        box->setTitle(WithoutAccelerators(title));
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        label->setText(title);
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        button->setText(WithoutAccelerators(title));
    } else if (QTabWidget* tabs = TabsOf(widget)) {
        const int index = tabs->indexOf(widget);
        tabs->setTabText(index, WithoutAccelerators(title));
        tabs->setTabToolTip(index, title);
    }
}

void PutIcon(QWidget* widget, const std::string& file)
{
    const std::string path = CATFindResource("icons/" + file);
    if (path.empty()) {
        return;
    }
    const QIcon icon(QString::fromStdString(path));
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        button->setIcon(icon);
    } else if (widget->isWindow()) {
        widget->setWindowIcon(icon);
    }
}

} // namespace

struct CATDialog::State
{
    int style = 0;
    int justification = kFillCell;
    QPointer<QWidget> widget;
    QPointer<QWidget> outer;     ///< what stands in the parent's grid
    QPointer<QWidget> container; ///< what the controls of this one are made in
    QPointer<ControlGrid> grid;  ///< of the container
    CATUnicodeString title;
    bool hasProgramTitle = false;
    bool hasProgramTooltip = false;
    bool hasResources = false; ///< a window: they have been read
    bool isPlaced = false;
    std::function<bool()> guard;
    bool isGuardAsked = false;
};

CATDialog::CATDialog(CATCommand* parent, const CATString& name, int style)
    : CATCommand(parent, name), m_state(std::make_unique<State>())
{
    m_state->style = style;
}

CATDialog::~CATDialog()
{
    // The widgets of the controls in here go with this one; their commands outlive it by a moment
    // and must not tell anybody what the toolkit does on the way.
    const Quiet quiet;
    delete m_state->outer;
}

CATDialog* CATDialog::ParentDialog() const
{
    return dynamic_cast<CATDialog*>(Parent());
}

CATDialog* CATDialog::Window()
{
    CATDialog* dialog = this;
    while (dialog != nullptr && dialog->m_state->widget != nullptr &&
           !dialog->m_state->widget->isWindow()) {
        dialog = dialog->ParentDialog();
    }
    return dialog == nullptr || dialog->m_state->widget == nullptr ? nullptr : dialog;
}

QWidget* CATDialog::Inside(CATDialog* parent)
{
    return parent == nullptr ? nullptr : parent->m_state->container.data();
}

void CATDialog::Adopt(QWidget* widget, QWidget* outer, QWidget* container)
{
    m_state->widget = widget;
    m_state->outer = outer == nullptr ? widget : outer;
    m_state->container = container;
    if (container != nullptr && qobject_cast<QTabWidget*>(container) == nullptr) {
        m_state->grid = new ControlGrid(container); // the container deletes it
    }
    widget->setObjectName(ToQt(Name()));
    CATDialog* parent = ParentDialog();
    if (parent == nullptr || widget->isWindow()) {
        return;
    }
    // Only after whoever makes the control had the time to place it and to give it its texts.
    QTimer::singleShot(0, widget, [this] { PlaceLeftOver(); });
    CATDialog* window = Window();
    if (window != nullptr && window->m_state->hasResources) {
        TakeTextsFromResources();
    }
}

void CATDialog::PlaceLeftOver()
{
    CATDialog* parent = ParentDialog();
    if (!m_state->isPlaced && parent != nullptr && parent->m_state->grid != nullptr &&
        m_state->widget != nullptr && !m_state->widget->isWindow()) {
        SetPlacement(parent->m_state->grid->rowCount(), 0);
    }
}

void CATDialog::SetVisibility(bool visible)
{
    if (m_state->widget == nullptr) {
        return;
    }
    if (visible && m_state->widget->isWindow()) {
        ApplyResources();
    }
    if (QTabWidget* tabs = TabsOf(m_state->outer)) {
        const Quiet quiet;
        tabs->setTabVisible(tabs->indexOf(m_state->outer), visible);
        return;
    }
    m_state->outer->setVisible(visible);
}

bool CATDialog::IsVisible() const
{
    if (m_state->widget == nullptr) {
        return false;
    }
    if (QTabWidget* tabs = TabsOf(m_state->outer)) {
        return tabs->isTabVisible(tabs->indexOf(m_state->outer));
    }
    return !m_state->outer->isHidden();
}

void CATDialog::SetSensitivity(bool sensitive)
{
    if (m_state->widget != nullptr) {
        m_state->outer->setEnabled(sensitive);
        if (QTabWidget* tabs = TabsOf(m_state->outer)) {
            const Quiet quiet;
            tabs->setTabEnabled(tabs->indexOf(m_state->outer), sensitive);
        }
    }
}

bool CATDialog::IsSensitive() const
{
    return m_state->widget != nullptr && m_state->outer->isEnabled();
}

void CATDialog::SetTitle(const CATUnicodeString& title)
{
    m_state->title = title;
    m_state->hasProgramTitle = true;
    ShowTitle();
}

CATUnicodeString CATDialog::Title() const
{
    return m_state->title;
}

void CATDialog::ShowTitle()
{
    QWidget* widget = m_state->widget;
    if (widget == nullptr) {
        return;
    }
    PutTitle(widget, ToQt(m_state->title));
    CATDialog* parent = ParentDialog();
    if (parent != nullptr && parent->m_state->grid != nullptr) {
        NameFieldAfter(*parent->m_state->grid, widget);
    }
}

void CATDialog::SetTooltip(const CATUnicodeString& tooltip)
{
    m_state->hasProgramTooltip = true;
    if (m_state->widget != nullptr) {
        m_state->widget->setToolTip(ToQt(tooltip));
    }
}

CATUnicodeString CATDialog::Tooltip() const
{
    return m_state->widget == nullptr ? CATUnicodeString() : FromQt(m_state->widget->toolTip());
}

void CATDialog::SetAccessibleName(const CATUnicodeString& name)
{
    if (m_state->widget != nullptr) {
        GiveAccessibleName(m_state->widget, ToQt(name));
    }
}

void CATDialog::SetGuard(std::function<bool()> guard)
{
    m_state->guard = std::move(guard);
}

bool CATDialog::IsAllowedByGuard()
{
    if (!m_state->guard) {
        return true;
    }
    // The guard's box takes the input of all windows, but a key or a close that came before it was
    // up waits in the event loop and is met by the box's own.
    if (m_state->isGuardAsked) {
        return false;
    }
    m_state->isGuardAsked = true;
    const CATCommandWatch<CATDialog> watch(this);
    // A copy: the guard may take itself off, or the control may go away while it asks.
    const std::function<bool()> guard = m_state->guard;
    bool isAllowed = false;
    CATSession::RunGuarded(Window(), [&] { isAllowed = guard(); });
    if (watch.Get() == nullptr) {
        return false;
    }
    m_state->isGuardAsked = false;
    return isAllowed;
}

void CATDialog::ReportProblemsTo(std::function<void(const CATUnicodeString& sentence)> listener)
{
    ReportDialogProblemsTo(std::move(listener));
}

void CATDialog::SetPlacement(int row, int column, int rows, int columns, int justification)
{
    m_state->justification = justification;
    m_state->isPlaced = true;
    CATDialog* parent = ParentDialog();
    if (m_state->outer == nullptr || m_state->outer->isWindow() || parent == nullptr ||
        parent->m_state->grid == nullptr) {
        return;
    }
    const bool keepsSize = LookOf<Place>(justification, kPlaces, Place::Fills) == Place::KeepsSize;
    // A row of buttons ends where the window's texts end; anything else begins where they begin.
    const Qt::Alignment side = m_state->container == nullptr ? Qt::AlignLeft : Qt::AlignRight;
    ControlGrid& grid = *parent->m_state->grid;
    grid.removeWidget(m_state->outer);
    grid.addWidget(m_state->outer, row, column, rows, columns,
                   keepsSize ? side | Qt::AlignVCenter : Qt::Alignment());
    NameFieldByLabel(grid, m_state->outer);
    NameFieldAfter(grid, m_state->widget);
}

void CATDialog::SetRowStretch(int row, int stretch)
{
    if (m_state->grid != nullptr) {
        m_state->grid->setRowStretch(row, stretch);
    }
}

void CATDialog::SetColumnStretch(int column, int stretch)
{
    if (m_state->grid != nullptr) {
        m_state->grid->setColumnStretch(column, stretch);
    }
}

int CATDialog::Style() const
{
    return m_state->style;
}

int CATDialog::Justification() const
{
    return m_state->justification;
}

QWidget* CATDialog::Widget() const
{
    return m_state->widget;
}

std::string CATDialog::ResourcePath(const char* field) const
{
    std::string path = field;
    for (const CATDialog* dialog = this; dialog != nullptr && dialog->m_state->widget != nullptr &&
                                         !dialog->m_state->widget->isWindow();
         dialog = dialog->ParentDialog()) {
        path.insert(0, dialog->Name().ToStdString() + ".");
    }
    return path;
}

void CATDialog::TakeTextsFromResources()
{
    CATDialog* window = Window();
    if (window == nullptr) {
        return;
    }
    // The dialog's own class comes first, then those that it is built on.
    const auto textOf = [this, window](const char* field) -> std::optional<std::string> {
        const std::string key = ResourcePath(field);
        for (int level = 0; level < kMostLevels; ++level) {
            const std::string file = window->GetResourceFilename(level).ToStdString();
            if (file.empty()) {
                break;
            }
            if (level > 0 && CATFindResource("dialogs/" + file + ".toml").empty()) {
                continue;
            }
            if (auto text = FindDialogText(file, key)) {
                return text;
            }
        }
        return std::nullopt;
    };
    if (!m_state->hasProgramTitle) {
        const std::optional<std::string> title = textOf("Title");
        if (title) {
            m_state->title = *title;
        } else if (ShowsTitle(m_state->widget)) {
            m_state->title = Name();
        }
        ShowTitle();
    }
    if (!m_state->hasProgramTooltip) {
        if (const std::optional<std::string> tooltip = textOf("Tooltip")) {
            m_state->widget->setToolTip(QString::fromStdString(*tooltip));
        }
    }
    if (const std::optional<std::string> icon = textOf("Icon")) {
        PutIcon(m_state->widget, *icon);
    }
}

void CATDialog::ApplyResources()
{
    if (m_state->hasResources || m_state->widget == nullptr) {
        return;
    }
    m_state->hasResources = true;
    // Depth first, in the order in which the controls were made.
    const auto apply = [](const auto& self, CATDialog& dialog) -> void {
        dialog.TakeTextsFromResources();
        dialog.PlaceLeftOver();
        for (int position = 1; position <= dialog.ChildCount(); ++position) {
            auto* child = dynamic_cast<CATDialog*>(dialog.Child(position));
            if (child != nullptr && child->m_state->widget != nullptr &&
                !child->m_state->widget->isWindow()) {
                self(self, *child);
            }
        }
    };
    apply(apply, *this);
}
