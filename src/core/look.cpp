// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/look.h"

#include "base/event.h"
#include "frame/tool_forms.h"

namespace kelvor {

Look::Look() : ToolDialog("frmLook", "Look") {
    rtbText.setReadOnly(true);
}

void Look::take(const ShownText& text) {
    setCaption(text.title);
    rtbText.startText(text.text);
}

void lookAtText(const ShownText& text) {
    const EventScope scope;
    toolForm<Look>().take(text);
    openToolForm(toolForm<Look>(), ShowMode::modal);
}

}  // namespace kelvor
