// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that change a document at many places, and the undo of each, with a screen reader active: "Time" is
// with one, `alone_ms` the same run without, `ratio` the first by the second. On a desktop that speaks (xcb with
// QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1) each notice's text is taken in; offscreen it is made and dropped.

#include <benchmark/benchmark.h>

#include <QAccessible>

#include "authoring/convert.h"
#include "authoring/strip_tags.h"
#include "batch/find_replace.h"
#include "batch/link_case.h"
#include "bench/bare_scintilla.h"
#include "bench/program.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "html/special_chars.h"

namespace kelvor::bench {
namespace {

long heardCharacters = 0;

void hear(QAccessibleEvent* event) {
    if (event->type() == QAccessible::TextInserted) {
        heardCharacters += static_cast<QAccessibleTextInsertEvent&>(*event).textInserted().size();
    } else if (event->type() == QAccessible::TextRemoved) {
        heardCharacters += static_cast<QAccessibleTextRemoveEvent&>(*event).textRemoved().size();
    } else if (event->type() == QAccessible::TextUpdated) {
        const auto& update = static_cast<QAccessibleTextUpdateEvent&>(*event);
        heardCharacters += update.textRemoved().size() + update.textInserted().size();
    }
}

void replaceAll() {
    FindReplace& dialog = toolForm<FindReplace>();
    dialog.txtFindText.setText(oldText);
    dialog.txtReplace.setText(newText);
    dialog.cmdReplaceAll.click();
}

void convertAll() {
    toolForm<Convert>().load();
    toolForm<Convert>().cmdConvert.click();
}

void changeCase() {
    changeLinkCase(activeText(), "HREF=\"", LinkCase::upper);
}

std::string repeated(const std::string& piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
}

/// Seconds of a command and of its undo.
struct Times {
    double command = 0;
    double undo = 0;
};

Times measure(const std::string& text, void (*command)()) {
    EditControl& shown = activeText();
    shown.setText(text);
    QApplication::processEvents();
    const auto start = Clock::now();
    command();
    QApplication::processEvents();
    const auto changed = Clock::now();
    shown.undo();
    QApplication::processEvents();
    return {std::chrono::duration<double>(changed - start).count(), secondsSince(changed)};
}

struct Case {
    const char* name;
    std::string (*text)();
    void (*command)();
};

void run(benchmark::State& state, const Case& work, double Times::*part) {
    const Program& running = program();
    if (!hasMdiChild()) running.open("page.htm", "<HTML>");
    initSpecialChars();
    const std::string text = work.text();
    double alone = 0;
    double read = 0;
    QAccessible::installUpdateHandler(hear);
    for (auto step : state) {
        QAccessible::setActive(false);
        alone += measure(text, work.command).*part;
        QAccessible::setActive(true);
        heardCharacters = 0;
        const double seconds = measure(text, work.command).*part;
        state.SetIterationTime(seconds);
        read += seconds;
        if (activeText().text() != text) state.SkipWithError("the undo left something");
        if (QAccessible::isActive() && heardCharacters == 0) state.SkipWithError("nothing was heard");
    }
    QAccessible::setActive(false);
    QAccessible::installUpdateHandler(nullptr);
    state.counters["alone_ms"] = benchmark::Counter(alone * 1000, benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = read / alone;
}

const Case cases[] = {
    {"ChangeCase", [] { return repeated("<A HREF=\"page.html\">x</A>\r\n", 60'000); }, changeCase},
    {"ReplaceAll", [] { return lines(linesOf12Megabytes); }, replaceAll},
    {"StripTags", [] { return repeated("<B>some word<B>some word<B>some word<B>some word\r\n", 250'000); },
     mnuTools_StripTags_Click},
    {"ConvertCharacters", [] { return repeated("some text \u00E9 and more of it between two\r\n", 100'000); },
     convertAll},
};

const bool registered = [] {
    for (const Case& work : cases) {
        for (const auto& [suffix, part] : {std::pair("", &Times::command), std::pair("/undo", &Times::undo)}) {
            const auto bench = [&work, part = part](benchmark::State& state) { run(state, work, part); };
            benchmark::RegisterBenchmark((work.name + std::string(suffix)).c_str(), bench)
                ->Iterations(3)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
    }
    return true;
}();

}  // namespace
}  // namespace kelvor::bench
