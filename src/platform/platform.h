// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/dialogs.h"
#include "platform/services.h"

namespace kelvor {

/// What the program asks of its surroundings, in one place.
struct Platform {
    Dialogs& dialogs;
    Screen& screen;
    Shell& shell;
    Clock& clock;
    Clipboard& clipboard;
    HelpViewer& help;
    Libraries& libraries;
    Windows& windows;
};

/// The platform in force. None was set: Error 91.
Platform& platform();
/// `platform` must live as long as it is in force; nullptr takes it away.
void setPlatform(Platform* platform);

/// Lets waiting events run, unless they ran less than about 15 ms ago; cheap enough for every step of a loop.
void pumpEvents();

/// A beep and then the box, as most messages come.
Answer beepAndShow(const Message& message);

/// A question with the buttons Yes and No; whether it was Yes.
bool confirms(const std::string& text, const std::string& title);

/// The hourglass while it lives.
class Hourglass {
public:
    Hourglass() { platform().screen.setMousePointer(MousePointer::hourglass); }
    ~Hourglass() { platform().screen.setMousePointer(MousePointer::standard); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

}  // namespace kelvor
