// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/tool_forms.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/event.h"
#include "controls/form.h"
#include "frame/main_frame.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

constexpr const char* fixedForms[] = {"find",       "findReplace", "tags", "specialCharacterInsertion",
                                      "frmScripts", "linkman"};

int loadedChildren() {
    const auto& forms = loadedForms();
    return static_cast<int>(
        std::count_if(forms.begin(), forms.end(), [](const Form* form) { return form->kind() == Form::Kind::child; }));
}

}  // namespace

void unloadFixedForms() {
    for (const char* name : fixedForms) {
        const auto& forms = loadedForms();
        const auto found = std::find_if(forms.begin(), forms.end(), [&](Form* form) { return form->name() == name; });
        if (found != forms.end()) (*found)->unload();
    }
}

void setActiveFormName(const std::string& name) {
    activeFormName = name;
}

bool deliversToTableWizard() {
    return activeFormName == "frmTableWiz";
}

void showFormForContext(Form& form, ShowMode mode) {
    // A form that unloads while it is shown lives until this call is over.
    const EventScope scope;
    if (!formLoadFailed) form.load();
    if (std::exchange(formLoadFailed, false)) {
        form.unload();
        return;
    }
    if (mode != ShowMode::modal) return platform().windows.showModeless(form, mode == ShowMode::floating);
    platform().windows.showModal(form);
    // A dialog that served another one gives the keyboard back to that.
    if (activeFormName == documentForm && !platform().windows.isBlocked(mainForm())) focusDocument();
}

void openToolForm(Form& form, ShowMode mode) {
    formLoadFailed = false;
    showFormForContext(form, mode);
}

void reportLoadError(const std::string& cause) {
    formLoadFailed = true;
    platform().dialogs.message({.text = "An error occurred while loading the form",
                                .cause = cause,
                                .title = "Load error",
                                .icon = MessageIcon::critical});
}

void installLoadErrorReporting() {
    setLoadErrorSink([](Form&, const Error& error) { reportLoadError(error.cause()); });
}

void resetToolForms() {
    activeFormName.clear();
    formLoadFailed = false;
    setLoadErrorSink({});
}

bool hasMdiChild() {
    return loadedChildren() >= 1;
}

void focusDocument() {
    if (!hasMdiChild()) return;
    mainForm().activeForm().activate();
    mainForm().activeForm().focusPane();
}

void focusDelivered() {
    if (!deliversToTableWizard()) focusDocument();
}

bool hasManyMdiChildren() {
    return loadedChildren() >= 2;
}

}  // namespace kelvor
