#include "StoryPlayer.h"

#include "CATCkeGlobalFunctions.h"
#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATDlgFile.h"
#include "CATDlgMultiList.h"
#include "CATDlgNotify.h"
#include "CATENOWBCSCommonDefinitions.h"
#include "CATStatus.h"
#include "ProductTreeModel.h"
#include "ProductTreeView.h"
#include "QtTexts.h"
#include "StoryControls.h"
#include "Workbench.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QJsonDocument>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include <algorithm>
#include <array>
#include <map>

namespace
{

/// The parts of "ROOT/INSTANCE/INSTANCE".
std::vector<QString> SplitPath(const std::string& path)
{
    std::vector<QString> names;
    for (const QString& name : QString::fromStdString(path).split('/')) {
        names.push_back(name);
    }
    return names;
}

// Which window was shown when, kept on the window itself.
constexpr const char* kShowOrder = "wbShowOrder";

/// Every visible window in one picture, where they stand, the ones opened later above.
QPixmap GrabWindows()
{
    QRect whole;
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            windows.append(window);
            whole |= window->geometry();
        }
    }
    std::stable_sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        return a->property(kShowOrder).toInt() < b->property(kShowOrder).toInt();
    });
    QPixmap picture(whole.size());
    picture.fill(QColor(0xd0, 0xd4, 0xd8));
    QPainter painter(&picture);
    for (QWidget* window : windows) {
        painter.drawPixmap(window->geometry().topLeft() - whole.topLeft(), window->grab());
    }
    return picture;
}

/// The keys go to that window, as on any desktop to the one that is clicked. On a real screen that
/// takes a moment, and what is typed meanwhile would be lost.
void GiveKeysTo(QWidget& window)
{
    constexpr int kPatience = 3000; // ms; no longer than a person would wait
    window.activateWindow();
    // A screen that gives the keys to nobody plays the story all the same.
    static_cast<void>(
        QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }, kPatience));
}

/// Whether a person could use the control: neither it nor its window is hidden, and it is not
/// greyed.
bool IsWithinReach(const CATDialog& control)
{
    return control.IsVisible() && control.IsSensitive() && control.Widget()->window()->isVisible();
}

/// The action of that text, accelerator signs left out; null when there is none.
QAction* FindAction(const QList<QAction*>& actions, const std::string& text)
{
    for (QAction* action : actions) {
        if (action->text().remove('&').toStdString() == text) {
            return action;
        }
    }
    return nullptr;
}

/// Chooses a line as the user does: who listens to the combo is told.
std::string SelectLine(CATDlgCombo& combo, const std::string& text)
{
    auto* widget = qobject_cast<QComboBox*>(combo.Widget());
    const int line = widget->findText(QString::fromStdString(text),
                                      Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (line < 0) {
        return "there is no line \"" + text + "\"";
    }
    widget->setCurrentIndex(line);
    return {};
}

/// Clicks the first of the rows that are shown whose first cell is `text`.
std::string ClickRow(CATDlgMultiList& list, const std::string& text)
{
    auto* table = qobject_cast<QTableView*>(list.Widget());
    const QAbstractItemModel& model = *table->model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex cell = model.index(row, 0);
        if (cell.data().toString().toStdString() == text) {
            table->scrollTo(cell);
            QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                              table->visualRect(cell).center());
            return {};
        }
    }
    return "there is no row \"" + text + "\"";
}

} // namespace

