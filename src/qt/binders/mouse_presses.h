// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "controls/mouse_press.h"

class QAbstractItemView;
class QWidget;

namespace kelvor::qt {

class FormLink;

/// Tells the presses of the left and right mouse button on `widget`, which may be disabled, as long as `link`
/// lives. They are told behind the event, when the widget itself has dealt with it.
/// @param origin  the widget itself or one around it; the places told are in its pixels
void tellMousePresses(QWidget& widget, const QWidget& origin, FormLink& link,
                      std::function<void(const MousePress&)> tell);

/// Tells the menu key on `widget` as a right press in its middle, with the place below it for a popup.
void tellMenuKey(QWidget& widget, const QWidget& origin, FormLink& link, std::function<void(const MousePress&)> tell);

/// The presses on a list, and the menu key as a right press on the row in focus, with the place below it for a popup.
/// A right press beside the rows leaves the user's choice as it is, for a menu that opens there is about that choice.
void tellRowPresses(QAbstractItemView& list, FormLink& link, std::function<void(const MousePress&)> tell);

}  // namespace kelvor::qt
