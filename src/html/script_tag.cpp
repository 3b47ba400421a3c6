// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/script_tag.h"

namespace kelvor {

std::string scriptTag(ScriptLanguage language, std::string_view script) {
    const bool isJavaScript = language == ScriptLanguage::javaScript;
    const std::string_view name = isJavaScript ? "JavaScript" : "VBScript";
    // Each language's own sign of a comment, so that the end of the hiding one is no statement.
    const std::string_view comment = isJavaScript ? "// " : "'";
    std::string tag = "<SCRIPT LANGUAGE=\"" + std::string(name) + "\">\r\n<!-- Begin Hide\r\n\r\n";
    tag.append(script).append("\r\n\r\n").append(comment);
    return tag.append("end hide -->\r\n</SCRIPT>\r\n");
}

}  // namespace kelvor
