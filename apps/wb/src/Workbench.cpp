#include "Workbench.h"

#include "CATCkeGlobalFunctions.h"
#include "CATDlgApplication.h"
#include "CATDlgFile.h"
#include "CATDlgNotify.h"
#include "CATENOWBCSCommonDefinitions.h"
#include "CATFindPath.h"
#include "CATMsgCatalog.h"
#include "CATSession.h"
#include "CATSettingRepository.h"
#include "CATStateCommand.h"
#include "CATWBVPMMainPanel.h"
#include "CATWBVPMNavFilterPanel.h"
#include "CATWBVPMNavUnitsConversion.h"
#include "FileProducts.h"
#include "ProductTreeModel.h"
#include "ProductTreeView.h"
#include "QtTexts.h"
#include "UnsavedChanges.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int kErrorStyle = 0x10000000;
constexpr int kPlainStyle = 0;
constexpr int kPageMargin = 6;

const CATString kPanelsLibrary = "CATWBVPMNavGUI";
const CATString kNavigatorWorkbench = "WBNavigatorWorkbench";
const CATString kStructureWorkbench = "WBStructureWorkbench";

/// A tree with a line above it that says what it shows.
QWidget* MakePage(ProductTreeView* tree, QWidget* headline)
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    layout->addWidget(headline);
    layout->addWidget(tree);
    return page;
}

QIcon CommandIcon(const CATString& file)
{
    const std::string path =
        file.IsEmpty() ? std::string() : CATFindResource("icons/" + file.ToStdString());
    return path.empty() ? QIcon() : QIcon(QString::fromStdString(path));
}

/// Who is told of catalogs, dialog texts, units, settings and products that cannot be read.
void TellProblemsOfFiles(const std::function<void(const CATUnicodeString& sentence)>& listener)
{
    CATMsgCatalog::ReportProblemsTo(listener);
    CATDialog::ReportProblemsTo(listener);
    CATCkeGlobalFunctions::ReportProblemsTo(listener);
    CATSettingRepository::ReportProblemsTo(listener);
    CATNavigator::ReportProblemsTo(listener);
}

} // namespace

/// The session's frame on this window: the prompt goes to the status line.
class WorkbenchWindow::Frame : public CATApplicationFrame
{
public:
    Frame(CATDlgDialog* window, QLabel* prompt) : CATApplicationFrame(window), m_promptLabel(prompt)
    {
        SetPrompt("");
    }

    void SetPrompt(const CATUnicodeString& prompt) override
    {
        CATApplicationFrame::SetPrompt(prompt);
        m_promptLabel->setText(prompt.IsEmpty() ? tr("Choose a command, then pick in the tree")
                                                : ToQString(prompt));
    }

private:
    QLabel* m_promptLabel;
};

WorkbenchWindow::WorkbenchWindow(const QString& databaseName)
    : m_database(CATNavigator::ServerSource())
{
    setObjectName("Workbench");
    setWindowTitle(tr("Weight and Balance"));
    resize(1000, 640);

    m_navigatorTree = new ProductTreeView;
    m_navigatorTree->setObjectName("NavigatorTree");
    m_navigatorTree->setAccessibleName(tr("Navigator"));
    m_structureTree = new ProductTreeView;
    m_structureTree->setObjectName("StructureTree");
    m_structureTree->setAccessibleName(tr("Product structure"));
    m_documentLabel = new QLabel(tr("No document is open"));
    m_documentLabel->setObjectName("DocumentLabel");
    m_documentLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pages = new QStackedWidget;
    m_pages->addWidget(
        MakePage(m_navigatorTree, new QLabel(tr("Item instances in %1").arg(databaseName))));
    m_pages->addWidget(MakePage(m_structureTree, m_documentLabel));
    setCentralWidget(m_pages);
    for (ProductTreeView* tree : {m_navigatorTree, m_structureTree}) {
        connect(tree, &ProductTreeView::Picked, this,
                [](const std::vector<CATPathElement_var>& paths) { CATOfferPick(paths); });
    }

    MakeStatusLine(databaseName);
    m_frame = std::make_unique<Frame>(CATDlgAdoptMainWindow(CATSession::Root(), this), m_prompt);
    m_frame->SetWorkshop(CATENOWBCSCommonDefinitions::vpmNavWshp, kNavigatorWorkbench);
    m_frame->MainWindow()->SetGuard([this] { return MayClose(); });
    m_unsaved = std::make_unique<UnsavedChanges>(m_unsavedLabel, m_frame->MainWindow());
    m_unsaved->Update(); // what the last session left
    MakeActions();
    MakeCommandActions();
    MakeToolsAndHelp();
    UpdateCommands();
    CATSession::OnRunningCommandChanged([this](CATCommand*) { UpdateCommands(); });
    TellProblemsOfFiles([this](const CATUnicodeString& sentence) {
        // A directory that cannot be written is met again with every setting that is changed.
        if (!m_toldProblems.insert(sentence.ToStdString()).second) {
            return;
        }
        // The problem may be met in the middle of building a window: the box comes after that.
        QTimer::singleShot(
            0, this, [this, sentence] { ShowProblem(tr("Something cannot be used"), sentence); });
    });
}

