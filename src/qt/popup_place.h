// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>

namespace kelvor::qt {

/// While one lives, the next popup menu opens at its place: the menu key asks for what has the focus, wherever the
/// mouse is.
class PopupPlace {
public:
    /// @param place  on the screen
    explicit PopupPlace(const QPoint& place);
    ~PopupPlace();
    PopupPlace(const PopupPlace&) = delete;
    PopupPlace& operator=(const PopupPlace&) = delete;

    /// The place told, or else the mouse's. It is good for one popup: what is chosen there may open more.
    static QPoint take();
};

}  // namespace kelvor::qt
