// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string_view>

namespace kelvor {

/// Where the first byte from `position` on stands that is not ASCII; the end of `bytes` when there is none.
std::size_t skipAscii(std::string_view bytes, std::size_t position);

/// Whether `bytes` are ASCII alone, which all encodings but UTF-16 hold alike.
bool isAscii(std::string_view bytes);

/// Whether `bytes` are well-formed UTF-8: no stray, overlong or surrogate form.
bool isValidUtf8(std::string_view bytes);

}  // namespace kelvor