StoryPlayer::StoryPlayer(WorkbenchWindow& workbench) : m_workbench(workbench)
{
    qApp->installEventFilter(this);
    CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) -> std::optional<int> {
        m_boxes.push_back({box.title.ToStdString() + "\n" + box.text.ToStdString(), false});
        if (!box.blocking) {
            return std::nullopt;
        }
        // A box that nobody answers would stop the story for ever: it is refused, and the story
        // fails because no step expected it. So does one that lacks the button of the answer.
        if (m_answers.empty()) {
            return box.cancel.value_or(box.no);
        }
        const std::string answer = m_answers.front();
        m_answers.pop_front();
        const std::optional<int> pressed = answer == "Cancel" ? box.cancel
                                           : answer == "No"   ? box.no
                                                              : box.yes;
        m_boxes.back().expected = pressed.has_value();
        if (!pressed) {
            m_boxes.back().text = "a box without a button \"Cancel\": " + m_boxes.back().text;
        }
        return pressed.value_or(box.no);
    });
    // An empty path cancels the box.
    CATDlgFile::SetChooser(
        [this](const CATDlgFile::Request& request) -> std::optional<CATUnicodeString> {
            if (m_files.empty()) {
                m_boxes.push_back({"a file box: " + request.title.ToStdString(), false});
                return CATUnicodeString();
            }
            const std::string path = m_files.front();
            m_files.pop_front();
            return path == "cancel" ? CATUnicodeString() : CATUnicodeString(path);
        });
}

StoryPlayer::~StoryPlayer()
{
    CATDlgNotify::SetAnswerer({});
    CATDlgFile::SetChooser({});
}

bool StoryPlayer::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Show && object->isWidgetType() &&
        static_cast<QWidget*>(object)->isWindow()) {
        object->setProperty(kShowOrder, ++m_shown);
        auto* const window = static_cast<QWidget*>(object);
        if (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog) {
            m_opened = window;
        }
    }
    return false;
}

bool StoryPlayer::Play(const std::string& path)
{
    std::vector<StoryStep> steps;
    if (!ReadStory(path, steps, m_failure)) {
        return false;
    }
    m_folder = std::filesystem::path(path).parent_path();
    int shownLine = 0;
    for (const StoryStep& step : steps) {
        shownLine = step.line;
        if (step.words.front() == "quit") {
            break;
        }
        std::string problem = Run(step);
        CATDlgApplication::ProcessEvents();
        if (QWidget* const opened = m_opened; opened != nullptr && opened->isVisible()) {
            GiveKeysTo(*opened);
        }
        m_opened = nullptr;
        // A box is waited for by the step that follows it.
        const bool waitsForBox =
            &step != &steps.back() && (&step + 1)->words.front() == "expect-box";
        if (problem.empty() && !waitsForBox) {
            problem = UnexpectedBox();
        }
        if (!problem.empty()) {
            m_failure = path;
            m_failure += ":" + std::to_string(step.line) + ": ";
            m_failure += step.words.front() + ": " + problem;
            return false;
        }
    }
    if (!m_answers.empty() || !m_files.empty()) {
        m_failure = path + ":" + std::to_string(shownLine) + ": a box that was answered never came";
        return false;
    }
    return true;
}

std::string StoryPlayer::UnexpectedBox() const
{
    for (const Box& box : m_boxes) {
        if (!box.expected) {
            return "a box came that no step waits for: " + box.text;
        }
    }
    return {};
}

std::string StoryPlayer::Run(const StoryStep& step)
{
    static const std::map<std::string, Handler> kHandlers{
        {"open", &StoryPlayer::Open},
        {"workshop", &StoryPlayer::Workshop},
        {"start", &StoryPlayer::Start},
        {"menu", &StoryPlayer::Menu},
        {"pick", &StoryPlayer::Pick},
        {"click", &StoryPlayer::Click},
        {"check", &StoryPlayer::Check},
        {"type", &StoryPlayer::Type},
        {"select", &StoryPlayer::Select},
        {"key", &StoryPlayer::Key},
        {"sort", &StoryPlayer::Sort},
        {"resize", &StoryPlayer::Resize},
        {"units", &StoryPlayer::Units},
        {"expect", &StoryPlayer::Expect},
        {"expect-cell", &StoryPlayer::ExpectCell},
        {"expect-tooltip", &StoryPlayer::ExpectTooltip},
        {"expect-box", &StoryPlayer::ExpectBox},
        {"expect-copied", &StoryPlayer::ExpectCopied},
        {"expect-file", &StoryPlayer::ExpectFile},
        {"answer", &StoryPlayer::Answer},
        {"file", &StoryPlayer::File},
        {"close", &StoryPlayer::Close},
        {"shot", &StoryPlayer::Shot},
        {"dump", &StoryPlayer::Dump},
    };
    return (this->*kHandlers.at(step.words.front()))(step.words);
}

