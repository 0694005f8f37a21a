/// What reporting progress costs, on Linux with the offscreen platform unless another is set.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

#include <bench/ratios.h>
#include <platen/platform/afx.h>
#include <platen/platform/win32.h>
#include <platen/progress/progress_bar.h>

namespace {

void RegisterProgressDialog() {
    CDialogTemplate dialog(WS_CHILD, {0, 0, 190, 60}, "");
    dialog.Add("STATIC", "", 1000, SS_CENTER, {8, 8, 174, 10})
        .Add("STATIC", "", 1001, SS_LEFT, {8, 22, 174, 12})
        .Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {70, 40, 50, 14});
    platen::win32::RegisterDialogTemplate(MAKEINTRESOURCE(0), dialog.Bytes());
}

constexpr long kTotal = 1'000'000;

/// Reports with the text and the bar drawn anew each time.
void MonitorWithUpdate(benchmark::State& state) {
    ProgressBar bar;
    bar.BeginPercent(nullptr);
    unsigned long done = 0;
    for (auto step : state) {
        done = (done + 9973) % kTotal;
        if (bar.MonitorPercent(done, kTotal, 1) != 0) {
            state.SkipWithError("aborted");
            break;
        }
    }
    bar.EndPercent();
}

/// Reports that only look for the user's Escape.
void MonitorWithoutUpdate(benchmark::State& state) {
    ProgressBar bar;
    bar.BeginPercent(nullptr);
    for (auto step : state) {
        if (bar.MonitorPercent(1, kTotal, 0) != 0) {
            state.SkipWithError("aborted");
            break;
        }
    }
    bar.EndPercent();
}

/// A job of a million steps that reports each one without an update.
void MillionReports(benchmark::State& state) {
    ProgressBar bar;
    bar.BeginPercent(nullptr);
    for (auto step : state) {
        for (unsigned long done = 0; done < kTotal; ++done) {
            benchmark::DoNotOptimize(bar.MonitorPercent(done, kTotal, 0));
        }
    }
    bar.EndPercent();
}

constexpr double kMostMicroseconds = 2;

/// Looks for messages of a window for which there are none, as a job does that lets others work.
void LookForNothing(benchmark::State& state) {
    CWnd window;
    window.CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 100), nullptr, nullptr);
    MSG message{};
    for (auto step : state) {
        benchmark::DoNotOptimize(PeekMessage(&message, window.m_hWnd, 0, 0, PM_REMOVE));
    }
    window.DestroyWindow();
}

BENCHMARK(LookForNothing)->Unit(benchmark::kMicrosecond)->Repetitions(5);
BENCHMARK(MonitorWithUpdate)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(MonitorWithoutUpdate)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(MillionReports)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);  // NOLINT(concurrency-mt-unsafe)
    benchmark::Initialize(&argc, argv);
    CWinApp application;
    RegisterProgressDialog();
    platen::bench::MedianKeeper medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    const double look = medians.Median("LookForNothing");
    if (look > 0) {
        std::printf("a look for nothing: %.2f us; at most %.0f: %s\n", look, kMostMicroseconds,
                    look <= kMostMicroseconds ? "met" : "MISSED");
    }
    return 0;
}
