// SPDX-License-Identifier: GPL-3.0-or-later
// Replace All of the Find and Replace dialog on the text of a shown window, against the bare target loop over the
// same text: "Time" is from the press of the button until the window shows the outcome, `bare_ms` the loop's, `ratio`
// the first by the second. CancelReplaceAll is how long a press of Cancel in the middle of a run waits for its
// question.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTimer>

#include "batch/find_replace.h"
#include "bench/bare_scintilla.h"
#include "bench/program.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"

namespace kelvor::bench {
namespace {

/// The text of the one document.
EditControl& shownText() {
    const Program& running = program();
    if (!hasMdiChild()) running.open("page.htm", "<HTML>");
    return activeText();
}

/// The dialog, filled in.
FindReplace& filledDialog() {
    FindReplace& dialog = toolForm<FindReplace>();
    dialog.txtFindText.setText(oldText);
    dialog.txtReplace.setText(newText);
    return dialog;
}

double replaceAll(FindReplace& dialog) {
    const auto start = Clock::now();
    dialog.cmdReplaceAll.click();
    QApplication::processEvents();
    return secondsSince(start);
}

void ReplaceAll(benchmark::State& state) {
    EditControl& shown = shownText();
    FindReplace& dialog = filledDialog();
    const std::string text = lines(linesOf12Megabytes);
    Comparison comparison(state);
    for (auto step : state) {
        shown.setText(text);
        QApplication::processEvents();
        comparison.add(replaceAll(dialog), bareReplaceAll(text));
        if (shown.Find(oldText, 0) >= 0) state.SkipWithError("a match was left");
    }
}
BENCHMARK(ReplaceAll)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

void CancelReplaceAll(benchmark::State& state) {
    constexpr int millisecondsBefore = 50;
    EditControl& shown = shownText();
    FindReplace& dialog = filledDialog();
    const std::string text = lines(linesOf12Megabytes);
    for (auto step : state) {
        shown.setText(text);
        auto& messages = program().answers.shown;
        messages.clear();
        const auto pressed = Clock::now() + std::chrono::milliseconds(millisecondsBefore);
        QTimer::singleShot(std::chrono::milliseconds(millisecondsBefore), Qt::PreciseTimer, qApp,
                           [&] { dialog.cmdClose.click(); });
        replaceAll(dialog);
        const auto question = messages.find("Confirm cancel");
        if (question == messages.end()) return state.SkipWithError("the run was over before the press");
        state.SetIterationTime(std::chrono::duration<double>(question->second - pressed).count());
    }
}
BENCHMARK(CancelReplaceAll)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
