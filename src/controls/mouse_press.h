#pragma once

namespace kelvor {

/// A press of a mouse button: `button` 1 left, 2 right; `shift` the sum of 1 Shift, 2 Ctrl, 4 Alt;
/// x and y in pixels of the thing pressed.
struct MousePress {
    static constexpr int left = 1;
    static constexpr int right = 2;

    int button = left;
    int shift = 0;
    int x = 0;
    int y = 0;
};

}  // namespace kelvor
