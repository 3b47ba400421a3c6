// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "batch/multi.h"
#include "bench/driver_task.h"
#include "bench/unflushed.h"
#include "html/special_chars.h"

namespace kelvor::bench {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> pagesIn(const std::string& tree) {
    std::vector<std::string> pages;
    for (const auto& entry : fs::recursive_directory_iterator(tree)) {
        if (!entry.is_symlink() && entry.is_regular_file() && entry.path().extension() == ".html")
            pages.push_back(entry.path());
    }
    if (pages.empty()) throw std::runtime_error("no page in " + tree);
    return pages;
}

void addPairs(Multi& form, const std::string& pair) {
    if (pair == "prefilled") return form.cmdAddSC.click();
    const auto equals = pair.find('=');
    form.txtFind.setText(pair.substr(0, equals));
    form.txtReplace.setText(pair.substr(equals + 1));
    form.cmdAdd.click();
    form.chkCase.setValue(true);
}

/// From Start to the last file; the result is the bytes of all pages then.
TaskResult multiTask(const std::vector<std::string>& arguments) {
    initSpecialChars();
    const auto pages = pagesIn(arguments.at(0));
    Multi& form = toolForm<Multi>();
    form.load();
    addPairs(form, arguments.at(1));
    form.lbxTargetFiles.addRows(pages);
    // No dialog has chosen the files, so none has set the button free.
    form.cmdStart.setEnabled(true);
    std::optional<Unflushed> unflushed;
    if (arguments.at(2) == "unflushed") unflushed.emplace();
    TaskResult done = measured([&] { form.cmdStart.click(); });
    std::uintmax_t bytes = 0;
    for (const auto& page : pages) bytes += fs::file_size(page);
    done.result = std::to_string(bytes);
    form.unload();
    return done;
}

const RegisteredTask task("multi", "TREE prefilled|FIND=REPLACEMENT flushed|unflushed", multiTask);

}  // namespace

}  // namespace kelvor::bench
