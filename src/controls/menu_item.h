// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/control.h"
#include "controls/handler.h"

namespace kelvor {

/// A row of a menu, or a menu itself when others name it as their parent.
class MenuItem : public Control {
public:
    /// @param parent  the menu it stands in; nullptr for one of the bar or a popup
    MenuItem(Form& form, std::string name, MenuItem* parent, std::string caption = {}, const Handler<>& click = {});

    MenuItem* parent() const { return parent_; }

    /// With "&" before its access key; "-" makes a separator.
    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption) { change(caption_, caption, Aspect::caption); }
    bool isSeparator() const { return caption_ == "-" && !isName_; }

    /// Whether the caption is a name, such as a path, in which "&" marks nothing.
    bool isName() const { return isName_; }
    void setIsName(bool isName) { isName_ = isName; }

    /// A key chord such as "Ctrl+Shift+S", "F5"; empty for none. Fixed before the widget follows.
    const std::string& shortcut() const { return shortcut_; }
    void setShortcut(const std::string& shortcut) { shortcut_ = shortcut; }

    /// Makes it the top of a popup menu: hidden in the bar, while its rows are reached all the same.
    void makePopup() {
        popup_ = true;
        setVisible(false);
    }

    bool checked() const { return checked_; }
    void setChecked(bool checked) { change(checked_, checked, Aspect::value); }

    /// The user's choice of the row, by mouse, access key or shortcut. Nothing happens when the row
    /// or a menu that holds it is disabled or hidden.
    void click();

    /// Whether click() would act.
    bool reachable() const;

    /// Raised when the row is chosen; for a menu, when it is about to open.
    Event<> clicked;

private:
    MenuItem* parent_;
    std::string caption_;
    std::string shortcut_;
    bool checked_ = false;
    bool popup_ = false;
    bool isName_ = false;
};

}  // namespace kelvor
