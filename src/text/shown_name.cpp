// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/shown_name.h"

#include "text/code_points.h"

namespace kelvor {

namespace {

/// The end of a line or paragraph, and what sets the direction of the text after it.
bool bendsLine(UChar32 value) {
    return (value >= 0x2028 && value <= 0x202E) || (value >= 0x2066 && value <= 0x2069);
}

std::string inHex(UChar32 value, int digits) {
    std::string hex;
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) hex += "0123456789ABCDEF"[value >> shift & 0xF];
    return hex;
}

}  // namespace

std::string shownName(std::string_view name) {
    std::string shown;
    shown.reserve(name.size());
    for (std::size_t at = 0; at < name.size();) {
        const auto [value, length] = codePointAt(name, at);
        if (value == '\n') {
            shown += "\\n";
        } else if (value == '\r') {
            shown += "\\r";
        } else if (value == '\t') {
            shown += "\\t";
        } else if (value < 0x20 || value == 0x7F || value >= firstStrayByte) {
            shown += "\\x" + inHex(value & 0xFF, 2);
        } else if ((value >= 0x80 && value < 0xA0) || bendsLine(value)) {
            shown += "\\u" + inHex(value, 4);
        } else {
            shown += name.substr(at, length);
        }
        at += length;
    }
    return shown;
}

}  // namespace kelvor
