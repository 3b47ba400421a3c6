// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// The rows of the Help menu. Each may throw what its step throws.
void mnuHelp_htmlhelp_Click();
void mnuHelp_tavlok_Click();
void mnuHelp_mirrel_Click();
void mnuHelp_sckeys_Click();
void mnuHelp_Web_Home_Click();
void mnuHelp_Web_Bug_Click();
void mnuHelp_Web_KVHome_Click();
/// Opens the error log in a text editor, or says that there is none.
void mnuHelp_ViewErrLog_Click();

}  // namespace kelvor
