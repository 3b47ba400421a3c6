// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "base/error.h"

namespace kelvor {

/// The number that digits with at most one point among them are, as a field for numbers has them, or a "-" and such
/// digits. A text of any other kind is an error 13, a number too large an error 6.
double typedNumber(std::string_view text);

/// The error 13 of a text that is to be a number and is none.
Error notANumberError(std::string_view text);

}  // namespace kelvor
