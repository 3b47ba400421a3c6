// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/control.h"

namespace kelvor {

/// A row of tabs, each found by its key.
class TabStrip : public Control {
public:
    struct Tab {
        std::string key;
        std::string caption;
        std::string tag;
        std::string toolTip;
    };

    using Control::Control;

    const std::vector<Tab>& tabs() const { return tabs_; }
    std::size_t count() const { return tabs_.size(); }
    bool contains(const std::string& key) const { return find(key) != tabs_.end(); }

    /// Adds a tab at the end; the first one becomes the selected one, without a click.
    /// A key that is there already is an error 457.
    void add(const std::string& key, const std::string& caption);
    /// Removes the tab of that key. When it was selected its neighbour is, without a click.
    /// A key that is not there is an error 35601.
    void remove(const std::string& key);

    void setCaption(const std::string& key, const std::string& caption);
    void setTag(const std::string& key, const std::string& tag);
    /// What the tab tells of itself while the pointer rests on it.
    void setTabToolTip(const std::string& key, const std::string& text);

    /// The selected tab. With no tabs an error 91.
    const Tab& selectedItem() const;
    bool hasSelection() const { return selected_.has_value(); }
    /// Selects a tab, without a click.
    void setSelectedItem(const std::string& key);
    /// The user's click on a tab, which may be selected already.
    void click(const std::string& key);

    /// Draws the tabs anew.
    void Refresh() { tell(Aspect::list); }

    Event<> clicked;

private:
    std::vector<Tab>::const_iterator find(const std::string& key) const;
    std::size_t indexOf(const std::string& key) const;

    std::vector<Tab> tabs_;
    std::optional<std::size_t> selected_;
};

}  // namespace kelvor
