// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/compressed.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

namespace kelvor {
namespace {

constexpr std::size_t most = 1 << 20;

std::string randomBytes(std::size_t size) {
    std::mt19937 random(7);
    std::string bytes;
    while (bytes.size() < size) bytes += static_cast<char>(random());
    return bytes;
}

TEST(Compressed, GivesBackEveryByteAndNoMoreThanIsAllowed) {
    for (const std::string& bytes :
         {std::string(), std::string("\0\r\n\xFF\x1A", 5), std::string(most, 'x'), randomBytes(70'000)}) {
        const auto data = compressed(bytes);
        EXPECT_LT(data.size(), std::min(bytes.size(), std::size_t{70'000}) + 100);
        EXPECT_EQ(decompressed(data, bytes.size()), bytes);
        EXPECT_EQ(decompressed(data, bytes.size() - 1).has_value(), bytes.empty());
    }
}

/// Cut at every byte, with more behind it, with every bit wrong; some bits of a head mean nothing to the library.
TEST(Compressed, NeverGivesOtherBytesForDamagedData) {
    const std::string bytes = "<html>" + randomBytes(300) + std::string(5000, ' ');
    auto data = compressed(bytes);
    for (std::size_t size = 0; size < data.size(); ++size)
        EXPECT_EQ(decompressed(data.substr(0, size), most), std::nullopt);
    for (const std::string& more : {std::string(1, '\0'), data})
        EXPECT_EQ(decompressed(data + more, most), std::nullopt);
    int given = 0;
    for (std::size_t bit = 0; bit < data.size() * CHAR_BIT; ++bit) {
        const auto flip = [&] { data[bit / CHAR_BIT] ^= static_cast<char>(1 << bit % CHAR_BIT); };
        flip();
        const auto back = decompressed(data, most);
        EXPECT_EQ(back.value_or(bytes), bytes) << bit;
        given += back ? 1 : 0;
        flip();
    }
    EXPECT_LT(given, 10);
    // Heads: to be passed over, of 2^62 bytes, of no told size and the largest window.
    for (const std::string& hostile : {randomBytes(1000), std::string("\x50\x2A\x4D\x18\0\0\0\0", 8),
                                       std::string("\x28\xB5\x2F\xFD\xE4\0\0\0\0\0\0\0\x40\x01\0\0", 16),
                                       std::string("\x28\xB5\x2F\xFD\x04\xFF\x01\0\0\0\0\0\0", 13)})
        EXPECT_EQ(decompressed(hostile, most), std::nullopt);
}

}  // namespace
}  // namespace kelvor
