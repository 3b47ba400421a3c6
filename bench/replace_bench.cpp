// Replace All of the Find and Replace dialog on the text of a shown window, against the bare target loop over the
// same text: "Time" is from the press of the button until the window shows the outcome, `bare_ms` the loop's, `ratio`
// the first by the second. CancelReplaceAll is how long a press of Cancel in the middle of a run waits for its
// question.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <memory>

#include "batch/find_replace.h"
#include "bench/bare_scintilla.h"
#include "core/enablement.h"
#include "core/file_open.h"
#include "core/frame.h"
#include "core/startup.h"
#include "platform/paths.h"
#include "platform/qt/qt_platform.h"
#include "support/settings.h"

namespace kelvor::bench {
namespace {

namespace fs = std::filesystem;

/// Answers what the dialog asks, and notes when the question came whether to cancel.
class Answers : public Dialogs {
public:
    Answer message(const Message& message) override {
        if (message.title != "Confirm cancel") return Answer::ok;
        asked = Clock::now();
        return Answer::yes;
    }
    std::string input(const InputRequest&) override { return {}; }
    std::vector<std::string> openFiles(const FileRequest&) override { return {}; }
    std::optional<std::string> saveFile(const FileRequest&) override { return {}; }
    std::optional<int> color() override { return {}; }
    std::optional<std::string> folder(const std::string&, const std::string&) override { return {}; }

    std::optional<Clock::time_point> asked;
};

/// The program in a directory of its own, with one document open; its message boxes answer themselves.
class Program {
public:
    Program() : directory_(temporaryDirectory() + "/bench") {
        for (const char* name : {"/program/Templates", "/settings"}) fs::create_directories(directory_ + name);
        directories_ = std::make_unique<ScopedDirectories>(directory_ + "/program", directory_ + "/settings");
        setenv("XDG_RUNTIME_DIR", (directory_ + "/settings").c_str(), 1);
        setPlatform(&platform_);
        SaveSetting(application, "User", "LCase", "False");
        startKelvor();
        std::ofstream(directory_ + "/page.htm") << "<HTML>";
        fileOpen(directory_ + "/page.htm", false);
        enableMenuItems();
        QApplication::processEvents();
    }

    EditControl& text() const { return mainForm().activeForm().Text1; }
    Answers answers;

private:
    std::string directory_;
    std::unique_ptr<ScopedDirectories> directories_;
    qt::QtPlatform desktop_;
    Platform& services_ = kelvor::platform();
    Platform platform_{answers,        services_.screen, services_.shell, services_.clock, services_.clipboard,
                       services_.help, services_.windows};
};

Program& program() {
    static auto* running = new Program;
    return *running;
}

double replaceAll(FindReplace& dialog) {
    const auto start = Clock::now();
    dialog.cmdReplaceAll.click();
    QApplication::processEvents();
    return secondsSince(start);
}

void ReplaceAll(benchmark::State& state) {
    const std::string text = lines(linesOf12Megabytes);
    FindReplace& dialog = findReplace();
    dialog.txtFindText.setText(oldText);
    dialog.txtReplace.setText(newText);
    Comparison comparison(state);
    for (auto step : state) {
        program().text().setText(text);
        QApplication::processEvents();
        comparison.add(replaceAll(dialog), bareReplaceAll(text));
        if (program().text().Find(oldText, 0) >= 0) state.SkipWithError("a match was left");
    }
}
BENCHMARK(ReplaceAll)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

void CancelReplaceAll(benchmark::State& state) {
    constexpr int millisecondsBefore = 50;
    const std::string text = lines(linesOf12Megabytes);
    FindReplace& dialog = findReplace();
    dialog.txtFindText.setText(oldText);
    dialog.txtReplace.setText(newText);
    for (auto step : state) {
        program().text().setText(text);
        program().answers.asked.reset();
        const auto pressed = Clock::now() + std::chrono::milliseconds(millisecondsBefore);
        QTimer::singleShot(std::chrono::milliseconds(millisecondsBefore), Qt::PreciseTimer, qApp,
                           [&] { dialog.cmdClose.click(); });
        replaceAll(dialog);
        if (!program().answers.asked) return state.SkipWithError("the run was over before the press");
        state.SetIterationTime(std::chrono::duration<double>(*program().answers.asked - pressed).count());
    }
}
BENCHMARK(CancelReplaceAll)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench

int main(int argumentCount, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argumentCount, arguments);
    const QApplication application(argumentCount, arguments);
    kelvor::bench::program();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
