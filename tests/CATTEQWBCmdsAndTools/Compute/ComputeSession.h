#pragma once

#include "CATWBComputeCmd.h"

#include "../ReportUnitsSession.h"
#include "TemporaryDirectory.h"

#include "CATWBVPMNavGUITable.h"

#include "CATApplicationFrame.h"
#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgMultiList.h"
#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "CATNavigator.h"
#include "CATServerCaller.h"
#include "CATSession.h"

#include <QAbstractButton>
#include <QTabWidget>
#include <QWidget>

#include <gmock/gmock.h>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// Answers each method by what a test has written down for it, and keeps what it was asked.
class ComputeServer : public CATServerCaller
{
public:
    std::string CallMethod(std::string_view method, std::string_view request,
                           CATServerCallState& state) override
    {
        calls.push_back(std::string(method) + ": " + std::string(request));
        while (method == worksOn && !state.cancelled) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return answers[std::string(method)];
    }
    std::optional<std::string> CallObjectService(std::string_view, std::vector<std::string>&,
                                                 std::string_view, bool,
                                                 CATServerCallState&) override
    {
        return std::nullopt;
    }

    std::map<std::string, std::string> answers;
    std::vector<std::string> calls;
    std::string worksOn; ///< the method that takes until it is cancelled
};

constexpr const char* kMassTypesMethod = "WBGetMassTypesAndAttrNames";
constexpr const char* kComputeMethod = "WBComputeVPMValues";
constexpr const char* kWarningMethod = "WBWarningMsg";

/// Products that have nothing below them.
class LonelyProducts : public CATProductSource
{
public:
    std::vector<CATProductRow> Roots() override { return {}; }
    std::vector<CATProductRow> Uses(const CATUnicodeString&, const CATUnicodeString&) override
    {
        return {};
    }
};

/// The units panel as far as its listeners know it.
class FakeUnitsPanel : public CATWBVPMNavUnitsConversion
{
public:
    explicit FakeUnitsPanel(CATDialog* parent) : CATWBVPMNavUnitsConversion(parent) {}
    CATDlgPushButton* GetCloseButton() override { return nullptr; }
    static inline FakeUnitsPanel* s_panel = nullptr;
};

struct ComputeBox
{
    std::string title;
    std::string text;
    int style;
    bool operator==(const ComputeBox&) const = default;
};
inline void PrintTo(const ComputeBox& box, std::ostream* stream)
{
    *stream << box.title << ": " << box.text << " (" << std::hex << box.style << ")";
}

// 100 lb, 10 lb less to 20 lb more, at 10 in, -20 in, 1 in; inertia 2, 3, 4 kg.m2, products yz 0.5,
// xz 0.25, xy 0.125. Half of the mass is of 2780 kg/m3, a quarter lies on surfaces with 10 kg/m2,
// a hundredth has no density. A third is estimated, nothing weighed.
constexpr const char* kAnswer =
    "45.359237|4.5359237|9.0718474|254|-508|25.4|2|3|4|0.5|0.25|0.125|"
    "3|Al 2024-T3|Paint|Placards|3|2780|2|10|3|0|22.6796185|11.33980925|0.45359237|"
    "2|Estimated|15.119745666666667|Weighed|0|";

