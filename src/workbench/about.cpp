// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/about.h"

#include "frame/tool_forms.h"
#include "platform/platform.h"
#include "support/html_help.h"
#include "support/programs.h"

namespace kelvor {

std::string programVersion() {
    return KELVOR_VERSION;
}

void About::Form_Load() {
    std::string lines = "It runs with:";
    for (const std::string& library : platform().libraries.inUse()) lines.append("\r\n").append(library);
    lblLibraries.setCaption(lines);
}

void About::cmdSysInfo_Click() {
    runProgram(programFor(DesktopTool::systemInformation));
}

void About::cmdHelp_Click() {
    showHelpHome();
}

void mnuHelp_About_Click() {
    openToolForm(toolForm<About>(), ShowMode::modal);
}

}  // namespace kelvor
