// SPDX-License-Identifier: GPL-3.0-or-later
// Runs one task of the tools that work on whole directory trees, without a window:
// batch_driver TASK ARGUMENTS... prints one line: seconds elapsed, seconds of the processor,
// seconds of the longest pause between two rounds of waiting events, result.

#include <chrono>
#include <ctime>
#include <exception>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>

#include "base/event.h"
#include "bench/driver_task.h"
#include "bench/headless_platform.h"

namespace kelvor::bench {

namespace {

struct Entry {
    std::string arguments;
    Task task;
};

std::map<std::string, Entry>& tasks() {
    static std::map<std::string, Entry> entries;
    return entries;
}

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

std::ptrdiff_t wordCount(const std::string& text) {
    std::istringstream words(text);
    return std::distance(std::istream_iterator<std::string>(words), {});
}

int usage() {
    for (const auto& [name, entry] : tasks()) std::cerr << "batch_driver " << name << ' ' << entry.arguments << '\n';
    return 2;
}

int run(const std::vector<std::string>& words) {
    const auto found = words.empty() ? tasks().end() : tasks().find(words.front());
    if (found == tasks().end()) return usage();
    const std::vector<std::string> arguments(words.begin() + 1, words.end());
    if (std::ssize(arguments) != wordCount(found->second.arguments)) return usage();
    const HeadlessPlatform platform;
    setErrorSink([](const Error& error) { throw Error(error); });
    const auto done = found->second.task(arguments);
    std::cout << done.elapsed << '\t' << done.processor << '\t' << done.pause << '\t' << done.result << '\n';
    return 0;
}

}  // namespace

TaskResult measured(const std::function<void()>& work) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    const auto processor = processorSeconds();
    TaskResult done;
    forgetPauses();
    work();
    done.pause = endPause();
    done.processor = processorSeconds() - processor;
    done.elapsed = std::chrono::duration<double>(Clock::now() - start).count();
    return done;
}

RegisteredTask::RegisteredTask(const std::string& name, const std::string& arguments, Task task) {
    tasks()[name] = {arguments, std::move(task)};
}

}  // namespace kelvor::bench

int main(int argumentCount, char** arguments) {
    try {
        return kelvor::bench::run({arguments + 1, arguments + argumentCount});
    } catch (const std::exception& error) {
        std::cerr << "batch_driver: " << error.what() << '\n';
        return 1;
    }
}
