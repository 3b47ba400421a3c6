// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "base/error.h"
#include "files/system_calls.h"
#include "tests/kit/scratch_directory.h"

namespace kelvor {

/// Calls of which the one of a given number does something else: it fails, or ends the process.
struct Saboteur {
    int at = 0;
    bool fromThenOn = false;
    int code = 0;
    bool kill = false;
    /// What one call reads or writes at most.
    std::size_t mostBytes = 1 << 20;

    int count = 0;
    std::string firstHit;

    bool strikes(const char* call) {
        ++count;
        if (at == 0 || count < at || (count > at && !fromThenOn)) return false;
        if (kill) ::kill(getpid(), SIGKILL);
        if (firstHit.empty()) firstHit = call;
        errno = code;
        return true;
    }

    template <typename... Calls>
    void sabotage(const char* name, Calls&... calls) {
        const auto spoil = [&](auto& call) {
            call = [this, name, call](auto... arguments) { return strikes(name) ? -1 : call(arguments...); };
        };
        (spoil(calls), ...);
    }

    SystemCalls calls() {
        auto calls = kernelCalls();
        calls.pread = [this](int descriptor, void* bytes, std::size_t size, off_t offset) {
            return ::pread(descriptor, bytes, std::min(size, mostBytes), offset);
        };
        calls.pwrite = [this](int descriptor, const void* bytes, std::size_t size, off_t offset) {
            return ::pwrite(descriptor, bytes, std::min(size, mostBytes), offset);
        };
        // Thousands of saves need not reach the disk.
        calls.fsync = [](int) { return 0; };
        calls.fdatasync = [](int) { return 0; };
        sabotage("fsync", calls.fsync);
        sabotage("fallocate", calls.fallocate);
        sabotage("another", calls.open, calls.stat, calls.lstat, calls.fstat, calls.pread, calls.pwrite,
                 calls.ftruncate, calls.fdatasync, calls.unlink, calls.lchown, calls.chmod, calls.fsetxattr,
                 calls.rename, calls.link);
        // A close that reports an error has closed.
        calls.close = [this](int descriptor) {
            const int result = ::close(descriptor);
            return strikes("close") ? -1 : result;
        };
        return calls;
    }
};

/// While the result lives a call fails, beside those that fail already; none does with the code 0.
inline ScopedSystemCalls failing(auto SystemCalls::*call, int code) {
    auto calls = systemCalls();
    if (code != 0) calls.*call = [code](auto...) { return errno = code, -1; };
    return ScopedSystemCalls(std::move(calls));
}

/// Where a file lies that this process has open; of one that has gone, and of a pipe, in the kernel's words.
inline std::string pathOf(int descriptor) {
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor));
}

/// What `action` throws, as "number description"; nothing when it throws nothing.
inline std::string errorOf(const std::function<void()>& action) {
    try {
        action();
        return "";
    } catch (const Error& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
}

/// Runs `steps` in a process of its own, which may end in any way; its status as waitpid gives it.
inline int inChild(const std::function<int()>& steps) {
    fflush(stdout);
    const auto child = fork();
    if (child == 0) {
        const int result = steps();
        fflush(stdout);
        _exit(result);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
}

/// Runs `steps` with the saboteur's calls and sees that no file stays open. Whether they were killed.
inline bool isKilledIn(Saboteur& saboteur, const std::function<void()>& steps) {
    const auto openBefore = openFileCount();
    const auto run = [&] {
        const ScopedSystemCalls scope(saboteur.calls());
        steps();
        return 0;
    };
    const bool killed = saboteur.kill && WIFSIGNALED(inChild(run));
    if (!saboteur.kill) run();
    EXPECT_EQ(openFileCount(), openBefore);
    return killed;
}

/// The number of the user that owns nothing, and of the group.
constexpr uid_t nobody = 65534;

/// The same as a user whom modes bind; root becomes one. What a failed expectation says is seen, its failure shows in
/// the status.
inline int asOrdinaryUser(const std::function<void()>& steps) {
    return inChild([&] {
        const bool changed =
            geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
        if (changed) steps();
        return changed && !testing::Test::HasFailure() ? 0 : 1;
    });
}

}  // namespace kelvor
