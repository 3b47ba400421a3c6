// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kelvor {

class EditControl;

/// Makes `text` the whole text of `control` by one write, from the first byte that differs to the last, so that an undo
/// leads back to that place. Nothing is written when nothing differs.
/// @param text  UTF-8, no view of the control's own text
void changeText(EditControl& control, std::string_view text);

}  // namespace kelvor
