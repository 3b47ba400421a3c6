// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/label.h"
#include "controls/report_view.h"
#include "core/document.h"
#include "core/shown_text.h"
#include "core/versions.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The versions that are kept of a document's file, to be looked at, compared and brought back into the editor.
class FileVersions : public ToolDialog {
public:
    FileVersions();

    Label lblFile{*this, "lblFile"};
    Label lblState{*this, "lblState"};
    ReportView lstVersions{*this,
                           "lstVersions",
                           {"When", "Size"},
                           {.doubleClicked = &FileVersions::cmdLook_Click,
                            .returnPressed = &FileVersions::cmdLook_Click,
                            .chosen = &FileVersions::lstVersions_Chosen}};
    Label lblDifference{*this, "lblDifference"};
    Button cmdLook{*this, "cmdLook", "&Look", &FileVersions::cmdLook_Click};
    Button cmdCompare{*this, "cmdCompare", "Co&mpare", &FileVersions::cmdCompare_Click};
    Button cmdBring{*this, "cmdBring", "&Bring Into the Editor", &FileVersions::cmdBring_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &FileVersions::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &FileVersions::showHelp};

    /// To be told before it is shown. The document may close meanwhile.
    void take(CDocument& document);

private:
    void Form_Load() override;
    void lstVersions_Chosen();
    void cmdLook_Click();
    void cmdCompare_Click();
    void cmdBring_Click();

    CDocument* document() const;
    void readChosen();
    std::string difference() const;

    std::string document_;  ///< its key
    std::string path_;
    std::vector<FileVersion> versions_;  ///< by row
    std::optional<ShownText> chosen_;    ///< the chosen version; nothing when there is none or it cannot be read
    std::string failure_;                ///< why it cannot
};

/// The File menu is about to open.
void mnuFile_Click();
void mnuFile_KeepVersions_Click();
void mnuFile_Versions_Click();

}  // namespace kelvor
