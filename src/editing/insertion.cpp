// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/insertion.h"

#include "controls/edit_control.h"
#include "controls/form.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"

namespace kelvor {

namespace {

struct Delivery {
    std::string formName;
    EditControl* control = nullptr;
};

Delivery& delivery() {
    static Delivery target;
    return target;
}

}  // namespace

void insertAtSelection(std::string_view openText, std::optional<std::string_view> closeText) {
    EditControl& text = activeText();
    if (insertAround(text, openText, closeText) && activeFormName == documentForm) focusDocument();
}

bool insertAround(EditControl& control, std::string_view openText, std::optional<std::string_view> closeText) {
    const int selStart = control.selStart();
    const int selLength = control.selLength();
    const std::string inserted = std::string(openText) + control.selText() + std::string(closeText.value_or(""));
    control.setSelText(inserted);
    if (selLength == 0) return false;
    control.setSelStart(selStart);
    control.setSelLength(static_cast<int>(inserted.size()));
    return true;
}

void replaceSelectionText(EditControl& control, std::string_view text) {
    control.setSelText(text);
}

void setDeliveryTarget(const std::string& formName, EditControl* control) {
    delivery() = {formName, control};
}

void resetDeliveryTarget() {
    delivery() = {};
}

EditControl& activeText() {
    return mainForm().activeForm().Text1;
}

EditControl& deliveryTarget() {
    const Delivery& target = delivery();
    if (target.control && target.formName == activeFormName) return *target.control;
    return mainForm().activeForm().Text1;
}

}  // namespace kelvor
