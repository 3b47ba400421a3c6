// The edit controls against the bare Scintilla calls that do the same work. Each row measures both in one run:
// "Time" is the edit control's, `bare_ms` the other's, `ratio` the first by the second. The iterations are fixed,
// since the time that counts is that of one side only.

#include <Qsci/qsciscintillabase.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <QKeyEvent>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/form.h"
#include "platform/qt/scintilla_edit.h"
#include "platform/text_buffer.h"

namespace kelvor {
namespace {

using Sci = QsciScintillaBase;
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Lines of 60 bytes with one match each, CR LF at their ends.
std::string lines(int count) {
    const std::string line = "<TD ALIGN=\"left\"><FONT SIZE=\"2\">Some table text</FONT></TD>\r\n";
    std::string text;
    text.reserve(line.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) text += line;
    return text;
}

constexpr int linesOf12Megabytes = 200'000;
constexpr int linesOf100Megabytes = 1'640'000;
const std::string oldText = "size=\"2\"";
const std::string newText = "SIZE=\"+1\"";

/// Scintilla with as little around it as the work allows.
class BareScintilla : public Sci {
public:
    BareScintilla() {
        SendScintilla(SCI_SETCODEPAGE, static_cast<long>(SC_CP_UTF8));
        SendScintilla(SCI_SETMODEVENTMASK, 0L);
    }
    void append(const std::string& text) { send(SCI_APPENDTEXT, text); }
    long send(unsigned int message, const std::string& text) {
        return SendScintilla(message, static_cast<uintptr_t>(text.size()), text.data());
    }
};

/// Both times of all iterations, in seconds.
class Comparison {
public:
    explicit Comparison(benchmark::State& state) : state_(state) {}
    ~Comparison() {
        state_.counters["bare_ms"] = benchmark::Counter(bare_ * 1000, benchmark::Counter::kAvgIterations);
        state_.counters["ratio"] = ours_ / bare_;
    }
    Comparison(const Comparison&) = delete;
    Comparison& operator=(const Comparison&) = delete;

    void add(double ours, double bare) {
        state_.SetIterationTime(ours);
        ours_ += ours;
        bare_ += bare;
    }

private:
    benchmark::State& state_;
    double ours_ = 0;
    double bare_ = 0;
};

double bareReplaceAll(const std::string& text) {
    BareScintilla bare;
    bare.append(text);
    const auto start = Clock::now();
    bare.SendScintilla(Sci::SCI_BEGINUNDOACTION);
    long from = 0;
    for (;;) {
        bare.SendScintilla(Sci::SCI_SETTARGETRANGE, static_cast<unsigned long>(from),
                           bare.SendScintilla(Sci::SCI_GETLENGTH));
        const long found = bare.send(Sci::SCI_SEARCHINTARGET, oldText);
        if (found < 0) break;
        bare.send(Sci::SCI_REPLACETARGET, newText);
        from = found + static_cast<long>(newText.size());
    }
    bare.SendScintilla(Sci::SCI_ENDUNDOACTION);
    return secondsSince(start);
}

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
}  // namespace kelvor

int main(int argumentCount, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
