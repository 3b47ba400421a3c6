// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLabel;

namespace kelvor::qt {

/// Has a screen reader say a label's text when the label appears, though it never has the keyboard.
void makeNotice(QLabel& label);

/// Has it said once more: for a new text of a notice that is shown already.
void sayAgain(QLabel& notice);

}  // namespace kelvor::qt
