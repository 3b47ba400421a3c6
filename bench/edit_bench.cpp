// SPDX-License-Identifier: GPL-3.0-or-later
// The edit controls against the bare Scintilla calls that do the same work. Each row measures both in one run:
// "Time" is the edit control's, `bare_ms` the other's, `ratio` the first by the second. The iterations are fixed,
// since the time that counts is that of one side only.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <QKeyEvent>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/bare_scintilla.h"
#include "controls/form.h"
#include "controls/text_buffer.h"
#include "qt/scintilla_edit.h"

namespace kelvor::bench {
namespace {

constexpr int linesOf100Megabytes = 1'640'000;

double replaceAll(EditControl& edit, const std::string& text) {
    edit.setText(text);
    const auto start = Clock::now();
    {
        const EditControl::Batch batch(edit);
        int from = 0;
        for (int found = edit.Find(oldText, from); found >= 0; found = edit.Find(oldText, from)) {
            edit.setSelText(newText);
            from = edit.selStart();
        }
    }
    return secondsSince(start);
}

template <typename Surface>
void ReplaceInABatch(benchmark::State& state) {
    const std::string text = lines(linesOf12Megabytes);
    Form form("bench", "Bench");
    Comparison comparison(state);
    for (auto _ : state) {
        const double bare = bareReplaceAll(text);
        Surface edit(form, "Text1");
        comparison.add(replaceAll(edit, text), bare);
        if (edit.Find(oldText) >= 0) state.SkipWithError("a match was left");
    }
}
BENCHMARK(ReplaceInABatch<qt::ScintillaEdit>)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReplaceInABatch<TextBuffer>)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

template <typename Surface>
void UndoOfABatch(benchmark::State& state) {
    const std::string text = lines(linesOf12Megabytes);
    Form form("bench", "Bench");
    for (auto _ : state) {
        Surface edit(form, "Text1");
        replaceAll(edit, text);
        const auto start = Clock::now();
        edit.undo();
        state.SetIterationTime(secondsSince(start));
        if (edit.textView() != text) state.SkipWithError("the text is not the old one");
    }
}
BENCHMARK(UndoOfABatch<qt::ScintillaEdit>)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(UndoOfABatch<TextBuffer>)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

/// A key with all that follows from it, the paint included.
double typeCharacter(QWidget* widget) {
    const auto start = Clock::now();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x");
    QApplication::sendEvent(widget, &key);
    QApplication::processEvents();
    return secondsSince(start);
}

/// The argument is the place of the caret, in percent of 100 MB. The handler asks what the status panels ask.
void TypeInALargeText(benchmark::State& state) {
    const std::string text = lines(linesOf100Megabytes);
    const auto place = static_cast<int>(text.size() / 100 * static_cast<std::size_t>(state.range(0)));
    Form form("bench", "Bench");
    qt::ScintillaEdit edit(form, "Text1");
    edit.setText(text);
    edit.widget()->resize(800, 600);
    edit.widget()->show();
    edit.setSelStart(place);
    long asked = 0;
    edit.changed.connect([&] { asked += edit.characterCount() + edit.GetLineFromChar(edit.selStart()); });
    BareScintilla bare;
    bare.append(text);
    bare.resize(800, 600);
    bare.show();
    bare.SendScintilla(Sci::SCI_GOTOPOS, static_cast<long>(place));
    QApplication::processEvents();
    // The first key there moves the gap, in both.
    state.counters["first_ms"] = typeCharacter(edit.widget()) * 1000;
    typeCharacter(&bare);
    Comparison comparison(state);
    for (auto _ : state) comparison.add(typeCharacter(edit.widget()), typeCharacter(&bare));
    benchmark::DoNotOptimize(asked);
}
BENCHMARK(TypeInALargeText)->Arg(100)->Arg(50)->Iterations(20)->UseManualTime()->Unit(benchmark::kMillisecond);

double bareLoad(const std::filesystem::path& path) {
    BareScintilla bare;
    const auto start = Clock::now();
    std::string bytes(std::filesystem::file_size(path), '\0');
    std::ifstream(path, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bare.append(bytes);
    return secondsSince(start);
}

template <typename Surface>
void LoadALargeFile(benchmark::State& state) {
    const auto path = std::filesystem::temp_directory_path() / ("edit_bench_" + std::to_string(getpid()));
    std::ofstream(path, std::ios::binary) << lines(linesOf100Megabytes);
    Form form("bench", "Bench");
    Comparison comparison(state);
    for (auto _ : state) {
        const double bare = bareLoad(path);
        Surface edit(form, "Text1");
        const auto start = Clock::now();
        edit.LoadFile(path.string());
        benchmark::DoNotOptimize(edit.characterCount());
        comparison.add(secondsSince(start), bare);
    }
    std::filesystem::remove(path);
}
BENCHMARK(LoadALargeFile<qt::ScintillaEdit>)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadALargeFile<TextBuffer>)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
