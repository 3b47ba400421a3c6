// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QComboBox;

namespace kelvor::qt {

class FormLink;

/// Gives the parts of a box, its field and the list that drops down, the box's name for a screen reader. To be called
/// before the box becomes editable.
void nameParts(QComboBox& box, FormLink& link);

}  // namespace kelvor::qt
