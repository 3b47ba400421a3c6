// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/flusher.h"

#include <cerrno>
#include <ctime>

#include "files/regular_file.h"

namespace kelvor {

namespace {

void await(sem_t& semaphore) {
    while (sem_wait(&semaphore) != 0) {
    }
}

/// Waits a few milliseconds at most; whether the semaphore was posted.
bool awaitBriefly(sem_t& semaphore) {
    constexpr long patience = 10'000'000;
    constexpr long second = 1'000'000'000;
    timespec end{};
    clock_gettime(CLOCK_MONOTONIC, &end);
    end.tv_nsec += patience;
    end.tv_sec += end.tv_nsec / second;
    end.tv_nsec %= second;
    return sem_clockwait(&semaphore, CLOCK_MONOTONIC, &end) == 0;
}

}  // namespace

Flusher::Flusher() {
    sem_init(&asked_, 0, 0);
    sem_init(&answered_, 0, 0);
}

Flusher::~Flusher() {
    if (thread_.joinable()) {
        descriptor_ = -1;
        sem_post(&asked_);
        thread_.join();
    }
    sem_destroy(&asked_);
    sem_destroy(&answered_);
}

bool Flusher::flush(int descriptor, const Step& step) {
    if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
    descriptor_ = descriptor;
    sem_post(&asked_);
    try {
        while (!awaitBriefly(answered_)) step();
    } catch (...) {
        // The caller closes the file next.
        await(answered_);
        throw;
    }
    errno = failure_;
    return failure_ == 0;
}

void Flusher::run() {
    for (;;) {
        await(asked_);
        if (descriptor_ < 0) return;
        failure_ = kelvor::flush(descriptor_) ? 0 : errno;
        sem_post(&answered_);
    }
}

}  // namespace kelvor
