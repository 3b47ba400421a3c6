// SPDX-License-Identifier: GPL-3.0-or-later
// What it costs to see whether files have changed on the disk: "Time" is the look's, `bare_ms` that of the kernel's own
// answer about the same files, or of reading the file's bytes where they must be read; `ratio` the first by the second.

#include <sys/stat.h>

#include "bench/comparison.h"
#include "bench/program.h"
#include "core/document_manager.h"
#include "files/files.h"

namespace kelvor::bench {
namespace {

/// 100 MB of lines.
std::string largeText() {
    const std::string line = "<TD ALIGN=\"left\"><FONT SIZE=\"2\">Some table text</FONT></TD>\r\n";
    std::string text;
    while (text.size() < 100'000'000) text += line;
    return text;
}

const CDocumentManager::Documents& openDocuments(std::size_t wanted) {
    const auto& documents = documentManager().MyDocuments();
    while (documents.Count() < wanted)
        program().open("page" + std::to_string(documents.Count()) + ".htm",
                       "<HTML>\r\n<BODY>\r\n</BODY>\r\n</HTML>\r\n");
    return documents;
}

void touch(const std::string& path) {
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now());
}

/// The look at every open document; `touched`: after each file got a new time, so that each must be read.
template <bool touched>
void LookAtAllDocuments(benchmark::State& state) {
    program();
    const auto documents = openDocuments(static_cast<std::size_t>(state.range(0))).items();
    Comparison comparison(state);
    for (auto step : state) {
        if (touched)
            for (const auto& document : documents) touch(document->LongFileName());
        const auto start = Clock::now();
        for (const auto& document : documents) benchmark::DoNotOptimize(document->lookAtDisk());
        const double ours = secondsSince(start);
        const auto bare = Clock::now();
        struct stat status {};
        for (const auto& document : documents)
            benchmark::DoNotOptimize(stat(document->LongFileName().c_str(), &status));
        comparison.add(ours, secondsSince(bare));
    }
}
BENCHMARK(LookAtAllDocuments<false>)->Arg(200)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(LookAtAllDocuments<true>)->Arg(200)->UseManualTime()->Iterations(50)->Unit(benchmark::kMillisecond);

/// What the program does when it comes forward, with 200 documents open, until the window shows it.
void ComeForward(benchmark::State& state) {
    program();
    openDocuments(static_cast<std::size_t>(state.range(0)));
    for (auto step : state) {
        mainForm().keyboardCame.raise();
        QApplication::processEvents();
    }
}
BENCHMARK(ComeForward)->Arg(200)->Unit(benchmark::kMillisecond);

/// A large document in front whose file only got a new time.
void ComeForwardToTouchedFile(benchmark::State& state) {
    program().open("large.htm", largeText());
    const std::string path = program().path("large.htm");
    Comparison comparison(state);
    for (auto step : state) {
        touch(path);
        const double ours = secondsOf([] { mainForm().keyboardCame.raise(); });
        const auto bare = Clock::now();
        benchmark::DoNotOptimize(readFile(path));
        comparison.add(ours, secondsSince(bare));
    }
    mainForm().activeForm().unload();
}
BENCHMARK(ComeForwardToTouchedFile)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
