// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

namespace kelvor {

/// How something ended that may well fail: it was done, or it was not and somebody is still to tell so.
class Outcome {
public:
    static Outcome done() { return Outcome(true, {}); }
    /// @param cause  as Error::cause
    static Outcome failed(std::string cause = {}) { return Outcome(false, std::move(cause)); }

    explicit operator bool() const { return done_; }
    /// Why it failed; "" when nobody knows.
    const std::string& cause() const { return cause_; }

private:
    Outcome(bool done, std::string cause) : done_(done), cause_(std::move(cause)) {}

    bool done_;
    std::string cause_;
};

}  // namespace kelvor
