// The whole program offscreen: what a switch of tabs costs among many documents, and what Quick File pays for a
// large directory. Times are those until the window has been brought up to date.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <filesystem>
#include <fstream>

#include "core/enablement.h"
#include "core/file_open.h"
#include "core/frame.h"
#include "core/startup.h"
#include "platform/paths.h"
#include "platform/qt/qt_platform.h"
#include "support/settings.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

/// The program, started in a directory of its own.
class Program {
public:
    Program() : directory_(temporaryDirectory() + "/bench") {
        for (const char* name : {"/program/Templates", "/settings", "/many"}) fs::create_directories(directory_ + name);
        directories_ = std::make_unique<ScopedDirectories>(directory_ + "/program", directory_ + "/settings");
        setenv("XDG_RUNTIME_DIR", (directory_ + "/settings").c_str(), 1);
        SaveSetting(application, "User", "LCase", "False");
        startKelvor();
    }

    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(directory_ + "/" + name) << text;
        return directory_ + "/" + name;
    }
    std::string path(const std::string& name) const { return directory_ + "/" + name; }

private:
    std::string directory_;
    std::unique_ptr<ScopedDirectories> directories_;
    qt::QtPlatform platform_;
};

Program& program() {
    static auto* running = new Program;
    return *running;
}

/// Opens documents until there are `wanted`.
void openDocuments(std::size_t wanted) {
    for (std::size_t count = mainForm().TabStrip1.count(); count < wanted; ++count) {
        const std::string name = "page" + std::to_string(count) + ".htm";
        fileOpen(program().write(name, "<HTML>\r\n<BODY>\r\n</BODY>\r\n</HTML>\r\n"), false);
    }
    enableMenuItems();
    QApplication::processEvents();
}

/// From the click on a tab until commands, window and focus have followed; with `paint` until the window shows it.
template <bool paint>
void SwitchTabs(benchmark::State& state) {
    openDocuments(static_cast<std::size_t>(state.range(0)));
    TabStrip& tabs = mainForm().TabStrip1;
    const std::string first = tabs.tabs().front().key;
    const std::string last = tabs.tabs().back().key;
    bool atFirst = false;
    for (auto step : state) {
        atFirst = !atFirst;
        tabs.click(atFirst ? first : last);
        if (!paint) state.PauseTiming();
        QApplication::processEvents();
        if (!paint) state.ResumeTiming();
    }
}
BENCHMARK(SwitchTabs<false>)->Arg(2)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK(SwitchTabs<true>)->Arg(2)->Arg(200)->Unit(benchmark::kMillisecond);

void ListDirectory(benchmark::State& state) {
    FileList& list = mainForm().File1;
    for (int index = 0; index < state.range(0); ++index)
        program().write("many/Page number " + std::to_string(index) + ".html", "");
    list.setPath(program().path("many"));
    for (auto step : state) {
        list.Refresh();
        QApplication::processEvents();
    }
    state.counters["files"] = static_cast<double>(list.list().size());
}
BENCHMARK(ListDirectory)->Arg(2'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor

int main(int argumentCount, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argumentCount, arguments);
    const QApplication application(argumentCount, arguments);
    kelvor::program();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
