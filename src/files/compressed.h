// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelvor {

/// The bytes in less room, with a checksum. Throws std::bad_alloc.
std::string compressed(std::string_view bytes);

/// The bytes that `data` was made of; nothing when it is damaged, cut short or followed by anything, and when there are
/// more of them than `mostBytes`, which is as much memory as it takes. Throws std::bad_alloc.
std::optional<std::string> decompressed(std::string_view data, std::size_t mostBytes);

/// Of the library that compresses.
std::string zstdVersion();

}  // namespace kelvor