std::string StoryPlayer::Open(const Words& words)
{
    CATUnicodeString problem;
    const bool isFile = words[1].size() > 4 && words[1].substr(words[1].size() - 4) == ".csv";
    // A story travels with its files: they stand where its own path leads them.
    const bool opened =
        isFile ? m_workbench.OpenFile((m_folder / words[1]).lexically_normal().string(), problem)
               : m_workbench.OpenRoot(words[1], problem);
    return opened ? std::string() : problem.ToStdString();
}

std::string StoryPlayer::Workshop(const Words& words)
{
    return m_workbench.ShowWorkshop(words[1])
               ? std::string()
               : "there is no workshop \"" + words[1] + "\"; there are \"" +
                     CATENOWBCSCommonDefinitions::vpmNavWshp + "\" and \"" +
                     CATENOWBCSCommonDefinitions::prodStructWshp + "\"";
}

std::string StoryPlayer::Start(const Words& words)
{
    CATUnicodeString problem;
    return m_workbench.StartCommand(words[1], problem) ? std::string() : problem.ToStdString();
}

std::string StoryPlayer::Menu(const Words& words)
{
    const std::size_t slash = words[1].find('/');
    const QAction* title = FindAction(m_workbench.menuBar()->actions(), words[1].substr(0, slash));
    if (title == nullptr || slash == std::string::npos) {
        return "there is no menu \"" + words[1].substr(0, slash) + "\" with an entry";
    }
    QAction* entry = FindAction(title->menu()->actions(), words[1].substr(slash + 1));
    if (entry == nullptr || !entry->isEnabled()) {
        return "the menu has no entry \"" + words[1].substr(slash + 1) + "\" that can be chosen";
    }
    entry->trigger();
    return {};
}

std::string StoryPlayer::Pick(const Words& words)
{
    ProductTreeView& tree = m_workbench.CurrentTree();
    for (std::size_t at = 1; at < words.size(); ++at) {
        std::vector<QString> names = SplitPath(words[at]);
        const QModelIndex root = tree.Products().index(0, 0);
        const bool rightRoot = root.isValid() && root.data().toString() == names.front();
        names.erase(names.begin());
        const QModelIndex index = rightRoot ? tree.Products().Find(names) : QModelIndex();
        if (!index.isValid()) {
            return "the tree has no \"" + words[at] + "\"";
        }
        for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent()) {
            tree.expand(parent);
        }
        tree.scrollTo(index);
        CATDlgApplication::ProcessEvents();
        // The mouse goes down on the row, and comes up at the last one: that is when a pick is
        // made.
        const bool last = at + 1 == words.size();
        const Qt::KeyboardModifiers modifiers = at == 1 ? Qt::NoModifier : Qt::ControlModifier;
        const QPoint place = tree.visualRect(index).center();
        if (last) {
            QTest::mouseClick(tree.viewport(), Qt::LeftButton, modifiers, place);
        } else {
            tree.selectionModel()->select(index, (at == 1 ? QItemSelectionModel::ClearAndSelect
                                                          : QItemSelectionModel::Select) |
                                                     QItemSelectionModel::Rows);
        }
    }
    return {};
}

std::string StoryPlayer::Click(const Words& words)
{
    std::string problem;
    CATDialog* control = FindControl(words[1], problem);
    if (control == nullptr) {
        return problem;
    }
    if (!IsWithinReach(*control)) {
        return "the control is hidden or greyed";
    }
    if (auto* page = dynamic_cast<CATDlgTabPage*>(control)) {
        auto* container = dynamic_cast<CATDlgTabContainer*>(page->Parent());
        for (int position = 1; position <= container->ChildCount(); ++position) {
            if (container->Child(position) == page) {
                // As the user does: who listens to the pages is told.
                qobject_cast<QTabWidget*>(container->Widget())->setCurrentIndex(position - 1);
            }
        }
        return {};
    }
    GiveKeysTo(*control->Widget()->window());
    QTest::mouseClick(control->Widget(), Qt::LeftButton, {},
                      QPoint(10, control->Widget()->height() / 2));
    return {};
}

