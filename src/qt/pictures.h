// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "platform/picture.h"

class QRect;
class QWidget;

namespace kelvor::qt {

/// The picture in a file, upright as a browser shows it, and the first one of several. Of a large one fewer dots are
/// held than it has, or none; see Screen::loadPicture.
std::shared_ptr<const Picture> loadPicture(const std::string& path);

/// Paints the part `exposed` of a picture as large as `widget` is.
void paintPicture(const Picture& picture, QWidget& widget, const QRect& exposed);

}  // namespace kelvor::qt
