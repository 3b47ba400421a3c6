// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "controls/form.h"

namespace kelvor {

/// Unloads the tool forms that can stay open beside a document, in their fixed order.
void unloadFixedForms();

/// The name of the form into which inserted text goes; "editWindow" means the active document.
inline std::string activeFormName;

/// Set when a form's load procedure failed; showFormForContext reads and clears it.
inline bool formLoadFailed = false;

/// The name of the form that a document's window is.
inline constexpr std::string_view documentForm = "editWindow";

void setActiveFormName(const std::string& name);

/// Whether tools deliver into the table wizard's cell.
bool deliversToTableWizard();

enum class ShowMode {
    modal = 1,     ///< returns when the form is closed; a document then has the focus again
    floating = 2,  ///< modeless above the frame
    free = 3,      ///< modeless with no owner
};

/// Loads a tool form and shows it; a form whose load failed is unloaded instead, and `formLoadFailed` is cleared.
/// The caller clears that flag before.
void showFormForContext(Form& form, ShowMode mode);

/// Clears `formLoadFailed`, and then showFormForContext.
void openToolForm(Form& form, ShowMode mode);

/// What a failed load procedure does: sets `formLoadFailed` and says so.
void reportLoadError(const std::string& cause);

/// Sends every load procedure's failure to reportLoadError. Called once at start.
void installLoadErrorReporting();

/// As before the start: no form takes text, no load has failed, and a failure is told to nobody.
void resetToolForms();

/// Whether a document window is loaded, and whether there are two or more.
bool hasMdiChild();

/// Gives the keyboard to the document in front, if there is one: the last act of many a tool form.
void focusDocument();

/// The same for a tool that delivers text, unless the table wizard takes it: then the keyboard is the wizard's.
void focusDelivered();

bool hasManyMdiChildren();

}  // namespace kelvor
