#include "batch/extended_find.h"

#include "batch/file_count.h"
#include "batch/walk_filters.h"
#include "core/file_open.h"
#include "core/recent_files.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/platform.h"
#include "support/html_help.h"
#include "support/messages.h"
#include "text/line_ends.h"

namespace kelvor {

namespace {

const std::string closeCaption = "&Close";
const std::string cancelCaption = "&Cancel";

/// Pages of SSTab1.
constexpr int criteriaPage = 0;
constexpr int resultsPage = 1;

/// The column of ListView1 with numbers.
constexpr int countColumn = 1;

/// ".html" is reached through "*.htm". The last row names two kinds that it does not find.
const std::vector<WalkFilter>& filters() {
    static const std::vector<WalkFilter> rows = {
        {"(All files)", {"*.*"}},
        {".htm, .html, .shtml", {"*.htm", "*.shtml"}},
        {".cgi", {"*.cgi"}},
        {".c", {"*.c"}},
        {".vbs", {"*.vbs"}},
        {".js", {"*.js"}},
        {".pl", {"*.pl"}},
        {".pl, .cgi, .c", {"*.pl", "*.cgi", "*.c"}},
        {".txt", {"*.txt"}},
        {".asp", {"*.asp"}},
        {".html, .htm, .shtml, .cgi, .pl, .c, .vbs, .js, .txt, .asp",
         {"*.htm", "*.shtml", "*.cgi", "*.pl", "*.c", "*.txt", "*.asp"}},
    };
    return rows;
}

void tellNoFiles(const std::string& searchDir) {
    beepAndShow({.text = "There are no files matching the selected filter in " + searchDir,
                 .title = "No files to search",
                 .icon = MessageIcon::exclamation});
}

}  // namespace

ExtendedFind& extendedFind() {
    static FormInstance<ExtendedFind> instance;
    return instance.get();
}

ExtendedFind::ExtendedFind() : Form("frmEfind", "Extended Find") {
    onLoad = [this] { Form_Load(); };
    unloaded.connect(focusDocument);
    queryUnload.connect([this](bool& cancel) { Form_QueryUnload(cancel); });
    objDirWalk_.ItemFound = [this](const std::string& sPath, const std::string& sFileName, bool& fCancel) {
        objDirWalk_ItemFound(sPath, sFileName, fCancel);
    };
    lblDirFolder.doubleClicked.connect([this] { lblDirFolder_DblClick(); });
    rtbFind.changed.connect([this] { checkBegin(); });
    cmdBegin.clicked.connect([this] { cmdBegin_Click(); });
    cmdClose.clicked.connect([this] { cmdClose_Click(); });
    cmdHelp.clicked.connect([this] { showHelpPage(name()); });
    ListView1.doubleClicked.connect([this] { openMulti(); });
    ListView1.returnPressed.connect([this] { openMulti(); });
    ListView1.columnClicked.connect([this](int column) { ListView1.sortBy(column, column == 0); });
    ListView1.mouseDown.connect([this](const MousePress& press) { ListView1_MouseDown(press); });
    mnuLV1_open.clicked.connect([this] { openMulti(); });
    mnuLV1_Clear.clicked.connect([this] { ListView1.setSelectedRow(-1); });
    ListView1.setMultiSelect(true);
    ListView1.setRightAligned(countColumn);
    lblDirFolder.setToolTip("Double click to browse...");
    cmdBegin.setEnabled(false);
    ProgressBar1.setVisible(false);
    setUpMenu();
}

void ExtendedFind::setUpMenu() {
    mnuLV1.makePopup();
    mnuLV1_open.setCaption("Open selected files");
    mnuLV1_line1.setCaption("-");
    mnuLV1_Clear.setCaption("Clear all Selections");
}

void ExtendedFind::Form_Load() {
    keys_.setHookedRTB(&rtbFind);
    cancelVal_ = false;
    ProgressBar1.setValue(0);
    SSTab1.setTabEnabled(resultsPage, false);
    fillFilterCombo();
    rtbFind.SetFocus();
}

/// Closing the window acts like the Cancel button, which is not there for the user while files are gathered.
void ExtendedFind::Form_QueryUnload(bool& cancel) {
    if (!isRunning()) return;
    cancel = true;
    if (cmdClose.enabled()) confirmCancel();
}

bool ExtendedFind::isRunning() const {
    return cmdClose.caption() == cancelCaption;
}

void ExtendedFind::fillFilterCombo() {
    fillWithFilters(cboFilter, filters());
}

void ExtendedFind::checkBegin() {
    cmdBegin.setEnabled(rtbFind.textLength() > 0 && !lblDirFolder.caption().empty());
}

void ExtendedFind::lblDirFolder_DblClick() {
    const std::string folder = browseForFolder("Select the starting directory.");
    if (!folder.empty()) lblDirFolder.setCaption(folder);
    checkBegin();
}

void ExtendedFind::cmdBegin_Click() {
    lblStatus.setCaption("Gathering files...");
    disableControls();
    platform().screen.processEvents();
    foundFiles_.clear();
    SSTab1.setTab(criteriaPage);
    ListView1.clear();
    gatherFiles(filters()[static_cast<std::size_t>(cboFilter.listIndex())].patterns, lblDirFolder.caption());
}

void ExtendedFind::gatherFiles(const std::vector<std::string>& filters, const std::string& searchDir) {
    const std::string directory = joinPath(searchDir, "");
    walkForEach(objDirWalk_, filters, directory, chkSubDir.value());
    if (!isLoaded()) return;
    if (!foundFiles_.empty()) return findMatch();
    resetControls();
    cmdBegin.SetFocus();
    tellNoFiles(directory);
}

void ExtendedFind::objDirWalk_ItemFound(const std::string& sPath, const std::string& sFileName, bool& fCancel) {
    foundFiles_.push_back(sPath + sFileName);
    pumpEvents();
    fCancel = !isLoaded();
}

void ExtendedFind::findMatch() {
    // The end of the program ends the run too.
    const auto goesOn = [this] {
        pumpEvents();
        return !cancelVal_ && isLoaded();
    };
    FileCount counter(withLineEnd(rtbFind.textView(), "\r\n"), chkCase.value(), goesOn);
    cmdClose.setEnabled(true);
    results_.clear();
    lblStatus.setCaption("Searching files:");
    ProgressBar1.setRange(0, static_cast<int>(foundFiles_.size()));
    ProgressBar1.setVisible(true);
    for (const std::string& path : foundFiles_) {
        if (!goesOn()) break;
        const auto [outcome, count] = counter.in(path);
        if (outcome == FileCount::Outcome::stopped) break;
        results_.push_back({{path, outcome == FileCount::Outcome::counted ? std::to_string(count) : "Error"}});
        ProgressBar1.setValue(static_cast<int>(results_.size()));
    }
    if (isLoaded()) buildResultsTable();
}

void ExtendedFind::buildResultsTable() {
    resetControls();
    ListView1.addRows(std::exchange(results_, {}));
    SSTab1.setTabEnabled(resultsPage, true);
    SSTab1.setTab(resultsPage);
    if (ListView1.count() == 0) return cmdBegin.SetFocus();
    ListView1.setSelectedRow(0);
    ListView1.SetFocus();
}

void ExtendedFind::disableControls() {
    setCriteriaEnabled(false);
    cancelVal_ = false;
    cmdClose.setCaption(cancelCaption);
    cmdClose.setEnabled(false);
    SSTab1.setTabEnabled(resultsPage, false);
    platform().screen.setMousePointer(MousePointer::hourglass);
}

void ExtendedFind::resetControls() {
    platform().screen.setMousePointer(MousePointer::standard);
    setCriteriaEnabled(true);
    chkSubDir.setValue(false);
    chkCase.setValue(false);
    cmdClose.setCaption(closeCaption);
    cmdClose.setEnabled(true);
    ProgressBar1.setVisible(false);
    ProgressBar1.setValue(0);
    lblStatus.setCaption("Status:");
}

void ExtendedFind::setCriteriaEnabled(bool enabled) {
    setAllEnabled({&chkSubDir, &chkCase, &cmdBegin, &lblDirFolder, &cboFilter, &rtbFind}, enabled);
}

void ExtendedFind::cmdClose_Click() {
    if (isRunning()) return confirmCancel();
    unload();
}

void ExtendedFind::confirmCancel() {
    cancelVal_ = confirms("Are you sure you want to cancel?", "Confirm Cancel");
}

void ExtendedFind::ListView1_MouseDown(const MousePress& press) {
    if (press.button == MousePress::right && ListView1.count() > 0) platform().windows.popupMenu(mnuLV1);
}

/// Nothing while another tool works on the document in front.
void ExtendedFind::openMulti() {
    if (!mainForm().enabled()) return;
    for (int row = 0; row < static_cast<int>(ListView1.count()); ++row) {
        if (!ListView1.isSelected(row)) continue;
        const std::string path = ListView1.cell(row, 0);
        if (const Outcome opened = fileOpen(path, false)) {
            updateOpenFileCollection();
            ListView1.setSelected(row, false);
        } else {
            reportOpenError(path, opened.cause());
        }
    }
}

void mnuEdit_eFind_Click() {
    openToolForm(extendedFind(), ShowMode::floating);
}

}  // namespace kelvor
