// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/handler.h"

namespace kelvor {

/// Pages of controls behind tabs, of which one is shown. Pages are numbered from 0.
class TabControl : public Control {
public:
    TabControl(Form& form, std::string name, const std::vector<std::string>& captions, const Handler<int>& click = {});

    std::size_t count() const { return pages_.size(); }
    const std::string& caption(int page) const { return at(page).caption; }
    void setCaption(int page, const std::string& caption);

    /// The page shown.
    int tab() const { return tab_; }
    /// Raises `clicked` when the page differs. A page that is not there is an error 380; one that is disabled
    /// can be shown.
    void setTab(int page);

    bool tabEnabled(int page) const { return at(page).enabled; }
    /// Whether the user can go to the page and use its controls.
    void setTabEnabled(int page, bool enabled);

    /// The user's act; nothing happens while the page or the control is disabled.
    void choose(int page) {
        if (enabled() && tabEnabled(page)) setTab(page);
    }

    /// Another page is shown; told is the one before.
    Event<int> clicked;

private:
    struct Page {
        std::string caption;
        bool enabled = true;
    };
    const Page& at(int page) const;

    std::vector<Page> pages_;
    int tab_ = 0;
};

}  // namespace kelvor
