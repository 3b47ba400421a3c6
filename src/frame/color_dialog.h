// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "controls/text_box.h"

namespace kelvor {

/// Lets the user choose a colour, from the one on that was chosen last. Red is in the low byte; nothing when the dialog
/// was cancelled.
/// @param title  "" for the dialog's own
std::optional<int> chooseColor(const std::string& title = {});

/// The same from the field's own back colour on, if it has one. The field shows what was chosen as "#RRGGBB" and as its
/// back colour.
std::optional<int> chooseColorFor(TextBox& field, const std::string& title = {});

}  // namespace kelvor
