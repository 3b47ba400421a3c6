// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "controls/tool_bar.h"

namespace kelvor {

/// The buttons of the four toolbars as they stand before anything has run, each bar in its order.
std::vector<ToolBar::Button> mainButtons();      ///< Toolbar1
std::vector<ToolBar::Button> helperButtons();    ///< Toolbar2
std::vector<ToolBar::Button> formButtons();      ///< Toolbar3
std::vector<ToolBar::Button> viewModeButtons();  ///< Toolbar4

}  // namespace kelvor
