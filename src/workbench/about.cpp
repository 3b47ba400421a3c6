#include "workbench/about.h"

#include "frame/tool_forms.h"
#include "support/html_help.h"
#include "support/programs.h"

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
