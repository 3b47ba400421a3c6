// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kelvor {

/// The number that digits with at most one point among them are, as a field for numbers has them, or a "-" and such
/// digits; a text of any other kind is an error 13.
double typedNumber(std::string_view text);

/// The nearest integer of 16 bits, the even one of two; beyond them error 6.
int toInteger(double number);

}  // namespace kelvor
