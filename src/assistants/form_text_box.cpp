// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/form_text_box.h"

#include <initializer_list>
#include <string>

#include "base/error.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "html/form_elements.h"
#include "support/html_help.h"
#include "support/messages.h"

namespace kelvor {

namespace {

struct Element {
    std::string_view caption;
    std::string (*build)(const InputFields& input);
    bool hasName = true;
    bool hasSizes = false;
    bool needsValue = false;
};

constexpr Element elements[] = {
    {"Hidden Field", buildHF},
    {"Password Field", buildPW, true, true},
    {"Reset Button", buildRB, false, false, true},
    {"Button", buildBut},
    {"Submit", buildSubmit, true, false, true},
    {"Textbox", buildTB, true, true},
};

const Element& elementOf(std::string_view caption) {
    for (const Element& element : elements)
        if (element.caption == caption) return element;
    throw Error(error_number::invalidProcedureCall, "No form element is called " + std::string(caption));
}

void show(std::initializer_list<Control*> controls, bool shown) {
    for (Control* control : controls) control->setVisible(shown);
    setAllEnabled(controls, shown);
}

}  // namespace

FormTextBox::FormTextBox() : ToolDialog("frmFormTextBox", "Textbox") {
    for (Label* label : {&lblName, &lblValue, &lblMaxLen, &lblSize}) label->setUseMnemonic(true);
    for (TextBox* number : {&txtMaxLen, &txtSize}) number->setKeys(keys::number);
    selectThemselves(txtName, txtValue, txtMaxLen, txtSize);
}

void FormTextBox::prepare(std::string_view caption) {
    const Element& element = elementOf(caption);
    setCaption(std::string(caption));
    show({&lblMaxLen, &txtMaxLen, &UpDown1, &lblSize, &txtSize, &UpDown2}, element.hasSizes);
    show({&lblName, &txtName}, element.hasName);
}

void FormTextBox::cmdInsert_Click() {
    const Element& element = elementOf(caption());
    if (element.needsValue && textBoxEmpty(txtValue)) return reportEmptyFields();
    replaceSelectionText(
        activeText(),
        element.build(
            {.name = txtName.text(), .value = txtValue.text(), .maxLength = txtMaxLen.text(), .size = txtSize.text()}));
    unload();
}

void FormTextBox::cmdHelp_Click() {
    showHelpPage(name(), caption());
}

void showFormTextBox(std::string_view caption) {
    auto& form = toolForm<FormTextBox>();
    form.prepare(caption);
    openToolForm(form, ShowMode::modal);
}

}  // namespace kelvor
