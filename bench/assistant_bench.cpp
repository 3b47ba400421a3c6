// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs that begin with a long list, from the command until their window shows it: the Link Manager with 5,000
// links, and the Script Assistant over 10,000 files, of which `bare_ms` is what the bare walk takes in the same run,
// `ratio` the whole by that, `inserts` how often rows were told to the window.

#include <benchmark/benchmark.h>

#include <QAbstractItemModel>
#include <QTreeView>
#include <filesystem>
#include <stdexcept>

#include "KVFileSystem/dir_walker.h"
#include "assistants/link_manager.h"
#include "batch/script_assistant.h"
#include "bench/comparison.h"
#include "bench/program.h"
#include "html/link_tag.h"
#include "support/user_settings.h"

namespace kelvor::bench {
namespace {

constexpr int linkCount = 5'000;
constexpr int directoryCount = 100;
constexpr int filesEach = 100;

void OpenTheLinkManager(benchmark::State& state) {
    program().open("page.htm", "");
    for (int link = 0; link < linkCount; ++link) {
        const std::string name = std::to_string(link * 7919 % linkCount);
        user::links.store("link " + name, linkTag({.address = "www.example.com/" + name, .description = "Page"}));
    }
    std::size_t rows = 0;
    for (auto step : state) {
        mnuInsert_Links_Click();
        QApplication::processEvents();
        state.PauseTiming();
        rows = toolForm<LinkManager>().ListView1.count();
        toolForm<LinkManager>().unload();
        state.ResumeTiming();
    }
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(OpenTheLinkManager)->Unit(benchmark::kMillisecond);

/// 10,000 empty files in directories of 100.
std::string scriptTree() {
    std::string tree = program().path("scripts");
    for (int directory = 0; directory < directoryCount; ++directory) {
        const std::string name = tree + "/" + std::to_string(directory);
        std::filesystem::create_directories(name);
        for (int file = 0; file < filesEach; ++file) std::ofstream(name + "/" + std::to_string(file) + ".js");
    }
    return tree;
}

QTreeView& shownList(const char* name) {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (auto* list = window->findChild<QTreeView*>(name); list && list->model()) return *list;
    throw std::runtime_error(std::string(name) + " is not shown");
}

void GatherScripts(benchmark::State& state) {
    const std::string tree = scriptTree();
    program().open("page.htm", "");
    mnuInsert_Scripts_Click();
    ScriptAssistant& form = toolForm<ScriptAssistant>();
    form.lblFolder.setCaption(tree);
    form.chkSubDir.setValue(true);
    QApplication::processEvents();
    int inserts = 0;
    const QTreeView& list = shownList("lstList");
    const auto counting =
        QObject::connect(list.model(), &QAbstractItemModel::rowsInserted, &list, [&inserts] { ++inserts; });
    DirWalker walker;
    Comparison comparison(state);
    walker.ItemFound = [](const std::string& path, const std::string&, bool&) { benchmark::DoNotOptimize(&path); };
    for (auto step : state) {
        const double ours = secondsOf([&] { form.cmdGather.click(); });
        comparison.add(ours, secondsOf([&] { walker.Walk(tree, "*.js", 0); }));
    }
    state.counters["rows"] = static_cast<double>(form.lstList.count());
    state.counters["inserts"] = inserts / static_cast<double>(state.iterations());
    QObject::disconnect(counting);
    form.unload();
}
BENCHMARK(GatherScripts)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvor::bench
