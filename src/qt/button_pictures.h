// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <string_view>

namespace kelvor::qt {

/// The picture of a toolbar's button by the button's key; a null icon when it has none.
QIcon buttonPicture(std::string_view key);

}  // namespace kelvor::qt
