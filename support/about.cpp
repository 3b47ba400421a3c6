#include "support/about.h"

#include "authoring/common.h"
#include "support/desktop_tools.h"
#include "support/html_help.h"

namespace kelvor {

About::About() : Form("frmAbout", "About Kelvor") {
    lblVersion.setCaption("Version " KELVOR_VERSION);
    cmdSysInfo.clicked.connect([] { runProgram(programFor(DesktopTool::systemInformation)); });
    cmdHelp.clicked.connect(showHelpHome);
    cmdOK.clicked.connect([this] { unload(); });
}

void mnuHelp_About_Click() {
    static FormInstance<About> about;
    openToolForm(about.get(), ShowMode::modal);
}

}  // namespace kelvor
