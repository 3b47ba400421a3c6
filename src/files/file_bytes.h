// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/step.h"
#include "files/system_calls.h"

namespace kelvor {

/// Reads one file after another into the same memory.
class FileBytes {
public:
    /// The bytes of a file that was found to be a regular one, good until the next call. Throws what readFile throws,
    /// and std::bad_alloc.
    /// @param step  called every few megabytes
    std::string_view read(const std::string& path, const Step& step);

private:
    OpenFile open(const std::string& path);
    void makeRoom(std::size_t size, std::size_t kept);

    struct Free {
        void operator()(char* memory) const { std::free(memory); }
    };

    std::unique_ptr<char, Free> memory_;
    std::size_t capacity_ = 0;
    std::string unsized_;                      ///< the bytes of a file that names no size
    std::string directory_;                    ///< of the last file, with "/" at its end
    std::optional<OpenFile> directoryHandle_;  ///< leads to it without the way along its path
};

}  // namespace kelvor
