// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include "tests/kit/fake_platform.h"

namespace kelvor {

/// While it lives the first time that waiting events are let run is `act`'s: an act of the user during a long command.
class WaitingEvents {
public:
    explicit WaitingEvents(std::function<void()> act) {
        FakePlatform::whileWaiting = std::move(act);
        // Events that ran a moment ago are not let run again at once.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    ~WaitingEvents() { FakePlatform::whileWaiting = nullptr; }
    WaitingEvents(const WaitingEvents&) = delete;
    WaitingEvents& operator=(const WaitingEvents&) = delete;

    bool haveRun() const { return !FakePlatform::whileWaiting; }
};

}  // namespace kelvor
