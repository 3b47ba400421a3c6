// SPDX-License-Identifier: GPL-3.0-or-later
#include "KVFileSystem/dir_walker.h"
#include "bench/driver_task.h"

namespace kelvor::bench {

namespace {

/// Finds the files below a directory whose names match; the result is how many.
TaskResult walk(const std::vector<std::string>& arguments) {
    std::vector<std::string> paths;
    auto done = measured([&] {
        DirWalker walker;
        walker.ItemFound = [&](const std::string& sPath, const std::string& sFileName, bool&) {
            paths.push_back(sPath + sFileName);
        };
        walker.Walk(arguments.at(0), arguments.at(1), 0);
    });
    done.result = std::to_string(paths.size());
    return done;
}

const RegisteredTask task("walk", "TREE PATTERN", walk);

}  // namespace

}  // namespace kelvor::bench
