// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

// The elements of a form, as they are written into a page. All values stand as they were entered, and each line ends
// in CR LF. A name or a value that is empty is left out where nothing else is said.

struct FormTag {
    std::string name;
    std::string method;  ///< written even when empty, as the action is
    std::string action;
};

/// The opening tag, an empty line and the closing tag, without a line end behind it.
std::string formPair(const FormTag& form);

/// How many bytes of formPair() stand behind its empty line.
inline constexpr int formPairTail = 9;

struct InputFields {
    std::string name;
    std::string value;
    std::string maxLength = "0";  ///< left out for exactly "0", as the size is; written when it is empty
    std::string size = "0";
};

/// A hidden field.
std::string buildHF(const InputFields& input);
/// A password field.
std::string buildPW(const InputFields& input);
/// A reset button, which has no name and always a value.
std::string buildRB(const InputFields& input);
/// A button that does nothing by itself.
std::string buildBut(const InputFields& input);
/// A submit button, which always has a value.
std::string buildSubmit(const InputFields& input);
/// A field for one line of text.
std::string buildTB(const InputFields& input);

struct TextAreaFields {
    std::string name;
    std::string rows = "0";  ///< left out for exactly "0", as the columns are; written when it is empty
    std::string columns = "0";
    std::string text;
};

/// A field for several lines of text, with the text that stands in it at first.
std::string textAreaTags(const TextAreaFields& area);

/// One of a group's choices.
struct FormOption {
    std::string description;
    std::string value;
    bool isDefault = false;
};

/// A list, each choice on a line that begins with a tab; no line end behind it.
std::string buildSelectGroup(std::string_view name, const std::vector<FormOption>& options);
/// Check boxes of one name, each on a line with its line end.
std::string buildCBGroup(std::string_view name, const std::vector<FormOption>& options);
/// The same with radio buttons.
std::string buildRBGroup(std::string_view name, const std::vector<FormOption>& options);

}  // namespace kelvor
