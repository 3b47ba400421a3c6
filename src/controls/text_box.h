// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/handler.h"
#include "controls/text_field.h"

namespace kelvor {

/// A field for one line of text.
class TextBox : public TextField {
public:
    explicit TextBox(Form& form, std::string name, std::string text = {})
        : TextField(form, std::move(name)), text_(std::move(text)) {}

    const std::string& text() const override { return text_; }
    /// Writes the text and puts the caret before it; `changed` when the text differs.
    void setText(const std::string& text) { write(text, 0); }

    /// Red in the low byte; -1 is the desktop's own colour.
    int backColor() const { return backColor_; }
    void setBackColor(int color) { change(backColor_, color, Aspect::color); }

    /// The user's act: the field holds the first line of `text` and the caret stands behind it. Nothing happens while
    /// the field is disabled or hidden.
    void type(const std::string& text) {
        const auto line = text.substr(0, text.find_first_of("\r\n"));
        if (enabled() && visible()) write(line, static_cast<int>(line.size()));
    }

    /// The text was typed or written.
    Event<> changed;

private:
    void write(const std::string& text, int caret) {
        if (text == text_) return;
        text_ = text;
        placeCaret(caret);
        tell(Aspect::text);
        changed.raise();
    }

    std::string text_;
    int backColor_ = -1;
};

}  // namespace kelvor
