// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/platform.h"
#include "qt/help_window.h"
#include "qt/qt_clipboard.h"
#include "qt/qt_clock.h"
#include "qt/qt_dialogs.h"
#include "qt/qt_libraries.h"
#include "qt/qt_screen.h"
#include "qt/qt_shell.h"
#include "qt/qt_windows.h"

namespace kelvor::qt {

/// The surroundings as the desktop gives them; in force while it lives. Needs the application object.
class QtPlatform {
public:
    QtPlatform();
    ~QtPlatform();
    QtPlatform(const QtPlatform&) = delete;
    QtPlatform& operator=(const QtPlatform&) = delete;

    QtWindows& windows() { return windows_; }
    QtHelpViewer& help() { return help_; }

private:
    QtDialogs dialogs_;
    QtScreen screen_;
    QtShell shell_;
    QtClock clock_;
    QtClipboard clipboard_;
    QtHelpViewer help_;
    QtLibraries libraries_;
    QtWindows windows_;
    Platform platform_{dialogs_, screen_, shell_, clock_, clipboard_, help_, libraries_, windows_};
};

}  // namespace kelvor::qt
