// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/edit_control.h"
#include "controls/form.h"
#include "controls/status_bar.h"
#include "controls/web_browser.h"

namespace kelvor {

/// What a document's window shows.
namespace view_mode {
constexpr int source = 1;
constexpr int preview = 2;
}  // namespace view_mode

/// The child window of one open file: its source, and its preview in the same place.
class EditWindow : public Form {
public:
    EditWindow() : Form("editWindow", "", Kind::child) {}

    EditControl& Text1{addEditControl("Text1")};
    WebBrowser WebBrowser1{*this, "WebBrowser1"};
    /// Shows the address of the page in preview.
    StatusBar StatusBar1{*this, "StatusBar1", {}};

    void showSource() {
        showsPage_ = false;
        Text1.ZOrder();
    }
    void showPage() {
        showsPage_ = true;
        WebBrowser1.ZOrder();
    }
    /// Gives the keyboard to the one of the two that is seen: keys must not reach a text behind the page.
    void focusPane() {
        if (showsPage_) return WebBrowser1.SetFocus();
        Text1.SetFocus();
    }

private:
    bool showsPage_ = false;
};

}  // namespace kelvor
