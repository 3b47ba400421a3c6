// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/tool_dialog.h"

#include <utility>

#include "frame/tool_forms.h"
#include "support/html_help.h"

namespace kelvor {

ToolDialog::ToolDialog(std::string name, std::string caption, AtEnd end) : Form(std::move(name), std::move(caption)) {
    onLoad = [this] { Form_Load(); };
    activated.connect([this] { Form_Activate(); });
    queryUnload.connect([this](bool& cancel) { Form_QueryUnload(cancel); });
    unloaded.connect([this] { Form_Unload(); });
    if (end == AtEnd::focusDocument) unloaded.connect(focusDocument);
    if (end == AtEnd::focusDelivered) unloaded.connect(focusDelivered);
}

void ToolDialog::showHelp() const {
    showHelpPage(name());
}

}  // namespace kelvor
