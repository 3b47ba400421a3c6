// SPDX-License-Identifier: GPL-3.0-or-later
// What the journal of unsaved text costs: keys in the middle of 100 MB, and Replace All of 200,000 matches in 12 MB,
// in the started program with its journals on the disk and without them. "Time" is with the journal, `bare_ms` without,
// `ratio` the first by the second. Of the keys `p99_on_ms` and `p99_off_ms` are what 99 of 100 stay under, each
// together with a turn of the work that a journal does between events; `longest_turn_ms` is the longest of these, such
// as a flush.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <vector>

#include "batch/find_replace.h"
#include "bench/bare_scintilla.h"
#include "bench/program.h"
#include "core/document_manager.h"
#include "core/journal.h"
#include "frame/tool_forms.h"
#include "qt/scintilla_edit.h"

namespace kelvor::bench {
namespace {

constexpr int linesOf100Megabytes = 1'640'000;
constexpr int keys = 1'000;

CDocument& openAnew(const std::string& name, const std::string& text) {
    program().open(name, text);
    return documentManager().currentDocument();
}

double typeCharacter(QWidget* widget) {
    return secondsOf([widget] {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x");
        QApplication::sendEvent(widget, &key);
    });
}

struct Keys {
    double total = 0;
    double p99 = 0;
    double longestTurn = 0;
};

Keys typeInTheMiddle(CDocument& document) {
    auto& text = dynamic_cast<qt::ScintillaEdit&>(document.SourceRTB());
    text.setSelStart(text.textLength() / 2);
    Keys outcome;
    std::vector<double> times;
    for (int i = 0; i < keys; ++i) {
        const double key = typeCharacter(text.widget());
        const double turn = secondsOf([] { workOnJournals(Clock::now()); });
        outcome.longestTurn = std::max(outcome.longestTurn, turn);
        outcome.total += key + turn;
        times.push_back(key + turn);
    }
    std::sort(times.begin(), times.end());
    outcome.p99 = times[times.size() * 99 / 100];
    return outcome;
}

void KeysInALargeFile(benchmark::State& state) {
    const Program& running = program();
    const ScopedDirectories withState(running.path("program"), running.path("settings"), running.path("state"));
    const std::string text = lines(linesOf100Megabytes);
    Comparison comparison(state);
    for (auto step : state) {
        CDocument& off = openAnew("off.htm", text);
        off.journal().drop();
        const Keys without = typeInTheMiddle(off);
        off.CloseDoc();
        CDocument& on = openAnew("on.htm", text);
        const Keys with = typeInTheMiddle(on);
        if (on.journal().path().empty() || on.journal().isFailing()) state.SkipWithError("there is no journal");
        on.CloseDoc();
        comparison.add(with.total, without.total);
        state.counters["p99_on_ms"] = with.p99 * 1000;
        state.counters["p99_off_ms"] = without.p99 * 1000;
        state.counters["longest_turn_ms"] = with.longestTurn * 1000;
    }
}
BENCHMARK(KeysInALargeFile)->Iterations(1)->Repetitions(3)->UseManualTime()->Unit(benchmark::kMillisecond);

void ReplaceAllWithAJournal(benchmark::State& state) {
    const Program& running = program();
    const ScopedDirectories withState(running.path("program"), running.path("settings"), running.path("state"));
    const std::string text = lines(linesOf12Megabytes);
    CDocument& document = openAnew("page.htm", "<HTML>");
    FindReplace& dialog = toolForm<FindReplace>();
    dialog.txtFindText.setText(oldText);
    dialog.txtReplace.setText(newText);
    const auto replaceAll = [&](bool isKept) {
        document.journal().drop();
        if (isKept) document.journal().start(false);
        document.SourceRTB().setText(text);
        QApplication::processEvents();
        const double seconds = secondsOf([&] { dialog.cmdReplaceAll.click(); });
        if (document.SourceRTB().Find(oldText, 0) >= 0) state.SkipWithError("a match was left");
        if (document.journal().path().empty() == isKept) state.SkipWithError("the journal is not as it should be");
        return seconds;
    };
    Comparison comparison(state);
    for (auto step : state) {
        const double without = replaceAll(false);
        comparison.add(replaceAll(true), without);
    }
}
BENCHMARK(ReplaceAllWithAJournal)->Iterations(10)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
