// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "base/error.h"

namespace kelvor {

/// The nearest integer, the even one of two; what 16 bits with a sign do not hold is an error 6.
inline std::int16_t toInt16(double value) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double rounded = std::nearbyint(value);
    if (rounded < Limits::min() || rounded > Limits::max()) throw overflowError();
    return static_cast<std::int16_t>(rounded);
}

}  // namespace kelvor
