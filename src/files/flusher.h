// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <semaphore>
#include <thread>

#include "base/step.h"

namespace kelvor {

/// Flushes files on a thread of its own: a busy disk can take half a second, and the user is to be heard meanwhile.
/// The thread begins with the first file and goes on to the next ones, since to start one costs as much as to write a
/// page. A process that is forked from this one has no such thread: there this one would wait for ever.
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

    /// What is written before one thread releases is read by the other after it has acquired.
    std::binary_semaphore asked_{0};
    std::binary_semaphore answered_{0};
    int descriptor_ = -1;  ///< to be flushed; -1 ends the thread
    int failure_ = 0;      ///< errno of the last flush, 0 when it succeeded
    std::thread thread_;
};

}  // namespace kelvor
