// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/tags.h"

#include <algorithm>

#include "base/error.h"
#include "controls/edit_control.h"
#include "editing/insertion.h"
#include "files/files.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/whole_file.h"
#include "frame/tool_forms.h"
#include "frame/tool_switch.h"
#include "html/no_value.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/fields.h"
#include "text/line_ends.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// In twips; the description takes the rest.
constexpr int tagWidth = 2250;
constexpr int closeTagWidth = 1800;

constexpr ToolSwitch tagsSwitch("mnuInsert_Tags", "Tags");

const Message tagsMissing = {
    .text =
        "The tags.lst file does not exist.\r\nPlease restore from backup, re-install, or visit the "
        "home page and download a new copy.",
    .title = "Tags file missing",
    .icon = MessageIcon::critical};

}  // namespace

Tags::Tags() : ToolDialog("tags", "Tags") {
    ListView1.setColumnWidth(0, tagWidth);
    ListView1.setColumnWidth(1, closeTagWidth);
}

void Tags::Form_Unload() {
    tagsSwitch.release();
}

void Tags::Form_Load() {
    // A faulty file is told, and the tags before the fault are there all the same.
    guarded([this] { loadTags(); });
    if (ListView1.count() > 0) ListView1.setSelectedRow(0);
}

void Tags::Form_Activate() {
    if (ListView1.count() > 0) ListView1.SetFocus();
}

void Tags::loadTags() {
    const std::string path = joinPath(programDirectory(), "tags.txt");
    if (!fileExists(path)) {
        beepAndShow(tagsMissing);
        formLoadFailed = true;
        return;
    }
    const std::string text = withLineEnds(decode(readFile(path)).text);
    std::vector<ReportView::Row> rows;
    bool sound = true;
    for (std::size_t start = 0, end = 0; sound && start < text.size(); start = end + 2) {
        end = text.find("\r\n", start);
        auto fields = tagFields(std::string_view(text).substr(start, end - start));
        sound = fields.has_value();
        if (sound) rows.push_back({std::move(*fields)});
    }
    const std::string lastLine = std::to_string(rows.size() + 1);
    ListView1.addRows(std::move(rows));
    if (!sound) throw Error(error_number::invalidProcedureCall, "Line " + lastLine + " of tags.txt has no comma");
}

void Tags::ListView1_DblClick() {
    const int row = ListView1.selectedRow();
    if (row < 0) throw Error(error_number::objectNotSet, "No tag is selected");
    insertTag(ListView1.cell(row, 0), ListView1.cell(row, 1));
}

void Tags::cmdInsert_Click() {
    ListView1.SetFocus();
    ListView1_DblClick();
}

void mnuInsert_Tags_Click() {
    tagsSwitch.flip(toolForm<Tags>());
}

std::optional<std::vector<std::string>> tagFields(std::string_view line) {
    const std::size_t first = line.find(',');
    if (first == std::string_view::npos) return {};
    const std::size_t second = std::min(line.find(',', first + 1), line.size());
    return std::vector{std::string(line.substr(0, first)), std::string(line.substr(first + 1, second - first - 1)),
                       std::string(line.substr(std::min(second + 1, line.size())))};
}

void insertTag(const std::string& tag, const std::string& closeTag) {
    const bool closes = closeTag != notAvailable;
    if (deliversToTableWizard()) {
        EditControl& cell = deliveryTarget();
        cell.setSelText(tag + cell.selText() + (closes ? closeTag : ""));
    } else {
        insertAtSelection(tag, closes ? std::optional<std::string_view>(closeTag) : std::nullopt);
    }
}

}  // namespace kelvor
