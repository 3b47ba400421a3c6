#pragma once

#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"

namespace kelvor {

/// The program's name and version.
class About : public Form {
public:
    About();

    Label lblTitle{*this, "lblTitle", "Kelvor"};
    Label lblVersion{*this, "lblVersion"};
    Label lblDescription{*this, "lblDescription", "An editor for people who write web pages by hand."};
    Label lblLicence{*this, "lblLicence", "Free software under the GNU General Public License, version 3 or later."};
    Button cmdSysInfo{*this, "cmdSysInfo", "&System Info..."};
    Button cmdHelp{*this, "cmdHelp", "&Help"};
    Button cmdOK{*this, "cmdOK", "OK"};
};

/// Shows the About box.
void mnuHelp_About_Click();

}  // namespace kelvor
