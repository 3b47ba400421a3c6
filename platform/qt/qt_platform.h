#pragma once

#include "platform/platform.h"
#include "platform/qt/clipboard.h"
#include "platform/qt/clock.h"
#include "platform/qt/dialogs.h"
#include "platform/qt/help_window.h"
#include "platform/qt/screen.h"
#include "platform/qt/shell.h"
#include "platform/qt/windows.h"

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
    QtWindows windows_;
    Platform platform_{dialogs_, screen_, shell_, clock_, clipboard_, help_, windows_};
};

}  // namespace kelvor::qt
