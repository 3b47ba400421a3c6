#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/combo_box.h"
#include "platform/form.h"

namespace kelvor {

class EditControl;

/// The name of the form into which inserted text goes; "editWindow" means the active document.
inline std::string activeFormName;
/// Set when a form's load procedure failed; showFormForContext reads and clears it.
inline bool formLoadFailed = false;
/// True while a program applies colours to edit controls: such a change is no edit.
inline bool colorsChanging = false;
/// The directory last used in any file dialog, without a separator at its end.
inline std::string lastDir;
/// Edit colours with red in the low byte; -1 when none was ever chosen.
inline int editorBackColor = -1;
inline int editorForeColor = -1;
/// The screen's font names, filled once at start by loadFontList().
inline std::vector<std::string> fontList;

// ... the procedures follow (to be written by the unit's owner)

}  // namespace kelvor
