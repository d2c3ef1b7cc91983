#include "ListFixture.h"

#include "CATDlgApplication.h"
#include "CATDlgDialog.h"
#include "CATDlgMultiList.h"
#include "CATSession.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace
{

// A prime, so that no two columns go through their texts in step.
constexpr int kTextsPerColumn = 9973;

std::string NumberText(double value, const char* unit)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3f%s", value, unit);
    return text.data();
}

/// Names, identifiers, and values as a unit shows them.
std::string TextOf(int row, int column, double value)
{
    constexpr std::array kUnits{"kg", "mm", "kgm2", "kg_m3"};
    switch (column) {
    case 0:
        return std::to_string(1 + row % 7);
    case 1:
        return "INST-" + std::to_string(row) + ".1";
    case 2:
        return "A part of the product";
    default:
        return NumberText(value, kUnits[static_cast<std::size_t>(column) % kUnits.size()]);
    }
}

std::vector<CATUnicodeString> MakeTexts()
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> values(-1000.0, 1000.0);
    std::vector<CATUnicodeString> texts;
    texts.reserve(static_cast<std::size_t>(kTextsPerColumn) * kListColumns);
    for (int row = 0; row < kTextsPerColumn; ++row) {
        for (int column = 0; column < kListColumns; ++column) {
            texts.emplace_back(TextOf(row, column, values(random)));
        }
    }
    return texts;
}

CATDlgMultiList& MakeList(CATDlgDialog& window)
{
    auto* list = new CATDlgMultiList(&window, "List"); // goes with the window
    CATListValCATUnicodeString titles;
    for (int column = 0; column < kListColumns; ++column) {
        titles.Append("Column " + CATUnicodeString::FromInt(column));
    }
    list->SetColumnTitles(titles);
    return *list;
}

} // namespace

const CATUnicodeString& ListCellText(int row, int column)
{
    static const std::vector<CATUnicodeString> texts = MakeTexts();
    return texts[static_cast<std::size_t>(row % kTextsPerColumn) * kListColumns +
                 static_cast<std::size_t>(column)];
}

ListToolkit::ListToolkit()
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1); // NOLINT(concurrency-mt-unsafe): no thread runs yet
    static std::array<char, 9> name{'w', 'b', '_', 'b', 'e', 'n', 'c', 'h', '\0'};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    static int count = 1;
    m_application = std::make_unique<CATDlgApplication>(count, arguments.data());
}

ListToolkit::~ListToolkit() = default;

void ListToolkit::ProcessEvents()
{
    for (int round = 0; round < 3; ++round) {
        CATDlgApplication::ProcessEvents();
    }
}

ListWindow::ListWindow()
    : m_window(std::make_unique<CATDlgDialog>(&CATSession::Root(), "Window", 0x4001)),
      list(MakeList(*m_window))
{
    m_window->SetPreferredSize(kListWidth, kListHeight);
}

ListWindow::~ListWindow() = default;

void ListWindow::Show()
{
    m_window->SetVisibility(true);
    ListToolkit::ProcessEvents();
}
