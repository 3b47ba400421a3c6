// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

class QWidget;

namespace kelvor {
class Form;
}

namespace kelvor::qt {

/// Ties each control of `form` to the widget of its name in `window`, both ways, and the window to the form.
/// @return what is wrong with the layout: a widget that is missing or of another class, an input widget that
///         belongs to no control. What can be tied is tied all the same
std::vector<std::string> bindForm(Form& form, QWidget& window);

/// Takes the form off its window, which from now on tells nobody anything.
void unbindForm(Form& form, QWidget& window);

}  // namespace kelvor::qt
