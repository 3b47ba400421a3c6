// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/label.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// "major.minor.patch".
std::string programVersion();

/// The program's name and version, its licence, and the libraries that it runs with.
class About : public ToolDialog {
public:
    About() : ToolDialog("frmAbout", "About Kelvor") {}

    Label lblTitle{*this, "lblTitle", "Kelvor"};
    Label lblVersion{*this, "lblVersion", "Version " + programVersion()};
    Label lblDescription{*this, "lblDescription", "An editor for people who write web pages by hand."};
    Label lblLicence{*this, "lblLicence", "Free software under the GNU General Public License, version 3 or later."};
    Label lblLibraries{*this, "lblLibraries"};
    Button cmdSysInfo{*this, "cmdSysInfo", "&System Info...", &About::cmdSysInfo_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &About::cmdHelp_Click};
    Button cmdOK{*this, "cmdOK", "OK", &About::unload};

private:
    void Form_Load() override;
    void cmdSysInfo_Click();
    void cmdHelp_Click();
};

/// Shows the About box.
void mnuHelp_About_Click();

}  // namespace kelvor