/// A command in a session whose navigator has the root LA1 open. The user works in pounds, inches,
/// kg.mm2, g/cm3 and g/cm2; the server's units are kg, mm, kg.m2, kg/m3 and kg/m2.
class ComputeSession : public ReportUnitsSession
{
protected:
    ComputeSession()
    {
        CATMsgCatalog::SetLanguage("en");
        CATSetServerCaller(server);
        server->answers[kMassTypesMethod] =
            R"(<Answer><massType name="Target"/><massType name="Estimated"/>)"
            R"(<massType name="Weighed"/></Answer>)";
        server->answers[kComputeMethod] = kAnswer;
        table.getFilter = [](const CATUnicodeString& root) {
            return "1|Filter of " + root;
        };
        table.getDisplayFilter = [](const CATUnicodeString& root) {
            return "Only of " + root;
        };
        table.unitsPanel = []() -> CATWBVPMNavUnitsConversion* {
            return FakeUnitsPanel::s_panel;
        };
        CATWBVPMNavGUISetTable(table);
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) -> std::optional<int> {
            boxes.push_back({box.title.ToStdString(), box.text.ToStdString(), box.style});
            return boxAnswer;
        });
        frame = std::make_unique<CATApplicationFrame>(
            new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
        FakeUnitsPanel::s_panel = new FakeUnitsPanel(frame->MainWindow());
        OpenRoot("LA1");
    }
    ~ComputeSession() override
    {
        CATSession::Close();
        frame.reset();
        CATNavigator::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable({});
        CATSetServerCaller(nullptr);
        CATUseNumberLocale("C");
        CATMsgCatalog::SetLanguage("en");
    }

    static void OpenRoot(const char* part)
    {
        CATProductRow root;
        root.instance = part;
        root.part = part;
        root.version = "A";
        CATNavigator::Open(std::make_shared<LonelyProducts>(), root);
    }
    void Start()
    {
        command = dynamic_cast<CATWBComputeCmd*>(fctCreateCATWBComputeCmd());
        ASSERT_NE(command, nullptr);
        watch = command;
        ASSERT_TRUE(CATSession::Start(command));
    }

    /// The control of that name, which must be there once and be of that kind.
    template <class Control>
    Control& Find(const char* name) const
    {
        std::vector<CATCommand*> found;
        Collect(*command, name, found);
        EXPECT_EQ(found.size(), 1U) << name;
        auto* control = found.empty() ? nullptr : dynamic_cast<Control*>(found.front());
        if (control == nullptr) {
            throw std::logic_error(std::string("no such control: ") + name);
        }
        return *control;
    }
    std::string Text(const char* editor) const
    {
        return Find<CATDlgEditor>(editor).Text().ToStdString();
    }
    std::vector<std::string> Texts(const std::vector<const char*>& editors) const
    {
        std::vector<std::string> texts;
        for (const char* editor : editors) {
            texts.push_back(Text(editor));
        }
        return texts;
    }
    /// The row's cells; rows count from 1.
    std::vector<std::string> Row(const char* list, int row) const
    {
        const auto& found = Find<CATDlgMultiList>(list);
        std::vector<std::string> cells;
        for (int column = 0; column < found.ColumnCount(); ++column) {
            cells.push_back(found.Cell(column, row).ToStdString());
        }
        return cells;
    }
    /// Presses the push button or chooses the radio button, as the user does.
    void Click(const char* button) const
    {
        auto* widget = qobject_cast<QAbstractButton*>(Find<CATDialog>(button).Widget());
        ASSERT_NE(widget, nullptr) << button;
        widget->click();
    }
    /// Goes to the page, as the user does.
    void GoToPage(int index) const
    {
        qobject_cast<QTabWidget*>(Find<CATDialog>("ResultTabContainer").Widget())
            ->setCurrentIndex(index);
    }
    bool IsOn(const char* control) const { return Find<CATDialog>(control).IsSensitive(); }
    bool IsChecked(const char* button) const { return Find<CATDlgRadioButton>(button).IsChecked(); }
    void Compute(const std::string& answer)
    {
        server->answers[kComputeMethod] = answer;
        Click("ComputeButton");
    }
    /// The last computation that the server was asked for.
    std::string Request() const
    {
        const std::string head = std::string(kComputeMethod) + ": ";
        std::string request;
        for (const std::string& call : server->calls) {
            if (call.starts_with(head)) {
                request = call.substr(head.size());
            }
        }
        return request;
    }
    void SetTable(const CATWBVPMNavGUITable& another)
    {
        table = another;
        CATWBVPMNavGUISetTable(table);
    }

    std::shared_ptr<ComputeServer> server = std::make_shared<ComputeServer>();
    DiagnosticCapture output{CATDiagnosticOutput()};
    DiagnosticCapture errors{CATDiagnosticErrors()};
    CATWBVPMNavGUITable table;
    std::unique_ptr<CATApplicationFrame> frame;
    std::vector<ComputeBox> boxes;
    std::optional<int> boxAnswer = 1;
    CATWBComputeCmd* command = nullptr;
    CATCommandWatch<CATWBComputeCmd> watch;

private:
    static void Collect(const CATCommand& parent, const char* name, std::vector<CATCommand*>& found)
    {
        for (int position = 1; position <= parent.ChildCount(); ++position) {
            CATCommand* child = parent.Child(position);
            if (child->Name() == name) {
                found.push_back(child);
            }
            Collect(*child, name, found);
        }
    }
};

/// The session where an installation has replaced the command's catalog by one that lacks its keys.
class ComputeDefaultTexts : public ComputeSession
{
protected:
    ComputeDefaultTexts()
    {
        WriteCatalog("Other = \"another text\"\n");
        m_resources.Write("catalogs/CATWBVPMNavFilterPanel.toml", "Other = \"another text\"\n");
        CATSetEnvironmentSource([this](const char* name) -> std::optional<std::string> {
            if (std::string_view(name) == "WB_RESOURCE_PATH") {
                return m_resources.Path();
            }
            return std::nullopt;
        });
        CATMsgCatalog::SetLanguage("en");
    }
    ~ComputeDefaultTexts() override { CATSetEnvironmentSource({}); }
    void WriteCatalog(const std::string& text)
    {
        m_resources.Write("catalogs/CATWBComputeCmd.toml", text);
    }

private:
    const TemporaryDirectory m_resources;
};

inline const std::vector<const char*> kMassEditors{"MassEditor", "LowerDeviationEditor",
                                                   "UpperDeviationEditor"};
inline const std::vector<const char*> kCentreEditors{"CGxEditor", "CGyEditor", "CGzEditor"};
inline const std::vector<const char*> kInertiaEditors{"IxxEditor", "IyyEditor", "IzzEditor",
                                                      "IxyEditor", "IxzEditor", "IyzEditor"};
