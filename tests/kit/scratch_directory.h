// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace kelvor {

/// A directory for one test, gone at its end. Reads and writes with none of the code under test.
class ScratchDirectory {
public:
    explicit ScratchDirectory(const std::string& base = testing::TempDir())
        : path_(std::filesystem::path(base) / "kelvor-scratch-XXXXXX") {
        if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no directory for tests: " + path_);
    }
    ~ScratchDirectory() {
        std::error_code failure;
        std::filesystem::remove_all(path_, failure);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::string& path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(*this / name, std::ios::binary) << bytes;
        return *this / name;
    }
    std::string read(const std::string& name) const {
        std::ifstream file(*this / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::size_t entryCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
    }

private:
    std::string path_;
};

/// Where files never wait for a disk, if there is such a place.
inline std::string memoryDisk() {
    return access("/dev/shm", W_OK) == 0 ? "/dev/shm" : testing::TempDir();
}

/// How many files this process has open.
inline std::size_t openFileCount() {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

}  // namespace kelvor
