#include "BenchFolder.h"
#include "BenchTable.h"
#include "ListFixture.h"
#include "Listening.h"
#include "ReportFixture.h"

#include "CATWBServices.h"
#include "CATWBVPMNavReportPreview.h"
#include "KR4WBClientSettings.h"

#include "CATDlgControls.h"
#include "CATEnvironment.h"
#include "CATSession.h"
#include "CATSettingRepository.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace
{

// A preview as a user has it, its hidden controls included, in a window without a screen.

/// What a user has remembered of how reports are shown.
struct Remembered
{
    unsigned char units = 0;
    unsigned char trailingZeros = 0;
    int digits = 0; ///< 0: nothing has ever been remembered
};

/// A user's settings of this run's own, begun anew each time: a preview that goes away remembers
/// its options for the next one.
class PreviewUser
{
public:
    PreviewUser()
    {
        CATSetEnvironmentSource([this](const char* name) -> std::optional<std::string> {
            return std::string_view(name) == "CATUserSettingPath" ? std::optional(m_folder)
                                                                  : std::nullopt;
        });
    }
    PreviewUser(const PreviewUser&) = delete;
    PreviewUser& operator=(const PreviewUser&) = delete;
    ~PreviewUser()
    {
        CATSession::Close();
        CATSettingRepository::CloseAll();
        CATSetEnvironmentSource({});
    }

    void Begin(int stableOrder, Remembered remembered)
    {
        CATSettingRepository::CloseAll();
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
        CATSettingRepository::GetRepository("VPMNavigator")
            ->WriteSetting("StableOrdering", stableOrder);
        if (remembered.digits > 0) {
            KR4WBClientSettings::SetReportDisplay(remembered.units, remembered.trailingZeros,
                                                  remembered.digits);
        }
    }

private:
    const std::string m_folder = BenchFile("preview-settings");
};

CATDlgCheckButton& CheckButton(const CATCommand& preview, const char* name)
{
    for (int position = 1; position <= preview.ChildCount(); ++position) {
        const CATCommand* frame = preview.Child(position);
        for (int inside = 1; inside <= frame->ChildCount(); ++inside) {
            if (frame->Child(inside)->Name() == name) {
                return dynamic_cast<CATDlgCheckButton&>(*frame->Child(inside));
            }
        }
    }
    std::fprintf(stderr, "wb_bench: a preview has no button %s\n", name);
    std::exit(1);
}

/// From the text to the window, as the report panel does.
CATWBVPMNavReportPreview* OpenPreview()
{
    CATIDOMDocument_var document = ParseReport(BenchReport());
    CATWBServices::ManageUnitsConversion(document, 0, 0);
    auto* preview = new CATWBVPMNavReportPreview("All", document, 0); // ClosePreview destroys it
    preview->Build();
    preview->SetVisibility(true);
    ListToolkit::ProcessEvents();
    return preview;
}

void ClosePreview(CATWBVPMNavReportPreview* preview)
{
    preview->OnCloseNotification();
    ListToolkit::ProcessEvents();
}

void Open(benchmark::State& state, Remembered remembered)
{
    const Listening silence({});
    const ListToolkit toolkit;
    PreviewUser user;
    UseInchPoundUnits();
    BenchReport();
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        user.Begin(0, remembered);
        BeginWithFreshMemory();
        state.ResumeTiming();
        CATWBVPMNavReportPreview* preview = OpenPreview();
        state.PauseTiming();
        ClosePreview(preview);
        state.ResumeTiming();
    }
}
void ReportPreviewOpen(benchmark::State& state)
{
    Open(state, {});
}
BENCHMARK(ReportPreviewOpen)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportPreviewOpenRemembered(benchmark::State& state)
{
    Open(state, {1, 1, 8});
}
BENCHMARK(ReportPreviewOpenRemembered)->Unit(benchmark::kMillisecond)->Iterations(1);

