#include "frame/toolbar_table.h"

namespace kelvor {

namespace {

using enum ToolBar::ButtonKind;

const ToolBar::Button separatorButton = {.key = "", .toolTip = "", .kind = separator};

}  // namespace

std::vector<ToolBar::Button> mainButtons() {
    return {
        {"New", "New File"},
        {"Open", "Open File"},
        {"Save", "Save File"},
        {"Save As", "Save File As"},
        {"Print", "Print File"},
        {"Find", "Find"},
        {"findReplace", "Find and Replace"},
        {"Copy", "Copy"},
        {"Cut", "Cut"},
        {"Paste", "Paste"},
        {"Undo", "Undo"},
        {"Delete", "Delete"},
        {"Links", "Link Manager"},
        {"Image", "Image Assistant"},
        {"Scripts", "Script Assistant"},
        {"Table", "Table Generator"},
        {"Tags", "Tags", toggle},
        {"Special Chars", "Special Characters", toggle},
        {"Format", "Format Document"},
        {"Quick Format", "Quick Text Format"},
        {"Center", "Center"},
        {"Right", "Right Align"},
        {"Bold", "Bold"},
        {"Italics", "Italics"},
        {"Underline", "Underline"},
        {"BR", "Line Break <BR>"},
        {"para", "Paragraph"},
        {"color", "Quick Color", dropDown, {{"fcolor", "<FONT COLOR="}, {"color", "COLOR="}, {"bgcolor", "BGCOLOR="}}},
        {"About", "About"},
        {"Exit", "Exit"},
    };
}

std::vector<ToolBar::Button> helperButtons() {
    return {
        {"sp", "Scratch Pad"},
        {"np", "Notepad"},
        {"calc", "Calculator"},
        {"exp", "Explorer"},
        {"mirrel", "Mirrel"},
        {"tavlok", "Tavlok"},
        {"quick_file", "Quick File", toggle},
        {"DocumentAssistant", "Document Assistant", toggle},
    };
}

std::vector<ToolBar::Button> formButtons() {
    return {
        {"form_open", "Form method/action"},
        {"form_text", "Textbox"},
        {"form_textarea", "Textarea"},
        {"form_check", "Checkbox"},
        {"form_radio", "Radio button"},
        {"form_select", "Select"},
        {"form_image", "Image"},
        {"form_hidden", "Hidden"},
        {"form_pw", "Password"},
        {"form_reset", "Reset"},
        {"form_button", "Button"},
        {"form_submit", "Submit"},
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
