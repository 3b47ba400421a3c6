// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// A press of a mouse button; x and y in pixels of the thing pressed.
struct MousePress {
    static constexpr int left = 1;
    static constexpr int right = 2;

    int button = left;
    int shift = 0;  ///< as that of a KeyPress
    int x = 0;
    int y = 0;
};

}  // namespace kelvor
