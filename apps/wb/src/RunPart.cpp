#include "Subcommands.h"

#include "CATApplicationFrame.h"
#include "CATCommandLoader.h"
#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATDlgNotify.h"
#include "CATENOWBCSCommonDefinitions.h"
#include "CATNavigator.h"
#include "CATSession.h"
#include "CATStateCommand.h"
#include "CATWBVPMMainPanel.h"
#include "CATWBVPMNavGUITable.h"
#include "RecordPrinter.h"
#include "StandardOutput.h"
#include "StoredPlace.h"
#include "UnsavedNotice.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace
{

const CATString kCommandClass = "CATTEQWBComputePartCmd";

// What the record says, taken when the command hands it to its panel.
std::optional<std::vector<CATWBRecordTable>>& TakenRecord()
{
    static std::optional<std::vector<CATWBRecordTable>> record;
    return record;
}

// How the panels library reads a record, kept when its table is replaced.
decltype(CATWBVPMNavGUITable::describeRecord)& DescribeRecord()
{
    static decltype(CATWBVPMNavGUITable::describeRecord) describe = nullptr;
    return describe;
}

/// Stands where the main panel would: keeps what the record says and never shows.
class RecordTaker : public CATWBVPMMainPanel
{
public:
    RecordTaker(CATCommand* parent, CATWBAllDataBuffer* record)
        : CATWBVPMMainPanel(parent), m_close(new CATDlgPushButton(this, "CloseButton"))
    {
        SetModel(record);
    }
    void SetModel(CATWBAllDataBuffer* record) override
    {
        TakenRecord() = DescribeRecord()(*record);
    }
    CATDlgPushButton* GetCloseButton() override { return m_close; }

private:
    CATDlgPushButton* m_close; // the panel owns it
};

CATWBVPMMainPanel* TakeRecord(CATCommand* parent, CATWBAllDataBuffer* record)
{
    return new RecordTaker(parent, record);
}

std::vector<CATUnicodeString> SplitPath(const std::string& path)
{
    std::vector<CATUnicodeString> names;
    std::size_t begin = 0;
    for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
        end = path.find('/', begin);
        names.emplace_back(path.substr(begin, end == std::string::npos ? end : end - begin));
    }
    return names;
}

/// Opens the root and walks to the instance; the path of nodes, or a sentence that names the step
/// that leads nowhere.
CATPathElement_var FindInstance(const std::string& path, std::string& problem)
{
    const std::vector<CATUnicodeString> names = SplitPath(path);
    const std::shared_ptr<CATProductSource> source = CATNavigator::ServerSource();
    const std::vector<CATProductRow> roots = source->Roots();
    const auto root = std::find_if(roots.begin(), roots.end(), [&](const CATProductRow& row) {
        return row.part == names.front();
    });
    if (root == roots.end()) {
        problem = "the database has no product root \"" + names.front().ToStdString() + "\"";
        return {};
    }
    if (names.size() < 2) {
        problem = "\"" + path + "\" is the product itself: name an instance below it, " + path +
                  "/INSTANCE";
        return {};
    }
    CATNavigatorNode_var node = CATNavigator::Open(source, *root);
    std::vector<CATBaseUnknown_var> objects{node};
    for (std::size_t index = 1; index < names.size(); ++index) {
        const auto& children = node->Children();
        const auto child = std::find_if(children.begin(), children.end(),
                                        [&](const CATNavigatorNode_var& candidate) {
                                            return candidate->Row().instance == names[index];
                                        });
        if (child == children.end()) {
            problem = "\"" + names[index - 1].ToStdString() + "\" has no instance \"" +
                      names[index].ToStdString() + "\"";
            return {};
        }
        node = *child;
        objects.emplace_back(node);
    }
    return CATPathElement_var::Adopt(new CATPathElement(std::move(objects)));
}

/// Makes the command as the workbench does, with a panel of our own in the main panel's place.
CATCommand* CreateCommand(CATUnicodeString& problem)
{
    std::vector<std::string> fileProblems;
    const std::vector<CATCommandHeader> headers = CATReadCommandHeaders(fileProblems);
    const auto header =
        std::find_if(headers.begin(), headers.end(), [](const CATCommandHeader& candidate) {
            return candidate.className == kCommandClass;
        });
    if (header == headers.end()) {
        problem = "no workbench file offers the command " + kCommandClass;
        return nullptr;
    }
    CATCommand* command = CATCreateCommand(*header, problem);
    const CATWBVPMNavGUITable panels = CATWBVPMNavGUISetTable({});
    DescribeRecord() = panels.describeRecord;
    CATWBVPMNavGUISetTable({TakeRecord, panels.getFilter, panels.describeRecord});
    return command;
}

/// Says whose figures were printed where they are not those that everybody gets.
void TellWhoseFigures(const PartOptions& options)
{
    const wb::Store::Opened opened = wb::Store::Open(options.session.database);
    std::string problem;
    const auto place =
        opened.store ? FindStoredPlace(*opened.store, options.path, {}, problem) : std::nullopt;
    if (place) {
        TellOfUnsaved(*opened.store, UserOf(options.session), *place);
    }
}

} // namespace

int RunPart(int argc, char** argv, const PartOptions& options)
{
    const auto fail = [](const std::string& problem) {
        std::fprintf(stderr, "wb: %s\n", problem.c_str());
        return 1;
    };
    std::string problem;
    HostSession session(options.session, {});
    if (!session.Connect(problem)) {
        return fail(problem);
    }
    // The command's boxes and panel need the toolkit, but no screen.
    setenv("QT_QPA_PLATFORM", "offscreen", 1); // NOLINT(concurrency-mt-unsafe): no thread runs yet
    CATDlgApplication application(argc, argv);
    CATApplicationFrame frame(new CATDlgDialog(&CATSession::Root(), "Part", 0x4001));
    frame.SetWorkshop(CATENOWBCSCommonDefinitions::vpmNavWshp, "WBNavigatorWorkbench");
    std::string told;
    CATDlgNotify::SetAnswerer([&told](const CATDlgNotify::Shown& box) {
        told += box.title.ToStdString() + ": " + box.text.ToStdString();
        return std::optional<int>(1);
    });

    const CATPathElement_var path = FindInstance(options.path, problem);
    if (path.IsNull()) {
        return fail(problem);
    }
    CATUnicodeString reason;
    CATCommand* command = CreateCommand(reason);
    if (command == nullptr || !CATSession::Start(command)) {
        return fail(reason.ToStdString());
    }
    CATOfferPick({path});
    if (!TakenRecord()) {
        return fail(told.empty() ? "the command gave no record; --verbose shows why" : told);
    }
    const std::string text =
        options.json ? RecordAsJson(*TakenRecord()) : RecordAsText(*TakenRecord());
    if (!WriteStandardOutput(text)) {
        return fail(kStandardOutputProblem);
    }
    TellWhoseFigures(options);
    return 0;
}
