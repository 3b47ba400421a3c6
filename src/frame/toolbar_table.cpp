// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/toolbar_table.h"

namespace kelvor {

namespace {

using enum ToolBar::ButtonKind;

const ToolBar::Button separatorButton = {.kind = separator};

}  // namespace

std::vector<ToolBar::Button> mainButtons() {
    return {
        {.key = "New", .toolTip = "New File"},
        {.key = "Open", .toolTip = "Open File"},
        {.key = "Save", .toolTip = "Save File"},
        {.key = "Save As", .toolTip = "Save File As"},
        {.key = "Print", .toolTip = "Print File"},
        {.key = "Find", .toolTip = "Find"},
        {.key = "findReplace", .toolTip = "Find and Replace"},
        {.key = "Copy", .toolTip = "Copy"},
        {.key = "Cut", .toolTip = "Cut"},
        {.key = "Paste", .toolTip = "Paste"},
        {.key = "Undo", .toolTip = "Undo"},
        {.key = "Delete", .toolTip = "Delete"},
        {.key = "Links", .toolTip = "Link Manager"},
        {.key = "Image", .toolTip = "Image Assistant"},
        {.key = "Scripts", .toolTip = "Script Assistant"},
        {.key = "Table", .toolTip = "Table Generator"},
        {.key = "Tags", .toolTip = "Tags", .kind = toggle},
        {.key = "Special Chars", .toolTip = "Special Characters", .kind = toggle},
        {.key = "Format", .toolTip = "Format Document"},
        {.key = "Quick Format", .toolTip = "Quick Text Format"},
        {.key = "Center", .toolTip = "Center"},
        {.key = "Right", .toolTip = "Right Align"},
        {.key = "Bold", .toolTip = "Bold"},
        {.key = "Italics", .toolTip = "Italics"},
        {.key = "Underline", .toolTip = "Underline"},
        {.key = "BR", .toolTip = "Line Break <BR>"},
        {.key = "para", .toolTip = "Paragraph"},
        {.key = "color",
         .toolTip = "Quick Color",
         .kind = dropDown,
         .entries = {{.key = "fcolor", .caption = "<FONT COLOR="},
                     {.key = "color", .caption = "COLOR="},
                     {.key = "bgcolor", .caption = "BGCOLOR="}}},
        {.key = "About", .toolTip = "About"},
        {.key = "Exit", .toolTip = "Exit"},
    };
}

std::vector<ToolBar::Button> helperButtons() {
    return {
        {.key = "sp", .toolTip = "Scratch Pad"},
        {.key = "np", .toolTip = "Notepad"},
        {.key = "calc", .toolTip = "Calculator"},
        {.key = "exp", .toolTip = "Explorer"},
        {.key = "mirrel", .toolTip = "Mirrel"},
        {.key = "tavlok", .toolTip = "Tavlok"},
        {.key = "quick_file", .toolTip = "Quick File", .kind = toggle},
        {.key = "DocumentAssistant", .toolTip = "Document Assistant", .kind = toggle},
    };
}

std::vector<ToolBar::Button> formButtons() {
    return {
        {.key = "form_open", .toolTip = "Form method/action"},
        {.key = "form_text", .toolTip = "Textbox"},
        {.key = "form_textarea", .toolTip = "Textarea"},
        {.key = "form_check", .toolTip = "Checkbox"},
        {.key = "form_radio", .toolTip = "Radio button"},
        {.key = "form_select", .toolTip = "Select"},
        {.key = "form_image", .toolTip = "Image"},
        {.key = "form_hidden", .toolTip = "Hidden"},
        {.key = "form_pw", .toolTip = "Password"},
        {.key = "form_reset", .toolTip = "Reset"},
        {.key = "form_button", .toolTip = "Button"},
        {.key = "form_submit", .toolTip = "Submit"},
    };
}

std::vector<ToolBar::Button> viewModeButtons() {
    return {
        {.key = "Source", .toolTip = "Source", .kind = toggle},
        {.key = "Preview", .toolTip = "Preview", .kind = toggle},
        separatorButton,
        {.key = "NoVDir", .toolTip = "Disable Virtual Directory Mappings", .kind = toggle, .caption = "Unmapped"},
        {.key = "VDir", .toolTip = "Enable Virtual Directory Mappings", .kind = toggle, .caption = "Mapped"},
    };
}

}  // namespace kelvor
