// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct XXH3_state_s;

namespace kelvor {

/// What tells the bytes of one file from those of another. Nobody who means harm is kept out by it.
struct ContentHash {
    std::uint64_t low = 0;
    std::uint64_t high = 0;

    bool operator==(const ContentHash&) const = default;
};

ContentHash hashOf(std::string_view bytes);

/// The hash of bytes that come part by part.
class ContentHasher {
public:
    ContentHasher();
    ~ContentHasher();
    ContentHasher(const ContentHasher&) = delete;
    ContentHasher& operator=(const ContentHasher&) = delete;

    void add(std::string_view bytes);
    /// Of all that was added.
    ContentHash hash() const;

private:
    struct Free {
        void operator()(XXH3_state_s* state) const;
    };
    std::unique_ptr<XXH3_state_s, Free> state_;
};

/// Of the library that makes the hashes.
std::string xxhashVersion();

}  // namespace kelvor
