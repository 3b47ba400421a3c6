// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// True while a program applies colours to edit controls: such a change is no edit.
inline bool colorsChanging = false;

/// Edit colours with red in the low byte; -1 when none was ever chosen.
inline int editorBackColor = -1;

inline int editorForeColor = -1;

/// As before the start: no colour was chosen.
void resetEditorColors();

/// While it lives a change of an edit control is a change of colour and no edit.
class ColorsChanging {
public:
    ColorsChanging();
    ~ColorsChanging();
    ColorsChanging(const ColorsChanging&) = delete;
    ColorsChanging& operator=(const ColorsChanging&) = delete;
};

}  // namespace kelvor
