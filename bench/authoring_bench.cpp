// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that rewrite a whole document against the bare Scintilla calls that do the same work hit by hit. Each
// row measures both in one run: "Time" is the command's, until its window is up to date, `bare_ms` the other's, `ratio`
// the first by the second. `wait_ms` is the longest time that events had to wait while the command ran.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <algorithm>
#include <string>

#include "authoring/convert.h"
#include "authoring/strip_tags.h"
#include "bench/answers.h"
#include "bench/bare_scintilla.h"
#include "controls/text_buffer.h"
#include "frame/edit_window.h"
#include "frame/main_frame.h"
#include "html/special_chars.h"
#include "platform/platform.h"
#include "qt/qt_platform.h"
#include "qt/scintilla_edit.h"

namespace kelvor::bench {
namespace {

/// Watches how long events wait.
class WatchedScreen : public Screen {
public:
    explicit WatchedScreen(Screen& screen) : screen_(screen) {}
    void start() {
        last_ = Clock::now();
        longest_ = 0;
    }
    void beep() override {}
    void setMousePointer(MousePointer pointer) override { screen_.setMousePointer(pointer); }
    std::vector<std::string> fonts() override { return screen_.fonts(); }
    bool showsPictures(std::string_view suffix) override { return screen_.showsPictures(suffix); }
    std::shared_ptr<const Picture> loadPicture(const std::string& path) override { return screen_.loadPicture(path); }
    void setIdleWork(std::function<bool()> work) override { screen_.setIdleWork(std::move(work)); }
    void processEvents() override {
        longest_ = std::max(longest_, secondsSince(last_));
        screen_.processEvents();
        last_ = Clock::now();
    }
    double longestWait() const { return longest_; }

private:
    Screen& screen_;
    Clock::time_point last_;
    double longest_ = 0;
};

/// The frame with one document window in front, over Scintilla in real windows or over the memory alone.
template <typename Surface>
class Bench {
public:
    explicit Bench(const std::string& text) {
        setPlatform(&platform_);
        mainForm().load();
        platform_.windows.showModeless(mainForm(), false);
        window_ = std::make_unique<EditWindow>();
        window_->load();
        mainForm().mdi.show(*window_);
        window_->Text1.setText(text);
        QApplication::processEvents();
    }
    ~Bench() {
        releaseMainForm();
        window_.reset();
        setPlatform(nullptr);
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    EditControl& text() { return window_->Text1; }
    void show(Form& form) {
        form.load();
        platform_.windows.showModeless(form, true);
        QApplication::processEvents();
    }
    Answers dialogs;

private:
    static constexpr bool inWindows = std::is_same_v<Surface, qt::ScintillaEdit>;
    qt::QtPlatform desktop_;
    Platform& usual_ = kelvor::platform();
    QuietWindows noWindows_;

public:
    WatchedScreen screen{usual_.screen};

private:
    Platform platform_{dialogs,          screen,      usual_.shell,     usual_.clock,
                       usual_.clipboard, usual_.help, usual_.libraries, inWindows ? usual_.windows : noWindows_};
    std::unique_ptr<EditWindow> window_;
};

double bareStrip(const std::string& text) {
    BareScintilla bare(Sci::SCFIND_MATCHCASE);
    bare.append(text);
    const auto start = Clock::now();
    bare.SendScintilla(Sci::SCI_BEGINUNDOACTION);
    for (long open = bare.find("<", 0); open >= 0; open = bare.find("<", open)) {
        const long close = bare.find(">", open);
        if (close < 0) break;
        bare.SendScintilla(Sci::SCI_SETTARGETRANGE, static_cast<unsigned long>(open), close + 1);
        bare.send(Sci::SCI_REPLACETARGET, "");
    }
    bare.SendScintilla(Sci::SCI_ENDUNDOACTION);
    return secondsSince(start);
}

double bareConvert(const std::string& text) {
    BareScintilla bare(Sci::SCFIND_MATCHCASE);
    bare.append(text);
    const auto start = Clock::now();
    bare.SendScintilla(Sci::SCI_BEGINUNDOACTION);
    for (const SpecialCharEntry& row : specialChars) {
        if (row.convertible != 1) continue;
        for (long at = bare.find(row.character, 0); at >= 0;) {
            bare.send(Sci::SCI_REPLACETARGET, row.entity);
            at = bare.find(row.character, at + static_cast<long>(row.entity.size()));
        }
    }
    bare.SendScintilla(Sci::SCI_ENDUNDOACTION);
    return secondsSince(start);
}

/// Runs `command` and `bare` on the same text; `command` gives back whether the outcome was right. `dialog` gives the
/// form that is open then, if any.
template <typename Surface, typename Command>
void compare(benchmark::State& state, const std::string& text, double (*bare)(const std::string&), Command command,
             Form& (*dialog)() = nullptr) {
    Comparison comparison(state);
    double wait = 0;
    for (auto _ : state) {
        const double others = bare(text);
        Bench<Surface> bench(text);
        if (dialog) bench.show(dialog());
        bench.screen.start();
        const auto start = Clock::now();
        const bool right = command(bench);
        bench.screen.processEvents();
        const double seconds = secondsSince(start);
        if (!right) state.SkipWithError("the outcome is wrong");
        comparison.add(seconds, others);
        wait = std::max(wait, bench.screen.longestWait());
    }
    state.counters["wait_ms"] = wait * 1000;
}

/// `pieces` of twelve bytes, half of them plain, each with `tag` in it.
std::string pieces(int count, const std::string& tag) {
    std::string text;
    for (int i = 0; i < count; ++i) text += tag + (i % 8 == 0 ? "some wo\r\n" : "some word");
    return text;
}

/// The argument is a number of tags, each with its share of 12 bytes.
template <typename Surface>
void StripTags(benchmark::State& state) {
    const auto tags = static_cast<int>(state.range(0));
    compare<Surface>(state, pieces(tags, "<B>"), bareStrip, [&](auto& bench) {
        mnuTools_StripTags_Click();
        return bench.text().textLength() == 9 * tags;
    });
}
BENCHMARK(StripTags<qt::ScintillaEdit>)
    ->Arg(1'000'000)
    ->Arg(2'000'000)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(StripTags<TextBuffer>)
    ->Arg(1'000'000)
    ->Arg(2'000'000)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Tags that are never closed.
template <typename Surface>
void StripOpenTags(benchmark::State& state) {
    compare<Surface>(state, pieces(1'000'000, " <B"), bareStrip, [&](auto& bench) {
        mnuTools_StripTags_Click();
        return bench.text().textLength() == 12'000'000;
    });
}
BENCHMARK(StripOpenTags<qt::ScintillaEdit>)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(StripOpenTags<TextBuffer>)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The argument is a number of special characters in 12 MB.
template <typename Surface>
void ConvertCharacters(benchmark::State& state) {
    initSpecialChars();
    std::string text = pieces(1'000'000, "and");
    for (int hit = 0; hit < state.range(0); ++hit)
        text.replace(static_cast<std::size_t>(hit) * 120, 2,
                     specialChars[static_cast<std::size_t>(hit % 62)].character);
    const auto command = [&](auto& bench) {
        toolForm<Convert>().cmdConvert.click();
        return bench.dialogs.lastText == std::to_string(state.range(0)) + " replacements made.";
    };
    compare<Surface>(state, text, bareConvert, command, []() -> Form& { return toolForm<Convert>(); });
}
BENCHMARK(ConvertCharacters<qt::ScintillaEdit>)
    ->Arg(0)
    ->Arg(100'000)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ConvertCharacters<TextBuffer>)
    ->Arg(0)
    ->Arg(100'000)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
