// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/button_pictures.h"

#include <algorithm>
#include <string>

#include "qt/convert.h"
#include "qt/themed_icon.h"

namespace kelvor::qt {

namespace {

struct Picture {
    std::string_view key;
    const char* file;
};

// clang-format off
constexpr Picture pictures[] = {
    {"New", "new"},
    {"Open", "open"},
    {"Save", "save"},
    {"Save As", "save_as"},
    {"Print", "print"},
    {"Find", "find"},
    {"findReplace", "find_replace"},
    {"Copy", "copy"},
    {"Cut", "cut"},
    {"Paste", "paste"},
    {"Undo", "undo"},
    {"Delete", "delete"},
    {"Links", "links"},
    {"Image", "image"},
    {"Scripts", "scripts"},
    {"Table", "table"},
    {"Tags", "tags"},
    {"Special Chars", "special_chars"},
    {"Format", "format"},
    {"Quick Format", "quick_format"},
    {"Center", "center"},
    {"Right", "right"},
    {"Bold", "bold"},
    {"Italics", "italics"},
    {"Underline", "underline"},
    {"BR", "br"},
    {"para", "para"},
    {"color", "color"},
    {"About", "about"},
    {"Exit", "exit"},

    {"sp", "sp"},
    {"np", "np"},
    {"calc", "calc"},
    {"exp", "exp"},
    {"mirrel", "mirrel"},
    {"tavlok", "tavlok"},
    {"quick_file", "quick_file"},
    {"DocumentAssistant", "document_assistant"},

    {"form_open", "form_open"},
    {"form_text", "form_text"},
    {"form_textarea", "form_textarea"},
    {"form_check", "form_check"},
    {"form_radio", "form_radio"},
    {"form_select", "form_select"},
    {"form_image", "form_image"},
    {"form_hidden", "form_hidden"},
    {"form_pw", "form_pw"},
    {"form_reset", "form_reset"},
    {"form_button", "form_button"},
    {"form_submit", "form_submit"},

    {"Source", "source"},
    {"Preview", "preview"},
    {"NoVDir", "no_vdir"},
    {"VDir", "vdir"},
};
// clang-format on

}  // namespace

QIcon buttonPicture(std::string_view key) {
    const auto* picture =
        std::find_if(std::begin(pictures), std::end(pictures), [key](const Picture& each) { return each.key == key; });
    if (picture == std::end(pictures)) return {};
    return themedIcon(toQt(":/toolbar/" + std::string(picture->file) + ".svg"));
}

}  // namespace kelvor::qt
