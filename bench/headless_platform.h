// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bench/quiet_platform.h"

namespace kelvor::bench {

/// Ends a time in which waiting events were not let run, and begins the next one.
/// @return seconds of the longest one so far
double endPause();

/// Forgets the times so far.
void forgetPauses();

/// Shows messages on standard error, and takes the times between the rounds of waiting events, of which none come.
class HeadlessPlatform : private QuietPlatform {
    Answer message(const Message& message) override;
    void processEvents() override { endPause(); }
    void setIdleWork(std::function<bool()> /*work*/) override {}
};

}  // namespace kelvor::bench
