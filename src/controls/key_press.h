// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Keys that change what another one means; their sum is the `shift` of a press.
namespace modifier {
constexpr int shift = 1;
constexpr int ctrl = 2;
constexpr int alt = 4;
}  // namespace modifier

/// Codes of the keys that are neither letter nor digit.
namespace key_code {
constexpr int backspace = 8;
constexpr int tab = 9;
constexpr int enter = 13;
constexpr int shift = 16;
constexpr int ctrl = 17;
constexpr int alt = 18;
constexpr int escape = 27;
constexpr int space = 32;
constexpr int pageUp = 33;
constexpr int pageDown = 34;
constexpr int end = 35;
constexpr int home = 36;
constexpr int left = 37;
constexpr int up = 38;
constexpr int right = 39;
constexpr int down = 40;
constexpr int insert = 45;
constexpr int deleteKey = 46;
constexpr int f1 = 112;  ///< F2 and the others follow
}  // namespace key_code

/// A key that went down or up. `keyCode` is the capital letter's code for letters, the digit's for digits,
/// otherwise as in key_code; a handler of keyDown sets it to 0 to swallow the key.
struct KeyPress {
    int keyCode = 0;
    int shift = 0;  ///< the sum of modifier values
};

}  // namespace kelvor
