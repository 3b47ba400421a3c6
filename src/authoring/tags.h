// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/frame.h"
#include "controls/report_view.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The tags of tags.txt in the program directory, each to be inserted at the selection; stays open beside the document.
class Tags : public ToolDialog {
public:
    Tags();

    ReportView ListView1{
        *this, "ListView1", {"Tag", "Close Tag", "Description"}, {.doubleClicked = &Tags::ListView1_DblClick}};
    Frame frmDivider{*this, "frmDivider"};
    Button cmdInsert{*this, "cmdInsert", "&Insert", &Tags::cmdInsert_Click};
    Button cmdHelp{*this, "cmdHelp", "&Help", &Tags::showHelp};
    Button cmdClose{*this, "cmdClose", "&Close", &Tags::unload};

private:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void ListView1_DblClick();
    void cmdInsert_Click();
    void loadTags();
};

/// The menu row that opens the window and closes it.
void mnuInsert_Tags_Click();

/// The fields of a line of tags.txt: the text to insert, its close tag or "(n/a)", a description. The first two commas
/// part them, so that only the description can have commas; what is missing at the end is empty. Nothing for a line
/// without a comma.
std::optional<std::vector<std::string>> tagFields(std::string_view line);

/// Inserts a tag at the selection, where tools deliver: with its close tag behind the selection, or before it when the
/// close tag is "(n/a)".
void insertTag(const std::string& tag, const std::string& closeTag);

}  // namespace kelvor
