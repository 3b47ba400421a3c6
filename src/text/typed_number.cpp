// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/typed_number.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

#include "base/error.h"
#include "text/code_points.h"

namespace kelvor {

double typedNumber(std::string_view text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, fault] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (fault == std::errc::result_out_of_range) throw Error(error_number::overflow, "Overflow");
    if (fault != std::errc() || rest != end || text.find_first_not_of("-0123456789.") != std::string_view::npos)
        throw Error(error_number::typeMismatch, "Type mismatch: \"" + shortened(text) + "\"");
    return number;
}

int toInteger(double number) {
    const double rounded = std::nearbyint(number);
    using Limits = std::numeric_limits<int16_t>;
    if (rounded < Limits::min() || rounded > Limits::max()) throw Error(error_number::overflow, "Overflow");
    return static_cast<int>(rounded);
}

}  // namespace kelvor
