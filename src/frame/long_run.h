// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/event.h"
#include "controls/button.h"

namespace kelvor {

/// The long runs of a tool. While one goes on some of the tool's controls cannot be reached, the pointer is the
/// hourglass and the tool's Close button is its Cancel button.
class LongRun {
public:
    struct Parts {
        Button& close;
        /// What cannot be reached meanwhile.
        std::vector<Control*> controls;
        /// The question whether to cancel.
        std::string question;
        std::string title;
        /// What else changes when a run begins (false) and ends (true).
        std::function<void(bool reachable)> also = [](bool) {};
    };
    enum class Cancel { offered, never };

    explicit LongRun(Parts parts) : parts_(std::move(parts)) {}

    bool isGoingOn() const { return run_.has_value(); }
    /// Whether Close means Cancel now.
    bool canBeCancelled() const { return run_ == Cancel::offered; }
    bool isCancelled() const { return cancelled_; }

    /// @param cancel  never: Close cannot be reached either
    void begin(Cancel cancel = Cancel::offered);
    /// Nothing when no run has begun.
    void end();

    /// The run is to end where it asks for that.
    void cancel() { cancelled_ = true; }
    /// Asks whether to cancel; a No takes back what was said before.
    void askToCancel();
    /// What a press of Close does: asks whether to cancel the run, or closes the tool.
    void closePressed();
    /// The answer to the tool's queryUnload: a run asks like its button, while that can be reached, and the tool stays.
    void keepOpen(bool& cancel);

private:
    void setReachable(bool reachable) const;

    Parts parts_;
    std::optional<Cancel> run_;
    bool cancelled_ = false;
};

/// One run, which ends with it, after an error too.
class ScopedRun {
public:
    explicit ScopedRun(LongRun& run, LongRun::Cancel cancel = LongRun::Cancel::offered) : run_(&run) {
        run.begin(cancel);
    }
    ~ScopedRun() {
        if (run_ != nullptr) guarded([this] { run_->end(); });
    }
    ScopedRun(const ScopedRun&) = delete;
    ScopedRun& operator=(const ScopedRun&) = delete;

    /// Has the run go on behind this scope.
    void release() { run_ = nullptr; }

private:
    LongRun* run_;
};

}  // namespace kelvor
