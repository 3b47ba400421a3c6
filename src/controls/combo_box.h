// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/handler.h"
#include "controls/text_field.h"

namespace kelvor {

/// A list that drops down from a text. A drop-down list takes its rows only; an editable one any text.
class ComboBox : public TextField {
public:
    enum class Style { editable, dropDownList };

    struct Handlers {
        Handler<> clicked;
        Handler<> changed;
    };

    explicit ComboBox(Form& form, std::string name, Style style = Style::dropDownList)
        : TextField(form, std::move(name)), style_(style) {}
    ComboBox(Form& form, std::string name, Style style, const Handlers& handlers)
        : ComboBox(form, std::move(name), style) {
        handlers.clicked.connectTo(clicked, form);
        handlers.changed.connectTo(changed, form);
    }

    Style style() const { return style_; }

    /// Rows added from now on take their place in the order in which a person sorts names.
    void setSorted(bool sorted) { sorted_ = sorted; }

    const std::vector<std::string>& list() const { return list_; }
    void addItem(const std::string& item);
    /// @param index  from 0, the row that the item takes
    void insertItem(std::size_t index, const std::string& item);
    /// An index that is not there is an error 5.
    void removeItem(std::size_t index);
    void clear();

    /// The chosen row from 0, or -1.
    int listIndex() const { return listIndex_; }
    /// Chooses a row, or none with -1, and raises `clicked` when the choice differs. Beyond the rows: error 5.
    void setListIndex(int index);

    const std::string& text() const override { return text_; }
    /// Writes the text of an editable box; `changed` when it differs. The choice becomes the row of exactly
    /// that text, or none.
    void setText(const std::string& text);

    /// The user's acts: typing a text, choosing a row (also the same one again).
    void type(const std::string& text) { setText(text); }
    void choose(int index);

    /// A row was chosen.
    Event<> clicked;
    /// The text was typed or written; choosing a row does not raise it.
    Event<> changed;

private:
    void select(int index);

    Style style_;
    bool sorted_ = false;
    std::vector<std::string> list_;
    int listIndex_ = -1;
    std::string text_;
};

}  // namespace kelvor
