#include "BenchTable.h"
#include "ListFixture.h"
#include "OtherProcess.h"
#include "ReportFixture.h"

#include "CATDlgMultiList.h"

#include <benchmark/benchmark.h>

#include <QTableView>
#include <QTreeWidget>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace
{

constexpr double kBytesPerMebiByte = 1024.0 * 1024.0;
// What a list may take above its texts, for each of its rows: 30 MiB for 100,000.
constexpr double kAllowedBytesPerRow = 30.0 * kBytesPerMebiByte / 100'000.0;

/// The rows of this run: as many as the reports have instances.
int Rows()
{
    return ReportInstances();
}

void FillList(ListWindow& window)
{
    for (int row = 0; row < Rows(); ++row) {
        for (int column = 0; column < kListColumns; ++column) {
            window.list.SetCell(column, row + 1, ListCellText(row, column));
        }
    }
}

void ListFillAndShow(benchmark::State& state)
{
    const ListToolkit toolkit;
    MeasureEach(
        state, [] { return std::make_unique<ListWindow>(); },
        [](const std::unique_ptr<ListWindow>& window) {
            FillList(*window);
            window->Show();
        });
}
BENCHMARK(ListFillAndShow)->Unit(benchmark::kMillisecond)->Iterations(1);

/// As when an option of its display is toggled.
void ListRefill(benchmark::State& state)
{
    const ListToolkit toolkit;
    ListWindow window;
    FillList(window);
    window.Show();
    for ([[maybe_unused]] auto turn : state) {
        window.list.RemoveAll();
        FillList(window);
        ListToolkit::ProcessEvents();
    }
}
BENCHMARK(ListRefill)->Unit(benchmark::kMillisecond)->Iterations(1);

/// The quick way to use the toolkit's item widgets: all items handed over at once, rows of one
/// height.
void ListTreeWidget(benchmark::State& state)
{
    const ListToolkit toolkit;
    QStringList titles;
    for (int column = 0; column < kListColumns; ++column) {
        titles.append(QString::number(column));
    }
    MeasureEach(
        state,
        [&titles] {
            auto tree = std::make_unique<QTreeWidget>();
            tree->resize(kListWidth, kListHeight);
            tree->setUniformRowHeights(true);
            tree->setHeaderLabels(titles);
            return tree;
        },
        [](const std::unique_ptr<QTreeWidget>& tree) {
            QList<QTreeWidgetItem*> items;
            items.reserve(Rows());
            for (int row = 0; row < Rows(); ++row) {
                auto* item = new QTreeWidgetItem; // the tree deletes it
                for (int column = 0; column < kListColumns; ++column) {
                    const std::string_view text = ListCellText(row, column).View();
                    item->setText(column,
                                  QString::fromUtf8(text.data(), static_cast<int>(text.size())));
                }
                items.append(item);
            }
            tree->addTopLevelItems(items);
            tree->show();
            ListToolkit::ProcessEvents();
        });
}
BENCHMARK(ListTreeWidget)->Unit(benchmark::kMillisecond)->Iterations(1);

// Sorting

void ListSort(benchmark::State& state)
{
    const ListToolkit toolkit;
    ListWindow window;
    FillList(window);
    window.Show();
    auto* view = qobject_cast<QTableView*>(window.list.Widget());
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        view->sortByColumn(-1, Qt::AscendingOrder); // as delivered
        ListToolkit::ProcessEvents();
        state.ResumeTiming();
        view->sortByColumn(kListSortColumn, Qt::AscendingOrder);
    }
}
BENCHMARK(ListSort)->Unit(benchmark::kMillisecond)->Iterations(5);

void ListStableSort(benchmark::State& state)
{
    std::vector<double> numbers(static_cast<std::size_t>(Rows()));
    for (std::size_t row = 0; row < numbers.size(); ++row) {
        ListCellText(static_cast<int>(row), kListSortColumn).ReadReal(numbers[row]);
    }
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        std::vector<double> sorted = numbers;
        state.ResumeTiming();
        std::stable_sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
}
BENCHMARK(ListStableSort)->Unit(benchmark::kMillisecond)->Iterations(5);

// Memory

// Its time stands in no line; its counters do.
void ListMemory(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        const std::vector<double> bytes = MeasureElsewhere("list", std::to_string(Rows()));
        if (bytes.size() != 2) {
            state.SkipWithError("the memory was not measured");
            return;
        }
        state.counters["aboveTexts"] = bytes[0] - bytes[1];
        state.counters["allowed"] = kAllowedBytesPerRow * Rows();
    }
}
BENCHMARK(ListMemory)->Iterations(1)->Repetitions(1)->UseRealTime();

const RegisterBenchLine kFill({"fill and show a list of 24 columns / an item-based tree widget",
                               "ListFillAndShow", "ListTreeWidget", 0.2});
const RegisterBenchLine kRefill({"fill the shown list anew, rows for rows / the same widget",
                                 "ListRefill", "ListTreeWidget", 0.2});
const RegisterBenchLine kSort({"sort by a column of numbers with units / std::stable_sort",
                               "ListSort", "ListStableSort", 8.0});
const RegisterBenchLine kMemory({"memory of that list above its texts / 30 MiB per 100,000 rows",
                                 "ListMemory:aboveTexts", "ListMemory:allowed", 1.0,
                                 BenchUnit::MebiBytes});

} // namespace

std::vector<double> MeasureList(const std::string& rows)
{
    const int count = std::atoi(rows.c_str());
    const ListToolkit toolkit;
    ListWindow window;
    window.Show();
    ListCellText(0, 0); // made before anything is measured
    const double before = HeldBytes();
    double texts = 0.0;
    for (int row = 0; row < count; ++row) {
        for (int column = 0; column < kListColumns; ++column) {
            const CATUnicodeString& text = ListCellText(row, column);
            window.list.SetCell(column, row + 1, text);
            texts += static_cast<double>(text.ByteLength());
        }
    }
    ListToolkit::ProcessEvents();
    return {HeldBytes() - before, texts};
}
