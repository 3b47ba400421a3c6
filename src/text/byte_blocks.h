// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kelvor {

/// Eight bytes as one number, the first one lowest on most machines.
inline std::uint64_t wordAt(std::string_view bytes, std::size_t position) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + position, sizeof word);
    return word;
}

/// Bytes that are compared all at once: a comparison gives -1 for each byte where it holds, and 0 elsewhere.
using ByteBlock = signed char __attribute__((vector_size(16)));

inline ByteBlock blockAt(const char* bytes) {
    ByteBlock block;
    std::memcpy(&block, bytes, sizeof block);
    return block;
}

/// How often a comparison held.
class BlockCount {
public:
    void add(ByteBlock held) {
        counts_ -= held;
        if (++added_ == mostOfAByte) collect();
    }
    std::size_t total() {
        collect();
        return total_;
    }

private:
    static constexpr int mostOfAByte = 127;

    void collect() {
        for (std::size_t i = 0; i < sizeof counts_; ++i) total_ += static_cast<std::size_t>(counts_[i]);
        counts_ = ByteBlock{};
        added_ = 0;
    }

    ByteBlock counts_{};
    int added_ = 0;
    std::size_t total_ = 0;
};

}  // namespace kelvor