std::string StoryPlayer::Check(const Words& words)
{
    if (words[2] != "on" && words[2] != "off") {
        return "expected \"on\" or \"off\"";
    }
    std::string problem;
    CATDialog* control = FindControl(words[1], problem);
    if (control == nullptr) {
        return problem;
    }
    return VisibleText(*control).toStdString() == words[2] ? std::string() : Click(words);
}

std::string StoryPlayer::Type(const Words& words)
{
    std::string problem;
    QLineEdit* line = FindLine(words[1], problem);
    if (line == nullptr) {
        return problem;
    }
    if (line->isReadOnly() || !line->isEnabled() || !line->isVisible()) {
        return "the control is hidden or greyed, or shows its text alone";
    }
    GiveKeysTo(*line->window());
    line->setFocus();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete); // an empty text replaces what is there too
    QTest::keyClicks(line, QString::fromStdString(words[2]));
    // The line of a spinner leaves its keys to the spinner.
    QTest::keyClick(line->focusProxy() != nullptr ? line->focusProxy() : line, Qt::Key_Tab);
    return {};
}

std::string StoryPlayer::Select(const Words& words)
{
    std::string problem;
    CATDialog* control = FindControl(words[1], problem);
    if (control == nullptr) {
        return problem;
    }
    if (!IsWithinReach(*control)) {
        return "the control is hidden or greyed";
    }
    GiveKeysTo(*control->Widget()->window());
    if (auto* combo = dynamic_cast<CATDlgCombo*>(control)) {
        return SelectLine(*combo, words[2]);
    }
    if (auto* list = dynamic_cast<CATDlgMultiList*>(control)) {
        return ClickRow(*list, words[2]);
    }
    return "nothing can be selected in this control";
}

std::string StoryPlayer::Key(const Words& words)
{
    const QKeySequence keys(QString::fromStdString(words[1]), QKeySequence::PortableText);
    if (keys.isEmpty() || keys[0].key() == Qt::Key_unknown) {
        return "there is no key \"" + words[1] + "\"";
    }
    const QWidget* const active = QApplication::activeWindow();
    if (active == nullptr || !active->isVisible()) {
        // The main window has them when the one before it was closed, as on any desktop.
        GiveKeysTo(m_workbench);
    }
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &m_workbench, keys[0].key(),
                    keys[0].keyboardModifiers());
    return {};
}

std::string StoryPlayer::Sort(const Words& words)
{
    std::string problem;
    CATDialog* control = FindControl(words[1], problem);
    if (control == nullptr) {
        return problem;
    }
    const int column = SeenColumn(*control, words[2]);
    if (column < 0) {
        return "the list has no column \"" + words[2] + "\"";
    }
    const QTableView* table = SeenTable(*control);
    const QHeaderView* header = table->horizontalHeader();
    table->horizontalScrollBar()->setValue(header->sectionPosition(column));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(column) + 8, header->height() / 2));
    return {};
}

std::string StoryPlayer::Resize(const Words& words)
{
    std::string problem;
    CATDialog* window = FindControl(words[1], problem);
    if (window == nullptr) {
        return problem;
    }
    const QSize size(QString::fromStdString(words[2]).toInt(),
                     QString::fromStdString(words[3]).toInt());
    if (size.isEmpty()) {
        return "expected a width and a height in pixels";
    }
    window->Widget()->resize(size);
    CATDlgApplication::ProcessEvents();
    const QSize seen = window->Widget()->size();
    return seen == size ? std::string()
                        : "the window has " + std::to_string(seen.width()) + " x " +
                              std::to_string(seen.height());
}

std::string StoryPlayer::Units(const Words& words)
{
    const CATICkeMagnitude_var magnitude =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(words[1]);
    if (magnitude.IsNull()) {
        return "there is no magnitude \"" + words[1] + "\"";
    }
    return magnitude->SetCurrentUnit(words[2]) == E_INVALIDARG
               ? "the magnitude has no unit \"" + words[2] + "\""
               : std::string();
}

