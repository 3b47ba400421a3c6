// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "controls/edit_control.h"
#include "controls/form.h"

namespace kelvor {

/// The text of the document in front; without one an error 91.
EditControl& activeText();

/// Wraps the selection of the active document in `openText` and `closeText`, or puts `openText` before it when there is
/// no closing text. What was put in is selected with the old selection in it, and the document has the focus when
/// `activeFormName` is "editWindow". Without a selection the texts go in, the caret stands behind them, and the
/// focus stays where it is.
void insertAtSelection(std::string_view openText, std::optional<std::string_view> closeText = {});

/// The same in any control, but for the focus, which stays where it is.
/// @return whether there was a selection
bool insertAround(EditControl& control, std::string_view openText, std::optional<std::string_view> closeText = {});

void replaceSelectionText(EditControl& control, std::string_view text);

/// Makes `control` the place for the text of other tools while `activeFormName` is `formName`; nullptr takes it away.
void setDeliveryTarget(const std::string& formName, EditControl* control);
/// As before the start: no such place.
void resetDeliveryTarget();

/// Where a tool delivers its text: the control registered by the form that `activeFormName` names, otherwise the active
/// document's. Without a document error 91.
EditControl& deliveryTarget();

}  // namespace kelvor
