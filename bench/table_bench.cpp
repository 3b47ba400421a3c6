// SPDX-License-Identifier: GPL-3.0-or-later
// The Table Wizard over the whole program offscreen; the argument is a number of rows, and of columns too. Times are
// those until the windows have been brought up to date.

#include <benchmark/benchmark.h>

#include "assistants/table_wizard.h"
#include "bench/comparison.h"
#include "bench/program.h"
#include "editing/insertion.h"

namespace kelvor::bench {
namespace {

/// Indices of Command1.
constexpr std::size_t next = 0;
constexpr std::size_t cancel = 2;
constexpr std::size_t finish = 3;

/// The wizard with a size in its fields, beside an empty document.
TableWizard& openWizard(int size) {
    if (!hasMdiChild()) program().open("table.htm", "");
    activeText().setText("");
    TableWizard& wizard = toolForm<TableWizard>();
    wizard.load();
    platform().windows.showModeless(wizard, true);
    for (TextBox* field : {&wizard.txtRows, &wizard.txtCols}) field->setText(std::to_string(size));
    QApplication::processEvents();
    return wizard;
}

/// The same bytes in a plain loop, and inserted at once.
void insertBare(int size) {
    std::string text = "<TABLE BORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"0\">\r\n";
    for (int row = 0; row < size; ++row) {
        text += "<TR>\r\n";
        for (int column = 0; column < size; ++column) text += "\t<TD></TD>\r\n";
        text += "</TR>\r\n";
    }
    activeText().setSelText(text + "</TABLE>");
}

void countCells(benchmark::State& state) {
    state.counters["cells"] = static_cast<double>(state.range(0) * state.range(0));
}

/// From Finish on, with the cells there.
void MakeAndInsertTable(benchmark::State& state) {
    program();
    const int size = static_cast<int>(state.range(0));
    Comparison comparison(state);
    for (auto step : state) {
        TableWizard& wizard = openWizard(size);
        wizard.Command1[next].click();
        QApplication::processEvents();
        const double ours = secondsOf([&] { wizard.Command1[finish].click(); });
        const std::string made = activeText().text();
        activeText().setText("");
        QApplication::processEvents();
        comparison.add(ours, secondsOf([&] { insertBare(size); }));
        if (made != activeText().text()) state.SkipWithError("the outcome is wrong");
    }
    countCells(state);
}
BENCHMARK(MakeAndInsertTable)->Arg(63)->Arg(125)->Arg(250)->UseManualTime()->Unit(benchmark::kMillisecond);

/// From Next on the first page until the grid has been painted.
void BuildAndShowCells(benchmark::State& state) {
    program();
    for (auto step : state) {
        TableWizard& wizard = openWizard(static_cast<int>(state.range(0)));
        state.SetIterationTime(secondsOf([&] {
            for (int page = 0; page < 2; ++page) wizard.Command1[next].click();
        }));
        wizard.Command1[cancel].click();
        QApplication::processEvents();
    }
    countCells(state);
}
BENCHMARK(BuildAndShowCells)->Arg(63)->Arg(125)->Arg(250)->UseManualTime()->Unit(benchmark::kMillisecond);

void EditCell(benchmark::State& state) {
    program();
    TableWizard& wizard = openWizard(static_cast<int>(state.range(0)));
    for (int page = 0; page < 2; ++page) wizard.Command1[next].click();
    for (auto step : state) {
        wizard.txtCellText.setSelText("x");
        QApplication::processEvents();
    }
    wizard.Command1[cancel].click();
    countCells(state);
}
BENCHMARK(EditCell)->Arg(63)->Arg(125)->Arg(250)->Iterations(500)->Unit(benchmark::kMillisecond);

/// An arrow key in the grid.
void GoToCell(benchmark::State& state) {
    program();
    TableWizard& wizard = openWizard(static_cast<int>(state.range(0)));
    for (int page = 0; page < 2; ++page) wizard.Command1[next].click();
    int column = 0;
    for (auto step : state) {
        column = 1 - column;
        wizard.grid1.move(0, column);
        QApplication::processEvents();
    }
    wizard.Command1[cancel].click();
    countCells(state);
}
BENCHMARK(GoToCell)->Arg(63)->Arg(250)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