WorkbenchWindow::~WorkbenchWindow()
{
    TellProblemsOfFiles({});
}

void WorkbenchWindow::MakeStatusLine(const QString& databaseName)
{
    m_prompt = new QLabel;
    m_prompt->setObjectName("Prompt");
    m_prompt->setIndent(kPageMargin); // below the headline of the page
    statusBar()->addWidget(m_prompt, 1);
    m_unsavedLabel = new QLabel;
    m_unsavedLabel->setObjectName("UnsavedChanges");
    statusBar()->addPermanentWidget(m_unsavedLabel);
    auto* database = new QLabel(databaseName);
    database->setObjectName("Database");
    statusBar()->addPermanentWidget(database);
}

void WorkbenchWindow::MakeActions()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* openRoot = file->addAction(tr("Open &product..."), this, &WorkbenchWindow::AskForRoot);
    openRoot->setShortcut(QKeySequence::Open);
    QAction* openFile =
        file->addAction(tr("Open &table file..."), this, &WorkbenchWindow::AskForFile);
    openFile->setToolTip(tr("Opens a CSV file as a document on disk, without the database"));
    file->addSeparator();
    // The toolkit's own keys for it are none on some desktops.
    file->addAction(tr("&Quit"), Qt::CTRL | Qt::Key_Q, this, &QWidget::close);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    auto* workshops = new QActionGroup(this);
    const auto addWorkshop = [&](const QString& title, const QString& tooltip,
                                 const QKeySequence& keys, const char* workshop) {
        QAction* action = workshops->addAction(title);
        action->setCheckable(true);
        action->setToolTip(tooltip);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, [this, workshop] { ShowWorkshop(workshop); });
        view->addAction(action);
        return action;
    };
    m_navigatorAction = addWorkshop(tr("&Navigator"), tr("Item instances of the database"),
                                    Qt::Key_F2, CATENOWBCSCommonDefinitions::vpmNavWshp);
    m_structureAction = addWorkshop(tr("Product &structure"), tr("Products of the open document"),
                                    Qt::Key_F3, CATENOWBCSCommonDefinitions::prodStructWshp);
    m_navigatorAction->setChecked(true);

    QToolBar* bar = addToolBar(tr("Workshops"));
    bar->setObjectName("WorkshopBar");
    bar->addActions(workshops->actions());
}

void WorkbenchWindow::MakeCommandActions()
{
    std::vector<std::string> problems;
    m_headers = CATReadCommandHeaders(problems);
    QMenu* menu = menuBar()->addMenu(tr("&Weight and balance"));
    QToolBar* bar = addToolBar(tr("Weight and balance"));
    bar->setObjectName("CommandBar");
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (const CATCommandHeader& header : m_headers) {
        auto* action = new QAction(CommandIcon(header.icon), ToQString(header.title), this);
        action->setObjectName(ToQString(header.className));
        action->setToolTip(ToQString(header.tooltip));
        action->setStatusTip(ToQString(header.tooltip));
        action->setShortcut(QKeySequence(ToQString(header.shortcut)));
        // Also while a command's own window has the keys.
        action->setShortcutContext(Qt::ApplicationShortcut);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, name = header.className] {
            CATUnicodeString problem;
            if (!StartCommand(name, problem)) {
                ShowProblem(tr("The command was not started"), problem);
            }
        });
        menu->addAction(action);
        bar->addAction(action);
        m_commandActions.push_back(action);
    }
    menu->addSeparator();
    auto* stop =
        menu->addAction(tr("&Stop the running command"), this, &WorkbenchWindow::EndRunningCommand);
    stop->setShortcut(Qt::Key_Escape);
    for (const std::string& problem : problems) {
        ShowProblem(tr("A workbench file cannot be used"), problem);
    }
}

void WorkbenchWindow::MakeToolsAndHelp()
{
    QAction* units = menuBar()->addMenu(tr("&Tools"))->addAction(tr("&Units..."));
    units->setShortcut(Qt::CTRL | Qt::Key_U);
    units->setStatusTip(tr("Chooses the units in which values are shown"));
    connect(units, &QAction::triggered, this, [this] {
        CATUnicodeString problem;
        if (!ShowUnits(problem)) {
            ShowProblem(tr("The units cannot be shown"), problem);
        }
    });
    menuBar()->addMenu(tr("&Help"))->addAction(tr("&About"), this, &WorkbenchWindow::ShowAbout);
}

