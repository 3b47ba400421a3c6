// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Asks for a colour and inserts it at the selection of the active document, which has the focus then. A cancelled
/// question changes nothing.
/// @param mode  1 COLOR="#RRGGBB", 2 BGCOLOR="#RRGGBB", each before the selection; 3 a font tag around it; with any
///              other nothing is inserted
void doColor(int mode);

void mnuFormat_QuickColor_coloreq_Click();
void mnuFormat_QuickColor_bgcolor_Click();
void mnuFormat_QuickColor_fcolor_Click();
/// Asks for a colour, and its value RRGGBB takes the place of the selection.
void mnu_RClick_QuickColor_Click();

}  // namespace kelvor
