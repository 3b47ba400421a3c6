// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// The three states of the command surface: no document, a document in source, a document in preview. Each of the
/// first three procedures sets its state from fixed lists.

/// No document is open.
void disableMenuItems();
/// A document has come where there was none; a second call does nothing.
void enableMenuItems();
/// The document in front shows its source (1) or its preview (2); any other mode does nothing.
void ControlFunctionForMode(int mode);

/// The popup rows that need a selection.
void disableRClickItems();
void enableRClickItems();
/// Sets those rows by the selection of the document in front; just before the popup appears.
void checkSelText();

}  // namespace kelvor
