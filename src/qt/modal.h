// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QDialog;
class QWidget;

namespace kelvor::qt {

/// Lets `window` float above the modal window that has the input, which would block it otherwise; without one, above
/// its parent or above none.
void floatAboveModal(QWidget& window);

/// Shows a dialog of the library above the window that is active, with the plain pointer, until it is answered. It
/// belongs to whoever shows it, who may keep it on the stack: a parent that it was given is taken off, so that no
/// other window's end is its own. The forms below it cannot close meanwhile (QtWindows::isBlocked).
/// @return what QDialog::exec gives
int showUntilAnswered(QDialog& dialog);

}  // namespace kelvor::qt
