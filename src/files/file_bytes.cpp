// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/file_bytes.h"

#include <fcntl.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "files/file_error.h"
#include "files/regular_file.h"

namespace kelvor {

namespace {

/// Bytes read at a time, few enough that the next step is near even on a slow disk.
constexpr std::size_t portion = std::size_t{1} << 20;
/// What is kept from one file to the next, for most pages need less and fresh memory costs more than reading them.
/// Also what the kernel takes for a large page; to give a gigabyte of small ones back takes a tenth of a second.
constexpr std::size_t leastCapacity = std::size_t{2} << 20;

}  // namespace

/// The files of one directory mostly come in a row; it is looked up once for all of them.
OpenFile FileBytes::open(const std::string& path) {
    const auto directoryLength = path.rfind('/') + 1;
    if (!directoryHandle_ || path.compare(0, directoryLength, directory_) != 0) {
        directory_ = path.substr(0, directoryLength);
        directoryHandle_.emplace(::open(directory_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    if (directoryHandle_->descriptor() < 0) {
        directoryHandle_.reset();
        throw fileError(errno, path);
    }
    // Never waits, should a pipe stand there by now.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const char* name = path.c_str() + directoryLength;
    return OpenFile(uninterrupted([&] { return ::openat(directoryHandle_->descriptor(), name, flags); }));
}

std::string_view FileBytes::read(const std::string& path, const Step& step) {
    const OpenFile file = open(path);
    const int descriptor = file.descriptor();
    struct stat status {};
    if (descriptor < 0 || systemCalls().fstat(descriptor, &status) != 0) throw fileError(errno, path);
    if (!S_ISREG(status.st_mode)) throw notRegularError(status.st_mode, path);
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size == 0) return unsized_ = readToEnd(descriptor, 0, path);
    if (capacity_ > leastCapacity) {
        memory_.reset();
        capacity_ = 0;
    }
    // One byte more than the size, so that the end shows in the same call.
    makeRoom(size + 1, 0);
    for (std::size_t length = 0;;) {
        const auto wanted = std::min(capacity_ - length, portion);
        const auto count = uninterrupted([&] {
            return systemCalls().pread(descriptor, memory_.get() + length, wanted, static_cast<off_t>(length));
        });
        if (count < 0) throw fileError(errno, path);
        length += static_cast<std::size_t>(count);
        const bool endShows = static_cast<std::size_t>(count) < wanted;
        if (count == 0 || (endShows && length == size)) return {memory_.get(), length};
        if (length == capacity_) makeRoom(2 * capacity_, length);
        step();
    }
}

/// Makes the memory hold `size` bytes, the first `kept` of them as they are.
void FileBytes::makeRoom(std::size_t size, std::size_t kept) {
    if (size <= capacity_) return;
    if (kept == 0) memory_.reset();
    capacity_ = 0;
    size = (size + leastCapacity - 1) / leastCapacity * leastCapacity;
    std::unique_ptr<char, Free> larger(static_cast<char*>(std::aligned_alloc(leastCapacity, size)));
    if (!larger) throw std::bad_alloc();
    madvise(larger.get(), size, MADV_HUGEPAGE);
    if (kept > 0) std::memcpy(larger.get(), memory_.get(), kept);
    memory_ = std::move(larger);
    capacity_ = size;
}

}  // namespace kelvor
