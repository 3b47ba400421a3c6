// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/tool_switch.h"

#include "controls/form.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"

namespace kelvor {

void ToolSwitch::flip(Form& form) const {
    const bool on = !mainForm().menu(menuRow_).checked();
    set(on);
    if (on) {
        openToolForm(form, ShowMode::floating);
    } else {
        form.unload();
    }
}

void ToolSwitch::release() const {
    set(false);
    focusDelivered();
}

void ToolSwitch::set(bool on) const {
    mainForm().menu(menuRow_).setChecked(on);
    mainForm().Toolbar1.setValue(buttonKey_, on);
}

}  // namespace kelvor