void WorkbenchWindow::UpdateCommands()
{
    const CATCommand* running = CATSession::RunningCommand();
    for (std::size_t index = 0; index < m_headers.size(); ++index) {
        const CATCommandHeader& header = m_headers[index];
        QAction* action = m_commandActions[index];
        const bool offered = header.workshop.IsEmpty() || header.workshop == m_frame->Workshop();
        action->setVisible(offered);
        action->setEnabled(offered);
        action->setChecked(running != nullptr && running->Name() == header.className);
    }
}

std::vector<CATProductRow> WorkbenchWindow::Roots() const
{
    return m_database->Roots();
}

bool WorkbenchWindow::OpenRoot(const CATUnicodeString& identifier, CATUnicodeString& problem)
{
    const std::vector<CATProductRow> roots = Roots();
    const auto root = std::find_if(roots.begin(), roots.end(), [&](const CATProductRow& row) {
        return row.part == identifier;
    });
    if (root == roots.end()) {
        CATUnicodeString known;
        for (const CATProductRow& row : roots) {
            known += (known.IsEmpty() ? "" : ", ") + row.part;
        }
        problem = "There is no product root \"" + identifier + "\" in the database; it holds " +
                  (known.IsEmpty() ? CATUnicodeString("none") : known) + ".";
        return false;
    }
    if (!EndRunningCommand()) {
        return true;
    }
    CATNavigator::Open(m_database, *root);
    // It was chosen for the root before; the filter panel chooses for this one.
    CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "NoConfig";
    m_navigatorTree->Products().SetSource(NavigatorTreeSource());
    m_navigatorTree->ShowFirstLevel();
    m_document = CATProductDocument::Open(m_database, *root, CATProductDocument::kPdmEnvironment);
    m_structureTree->Products().SetSource(DocumentTreeSource(m_document->GetRoot()));
    m_structureTree->ShowFirstLevel();
    m_documentLabel->setText(tr("Document of %1, in the database").arg(ToQString(root->part)));
    setWindowTitle(tr("%1 - Weight and Balance").arg(ToQString(root->part)));
    return true;
}

bool WorkbenchWindow::OpenFile(const std::string& path, CATUnicodeString& problem)
{
    std::string reason;
    const std::shared_ptr<CATProductSource> source = OpenFileProducts(path, reason);
    const std::vector<CATProductRow> roots =
        source ? source->Roots() : std::vector<CATProductRow>();
    if (roots.empty()) {
        problem = source ? CATUnicodeString(
                               path + " holds no product: no part in it has uses or is a product.")
                         : CATUnicodeString(reason);
        return false;
    }
    if (!EndRunningCommand()) {
        return true;
    }
    m_document =
        CATProductDocument::Open(source, roots.front(), CATProductDocument::kFileEnvironment);
    m_structureTree->Products().SetSource(DocumentTreeSource(m_document->GetRoot()));
    m_structureTree->ShowFirstLevel();
    m_documentLabel->setText(
        tr("Local file %1, outside the database").arg(QString::fromStdString(path)));
    ShowWorkshop(CATENOWBCSCommonDefinitions::prodStructWshp);
    return true;
}

bool WorkbenchWindow::ShowWorkshop(const CATString& workshop)
{
    const bool navigator = workshop == CATENOWBCSCommonDefinitions::vpmNavWshp;
    if (!navigator && !(workshop == CATENOWBCSCommonDefinitions::prodStructWshp)) {
        return false;
    }
    if (!(m_frame->Workshop() == workshop) && EndRunningCommand()) {
        m_frame->SetWorkshop(workshop, navigator ? kNavigatorWorkbench : kStructureWorkbench);
    }
    const bool showsNavigator = m_frame->Workshop() == CATENOWBCSCommonDefinitions::vpmNavWshp;
    m_pages->setCurrentIndex(showsNavigator ? 0 : 1);
    (showsNavigator ? m_navigatorAction : m_structureAction)->setChecked(true);
    UpdateCommands();
    CurrentTree().setFocus();
    return true;
}

bool WorkbenchWindow::MayEndRunningCommand()
{
    // The main panel goes with the command that opened it. Where it holds edits it asks first, as
    // when the user closes it.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == CATWBVPMMainPanel::kName) {
            const QPointer<QWidget> panel(window);
            panel->close();
            return panel == nullptr || !panel->isVisible();
        }
    }
    return true;
}

