// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_select.h"

#include <string>

#include "base/error.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "platform/platform.h"
#include "support/html_help.h"
#include "support/messages.h"

namespace kelvor {

namespace {

struct Group {
    std::string_view caption;
    std::string (*build)(std::string_view name, const std::vector<FormOption>& options);
    const char* controlName;
    const char* description;
    const char* value;
};

constexpr Group groups[] = {
    {"Select group", buildSelectGroup, "Select &Name:", "Option &Description:", "Option &Value:"},
    {"Checkbox group", buildCBGroup, "Checkbox group &name:", "Checkbox &description:", "Checkbox &value:"},
    {"Radio button group", buildRBGroup,
     "Radio button group &name:", "Radio button &description:", "Radio button &value:"},
};

enum Column { descriptionColumn, valueColumn, defaultColumn };

constexpr const char* defaultMark = "Yes";

const Message noOptions = {.text = "You must include some data for this form control.",
                           .title = "Missing form control data",
                           .icon = MessageIcon::exclamation};

const Group& groupOf(std::string_view caption) {
    for (const Group& group : groups)
        if (group.caption == caption) return group;
    throw Error(error_number::invalidProcedureCall, "No group is called " + std::string(caption));
}

}  // namespace

FormSelect::FormSelect() : ToolDialog("frmFormSelect", "Select group") {
    for (Label* label : {&lblControlName, &lblDescripName, &lblValue}) label->setUseMnemonic(true);
    selectThemselves(txtControlName, txtDescripName, txtValue);
    checkButtons();
}

void FormSelect::prepare(std::string_view caption) {
    const Group& group = groupOf(caption);
    setCaption(std::string(caption));
    lblControlName.setCaption(group.controlName);
    lblDescripName.setCaption(group.description);
    lblValue.setCaption(group.value);
}

void FormSelect::cmdAddOption_Click() {
    if (textBoxEmpty(txtDescripName) || textBoxEmpty(txtValue)) return reportEmptyFields();
    const bool chosen = chkDefault.value();
    lvOptions.addRow({txtDescripName.text(), txtValue.text(), chosen ? defaultMark : "No"});
    lvOptions.setSelectedRow(static_cast<int>(lvOptions.count()) - 1);
    if (chosen) {
        chkDefault.setValue(false);
        chkDefault.setEnabled(false);
    }
    for (TextBox* field : {&txtDescripName, &txtValue}) field->setText("");
    txtDescripName.SetFocus();
    checkButtons();
}

void FormSelect::cmdClearOption_Click() {
    const int row = lvOptions.selectedRow();
    if (row < 0) return;
    if (lvOptions.cell(row, defaultColumn) == defaultMark) offerDefault();
    lvOptions.removeRow(row);
    checkButtons();
}

void FormSelect::cmdClearAll_Click() {
    lvOptions.clear();
    checkButtons();
}

void FormSelect::checkButtons() {
    const bool isEmpty = lvOptions.count() == 0;
    if (isEmpty) offerDefault();
    setAllEnabled({&cmdClearOption, &cmdClearAll}, !isEmpty);
}

void FormSelect::offerDefault() {
    chkDefault.setEnabled(true);
    chkDefault.setValue(false);
}

std::vector<FormOption> FormSelect::options() const {
    std::vector<FormOption> options;
    for (const ReportView::Row& row : lvOptions.rows())
        options.push_back(
            {row.cells[descriptionColumn], row.cells[valueColumn], row.cells[defaultColumn] == defaultMark});
    return options;
}

void FormSelect::Command1_Click() {
    if (lvOptions.count() == 0) {
        beepAndShow(noOptions);
        return;
    }
    replaceSelectionText(activeText(), groupOf(caption()).build(txtControlName.text(), options()));
    unload();
}

void FormSelect::cmdHelp_Click() {
    showHelpPage(name(), caption());
}

void showFormSelect(std::string_view caption) {
    auto& form = toolForm<FormSelect>();
    form.prepare(caption);
    openToolForm(form, ShowMode::modal);
}

}  // namespace kelvor
