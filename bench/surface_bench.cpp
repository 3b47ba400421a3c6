// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program offscreen: what a switch of tabs costs among many documents, what Quick File pays for a large
// directory, and Extended Find for many results. Times are those until the window has been brought up to date.

#include <benchmark/benchmark.h>

#include "batch/extended_find.h"
#include "bench/program.h"

namespace kelvor::bench {
namespace {

/// Opens documents until there are `wanted`.
void openDocuments(std::size_t wanted) {
    const Program& running = program();
    for (std::size_t count = mainForm().TabStrip1.count(); count < wanted; ++count)
        running.open("page" + std::to_string(count) + ".htm", "<HTML>\r\n<BODY>\r\n</BODY>\r\n</HTML>\r\n");
}

/// From the click on a tab until commands, window and focus have followed; with `paint` until the window shows it.
template <bool paint>
void SwitchTabs(benchmark::State& state) {
    openDocuments(static_cast<std::size_t>(state.range(0)));
    TabStrip& tabs = mainForm().TabStrip1;
    const std::string first = tabs.tabs().front().key;
    const std::string last = tabs.tabs().back().key;
    bool atFirst = false;
    for (auto step : state) {
        atFirst = !atFirst;
        tabs.click(atFirst ? first : last);
        if (!paint) state.PauseTiming();
        QApplication::processEvents();
        if (!paint) state.ResumeTiming();
    }
}
BENCHMARK(SwitchTabs<false>)->Arg(2)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK(SwitchTabs<true>)->Arg(2)->Arg(200)->Unit(benchmark::kMillisecond);

void ListDirectory(benchmark::State& state) {
    const std::string directory = program().path("many");
    std::filesystem::create_directory(directory);
    for (int index = 0; index < state.range(0); ++index)
        std::ofstream(directory + "/Page number " + std::to_string(index) + ".html");
    FileList& list = mainForm().File1;
    list.setPath(directory);
    for (auto step : state) {
        list.Refresh();
        QApplication::processEvents();
    }
    state.counters["files"] = static_cast<double>(list.list().size());
}
BENCHMARK(ListDirectory)->Arg(2'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

constexpr int resultRows = 20'000;

/// The list of results on the screen, with its rows.
ReportView& fillResults() {
    program();
    ExtendedFind& form = toolForm<ExtendedFind>();
    if (!form.isLoaded()) mnuEdit_eFind_Click();
    form.SSTab1.setTabEnabled(1, true);
    form.SSTab1.setTab(1);
    std::vector<ReportView::Row> rows;
    for (int row = 0; row < resultRows; ++row) {
        const auto number = row * 7919 % resultRows;  // in no order
        rows.push_back({{"/srv/pages/section " + std::to_string(number) + "/index.html", std::to_string(number % 97)}});
    }
    form.ListView1.clear();
    form.ListView1.addRows(std::move(rows));
    form.ListView1.setSelectedRow(0);
    QApplication::processEvents();
    return form.ListView1;
}

void FillResults(benchmark::State& state) {
    for (auto step : state) fillResults();
}
BENCHMARK(FillResults)->Unit(benchmark::kMillisecond);

void SortResults(benchmark::State& state) {
    ReportView& results = fillResults();
    int column = 0;
    for (auto step : state) {
        results.clickColumn(column = 1 - column);
        QApplication::processEvents();
    }
}
BENCHMARK(SortResults)->Unit(benchmark::kMillisecond);

void ScrollResults(benchmark::State& state) {
    ReportView& results = fillResults();
    bool atEnd = false;
    for (auto step : state) {
        atEnd = !atEnd;
        results.setSelectedRow(atEnd ? resultRows - 1 : 0);
        QApplication::processEvents();
    }
}
BENCHMARK(ScrollResults)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
