// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/dialogs.h"

class QMessageBox;

namespace kelvor::qt {

/// Shows a message's text in the box and, smaller under it, its cause. Control characters of names are told apart,
/// names without blanks wrap too, and the middle of lines that no screen holds is left out; a screen reader gets the
/// same without the places to wrap.
void showText(QMessageBox& box, const Message& message);

}  // namespace kelvor::qt
