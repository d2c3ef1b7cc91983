#include "Subcommands.h"

#include "CATDlgApplication.h"
#include "CATDlgNotify.h"
#include "CATSession.h"
#include "QtTexts.h"
#include "SampleProducts.h"
#include "StoryPlayer.h"
#include "Workbench.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

namespace
{

constexpr const char* kSampleRoot = "LA1";

bool IsTableFile(const std::string& product)
{
    return QString::fromStdString(product).endsWith(".csv", Qt::CaseInsensitive);
}

/// The root that is opened when the user asks for none: the sample aeroplane, or else the first.
CATUnicodeString DefaultRoot(const WorkbenchWindow& window)
{
    CATUnicodeString first;
    for (const CATProductRow& row : window.Roots()) {
        if (row.part == kSampleRoot) {
            return row.part;
        }
        first = first.IsEmpty() ? row.part : first;
    }
    return first;
}

/// Opens what was asked for; false with what was wrong.
bool OpenProduct(WorkbenchWindow& window, const std::string& product, CATUnicodeString& problem)
{
    if (IsTableFile(product)) {
        return window.OpenFile(product, problem);
    }
    const CATUnicodeString root = product.empty() ? DefaultRoot(window) : CATUnicodeString(product);
    if (root.IsEmpty()) {
        problem = "The database holds no product yet. Import one with \"wb import FILE.csv --into "
                  "DATABASE\", or open a table file.";
        return false;
    }
    return window.OpenRoot(root, problem);
}

} // namespace

int RunWorkbench(int argc, char** argv, const WorkbenchOptions& options)
{
    // A story meets the same samples and the shipped settings every time; it leaves nothing behind.
    const bool plays = !options.story.empty();
    const QTemporaryDir storyDirectory;
    const std::string own = storyDirectory.path().toStdString();

    WorkbenchOptions used = options;
    std::string reason;
    if (used.session.database.empty()) {
        used.session.database = SampleDatabase(plays ? own : UserDataDirectory(), reason);
        if (used.session.database.empty()) {
            std::fprintf(stderr, "wb: %s\n", reason.c_str());
            return 1;
        }
    }
    HostSession session(used.session, plays ? own : std::string());
    if (!session.Connect(reason)) {
        std::fprintf(stderr, "wb: %s\n", reason.c_str());
        return 1;
    }

    CATDlgApplication application(argc, argv);
    const QString database =
        options.session.database.empty()
            ? QString("the samples")
            : QFileInfo(QString::fromStdString(used.session.database)).fileName();
    auto* window =
        new WorkbenchWindow(database); // the session's main window: it goes with the application
    window->show();
    CATUnicodeString problem;
    const bool opened = OpenProduct(*window, options.product, problem);
    if (!opened && plays) {
        std::fprintf(stderr, "wb: %s\n", problem.Text());
        return 1;
    }
    if (!opened) {
        window->ShowProblem(QObject::tr("The product was not opened"), problem);
    }
    if (!plays) {
        return application.Run();
    }
    StoryPlayer player(*window);
    if (!player.Play(options.story)) {
        std::fprintf(stderr, "%s\n", player.Failure().c_str());
        return 1;
    }
    return 0;
}
