// SPDX-License-Identifier: GPL-3.0-or-later
#include <stdexcept>

#include "batch/extended_find.h"
#include "bench/driver_task.h"

namespace kelvor::bench {

namespace {

/// From Begin to the filled list of results; the result is the sum of all counts.
TaskResult extendedFindTask(const std::vector<std::string>& arguments) {
    ExtendedFind& form = toolForm<ExtendedFind>();
    form.load();
    form.lblDirFolder.setCaption(arguments.at(0));
    form.rtbFind.setText(arguments.at(1));
    form.chkCase.setValue(arguments.at(2) == "matched");
    form.chkSubDir.setValue(true);
    auto done = measured([&] { form.cmdBegin.click(); });
    if (form.ListView1.count() == 0) throw std::runtime_error("no file was searched");
    std::size_t sum = 0;
    for (const auto& row : form.ListView1.rows())
        if (row.cells.at(1) != "Error") sum += std::stoull(row.cells.at(1));
    done.result = std::to_string(sum);
    form.unload();
    return done;
}

const RegisteredTask task("extended_find", "TREE TEXT matched|ignored", extendedFindTask);

}  // namespace

}  // namespace kelvor::bench
