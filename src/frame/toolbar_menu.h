// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// The Toolbars menu: each row shows or hides its bar. Nothing of it is stored.
void mnuToolbars_Main_Click();

void mnuToolBars_helpers_Click();

void mnuToolBars_forms_Click();

void mnuView_dropDown_Click();

}  // namespace kelvor
