// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "controls/handler.h"
#include "controls/text_field.h"

namespace kelvor {

/// Characters that alone can be typed into a field; "\b" is the backspace key.
namespace keys {
inline constexpr std::string_view number = "0123456789.\b";
inline constexpr std::string_view digits = "0123456789";
}  // namespace keys

/// A field for one line of text. What it is given keeps its line ends; what the user types or pastes ends at the first.
class TextBox : public TextField {
public:
    struct Handlers {
        Handler<> changed;
        Handler<> doubleClicked;
    };

    explicit TextBox(Form& form, std::string name, std::string text = {}, const Handlers& handlers = {})
        : TextField(form, std::move(name)), text_(std::move(text)) {
        handlers.changed.connectTo(changed, form);
        handlers.doubleClicked.connectTo(doubleClicked, form);
    }

    const std::string& text() const override { return text_; }
    /// Writes the text and puts the caret before it; `changed` when the text differs.
    void setText(const std::string& text) { write(text, 0); }

    /// Has the user type or paste these characters only; others are left out.
    void setKeys(std::string_view characters) { keys_ = characters; }
    bool takesKey(char key) const { return keys_.empty() || keys_.find(key) != std::string_view::npos; }

    /// Red in the low byte; -1 is the desktop's own colour.
    int backColor() const { return backColor_; }
    void setBackColor(int color) { change(backColor_, color, Aspect::color); }

    /// The user's act: the field's text is to be this one, and the caret behind what is new in it. Of the new piece the
    /// field takes what it can; when that is nothing it stays as it is, as it does while it is disabled or hidden.
    void type(const std::string& text);

    /// The user's act; nothing happens while the field is disabled or hidden.
    void doubleClick() {
        if (enabled() && visible()) doubleClicked.raise();
    }

    /// The text was typed or written.
    Event<> changed;
    Event<> doubleClicked;

private:
    void write(const std::string& text, int caret);

    std::string text_;
    std::string_view keys_;
    int backColor_ = -1;
};

}  // namespace kelvor
