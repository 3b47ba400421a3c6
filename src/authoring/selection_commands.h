// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// The commands that wrap the selection in a pair of tags; without one both tags go in at the caret.
void mnuRClick_Format_Bold_Click();
void mnuRClick_Format_Italics_Click();
void mnuRClick_Format_Underline_Click();
void mnuRClick_Format_Subscript_Click();
void mnuRClick_Center_Click();
void mnuRClick_Right_Click();
void mnuRClick_Comment_Click();
void mnu_RClick_Para_Click();

/// The commands that change the case of the selection. The caret then stands behind it.
void mnuRClick_TextCase_Lower_Click();
void mnuRClick_TextCase_Upper_Click();
void mnuRClick_Text_LfLet_Click();
void mnuRClick_Text_UfLet_Click();

/// The Format Text menu opens: its case commands need a selection.
void mnuTools_FormatText_Click();

enum class InitialCase { lower = 1, upper = 2 };

/// `text` with the first character of each word in the wanted case. Words begin at the start and behind every
/// `delimiter`, found in its exact case. For `upper` all other characters become lower case, for `lower` they stay.
/// A text that ends in the delimiter is an error 5.
std::string applyInitialCase(std::string_view text, std::string_view delimiter, InitialCase mode);

}  // namespace kelvor
