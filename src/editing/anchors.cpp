// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/anchors.h"

#include "platform/platform.h"

namespace kelvor {

std::string askAnchorUrl() {
    return platform().dialogs.input(
        {.prompt = "Enter the fully qualified URL for this anchor.", .title = "Make anchor"});
}

std::string askAnchorName() {
    return platform().dialogs.input(
        {.prompt = "Enter the name for this name anchor.\r\n\r\n<A NAME=\"your text here\">",
         .title = "Make named anchor"});
}

std::string openingAnchor(std::string_view target) {
    return "<A HREF=\"" + std::string(target) + "\">";
}

std::string openingNameAnchor(std::string_view name) {
    return "<A NAME=\"" + std::string(name) + "\">";
}

}  // namespace kelvor
