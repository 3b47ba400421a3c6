// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/notice.h"

#include "frame/main_frame.h"

namespace kelvor {

void showNotice(std::string_view what, const std::string& cause) {
    mainForm().StatusBar1.setPanelText(panel::notice, std::string(what) + (cause.empty() ? "" : ": " + cause));
}

void clearNotice(std::string_view what) {
    StatusBar& statusBar = mainForm().StatusBar1;
    if (statusBar.panelText(panel::notice).starts_with(what)) statusBar.setPanelText(panel::notice, "");
}

}  // namespace kelvor
