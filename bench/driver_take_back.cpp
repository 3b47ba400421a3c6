// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/take_back.h"
#include "bench/driver_task.h"

namespace kelvor::bench {

namespace {

/// From the first look at the files to the last one put back; the result is what the form then says of them.
TaskResult takeBackTask(const std::vector<std::string>& /*arguments*/) {
    BatchDirectory batches;
    const auto number = batches.latest();
    const auto record = batches.record(number);
    if (!record) return {.result = "none"};
    TakeBack& form = toolForm<TakeBack>();
    form.setRun(std::move(batches), number, *record);
    form.load();
    TaskResult done = measured([&] {
        form.activated.raise();
        if (form.cmdTakeBack.enabled()) form.cmdTakeBack.click();
    });
    done.result = form.lblCounts.caption();
    form.unload();
    return done;
}

const RegisteredTask task("take_back", "", takeBackTask);

}  // namespace

}  // namespace kelvor::bench
