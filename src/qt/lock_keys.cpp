// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/lock_keys.h"

#ifdef KELVOR_X11
// The X header's macros would break Qt's headers behind it.
#include <QGuiApplication>

#include <X11/XKBlib.h>
#endif

namespace kelvor::qt {

#ifdef KELVOR_X11

std::optional<LockKeys> lockKeys() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    unsigned int lamps = 0;
    if (!x11 || !x11->display() || XkbGetIndicatorState(x11->display(), XkbUseCoreKbd, &lamps) != Success)
        return std::nullopt;
    // The first two lamps are those of Caps Lock and Num Lock in every keyboard description.
    return LockKeys{.caps = (lamps & 1) != 0, .num = (lamps & 2) != 0};
}

#else

std::optional<LockKeys> lockKeys() {
    return std::nullopt;
}

#endif

}  // namespace kelvor::qt
