// SPDX-License-Identifier: GPL-3.0-or-later
// The scan for name anchors over 12 MB with 10,000 of them, until the shown list holds them, beside bare searches for
// the same tokens in the same run.

#include <benchmark/benchmark.h>

#include <cstring>

#include "authoring/name_anchors.h"
#include "authoring/named_links.h"
#include "bench/program.h"

namespace kelvor::bench {
namespace {

constexpr std::size_t textSize = 12'000'000;
constexpr int anchorCount = 10'000;

/// Lines of ordinary mark-up with an anchor every now and then.
const std::string& page() {
    static const std::string text = [] {
        const std::string line = "<P ALIGN=\"left\">A <B>word</B> and <A HREF=\"page.html\">a link</A> to it.</P>\r\n";
        std::string result;
        for (int anchor = 0; anchor < anchorCount; ++anchor) {
            result += "<a name=\"chapter " + std::to_string(anchor) + "\"></a>\r\n";
            while (result.size() < textSize / anchorCount * static_cast<std::size_t>(anchor + 1)) result += line;
        }
        return "<BODY>\r\n" + result;
    }();
    return text;
}

void ScanIntoTheShownList(benchmark::State& state) {
    program().open("page.htm", " <A NAME=x>");
    NamedLinks& dialog = toolForm<NamedLinks>();
    dialog.load();
    platform().windows.showModeless(dialog, true);
    ListBox& list = dialog.nameAnchors;
    for (auto step : state) {
        list.clear();
        scanNameAnchors(nameAnchorStart, nameAnchorEnd, page(), list);
        QApplication::processEvents();
    }
    state.counters["rows"] = static_cast<double>(list.count());
    dialog.unload();
}
BENCHMARK(ScanIntoTheShownList)->Unit(benchmark::kMillisecond);

/// What no search that minds the case can undercut by much.
void FindExactly(benchmark::State& state) {
    for (auto step : state) {
        std::size_t found = 0;
        for (auto at = page().find("<a name="); at != std::string::npos; at = page().find("<a name=", at + 1)) {
            benchmark::DoNotOptimize(page().find('>', at));
            ++found;
        }
        state.counters["rows"] = static_cast<double>(found);
    }
}
BENCHMARK(FindExactly)->Unit(benchmark::kMillisecond);

/// The C library's search without regard to case.
void FindInAnyCase(benchmark::State& state) {
    for (auto step : state) {
        std::size_t found = 0;
        for (const char* at = strcasestr(page().c_str(), "<A NAME="); at; at = strcasestr(at + 1, "<A NAME=")) {
            benchmark::DoNotOptimize(strchr(at, '>'));
            ++found;
        }
        state.counters["rows"] = static_cast<double>(found);
    }
}
BENCHMARK(FindInAnyCase)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
