// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/platform.h"

#include <chrono>

#include "base/error.h"

namespace kelvor {

namespace {

Platform* inForce = nullptr;

}  // namespace

Platform& platform() {
    if (!inForce) throw Error(error_number::objectNotSet, "There is no platform");
    return *inForce;
}

void setPlatform(Platform* platform) {
    inForce = platform;
}

void pumpEvents() {
    using namespace std::chrono;
    static steady_clock::time_point last;
    if (steady_clock::now() - last < milliseconds(15)) return;
    platform().screen.processEvents();
    last = steady_clock::now();
}

Answer beepAndShow(const Message& message) {
    platform().screen.beep();
    return platform().dialogs.message(message);
}

bool confirms(const std::string& text, const std::string& title) {
    return platform().dialogs.message(
               {.text = text, .title = title, .icon = MessageIcon::question, .buttons = MessageButtons::yesNo}) ==
           Answer::yes;
}

}  // namespace kelvor
