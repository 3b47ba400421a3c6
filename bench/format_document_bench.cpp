// SPDX-License-Identifier: GPL-3.0-or-later
// Format Document over 12 MB: until the dialog shows the fields, and until Finished has written them and the windows
// are up to date. `bare_ms` is what the C library's search without regard to case takes for the same tokens in the same
// run, `ratio` the dialog's time by that.

#include <benchmark/benchmark.h>

#include <cstring>

#include "assistants/format_document.h"
#include "bench/comparison.h"
#include "bench/program.h"
#include "editing/insertion.h"
#include "html/head_tags.h"

namespace kelvor::bench {
namespace {

constexpr std::size_t textSize = 12'000'000;

/// Lines of ordinary mark-up, below a head or with none, so that each search goes through all of it.
std::string page(bool withHead) {
    const std::string line = "<P ALIGN=\"left\">A <B>word</B> and <A HREF=\"page.html\">a link</A> to it.</P>\r\n";
    std::string text;
    if (withHead) text = "<HTML>\r\n<HEAD>\r\n<TITLE>A page</TITLE>\r\n</HEAD>\r\n<BODY BGCOLOR=\"#FFFFFF\">\r\n";
    while (text.size() < textSize) text += line;
    return text;
}

double bareSearches(const std::string& text, std::initializer_list<std::string_view> tokens) {
    const auto start = Clock::now();
    for (const std::string_view token : tokens)
        benchmark::DoNotOptimize(strcasestr(text.c_str(), std::string(token).c_str()));
    return secondsSince(start);
}

constexpr auto metaTokens = {head::author.start, head::generator.start, head::description.start, head::keywords.start,
                             head::refresh.start};

double bareReading(const std::string& text) {
    return bareSearches(text, metaTokens) +
           bareSearches(text, {head::noCache, head::body.start, head::title.start, head::baseFont.start});
}

/// New META tags are searched for, and the head that they go to.
double bareWriting(const std::string& text) {
    return bareSearches(text, metaTokens) +
           bareSearches(text, {head::start, head::body.start, head::title.start, head::noCache});
}

void showDialog() {
    FormatDocument& dialog = toolForm<FormatDocument>();
    dialog.load();
    platform().windows.showModeless(dialog, true);
    QApplication::processEvents();
}

/// The argument is 1 for a page with a head.
void Open(benchmark::State& state) {
    const std::string text = page(state.range(0) == 1);
    program().open("page.htm", text);
    Comparison comparison(state);
    for (auto step : state) {
        const double bare = bareReading(text);
        const auto start = Clock::now();
        showDialog();
        comparison.add(secondsSince(start), bare);
        toolForm<FormatDocument>().unload();
    }
}
BENCHMARK(Open)->Arg(0)->Arg(1)->Iterations(10)->UseManualTime()->Unit(benchmark::kMillisecond);

void Finish(benchmark::State& state) {
    const std::string text = page(state.range(0) == 1);
    program().open("page.htm", text);
    Comparison comparison(state);
    for (auto step : state) {
        const double bare = bareWriting(text);
        showDialog();
        toolForm<FormatDocument>().txtMetaA.setText("Ann");
        const auto start = Clock::now();
        toolForm<FormatDocument>().cmdFinished.click();
        QApplication::processEvents();
        comparison.add(secondsSince(start), bare);
        if (activeText().textView().find("Ann") > 1000) state.SkipWithError("nothing was written");
        activeText().undo();
        if (activeText().textView() != text) state.SkipWithError("it is not one step back");
    }
}
BENCHMARK(Finish)->Arg(0)->Arg(1)->Iterations(10)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
