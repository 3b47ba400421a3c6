// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/form.h"

#include <algorithm>
#include <exception>

#include "base/error.h"
#include "base/event.h"
#include "controls/edit_control.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

std::vector<Form*>& registry() {
    static std::vector<Form*> forms;
    return forms;
}

std::function<void(Form&, const Error&)>& loadErrorSink() {
    static std::function<void(Form&, const Error&)> sink;
    return sink;
}

/// Adds a form to the registry; the frame always stands first.
void enter(Form& form) {
    auto& forms = registry();
    forms.insert(form.kind() == Form::Kind::frame ? forms.begin() : forms.end(), &form);
}

}  // namespace

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
    form.controls_.push_back(this);
}

Form::Form(std::string name, std::string caption, Kind kind)
    : name_(std::move(name)), caption_(std::move(caption)), kind_(kind) {
}

Form::~Form() {
    std::erase(registry(), this);
}

void Form::setCaption(const std::string& caption) {
    if (caption == caption_) return;
    caption_ = caption;
    tell(Aspect::caption);
}

void Form::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    tell(Aspect::enabled);
}

void Form::load() {
    if (loaded_) return;
    const EventScope scope;
    // A window that cannot be made leaves nothing loaded.
    platform().windows.create(*this);
    loaded_ = true;
    enter(*this);
    if (!onLoad) return;
    try {
        onLoad();
    } catch (const std::exception&) {
        if (loadErrorSink()) loadErrorSink()(*this, currentError());
    }
}

bool Form::askUnload() {
    bool cancel = false;
    queryUnload.raise(cancel);
    if (cancel || kind_ != Kind::frame) return !cancel;
    const auto forms = registry();
    const bool agreed = std::all_of(forms.begin(), forms.end(),
                                    [](Form* form) { return form->kind_ != Kind::child || form->askUnload(); });
    if (agreed) childrenAgreed.raise(cancel);
    return agreed && !cancel;
}

void Form::finishUnload() {
    if (!loaded_) return;
    if (kind_ == Kind::frame) {
        for (Form* form : std::vector(registry()))
            if (form != this) form->finishUnload();
    }
    unloaded.raise();
    loaded_ = false;
    std::erase(registry(), this);
    platform().windows.destroy(*this);
}

bool Form::unload() {
    if (!loaded_) return true;
    const EventScope scope;
    if (platform().windows.isBlocked(*this) || !askUnload()) return false;
    finishUnload();
    return true;
}

EditControl& Form::addEditControl(const std::string& name, const Handler<>& changed) {
    editControls_.push_back(platform().windows.createEditControl(*this, name));
    changed.connectTo(editControls_.back()->changed, *this);
    return *editControls_.back();
}

const std::vector<Form*>& loadedForms() {
    return registry();
}

void setLoadErrorSink(std::function<void(Form&, const Error&)> sink) {
    loadErrorSink() = std::move(sink);
}

}  // namespace kelvor
