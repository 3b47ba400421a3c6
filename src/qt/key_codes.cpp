// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/key_codes.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "controls/key_press.h"
#include "qt/key_layout.h"

namespace kelvor::qt {

namespace {

struct KeyRow {
    int key;
    int code;
};

constexpr std::array specialKeys = {
    KeyRow{Qt::Key_Backspace, key_code::backspace},
    KeyRow{Qt::Key_Tab, key_code::tab},
    KeyRow{Qt::Key_Backtab, key_code::tab},
    KeyRow{Qt::Key_Return, key_code::enter},
    KeyRow{Qt::Key_Enter, key_code::enter},
    KeyRow{Qt::Key_Shift, key_code::shift},
    KeyRow{Qt::Key_Control, key_code::ctrl},
    KeyRow{Qt::Key_Alt, key_code::alt},
    KeyRow{Qt::Key_Escape, key_code::escape},
    KeyRow{Qt::Key_Space, key_code::space},
    KeyRow{Qt::Key_PageUp, key_code::pageUp},
    KeyRow{Qt::Key_PageDown, key_code::pageDown},
    KeyRow{Qt::Key_End, key_code::end},
    KeyRow{Qt::Key_Home, key_code::home},
    KeyRow{Qt::Key_Left, key_code::left},
    KeyRow{Qt::Key_Up, key_code::up},
    KeyRow{Qt::Key_Right, key_code::right},
    KeyRow{Qt::Key_Down, key_code::down},
    KeyRow{Qt::Key_Insert, key_code::insert},
    KeyRow{Qt::Key_Delete, key_code::deleteKey},
};

constexpr std::string_view digitRow = "1234567890";
/// What a US keyboard gives for that row with Shift, for events that carry no scan code.
constexpr std::string_view shiftedDigitRow = "!@#$%^&*()";

}  // namespace

int keyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return key_code::f1 + key - Qt::Key_F1;
    const auto row = std::find_if(specialKeys.begin(), specialKeys.end(), [&](KeyRow each) { return each.key == key; });
    if (row != specialKeys.end()) return row->code;

    const quint32 scanCode = event.nativeScanCode();
    if (scanCode == 0) {
        const auto place = key < 128 ? shiftedDigitRow.find(static_cast<char>(key)) : std::string_view::npos;
        return place == std::string_view::npos ? 0 : digitRow[place];
    }
    if (scanCode < firstDigitScanCode || scanCode >= firstDigitScanCode + digitRow.size()) return 0;
    return digitRow[scanCode - firstDigitScanCode];
}

int shiftBits(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? modifier::shift : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? modifier::ctrl : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? modifier::alt : 0);
}

}  // namespace kelvor::qt
