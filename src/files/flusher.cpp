#include "files/flusher.h"

#include <cerrno>
#include <chrono>

#include "files/regular_file.h"

namespace kelvor {

Flusher::~Flusher() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    asked_.notify_one();
    thread_.join();
}

bool Flusher::flush(int descriptor, const Step& step) {
    if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
    {
        const std::lock_guard lock(mutex_);
        descriptor_ = descriptor;
    }
    asked_.notify_one();
    await(step);
    errno = failure_;
    return failure_ == 0;
}

void Flusher::await(const Step& step) {
    constexpr std::chrono::milliseconds patience(10);
    const auto isDone = [this] { return !descriptor_; };
    std::unique_lock lock(mutex_);
    while (!answered_.wait_for(lock, patience, isDone)) {
        lock.unlock();
        try {
            step();
        } catch (...) {
            // The caller closes the file next.
            lock.lock();
            answered_.wait(lock, isDone);
            throw;
        }
        lock.lock();
    }
}

void Flusher::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        asked_.wait(lock, [this] { return descriptor_ || ends_; });
        if (!descriptor_) return;
        const int descriptor = *descriptor_;
        lock.unlock();
        const int failure = kelvor::flush(descriptor) ? 0 : errno;
        lock.lock();
        failure_ = failure;
        descriptor_.reset();
        // Told outside the lock, or whom it wakes would wait for that at once.
        lock.unlock();
        answered_.notify_one();
        lock.lock();
    }
}

}  // namespace kelvor
