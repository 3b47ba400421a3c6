// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_close.h"

#include "base/event.h"
#include "controls/form.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"

namespace kelvor {

void mnuFile_Close_Click() {
    mainForm().activeForm().unload();
    focusDocument();
}

void mnuFile_CloseAll_Click() {
    const EventScope scope;
    const auto forms = loadedForms();
    for (std::size_t index = forms.size(); index-- > 1;)
        if (forms[index]->name() == "editWindow") forms[index]->unload();
}

void mnuFile_Exit_Click() {
    mainForm().unload();
}

}  // namespace kelvor
