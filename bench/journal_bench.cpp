// SPDX-License-Identifier: GPL-3.0-or-later
// What the journal of unsaved text costs: keys in the middle of 100 MB, and Replace All of 200,000 matches in 12 MB,
// in the started program with its journals on the disk and without them. "Time" is with the journal, `bare_ms` without,
// `ratio` the first by the second. Keys come twelve a second by the clock that the journal is told; what it does
// between two of them counts for the second one as far as that had to wait. `p99_on_ms` and `p99_off_ms` are what 99
// of 100 keys stay under, `longest_turn_ms` is the longest time in which no event is heard, such as a flush.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <chrono>
#include <numeric>
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

/// The keys that are typed into one document.
class Typist {
public:
    explicit Typist(CDocument& document)
        : document_(document), text_(dynamic_cast<qt::ScintillaEdit&>(document.SourceRTB())) {
        text_.setSelStart(text_.textLength() / 2);
    }

    /// The first key after another document was in front is not counted.
    void type(int count) {
        mainForm().mdi.activate(document_.SourceForm());
        typeCharacter(text_.widget());
        for (int i = 0; i < count; ++i) {
            times_.push_back(typeCharacter(text_.widget()) + late_);
            late_ = std::max(0.0, work() - std::chrono::duration<double>(interval).count());
        }
    }
    double total() const { return std::accumulate(times_.begin(), times_.end(), 0.0); }
    double p99Milliseconds() {
        std::sort(times_.begin(), times_.end());
        return times_[times_.size() * 99 / 100] * 1000;
    }
    double longestTurnMilliseconds() const { return longestTurn_ * 1000; }

private:
    /// Turns of work until the next key is there. Seconds.
    double work() {
        const auto start = Clock::now();
        told_ += interval;
        for (bool isMore = true; isMore && Clock::now() - start < interval;) {
            const auto turn = Clock::now();
            isMore = workOnJournals(told_);
            longestTurn_ = std::max(longestTurn_, secondsSince(turn));
        }
        return secondsSince(start);
    }

    static constexpr std::chrono::milliseconds interval{83};

    CDocument& document_;
    qt::ScintillaEdit& text_;
    Clock::time_point told_ = Clock::now();
    std::vector<double> times_;
    double late_ = 0;
    double longestTurn_ = 0;
};

void KeysInALargeFile(benchmark::State& state) {
    constexpr int keys = 1'000;
    constexpr int keysInARow = 50;
    const Program& running = program();
    const ScopedDirectories withState(running.path("program"), running.path("settings"), running.path("state"));
    const std::string text = lines(linesOf100Megabytes);
    Comparison comparison(state);
    for (auto step : state) {
        CDocument& off = openAnew("off.htm", text);
        off.journal().drop();
        CDocument& on = openAnew("on.htm", text);
        Typist without(off);
        Typist with(on);
        for (int typed = 0; typed < keys; typed += keysInARow) {
            without.type(keysInARow);
            with.type(keysInARow);
        }
        if (on.journal().path().empty() || on.journal().isFailing()) state.SkipWithError("there is no journal");
        on.CloseDoc();
        off.CloseDoc();
        comparison.add(with.total(), without.total());
        state.counters["p99_on_ms"] = with.p99Milliseconds();
        state.counters["p99_off_ms"] = without.p99Milliseconds();
        state.counters["longest_turn_ms"] = with.longestTurnMilliseconds();
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
