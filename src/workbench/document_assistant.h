// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Shows or hides the Document Assistant, and shows it at its stored side. A stored side that is no number is an
/// error 13.
void ToggleDocumentAssistant(bool show);
void mnuView_DocumentAssistant_Click();

/// Put the bar at a side and store the choice; nothing when it is there already.
void mnuPreview_AlignLeft_Click();
void mnuPreview_AlignRight_Click();

}  // namespace kelvor
