// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

namespace kelvor {

/// A character of the special character table.
struct SpecialCharEntry {
    std::string character;  ///< UTF-8; the two letters "TM" in the last row
    std::string entity;     ///< with its "&" and ";"
    int convertible = 0;    ///< 1 when bulk conversion rewrites it, 0 when it is only offered for insertion
};

/// The special characters in the order in which they are listed and converted; empty rows before initSpecialChars().
inline std::array<SpecialCharEntry, 70> specialChars;

/// Fills `specialChars`. Called once at start.
void initSpecialChars();

}  // namespace kelvor
