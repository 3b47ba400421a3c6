// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/key_layout.h"

#include <algorithm>
#include <string_view>

#ifdef KELVOR_X11
// The X header's macros would break Qt's headers behind it.
#include <QGuiApplication>

#include <X11/XKBlib.h>
#include <X11/keysym.h>
#endif

namespace kelvor::qt {

namespace {

constexpr struct {
    unsigned int firstScanCode;
    std::string_view letters;
} letterRows[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

}  // namespace

char letterAtPlace(unsigned int scanCode) {
    for (const auto& row : letterRows) {
        const unsigned int place = scanCode - row.firstScanCode;
        if (scanCode >= row.firstScanCode && place < row.letters.size()) return row.letters[place];
    }
    return 0;
}

#ifdef KELVOR_X11

std::optional<bool> lacksLatinLetters() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    XkbStateRec state{};
    if (!x11 || !x11->display() || XkbGetState(x11->display(), XkbUseCoreKbd, &state) != Success) return std::nullopt;
    // Asked anew each time: what Xlib keeps of the keyboard does not follow a change of the layout.
    XkbDescPtr keyboard = XkbGetMap(x11->display(), XkbKeyTypesMask | XkbKeySymsMask, XkbUseCoreKbd);
    if (!keyboard) return std::nullopt;
    const auto isLatin = [&](unsigned int scanCode) {
        const unsigned int groups = scanCode <= keyboard->max_key_code ? XkbKeyNumGroups(keyboard, scanCode) : 0;
        if (groups == 0) return false;
        const KeySym symbol = XkbKeySymEntry(keyboard, scanCode, 0, std::min<unsigned int>(state.group, groups - 1));
        return symbol >= XK_a && symbol <= XK_z;
    };
    bool latin = false;
    for (const auto& row : letterRows)
        for (unsigned int place = 0; place < row.letters.size(); ++place) latin |= isLatin(row.firstScanCode + place);
    XkbFreeClientMap(keyboard, XkbAllClientInfoMask, True);
    return !latin;
}

#else

std::optional<bool> lacksLatinLetters() {
    return std::nullopt;
}

#endif

}  // namespace kelvor::qt
