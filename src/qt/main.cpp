// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <optional>

#include "frame/main_frame.h"
#include "program/startup.h"
#include "qt/application.h"
#include "qt/qt_platform.h"

int main(int argumentCount, char** arguments) {
    using namespace kelvor;
    if (!qt::hasDisplay()) {
        std::fputs("Kelvor: no display. Set DISPLAY or WAYLAND_DISPLAY.\n", stderr);
        return 1;
    }
    std::optional<qt::StartFailureGuard> starting(std::in_place);
    qt::Application application(argumentCount, arguments);
    starting.reset();

    qt::QtPlatform platform;
    // A run that has disabled the frame still works on its documents.
    application.onExitWanted = [] { return mainForm().enabled() && mainForm().unload(); };
    platform.windows().onFrameGone = [] { QCoreApplication::quit(); };
    int result = 0;
    if (startKelvor()) result = application.run();
    releaseMainForm();
    return result;
}
