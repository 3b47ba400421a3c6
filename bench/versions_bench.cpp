// SPDX-License-Identifier: GPL-3.0-or-later
// The save of a page of a megabyte that has changed, with a version kept of what the file held before it: "Time" is the
// whole save, `bare_ms` one in the same run with no version kept, `ratio` the first by the second. The bytes are those
// of a page, or ones that cannot be compressed.

#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "bench/comparison.h"
#include "bench/program.h"
#include "core/document_manager.h"
#include "core/versions.h"

namespace kelvor::bench {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

std::string pageText() {
    std::string text;
    for (int number = 0; text.size() < megabyte; ++number)
        text += "<p class=\"row\">Line " + std::to_string(number) + " of the <b>page</b></p>\r\n";
    return text;
}

std::string randomText() {
    std::mt19937 random(1);
    std::string text;
    while (text.size() < megabyte) text += static_cast<char>(' ' + random() % 95);
    return text;
}

double save(CDocument& document, bool keeps, const std::string& mark) {
    setKeepsVersions(keeps);
    document.SourceRTB().setSelText(mark);
    return secondsOf([&] { document.SaveDoc(""); });
}

void Save(benchmark::State& state, std::string (*text)()) {
    const Program& running = program();
    const ScopedDirectories directories(running.path("program"), running.path("settings"), running.path("state"));
    running.open("page.htm", text());
    CDocument& document = documentManager().currentDocument();
    Comparison comparison(state);
    int number = 0;
    for (auto step : state) {
        const double ours = save(document, true, std::to_string(++number));
        comparison.add(ours, save(document, false, std::to_string(++number)));
    }
    if (versionsOf(document.LongFileName()).empty()) state.SkipWithError("no version was kept");
    document.CloseDoc();
}
BENCHMARK_CAPTURE(Save, Page, pageText)->Iterations(50)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Save, Random, randomText)->Iterations(50)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
