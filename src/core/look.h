// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/edit_control.h"
#include "core/shown_text.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// A text to look at: it can be selected and copied, and nothing of it changed.
class Look : public ToolDialog {
public:
    Look();

    EditControl& rtbText{addEditControl("rtbText")};
    Button cmdClose{*this, "cmdClose", "&Close", &Look::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &Look::showHelp};

    /// To be told before the window is made.
    void take(const ShownText& text);

private:
    void Form_Load() override { rtbText.SetFocus(); }
};

/// Shows a text until the window is closed, above whatever window has the input.
void lookAtText(const ShownText& text);

}  // namespace kelvor
