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
    KeyRow{Qt::Key_Shift, 16},
    KeyRow{Qt::Key_Control, 17},
    KeyRow{Qt::Key_Alt, 18},
    KeyRow{Qt::Key_Escape, key_code::escape},
    KeyRow{Qt::Key_Space, key_code::space},
    KeyRow{Qt::Key_PageUp, 33},
    KeyRow{Qt::Key_PageDown, 34},
    KeyRow{Qt::Key_End, 35},
    KeyRow{Qt::Key_Home, 36},
    KeyRow{Qt::Key_Left, 37},
    KeyRow{Qt::Key_Up, 38},
    KeyRow{Qt::Key_Right, 39},
    KeyRow{Qt::Key_Down, 40},
    KeyRow{Qt::Key_Insert, 45},
    KeyRow{Qt::Key_Delete, key_code::deleteKey},
};
constexpr int codeOfF1 = 112;

constexpr std::string_view digitRow = "1234567890";
/// What a US keyboard gives for that row with Shift, for events that carry no scan code.
constexpr std::string_view shiftedDigitRow = "!@#$%^&*()";

}  // namespace

int keyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return codeOfF1 + key - Qt::Key_F1;
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
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) + (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

}  // namespace kelvor::qt
