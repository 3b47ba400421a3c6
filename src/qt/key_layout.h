// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace kelvor::qt {

/// Where the upper row's keys 1, 2, ... 9, 0 are on X11 and Wayland, whatever the layout prints on them.
constexpr unsigned int firstDigitScanCode = 10;

/// The letter that a US keyboard has on the key of that scan code, 'A' to 'Z'; 0 when it has none there.
char letterAtPlace(unsigned int scanCode);

/// Whether the keyboard's layout in force has none of the Latin letters (unshifted); nothing where no X server
/// can be asked.
std::optional<bool> lacksLatinLetters();

}  // namespace kelvor::qt
