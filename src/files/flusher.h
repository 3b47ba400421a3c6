#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include "base/step.h"

namespace kelvor {

/// Flushes files on a thread of its own: a busy disk can take half a second, and the user is to be heard meanwhile.
/// The thread begins with the first file and goes on to the next ones, since to start one costs as much as to write a
/// page. Not for a process that has been forked meanwhile.
class Flusher {
public:
    Flusher() = default;
    ~Flusher();
    Flusher(const Flusher&) = delete;
    Flusher& operator=(const Flusher&) = delete;

    /// Waits until the file's bytes are on the disk; false, and why in errno, when the disk reports an error.
    /// @param step  called every few milliseconds; when it throws, this still waits first
    bool flush(int descriptor, const Step& step);

private:
    void run();
    void await(const Step& step);

    std::mutex mutex_;
    std::condition_variable asked_;
    std::condition_variable answered_;
    std::optional<int> descriptor_;  ///< to be flushed; none when that is done
    int failure_ = 0;                ///< errno of the last flush, 0 when it succeeded
    bool ends_ = false;
    std::thread thread_;
};

}  // namespace kelvor
