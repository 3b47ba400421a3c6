// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "program/shared_state.h"

namespace kelvor {

/// A variable of the environment that has another value while this lives.
class ScopedVariable {
public:
    ScopedVariable(std::string name, const std::string& value) : name_(std::move(name)) {
        if (const char* previous = std::getenv(name_.c_str())) previous_ = previous;
        setenv(name_.c_str(), value.c_str(), 1);
    }
    ~ScopedVariable() { previous_ ? setenv(name_.c_str(), previous_->c_str(), 1) : unsetenv(name_.c_str()); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string name_;
    std::optional<std::string> previous_;
};

/// What the program's units share is as before a start, when this begins and after it ends. The lock of the one running
/// copy is the test's own meanwhile.
class FreshState {
public:
    explicit FreshState(const std::string& runtimeDirectory) : runtimeDirectory_("XDG_RUNTIME_DIR", runtimeDirectory) {
        resetSharedState();
    }
    ~FreshState() { resetSharedState(); }
    FreshState(const FreshState&) = delete;
    FreshState& operator=(const FreshState&) = delete;

private:
    ScopedVariable runtimeDirectory_;
};

}  // namespace kelvor
