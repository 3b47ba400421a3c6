// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "base/error.h"

namespace kelvor {

/// The value where 16 bits with a sign hold it; another is an error 6.
inline std::int16_t toInt16(int value) {
    const auto held = static_cast<std::int16_t>(value);
    if (held != value) throw overflowError();
    return held;
}

}  // namespace kelvor
