// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kelvor {

/// A set of bytes as cheap as one: those that equal `value` once the bits of `mask` are set in them. With the
/// mask 0x20 it is a letter in both cases.
struct ByteClass {
    uint8_t mask = 0;
    uint8_t value = 0;

    bool holds(char byte) const { return (static_cast<uint8_t>(byte) | mask) == value; }
    /// Widens the class so that it holds `byte` too; it may come to hold others.
    void add(char byte);
};

/// How much of ordinary page text the class lets through; smaller is rarer. For choosing, not for counting.
int frequencyOf(const ByteClass& bytes);

/// Two byte classes at a fixed distance: rare enough together that nearly each place found is a match.
struct BytePair {
    ByteClass first;
    ByteClass second;
    /// From the first byte to the second; 0 when there is one class only.
    std::size_t distance = 0;
};

/// The first place in [from, to) of `text` where the pair stands, the second byte inside `text` before `to` too;
/// npos when there is none.
std::size_t findPair(std::string_view text, std::size_t from, std::size_t to, const BytePair& pair);

}  // namespace kelvor
