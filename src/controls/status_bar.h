// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace kelvor {

/// A row of text panels, numbered from 1, or one single text.
class StatusBar : public Control {
public:
    /// What a panel shows: its text, as a notice one that a screen reader says when it comes, or the state of a key,
    /// which the widget keeps itself.
    enum class PanelKind { text, notice, capsLock, insert, numLock };
    struct Panel {
        PanelKind kind = PanelKind::text;
        std::string text;
    };

    StatusBar(Form& form, std::string name, std::vector<Panel> panels)
        : Control(form, std::move(name)), panels_(std::move(panels)) {}

    const std::vector<Panel>& panels() const { return panels_; }
    /// @param number  from 1; an error 9 beyond the last
    const std::string& panelText(int number) const { return panels_.at(indexOf(number)).text; }
    void setPanelText(int number, const std::string& text) {
        change(panels_.at(indexOf(number)).text, text, Aspect::text);
    }

    /// The text of a bar without panels.
    const std::string& simpleText() const { return simpleText_; }
    void setSimpleText(const std::string& text) { change(simpleText_, text, Aspect::text); }

private:
    std::size_t indexOf(int number) const {
        if (number < 1 || number > static_cast<int>(panels_.size()))
            throw Error(error_number::subscriptOutOfRange, "There is no panel " + std::to_string(number));
        return static_cast<std::size_t>(number - 1);
    }

    std::vector<Panel> panels_;
    std::string simpleText_;
};

}  // namespace kelvor
