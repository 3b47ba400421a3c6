// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/typed_number.h"

#include <charconv>
#include <system_error>

#include "text/code_points.h"

namespace kelvor {

double typedNumber(std::string_view text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, fault] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    // "inf" and "nan" would pass otherwise.
    const bool hasWord = text.find_first_not_of("-0123456789.") != std::string_view::npos;
    if (fault == std::errc::invalid_argument || rest != end || hasWord) throw notANumberError(text);
    if (fault == std::errc::result_out_of_range) throw overflowError();
    return number;
}

Error notANumberError(std::string_view text) {
    return {error_number::typeMismatch, "Type mismatch: \"" + shortened(text) + "\""};
}

}  // namespace kelvor
