#pragma once

#include <span>
#include <string_view>

namespace kelvor {

/// Joins the buttons of the four toolbars to their procedures. Once, after the frame has been made.
void connectToolbars();

/// The keys of the buttons that have no command yet.
std::span<const char* const> buttonsToCome();
/// Whether a button of the bar of that name has one.
bool hasCommand(std::string_view bar, std::string_view key);

/// The Toolbars menu: each row shows or hides its bar. Nothing of it is stored.
void mnuToolbars_Main_Click();
void mnuToolBars_helpers_Click();
void mnuToolBars_forms_Click();
void mnuView_dropDown_Click();

/// Start the two companion programs from the program directory.
void runMirrel();
void runTavlok();

}  // namespace kelvor
