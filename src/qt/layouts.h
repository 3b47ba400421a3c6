// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

class QWidget;

namespace kelvor::qt {

/// Fills an empty window with the widgets of a form's layout file.
/// @return false when there is no such layout, or it is made for another class of window
bool setUpLayout(const std::string& form, QWidget& window);

}  // namespace kelvor::qt
