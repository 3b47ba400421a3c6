// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/headless_platform.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <utility>

namespace kelvor::bench {

namespace {

using Ticks = std::chrono::steady_clock;

Ticks::time_point lastRound;
Ticks::duration longest{};

}  // namespace

double endPause() {
    const auto now = Ticks::now();
    longest = std::max(longest, now - std::exchange(lastRound, now));
    return std::chrono::duration<double>(longest).count();
}

void forgetPauses() {
    lastRound = Ticks::now();
    longest = {};
}

Answer HeadlessPlatform::message(const Message& message) {
    std::cerr << message.title << ": " << message.text << '\n';
    return QuietPlatform::message(message);
}

}  // namespace kelvor::bench
