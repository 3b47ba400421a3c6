#pragma once

#include <climits>

namespace kelvor {

/// A key that went down or up. `keyCode` is the capital letter's code for letters, the digit's for digits,
/// otherwise as in key_code; a handler of keyDown sets it to 0 to swallow the key.
struct KeyPress {
    int keyCode = 0;
    int shift = 0;  ///< the sum of 1 Shift, 2 Ctrl, 4 Alt
};

namespace key_code {
constexpr int backspace = 8;
constexpr int tab = 9;
constexpr int enter = 13;
constexpr int escape = 27;
constexpr int space = 32;
constexpr int deleteKey = 46;
}  // namespace key_code

}  // namespace kelvor
