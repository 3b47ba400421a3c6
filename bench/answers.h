// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <map>
#include <string>

#include "bench/quiet_platform.h"

namespace kelvor::bench {

/// Answers each message at once and remembers it.
class Answers : public QuietDialogs {
public:
    Answer message(const Message& message) override {
        lastText = message.text;
        shown[message.title] = std::chrono::steady_clock::now();
        return QuietDialogs::message(message);
    }

    std::string lastText;
    /// When a message of that title came last.
    std::map<std::string, std::chrono::steady_clock::time_point> shown;
};

}  // namespace kelvor::bench
