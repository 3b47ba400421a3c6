// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <string>

#include "controls/menu_item.h"
#include "controls/report_view.h"
#include "support/user_settings.h"

namespace kelvor {

/// What the lists of labelled entries in the options, and the small forms that add to them, do alike.

/// Adds what is stored to a list, which is sorted from then on; nothing when there is none.
void listEntries(ReportView& list, const UserList& stored);

/// Stores each row's contents under its label. Nothing is removed.
void storeEntries(const ReportView& list, const UserList& stored);

/// The user has come to a list: its first row is selected and it has the keyboard. Without rows the buttons for them
/// are switched off.
void enterEntries(ReportView& list, std::initializer_list<Control*> buttons);

/// Selects the first row when there are rows and none is selected.
void selectSome(ReportView& list);

/// A right press opens the popup over a list that has rows.
void popUpOver(const ReportView& list, MenuItem& popup, const MousePress& press);

/// Whether a mandatory field is empty: it has the keyboard then, and the user has been told.
bool isMissing(Control& field, bool isEmpty);

/// @param kind  "user string" or "browser"
void tellNameInUse(const std::string& kind, const std::string& name);

}  // namespace kelvor
