// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "text/keyed_collection.h"

namespace kelvor {

/// Fills the frame's four insert lists.
void loadComboBoxes();

/// Adds the user's stored strings to `userStrings` and to the frame's list.
void setUpUStrings();

/// The lists' choices: each inserts at the selection and goes back to its heading entry.
void Combo1_Click();

void Combo2_Click();

void Combo3_Click();

void Combo4_Click();

/// The user's own strings, each under its label.
inline KeyedCollection<std::string> userStrings;

/// As before the start: none.
void resetUserStrings();

}  // namespace kelvor
