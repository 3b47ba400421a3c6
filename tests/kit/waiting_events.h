// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace kelvor {

/// While it lives the first time that waiting events are let run is `act`'s: an act of the user during a long command.
class WaitingEvents : private Screen {
public:
    explicit WaitingEvents(std::function<void()> act) : act_(std::move(act)) {
        setPlatform(&platform_);
        // Events that ran a moment ago are not let run again at once.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    ~WaitingEvents() override { setPlatform(&before_); }
    WaitingEvents(const WaitingEvents&) = delete;
    WaitingEvents& operator=(const WaitingEvents&) = delete;

    bool haveRun() const { return !act_; }

private:
    void beep() override { before_.screen.beep(); }
    void setMousePointer(MousePointer pointer) override { before_.screen.setMousePointer(pointer); }
    std::vector<std::string> fonts() override { return before_.screen.fonts(); }
    void processEvents() override {
        if (auto act = std::exchange(act_, nullptr)) act();
    }

    std::function<void()> act_;
    Platform& before_ = platform();
    Platform platform_{before_.dialogs,   *this,        before_.shell,  before_.clock,
                       before_.clipboard, before_.help, before_.windows};
};

}  // namespace kelvor
