#pragma once

#include "../../System/TestEnvironment.h"
#include "../ReportUnitsSession.h"
#include "TemporaryDirectory.h"
#include "Toolkit.h"
#include "TraceCapture.h"

#include "KR4WBClientSettings.h"

#include "CATApplicationFrame.h"
#include "CATCommandWatch.h"
#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgFile.h"
#include "CATDlgMultiList.h"
#include "CATDlgNotify.h"
#include "CATSession.h"
#include "CATSettingRepository.h"
#include "CATTime.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QTableView>
#include <QWidget>

#include <algorithm>
#include <ctime>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

struct ShownBox
{
    std::string title;
    std::string text;
    int style;
    bool operator==(const ShownBox&) const = default;
};
inline void PrintTo(const ShownBox& box, std::ostream* stream)
{
    *stream << box.title << ": " << box.text << " (" << std::hex << box.style << ")";
}

constexpr int kInformationBox = 0;
constexpr int kErrorBox = 0x10000000;
constexpr int kQuestionBox = CATDlgNotify::kQuestion;

/// The present of the tests: 2025-12-31 23:59:59.
constexpr long long kLastSecondOfTheYear = 1767225599;

/// A control and where it stands: its parent, and row, column, rows and columns of its grid.
struct PlacedControl
{
    const char* name;
    const char* parent;
    std::vector<int> cell;
};

/// A session with a main window in which previews can be built. The user works in inches, pounds,
/// kg.mm2 and g/cm3, has a folder for settings and one for reports, and the navigator's stable
/// order is off. Boxes and file boxes are answered by what a test says.
class PreviewSession : public ReportUnitsSession
{
protected:
    PreviewSession()
    {
        setenv("TZ", "UTC", 1);
        tzset();
        CATMsgCatalog::SetLanguage("en");
        environment.Set("CATUserSettingPath", settings.Path());
        environment.Set("ZALKR4REPORTPATH", reports.Path());
        CATSettingRepository::CloseAll();
        UseStableOrder(0);
        CATTime::SetClock([] { return kLastSecondOfTheYear; });
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) -> std::optional<int> {
            boxes.push_back({box.title.ToStdString(), box.text.ToStdString(), box.style});
            return boxAnswer;
        });
        CATDlgFile::SetChooser(
            [this](const CATDlgFile::Request& request) -> std::optional<CATUnicodeString> {
                requests.push_back(request);
                return chosenFile;
            });
        frame = std::make_unique<CATApplicationFrame>(
            new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
    }
    ~PreviewSession() override
    {
        CATSession::Close();
        frame.reset();
        CATDlgFile::SetChooser({});
        CATDlgNotify::SetAnswerer({});
        CATTime::SetClock({});
        CATUseNumberLocale("C");
        CATMsgCatalog::SetLanguage("en");
        unsetenv("TZ");
        tzset();
    }

    static void UseStableOrder(int value)
    {
        CATSettingRepository::GetRepository("VPMNavigator")->WriteSetting("StableOrdering", value);
    }
    static void Remember(unsigned char units, unsigned char trailingZeros, int digits)
    {
        ASSERT_EQ(KR4WBClientSettings::SetReportDisplay(units, trailingZeros, digits), S_OK);
    }

    /// The control of that name in the dialog; null when there is none or it is of another kind.
    template <class Control>
    static Control* Look(const CATCommand& dialog, const char* name)
    {
        for (int position = 1; position <= dialog.ChildCount(); ++position) {
            CATCommand* child = dialog.Child(position);
            auto* found = child->Name() == name ? dynamic_cast<Control*>(child) : nullptr;
            if (found == nullptr) {
                found = Look<Control>(*child, name);
            }
            if (found != nullptr) {
                return found;
            }
        }
        return nullptr;
    }
    template <class Control>
    static Control& Find(const CATCommand& dialog, const char* name)
    {
        auto* found = Look<Control>(dialog, name);
        if (found == nullptr) {
            throw std::logic_error(std::string("no such control: ") + name);
        }
        return *found;
    }
    /// Presses the button, as the user does.
    static void Click(const CATCommand& dialog, const char* button)
    {
        auto* widget = qobject_cast<QAbstractButton*>(Find<CATDialog>(dialog, button).Widget());
        ASSERT_NE(widget, nullptr) << button;
        widget->click();
    }

    static std::vector<std::string> Titles(const CATDlgMultiList& list)
    {
        std::vector<std::string> titles;
        const CATListValCATUnicodeString shown = list.ColumnTitles();
        for (const CATUnicodeString& title : shown.Items()) {
            titles.push_back(title.ToStdString());
        }
        return titles;
    }
    /// What the column's title says besides itself when it is pointed at.
    static std::string TitleTooltip(const CATDlgMultiList& list, const std::string& title)
    {
        const std::vector<std::string> titles = Titles(list);
        const auto found = std::find(titles.begin(), titles.end(), title);
        const QAbstractItemModel* model = qobject_cast<QTableView*>(list.Widget())->model();
        const std::string said = model
                                     ->headerData(static_cast<int>(found - titles.begin()),
                                                  Qt::Horizontal, Qt::ToolTipRole)
                                     .toString()
                                     .toStdString();
        return said == title ? "" : said.substr(std::min(said.size(), title.size() + 1));
    }
    /// The list's cells, row by row.
    static std::vector<std::vector<std::string>> Rows(const CATDlgMultiList& list)
    {
        std::vector<std::vector<std::string>> rows;
        for (int row = 1; row <= list.RowCount(); ++row) {
            std::vector<std::string>& cells = rows.emplace_back();
            for (int column = 0; column < list.ColumnCount(); ++column) {
                cells.push_back(list.Cell(column, row).ToStdString());
            }
        }
        return rows;
    }
    /// Row, column, rows and columns that the control takes of the grid it stands in.
    static std::vector<int> CellOf(const CATDialog& control)
    {
        QWidget* widget = control.Widget();
        // A list stands in a box of its own.
        while (widget != nullptr) {
            QWidget* inside = widget->parentWidget();
            auto* grid = inside == nullptr ? nullptr : qobject_cast<QGridLayout*>(inside->layout());
            const int index = grid == nullptr ? -1 : grid->indexOf(widget);
            if (index >= 0) {
                std::vector<int> cell(4);
                grid->getItemPosition(index, &cell[0], &cell[1], &cell[2], &cell[3]);
                return cell;
            }
            widget = inside;
        }
        return {};
    }
    static void ExpectPlaced(const CATCommand& dialog, const std::vector<PlacedControl>& controls)
    {
        for (const PlacedControl& each : controls) {
            const auto& control = Find<CATDialog>(dialog, each.name);
            EXPECT_EQ(control.Parent()->Name(), each.parent) << each.name;
            EXPECT_EQ(CellOf(control), each.cell) << each.name;
        }
    }
    /// Lets what waits in the event loop happen.
    static void Process() { CATDlgApplication::ProcessEvents(); }

    const TemporaryDirectory settings;
    const TemporaryDirectory reports;
    TestEnvironment environment;
    std::unique_ptr<CATApplicationFrame> frame;
    std::vector<ShownBox> boxes;
    std::optional<int> boxAnswer = 1;
    std::vector<CATDlgFile::Request> requests;
    std::optional<CATUnicodeString> chosenFile = CATUnicodeString();
    DiagnosticCapture output{CATDiagnosticOutput()};
    DiagnosticCapture errors{CATDiagnosticErrors()};
    TraceCapture trace;
};
