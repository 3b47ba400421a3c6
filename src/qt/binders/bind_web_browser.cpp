// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/web_browser.h"

#include "qt/binders/binders.h"
#include "qt/preview_pane.h"

namespace kelvor::qt {

void bindWebBrowser(WebBrowser& browser, QWidget& place, FormLink& link) {
    auto* pane = new PreviewPane(place);
    link.follow(browser, place, [&browser, pane](Aspect aspect) {
        if (aspect != Aspect::value) return;
        if (browser.address().empty())
            pane->close();
        else
            pane->navigate(browser.address(), browser.mapped());
    });
}

}  // namespace kelvor::qt
