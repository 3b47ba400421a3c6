// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/list_view.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// The templates: files "*.tpl" in the program's Templates directory, from which new documents are made.
class TemplateHolder : public ToolDialog {
public:
    TemplateHolder() : ToolDialog("templateHolder", "Templates") {}

    ListView lbxTemplates{*this,
                          "lbxTemplates",
                          {.doubleClicked = &TemplateHolder::cmdOpen_Click,
                           .beforeLabelEdit = &TemplateHolder::lbxTemplates_BeforeLabelEdit,
                           .afterLabelEdit = &TemplateHolder::lbxTemplates_AfterLabelEdit}};
    Button cmdOpen{*this, "cmdOpen", "&Open", &TemplateHolder::cmdOpen_Click};
    Button cmdEdit{*this, "cmdEdit", "&Edit", &TemplateHolder::cmdEdit_Click};
    Button cmdDelete{*this, "cmdDelete", "&Delete", &TemplateHolder::deleteTemplate};
    Button cmdClose{*this, "cmdClose", "&Close", &TemplateHolder::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &TemplateHolder::showHelp};

    /// Writes the active document's text and one line end (CR LF) as a new template. A name that is taken is told,
    /// and another one asked for.
    void addTpl(const std::string& name);

private:
    void Form_Load() override;
    void Form_Activate() override;
    void cmdOpen_Click();
    void cmdEdit_Click();
    void lbxTemplates_BeforeLabelEdit();
    void lbxTemplates_AfterLabelEdit(const std::string& text, bool& cancel);
    void populateTemplateBox();
    void deleteTemplate();
    std::string selectedName() const;

    std::string templatePath_;  ///< the template whose name is being edited
};

/// The stems of all templates, in the order in which a person reads them. Without any an error 5.
std::vector<std::string> listTemplateNames();

/// Where the templates are; the directory may be missing.
std::string templateDirectory();

/// The path of the template of that name.
std::string templateFile(const std::string& name);

/// Asks for a name and saves the active document's text as a template.
void mnuTools_CreateTemplate_Click();

/// Offers the templates for a new document; without any the user is told where they belong.
void mnuFile_New_Click();

}  // namespace kelvor