bool WorkbenchWindow::EndRunningCommand()
{
    const bool mayEnd = MayEndRunningCommand();
    if (mayEnd) {
        CATSession::CancelRunningCommand();
    }
    return mayEnd;
}

bool WorkbenchWindow::StartCommand(const CATUnicodeString& name, CATUnicodeString& problem)
{
    const auto header =
        std::find_if(m_headers.begin(), m_headers.end(), [&](const CATCommandHeader& candidate) {
            return (candidate.className == name || candidate.title == name) &&
                   (candidate.workshop.IsEmpty() || candidate.workshop == m_frame->Workshop());
        });
    if (header == m_headers.end()) {
        problem = "There is no command \"" + name + "\" in this workshop.";
        return false;
    }
    CATCommand* command = CATCreateCommand(*header, problem);
    if (command != nullptr && command->Mode() == CATCommandMode::Exclusive &&
        !MayEndRunningCommand()) {
        CATRequestDelayedDestruction(command);
        UpdateCommands();
        return true; // the user stays with what is open: nothing went wrong
    }
    const bool started = command != nullptr && CATSession::Start(command);
    UpdateCommands();
    return started;
}

bool WorkbenchWindow::ShowUnits(CATUnicodeString& problem)
{
    if (!CATLoadCompanion(kPanelsLibrary, problem)) {
        return false;
    }
    CATWBVPMNavUnitsConversion::Instance()->BringToFront();
    return true;
}

bool WorkbenchWindow::MayClose()
{
    // One that closes may take others with it.
    std::vector<QPointer<QWidget>> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        windows.emplace_back(window);
    }
    for (const QPointer<QWidget>& window : windows) {
        if (window == nullptr || window == this || !window->isVisible()) {
            continue;
        }
        window->close();
        if (window != nullptr && window->isVisible()) {
            return false;
        }
    }
    return m_unsaved->MayClose();
}

ProductTreeView& WorkbenchWindow::CurrentTree() const
{
    return m_pages->currentIndex() == 0 ? *m_navigatorTree : *m_structureTree;
}

void WorkbenchWindow::AskForRoot()
{
    const std::vector<CATProductRow> roots = Roots();
    const CATNavigatorNode_var open = CATNavigator::CurrentRoot();
    QStringList lines;
    int present = 0;
    for (const CATProductRow& row : roots) {
        if (!open.IsNull() && open->Row().part == row.part) {
            present = static_cast<int>(lines.size());
        }
        lines << QString("%1   %2").arg(ToQString(row.part), ToQString(row.name));
    }
    if (lines.isEmpty()) {
        ShowProblem(tr("There is no product to open"),
                    "The database holds no product. Import one with \"wb import FILE.csv --into "
                    "DATABASE\".");
        return;
    }
    bool accepted = false;
    const QString line = QInputDialog::getItem(this, tr("Open product"), tr("Product root"), lines,
                                               present, false, &accepted);
    CATUnicodeString problem;
    if (accepted && !OpenRoot(roots[static_cast<std::size_t>(lines.indexOf(line))].part, problem)) {
        ShowProblem(tr("The product was not opened"), problem);
    }
}

void WorkbenchWindow::AskForFile()
{
    auto* box = new CATDlgFile(m_frame->MainWindow(), "OpenTableFile", CATDlgFile::Mode::Open);
    box->SetTitle("Open table file");
    box->SetFileType("Product tables", "csv");
    const CATUnicodeString path = box->DisplayBlocking();
    box->RequestDelayedDestruction();
    CATUnicodeString problem;
    if (!path.IsEmpty() && !OpenFile(path.ToStdString(), problem)) {
        ShowProblem(tr("The file was not opened"), problem);
    }
}

void WorkbenchWindow::ShowProblem(const QString& title, const CATUnicodeString& problem)
{
    auto* box = new CATDlgNotify(m_frame->MainWindow(), "WorkbenchProblem", kErrorStyle);
    box->SetTitle(FromQString(title));
    box->SetText(problem);
    box->DisplayNonBlocking();
}

void WorkbenchWindow::ShowAbout()
{
    auto* box = new CATDlgNotify(m_frame->MainWindow(), "About", kPlainStyle);
    box->SetTitle("About Weight and Balance");
    box->SetText("Weight and Balance: mass, centre of gravity and inertia of a product, who "
                 "claimed which value, and how sure it is.\n\nPress F2 for the navigator (item "
                 "instances of the database) or F3 for the product structure (products of the "
                 "open document), start a command from the toolbar, and click an instance in the "
                 "tree. Esc stops the command.");
    box->DisplayNonBlocking();
}
