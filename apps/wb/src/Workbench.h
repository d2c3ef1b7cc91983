#pragma once

#include "CATApplicationFrame.h"
#include "CATCommandLoader.h"
#include "CATDocument.h"
#include "CATNavigator.h"

#include <QMainWindow>
#include <QString>

#include <memory>
#include <set>
#include <string>
#include <vector>

class ProductTreeView;
class QAction;
class QActionGroup;
class QLabel;
class QStackedWidget;
class QToolBar;
class UnsavedChanges;

/// The workbench's main window: the navigator's tree of the current root and the structure of the
/// open document, one shown at a time (the two workshops); the commands of the present workshop in
/// menu and toolbar; in the status line the running command's prompt and how many changes the user
/// has not saved. Closing it asks what becomes of these.
class WorkbenchWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `databaseName` is what the status line says the products come from.
    explicit WorkbenchWindow(const QString& databaseName);
    ~WorkbenchWindow() override;

    // What follows ends the running command, and asks first where that would lose edits. A user
    // who stays with them has it his way: nothing happens, and nothing went wrong.
    /// Opens a product root of the database in the navigator and as a document. False, with a
    /// sentence, when there is no such root.
    bool OpenRoot(const CATUnicodeString& identifier, CATUnicodeString& problem);
    /// Opens a CSV file as a document that lives on disk, outside the database, and shows it.
    /// False, with what is wrong with the file.
    bool OpenFile(const std::string& path, CATUnicodeString& problem);
    /// Shows the other workshop, to which the running command does not belong. False for an unknown
    /// name.
    bool ShowWorkshop(const CATString& workshop);
    /// Starts the command of that class or title. False, with a sentence, when it is not offered
    /// here or cannot be loaded.
    bool StartCommand(const CATUnicodeString& name, CATUnicodeString& problem);

    /// The roots of the database, in its order.
    std::vector<CATProductRow> Roots() const;
    /// Shows the units panel, above the other windows. False, with a sentence, when it cannot be
    /// loaded.
    bool ShowUnits(CATUnicodeString& problem);
    /// The tree of the present workshop.
    ProductTreeView& CurrentTree() const;
    /// Tells the user in a box, without waiting.
    void ShowProblem(const QString& title, const CATUnicodeString& problem);

private:
    class Frame;

    void MakeActions();
    void MakeCommandActions();
    void MakeToolsAndHelp();
    void MakeStatusLine(const QString& databaseName);
    /// Closes the other windows first, while they still stand before the user: one with choices
    /// that are not applied asks about them, and may keep all from closing. What they have applied
    /// is among the changes that the user is asked about then.
    bool MayClose();
    /// Before another command takes the place of the running one, or it is stopped: the user may
    /// stay with what he has edited.
    bool MayEndRunningCommand();
    /// Stops the running command where it may end; false where it goes on.
    bool EndRunningCommand();
    void UpdateCommands();
    void AskForRoot();
    void AskForFile();
    void ShowAbout();

    std::set<std::string> m_toldProblems; // of files: each sentence is told once
    std::vector<CATCommandHeader> m_headers;
    std::vector<QAction*> m_commandActions; // one a header, in its order
    std::unique_ptr<CATApplicationFrame> m_frame;
    std::shared_ptr<CATProductSource> m_database;
    CATProductDocument_var m_document;
    QStackedWidget* m_pages = nullptr;
    ProductTreeView* m_navigatorTree = nullptr;
    ProductTreeView* m_structureTree = nullptr;
    QAction* m_navigatorAction = nullptr;
    QAction* m_structureAction = nullptr;
    QLabel* m_documentLabel = nullptr;
    QLabel* m_prompt = nullptr;
    QLabel* m_unsavedLabel = nullptr;
    std::unique_ptr<UnsavedChanges> m_unsaved;
};
