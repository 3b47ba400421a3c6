// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kelvor::bench {

/// What a task did, in words that a peer's result can be compared with, and the seconds that it took.
struct TaskResult {
    std::string result;
    double elapsed = 0;
    double processor = 0;
    double pause = 0;  ///< the longest one between two rounds of waiting events
};

/// Runs `work` and measures it; the result is still to be set.
TaskResult measured(const std::function<void()>& work);

using Task = std::function<TaskResult(const std::vector<std::string>& arguments)>;

/// A task of the driver. Each stands in a file driver_*.cpp of its own and enters itself:
/// `const RegisteredTask task("walk", "TREE PATTERN", walk);`
class RegisteredTask {
public:
    /// @param arguments  what the command line has after the task's name, parted by blanks; with more or fewer the task
    ///                   is not run
    RegisteredTask(const std::string& name, const std::string& arguments, Task task);
};

}  // namespace kelvor::bench
