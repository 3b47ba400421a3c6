// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// The value of hexadecimal digits in either case: 0 for no digits, -1 when there is another character. A value of
/// more than 31 bits is an error 6.
int hexToLong(std::string_view text);

/// Six hexadecimal digits of a 24-bit value; more than 24 bits are an error 5. `value` is used up: the last
/// digit's value stays in it.
std::string longToHex(int& value);

/// "RRGGBB".
std::string colorToHtml(int value);

/// The colour of a text "#RRGGBB"; white for any that does not name one so, such as "", "(n/a)" and "silver".
int sampleColor(std::string_view text);

/// Black or white, whichever can be read on `color`. All have red in the low byte.
int legibleOn(int color);

}  // namespace kelvor