void Toggle(benchmark::State& state, const char* button)
{
    const Listening silence({});
    const ListToolkit toolkit;
    PreviewUser user;
    UseInchPoundUnits();
    user.Begin(0, {});
    CATWBVPMNavReportPreview* preview = OpenPreview();
    CATDlgCheckButton& toggled = CheckButton(*preview, button);
    for ([[maybe_unused]] auto turn : state) {
        toggled.SetChecked(!toggled.IsChecked(), CATDlgTelling::Notify);
        ListToolkit::ProcessEvents();
    }
    ClosePreview(preview);
}
void ReportPreviewToggleUnits(benchmark::State& state)
{
    Toggle(state, "UnitsDisplay");
}
BENCHMARK(ReportPreviewToggleUnits)->Unit(benchmark::kMillisecond)->Iterations(2);
void ReportPreviewToggleZeros(benchmark::State& state)
{
    Toggle(state, "TrailingZero");
}
BENCHMARK(ReportPreviewToggleZeros)->Unit(benchmark::kMillisecond)->Iterations(2);

// The stable order

/// Identifiers as a product has them, in no order.
const std::vector<std::string>& Identifiers()
{
    static const std::vector<std::string> identifiers = [] {
        std::vector<int> numbers(static_cast<std::size_t>(ReportInstances()));
        std::iota(numbers.begin(), numbers.end(), 1);
        std::mt19937 generator; // NOLINT(cert-msc51-cpp): the same order in every run
        std::shuffle(numbers.begin(), numbers.end(), generator);
        std::vector<std::string> made;
        made.reserve(numbers.size());
        for (const int number : numbers) {
            made.push_back("Bracket_" + std::to_string(number % 1000) + "." +
                           std::to_string(number));
        }
        return made;
    }();
    return identifiers;
}

/// A root with an instance for each identifier directly below it.
const std::string& FlatReport()
{
    static const std::string text = [] {
        std::string made = "<Report><PRC Name=\"Root\">";
        for (const std::string& identifier : Identifiers()) {
            made += R"(<PartInstance instIdAttrAlias="Instance_ID" Part_ID="P" Instance_ID=")" +
                    identifier + R"(" WB_Mass="1" COGx="0" COGy="0" COGz="0"/>)";
        }
        return made + "</PRC></Report>";
    }();
    return text;
}

/// What this thread has had of the processor, in seconds.
double ProcessorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// A preview that shows nothing and notes when its lists shall be filled for the first time: the
/// document is sorted just before.
class SortedPreview : public CATWBVPMNavReportPreview
{
public:
    using CATWBVPMNavReportPreview::CATWBVPMNavReportPreview;
    void UpdatePreviewPanelList() override
    {
        if (sortedAt < 0.0) {
            sortedAt = ProcessorTime();
        }
    }
    double sortedAt = -1.0;
};

void ReportSortByIdentifier(benchmark::State& state)
{
    const ListToolkit toolkit;
    PreviewUser user;
    for ([[maybe_unused]] auto turn : state) {
        user.Begin(1, {});
        const CATIDOMDocument_var document = ParseReport(FlatReport());
        BeginWithFreshMemory();
        double begin = 0.0;
        // The option is read just before the document is sorted, and says so.
        const Listening untilSorting([&begin](std::string_view) { begin = ProcessorTime(); });
        auto* preview = new SortedPreview("All", document, 0); // ClosePreview destroys it
        preview->Build();
        state.SetIterationTime(preview->sortedAt - begin);
        ClosePreview(preview);
    }
}
BENCHMARK(ReportSortByIdentifier)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void ReportStdSort(benchmark::State& state)
{
    MeasureEach(
        state, [] { return Identifiers(); },
        [](std::vector<std::string>& keys) {
            std::sort(keys.begin(), keys.end());
            benchmark::DoNotOptimize(keys.data());
        });
}
BENCHMARK(ReportStdSort)->Unit(benchmark::kMillisecond)->Iterations(1);

const RegisterBenchLine kOpen({"open a report preview: parse, convert, show / pugixml parsing",
                               "ReportPreviewOpen", "ReportPugiParse", 12.0});
const RegisterBenchLine kOpenRemembered({"the same with all three options remembered",
                                         "ReportPreviewOpenRemembered", "ReportPugiParse", 33.0});
const RegisterBenchLine kToggleUnits({"show or hide units in a preview / pugixml parsing the text",
                                      "ReportPreviewToggleUnits", "ReportPugiParse", 7.0});
const RegisterBenchLine kToggleZeros({"show or hide trailing zeros / pugixml parsing the text",
                                      "ReportPreviewToggleZeros", "ReportPugiParse", 7.0});
const RegisterBenchLine kSort({"sort a report by identifier / std::sort of the same keys",
                               "ReportSortByIdentifier", "ReportStdSort", 5.0});

} // namespace
