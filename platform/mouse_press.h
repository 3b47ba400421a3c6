#pragma once

namespace kelvor {

/// A press of a mouse button: `button` 1 left, 2 right; `shift` the sum of 1 Shift, 2 Ctrl, 4 Alt;
/// x and y in pixels of the thing pressed.
struct MousePress {
    int button = 1;
    int shift = 0;
    int x = 0;
    int y = 0;
};

}  // namespace kelvor
