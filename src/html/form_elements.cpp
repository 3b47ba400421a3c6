// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/form_elements.h"

#include "html/attributes.h"

namespace kelvor {

namespace {

constexpr std::string_view lineEnd = "\r\n";

std::string inputStart(std::string_view type, std::string_view name) {
    return "<INPUT" + attribute("TYPE", type) + optionalAttribute("NAME", name);
}

std::string textInput(std::string_view type, const InputFields& input) {
    return inputStart(type, input.name) + optionalAttribute("VALUE", input.value) +
           numberAttribute("MAXLENGTH", input.maxLength) + numberAttribute("SIZE", input.size) + ">";
}

std::string group(std::string_view type, std::string_view name, const std::vector<FormOption>& options) {
    const std::string start = "<INPUT" + optionalAttribute("NAME", name) + attribute("TYPE", type);
    std::string text;
    for (const FormOption& option : options) {
        text.append(start).append(option.isDefault ? " CHECKED" : "").append(attribute("VALUE", option.value));
        text.append(">").append(option.description).append("</INPUT>").append(lineEnd);
    }
    return text;
}

}  // namespace

std::string formPair(const FormTag& form) {
    return "<FORM" + optionalAttribute("NAME", form.name) + attribute("METHOD", form.method) +
           attribute("ACTION", form.action) + ">\r\n\r\n</FORM>";
}

std::string buildHF(const InputFields& input) {
    return inputStart("HIDDEN", input.name) + optionalAttribute("VALUE", input.value) + ">";
}

std::string buildPW(const InputFields& input) {
    return textInput("PASSWORD", input);
}

std::string buildRB(const InputFields& input) {
    return inputStart("RESET", {}) + attribute("VALUE", input.value) + ">";
}

std::string buildBut(const InputFields& input) {
    return inputStart("BUTTON", input.name) + optionalAttribute("VALUE", input.value) + ">";
}

std::string buildSubmit(const InputFields& input) {
    return inputStart("SUBMIT", input.name) + attribute("VALUE", input.value) + ">";
}

std::string buildTB(const InputFields& input) {
    return textInput("TEXT", input);
}

std::string textAreaTags(const TextAreaFields& area) {
    return "<TEXTAREA" + optionalAttribute("NAME", area.name) + numberAttribute("ROWS", area.rows) +
           numberAttribute("COLS", area.columns) + ">" + area.text + "</TEXTAREA>";
}

std::string buildSelectGroup(std::string_view name, const std::vector<FormOption>& options) {
    std::string text = "<SELECT" + optionalAttribute("NAME", name) + ">";
    for (const FormOption& option : options) {
        text.append(lineEnd).append("\t<OPTION").append(option.isDefault ? " SELECTED" : "");
        text.append(attribute("VALUE", option.value)).append(">").append(option.description).append("</OPTION>");
    }
    return text.append(lineEnd).append("</SELECT>");
}

std::string buildCBGroup(std::string_view name, const std::vector<FormOption>& options) {
    return group("CHECKBOX", name, options);
}

std::string buildRBGroup(std::string_view name, const std::vector<FormOption>& options) {
    return group("RADIO", name, options);
}

}  // namespace kelvor
