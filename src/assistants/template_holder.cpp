// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/template_holder.h"

#include <string_view>

#include "base/error.h"
#include "base/outcome.h"
#include "controls/form.h"
#include "core/file_open.h"
#include "core/journaled_save.h"
#include "core/recent_files.h"
#include "editing/insertion.h"
#include "files/files.h"
#include "files/paths.h"
#include "files/places.h"
#include "files/whole_file.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "text/code_points.h"
#include "text/text_search.h"

namespace kelvor {

namespace {

const Message periodInName = {.text = "A template name cannot contain a period(.).",
                              .title = "Illegal character in requested template name",
                              .icon = MessageIcon::critical};

const Message nameIsTaken = {
    .text =
        "You already have a template file on disk with the filename required by this new "
        "template.\r\n\r\nPlease modify the template name slightly to allow the addition of the "
        "new template to occur.",
    .title = "Template file already exists.",
    .icon = MessageIcon::question};

const Message templateAdded = {
    .text = "Template add complete!", .title = "Template added", .icon = MessageIcon::information};

const Message noTemplates = {
    .text =
        "The template directory does not exist or is empty.\r\n\r\n"
        "To correct this problem ensure that a subdirectory called Templates exists underneath "
        "the Kelvor program directory.  Copy an html file into the new directory and rename it "
        "Default Template.tpl.\r\n\r\n"
        "Re-installing Kelvor will also correct this problem",
    .title = "Template directory missing or empty",
    .icon = MessageIcon::critical};

constexpr std::string_view extension = ".tpl";

bool isDefaultTemplate(const std::string& name) {
    return TextSearch("Default Template").find(name).has_value();
}

const Message notDeletable = {.text =
                                  "You can not delete the default template.\r\n"
                                  "You can open and modify the default template with the editor.",
                              .title = "Template deletion error",
                              .icon = MessageIcon::exclamation};

/// Whether a name can be a template's; the user has been told otherwise.
bool validTemplateName(const std::string& name) {
    if (!validFileName(name)) return false;
    if (name.find('.') == std::string::npos) return true;
    beepAndShow(periodInName);
    return false;
}

/// Whether a template may be renamed so. The user has been told otherwise; a name without a letter is as good as a
/// cancelled edit.
bool mayBeRenamed(const std::string& oldName, const std::string& name) {
    if (isBlank(name) || !validTemplateName(name)) return false;
    if (name == oldName || !fileExists(templateFile(name))) return true;
    beepAndShow({.text = "There is a template of this name already: " + name,
                 .title = "Template file already exists.",
                 .icon = MessageIcon::exclamation});
    return false;
}

}  // namespace

void TemplateHolder::Form_Activate() {
    if (lbxTemplates.count() > 0) lbxTemplates.SetFocus();
}

void TemplateHolder::lbxTemplates_BeforeLabelEdit() {
    templatePath_ = lbxTemplates.selectedText().value_or("");
}

void TemplateHolder::Form_Load() {
    // Without templates the error is told and the form still loads: a first one can be added.
    guarded([this] { populateTemplateBox(); });
    if (lbxTemplates.count() > 0) lbxTemplates.setSelectedRow(0);
}

void TemplateHolder::populateTemplateBox() {
    for (const std::string& name : listTemplateNames()) lbxTemplates.addRow(name);
}

std::string TemplateHolder::selectedName() const {
    // A command by its access key comes while a name is still being edited.
    lbxTemplates.endEdit();
    if (auto selected = lbxTemplates.selectedText()) return *selected;
    throw Error(error_number::objectNotSet, "No template is selected");
}

void TemplateHolder::cmdOpen_Click() {
    const std::string path = templateFile(selectedName());
    if (const Outcome opened = fileOpen(path, true); !opened) return reportOpenError(path, opened.cause());
    mainForm().increaseUntitledCount();
    unload();
}

void TemplateHolder::cmdEdit_Click() {
    const std::string path = templateFile(selectedName());
    if (const Outcome opened = fileOpen(path, false); !opened) return reportOpenError(path, opened.cause());
    updateOpenFileCollection();
    unload();
}

void TemplateHolder::deleteTemplate() {
    const std::string name = selectedName();
    if (isDefaultTemplate(name)) {
        beepAndShow(notDeletable);
        return;
    }
    if (!confirmDeletion("Delete [" + name + ".tpl] template?")) return;
    removeFile(templateFile(name));
    lbxTemplates.removeRow(lbxTemplates.selectedRow());
}

void TemplateHolder::lbxTemplates_AfterLabelEdit(const std::string& text, bool& cancel) {
    cancel = !mayBeRenamed(templatePath_, text);
    if (!cancel) renameFile(templateFile(templatePath_), templateFile(text));
}

void TemplateHolder::addTpl(const std::string& name) {
    const std::string path = templateFile(name);
    if (fileExists(path)) {
        beepAndShow(nameIsTaken);
        mnuTools_CreateTemplate_Click();
        return;
    }
    journaledSave(path, activeText().text() + "\r\n");
    beepAndShow(templateAdded);
}

std::vector<std::string> listTemplateNames() {
    std::vector<std::string> names = filesMatching(templateDirectory(), "*" + std::string(extension));
    if (names.empty()) throw Error(error_number::invalidProcedureCall, "Invalid procedure call or argument");
    for (std::string& name : names) name.resize(name.size() - extension.size());
    return names;
}

std::string templateDirectory() {
    return joinPath(programDirectory(), "Templates");
}

std::string templateFile(const std::string& name) {
    return joinPath(templateDirectory(), name + std::string(extension));
}

void mnuTools_CreateTemplate_Click() {
    const std::string name = platform().dialogs.input(
        {.prompt = "Enter a descriptive name for the template.\r\n\r\nNote: This name must also be a valid filename.",
         .title = "Create Template."});
    if (name.empty() || !validFileName(name)) return;
    TemplateHolder& holder = toolForm<TemplateHolder>();
    holder.load();
    holder.addTpl(name);
    activeText().SetFocus();
}

void mnuFile_New_Click() {
    if (!listingFinds(joinPath(templateDirectory(), "*.tpl"))) {
        beepAndShow(noTemplates);
        return;
    }
    openToolForm(toolForm<TemplateHolder>(), ShowMode::modal);
}

}  // namespace kelvor
