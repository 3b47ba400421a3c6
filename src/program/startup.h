// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Loads the frame, runs the steps of the start in their order and shows it;
/// then offers what earlier copies have left unsaved.
/// @return false when another copy is running already; the user has been told
bool startKelvor();

/// Takes the stored user settings over that the frame needs; the first start is greeted.
void grabReg();
/// Tells a user who has never applied the options where to begin.
void firstTimeUser();
/// Opens an untitled document from the default template when the user wants one, else leaves the frame empty.
void checkNewFile();

}  // namespace kelvor