std::string StoryPlayer::Expect(const Words& words)
{
    std::string problem;
    QString seen;
    if (words[1] == "Prompt") {
        seen = ToQString(CATApplicationFrame::GetFrame()->Prompt());
    } else if (words[1] == "UnsavedChanges") {
        const auto* label = m_workbench.statusBar()->findChild<QLabel*>("UnsavedChanges");
        seen = label->isHidden() ? QString() : label->text();
    } else {
        const CATDialog* control = FindControl(words[1], problem);
        if (control == nullptr) {
            return problem;
        }
        seen = VisibleText(*control);
    }
    return seen.toStdString() == words[2]
               ? std::string()
               : "expected \"" + words[2] + "\", seen \"" + seen.toStdString() + "\"";
}

std::string StoryPlayer::ExpectCell(const Words& words)
{
    std::string problem;
    const CATDialog* list = FindControl(words[1], problem);
    QString seen;
    if (list == nullptr || !SeenCell(*list, words[2], words[3], seen, problem)) {
        return problem;
    }
    return seen.toStdString() == words[4]
               ? std::string()
               : "expected \"" + words[4] + "\", seen \"" + seen.toStdString() + "\"";
}

std::string StoryPlayer::ExpectTooltip(const Words& words)
{
    std::string problem;
    const CATDialog* control = FindControl(words[1], problem);
    if (control == nullptr) {
        return problem;
    }
    const std::string seen = control->Tooltip().ToStdString();
    return seen == words[2] ? std::string()
                            : "expected \"" + words[2] + "\", seen \"" + seen + "\"";
}

std::string StoryPlayer::ExpectBox(const Words& words)
{
    for (Box& box : m_boxes) {
        if (!box.expected && box.text.find(words[1]) != std::string::npos) {
            box.expected = true;
            // Read and put away, as a person would: the box deletes itself.
            CloseBoxes();
            return {};
        }
    }
    std::string seen;
    for (const Box& box : m_boxes) {
        seen += box.expected ? "" : "\n" + box.text;
    }
    return seen.empty() ? "no box came" : "the boxes that came say:" + seen;
}

std::string StoryPlayer::ExpectCopied(const Words& words)
{
    const std::string seen = QApplication::clipboard()->text().toStdString();
    return seen == words[1] ? std::string()
                            : "expected \"" + words[1] + "\", seen \"" + seen + "\"";
}

std::string StoryPlayer::ExpectFile(const Words& words)
{
    QFile file(QString::fromStdString(words[1]));
    if (!file.open(QIODevice::ReadOnly)) {
        return words[1] + " cannot be read: " + file.errorString().toStdString();
    }
    return file.readAll().contains(QByteArray::fromStdString(words[2]))
               ? std::string()
               : words[1] + " does not hold \"" + words[2] + "\"";
}

std::string StoryPlayer::Answer(const Words& words)
{
    constexpr std::array<std::string_view, 4> kButtons{"Yes", "No", "OK", "Cancel"};
    if (std::ranges::find(kButtons, words[1]) == kButtons.end()) {
        return "expected Yes, No, OK or Cancel";
    }
    m_answers.push_back(words[1]);
    return {};
}

std::string StoryPlayer::File(const Words& words)
{
    m_files.push_back(words[1]);
    return {};
}

std::string StoryPlayer::Close(const Words& words)
{
    std::string problem;
    CATDialog* window = FindControl(words[1], problem);
    if (window == nullptr) {
        return problem;
    }
    window->Widget()->close();
    return {};
}

std::string StoryPlayer::Shot(const Words& words)
{
    std::string problem;
    QPixmap picture;
    if (words.size() > 2) {
        const CATDialog* window = FindControl(words[2], problem);
        if (window == nullptr) {
            return problem;
        }
        picture = window->Widget()->grab();
    } else {
        picture = GrabWindows();
    }
    return picture.save(QString::fromStdString(words[1])) ? std::string()
                                                          : words[1] + " cannot be written";
}

std::string StoryPlayer::Dump(const Words& words)
{
    QFile file(QString::fromStdString(words[1]));
    const QByteArray text = QJsonDocument(DumpWindows()).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        return words[1] + " cannot be written: " + file.errorString().toStdString();
    }
    return {};
}
