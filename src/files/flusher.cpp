// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/flusher.h"

#include <cerrno>
#include <chrono>

#include "files/regular_file.h"

namespace kelvor {

Flusher::~Flusher() {
    if (!thread_.joinable()) return;
    descriptor_ = -1;
    asked_.release();
    thread_.join();
}

bool Flusher::flush(int descriptor, const Step& step) {
    constexpr std::chrono::milliseconds patience{10};
    if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
    descriptor_ = descriptor;
    asked_.release();
    try {
        while (!answered_.try_acquire_for(patience)) step();
    } catch (...) {
        // The caller closes the file next.
        answered_.acquire();
        throw;
    }
    errno = failure_;
    return failure_ == 0;
}

void Flusher::run() {
    for (;;) {
        asked_.acquire();
        if (descriptor_ < 0) return;
        failure_ = kelvor::flush(descriptor_) ? 0 : errno;
        answered_.release();
    }
}

}  // namespace kelvor
