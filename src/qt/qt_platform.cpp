// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_platform.h"

namespace kelvor::qt {

QtPlatform::QtPlatform() {
    setPlatform(&platform_);
}

QtPlatform::~QtPlatform() {
    setPlatform(nullptr);
}

}  // namespace kelvor::qt
