// SPDX-License-Identifier: GPL-3.0-or-later
// The start of each benchmark program.

#include <benchmark/benchmark.h>

#include "bench/program.h"

int main(int argumentCount, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    kelvor::bench::startedProgram.reset();
    return 0;
}
