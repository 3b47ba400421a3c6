// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kelvor {

class Form;

/// The menu row and the button of the main toolbar that open and close a tool form floating beside the document. The
/// row is checked and the button down while the form is there.
class ToolSwitch {
public:
    constexpr ToolSwitch(const char* menuRow, std::string_view buttonKey) : menuRow_(menuRow), buttonKey_(buttonKey) {}

    /// The user's choice: opens the form, or closes it when the row is checked.
    void flip(Form& form) const;
    /// The form goes: lets the row and the button up and gives the document the focus, unless the table wizard takes
    /// what tools deliver.
    void release() const;

private:
    void set(bool on) const;

    const char* menuRow_;
    std::string_view buttonKey_;
};

}  // namespace kelvor
