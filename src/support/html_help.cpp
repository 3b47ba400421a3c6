// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/html_help.h"

#include "files/paths.h"
#include "files/places.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/help_pages.h"

namespace kelvor {

namespace {

const Message cannotBeLoaded = {.text = "The HTML Help file cannot be loaded, an error was encountered.",
                                .title = "HTML Help file error",
                                .icon = MessageIcon::critical};

HtmlHelp helpOfKelvor() {
    HtmlHelp help;
    help.setHelpFileName(helpFilePath());
    return help;
}

}  // namespace

void HtmlHelp::help_home() const {
    if (failed_) {
        beepAndShow(cannotBeLoaded);
    } else {
        platform().help.show(helpFileName_);
    }
}

void HtmlHelp::help_topic(const std::string& topic) {
    helpFileName_ += "::/" + topic;
    if (failed_) {
        platform().dialogs.message(cannotBeLoaded);
    } else {
        platform().help.show(helpFileName_);
    }
}

std::string helpFilePath() {
    return joinPath(helpDirectory(), "Kelvor HTML Help.chm");
}

void showHelpHome() {
    helpOfKelvor().help_home();
}

void showHelpPage(std::string_view where, std::string_view variant) {
    const std::string_view page = helpPage(where, variant);
    if (page.empty()) return showHelpHome();
    helpOfKelvor().help_topic(std::string(page));
}

}  // namespace kelvor
