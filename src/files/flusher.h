// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <semaphore.h>

#include <thread>

#include "base/step.h"

namespace kelvor {

/// Flushes files on a thread of its own: a busy disk can take half a second, and the user is to be heard meanwhile.
/// The thread begins with the first file and goes on to the next ones, since to start one costs as much as to write a
/// page. A process forked from one that has flushed makes another of these.
class Flusher {
public:
    Flusher();
    ~Flusher();
    Flusher(const Flusher&) = delete;
    Flusher& operator=(const Flusher&) = delete;

    /// Waits until the file's bytes are on the disk; false, and why in errno, when the disk reports an error.
    /// @param step  called every few milliseconds; when it throws, this still waits first
    bool flush(int descriptor, const Step& step);

private:
    void run();

    /// What is written before one thread posts is read by the other after it has waited.
    sem_t asked_{};
    sem_t answered_{};
    int descriptor_ = -1;  ///< to be flushed; -1 ends the thread
    int failure_ = 0;      ///< errno of the last flush, 0 when it succeeded
    std::thread thread_;
};

}  // namespace kelvor
