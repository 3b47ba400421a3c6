// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/help_commands.h"

#include "files/whole_file.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/html_help.h"
#include "support/programs.h"
#include "support/report_error.h"

namespace kelvor {

namespace {

const std::string site = "https://www.kelvor.example/";

const Message noErrorLog = {
    .text = "No errors has been logged", .title = "No error log found", .icon = MessageIcon::information};

}  // namespace

void mnuHelp_htmlhelp_Click() {
    showHelpHome();
}

void mnuHelp_tavlok_Click() {
    showHelpPage("mnuHelp_tavlok");
}

void mnuHelp_mirrel_Click() {
    showHelpPage("mnuHelp_mirrel");
}

void mnuHelp_sckeys_Click() {
    showHelpPage("mnuHelp_sckeys");
}

void mnuHelp_Web_Home_Click() {
    openInDefaultBrowser(site + "kelvorinfo.html");
}

void mnuHelp_Web_Bug_Click() {
    openInDefaultBrowser(site + "feedback.html");
}

void mnuHelp_Web_KVHome_Click() {
    openInDefaultBrowser(site);
}

void mnuHelp_ViewErrLog_Click() {
    if (fileExists(errorLogPath())) {
        runProgram(programFor(DesktopTool::textEditor), errorLogPath());
    } else {
        beepAndShow(noErrorLog);
    }
}

}  // namespace kelvor
