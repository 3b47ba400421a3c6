// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelvor {

/// Enters the active window's file in the recent list and shows the list.
void updateOpenFileCollection();

/// Enters a path at the end of the list and stores the list. A full list loses its oldest entry first, also
/// when the path is listed already; a listed path keeps its place.
void addOpenFile(const std::string& path);

/// Stores the list under "file 1", "file 2", ...; higher numbers of an earlier, longer list stay.
void registerOpenFiles();

/// Takes the stored list over, in the store's order, and shows it. An empty or unfit section leaves the
/// list's separator hidden.
void getRegistered_OpenFiles();

/// Shows the list at the end of the File menu, the newest first. Rows beyond the list keep what they held.
void recentFileMenu();

}  // namespace kelvor
