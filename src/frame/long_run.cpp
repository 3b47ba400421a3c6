// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/long_run.h"

#include <utility>

#include "controls/control.h"
#include "controls/form.h"
#include "platform/platform.h"
#include "platform/services.h"

namespace kelvor {

void LongRun::begin(Cancel cancel) {
    run_ = cancel;
    cancelled_ = false;
    platform().screen.setMousePointer(MousePointer::hourglass);
    parts_.close.setEnabled(canBeCancelled());
    if (canBeCancelled()) parts_.close.setCaption("&Cancel");
    setReachable(false);
}

void LongRun::end() {
    if (!std::exchange(run_, std::nullopt)) return;
    platform().screen.setMousePointer(MousePointer::standard);
    parts_.close.setCaption("&Close");
    parts_.close.setEnabled(true);
    setReachable(true);
}

void LongRun::askToCancel() {
    cancelled_ = confirms(parts_.question, parts_.title);
}

void LongRun::closePressed() {
    if (canBeCancelled()) return askToCancel();
    parts_.close.form().unload();
}

void LongRun::keepOpen(bool& cancel) {
    if (!canBeCancelled()) return;
    cancel = true;
    if (parts_.close.enabled()) askToCancel();
}

void LongRun::setReachable(bool reachable) const {
    for (Control* control : parts_.controls) control->setEnabled(reachable);
    parts_.also(reachable);
}

}  // namespace kelvor
