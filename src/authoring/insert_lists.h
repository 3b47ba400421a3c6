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

/// Adds a string, to the frame's list too. A label that is there already is an error 457.
void addUserString(const std::string& label, const std::string& contents);
/// Takes a string away, and from the frame's list a row; the one that is not there is passed over.
void removeUserString(const std::string& label, int row);
/// The row of that label in the frame's list, or -1.
int userStringRow(const std::string& label);

/// As before the start: none.
void resetUserStrings();

}  // namespace kelvor
