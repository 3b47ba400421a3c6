// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>

#include "batch/take_back.h"
#include "bench/driver_task.h"
#include "bench/unflushed.h"

namespace kelvor::bench {

namespace {

/// From the first look at the files to the last one put back; the result is what the form then says of them.
TaskResult takeBackTask(const std::vector<std::string>& arguments) {
    BatchDirectory batches;
    const auto run = batches.latest();
    if (!run) return {.result = "none"};
    TakeBack& form = toolForm<TakeBack>();
    form.setRun(std::move(batches), *run);
    form.load();
    std::optional<Unflushed> unflushed;
    if (arguments.at(0) == "unflushed") unflushed.emplace();
    TaskResult done = measured([&] {
        form.activated.raise();
        if (form.cmdTakeBack.enabled()) form.cmdTakeBack.click();
    });
    done.result = form.lblCounts.caption();
    form.unload();
    // What is left to do between events.
    while (removeSupersededFiles()) continue;
    return done;
}

const RegisteredTask task("take_back", "flushed|unflushed", takeBackTask);

}  // namespace

}  // namespace kelvor::bench
