// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/kit/fresh_state.h"

#include <cstdlib>
#include <utility>

#include "program/shared_state.h"

namespace kelvor {

ScopedVariable::ScopedVariable(std::string name, const std::string& value) : name_(std::move(name)) {
    if (const char* previous = std::getenv(name_.c_str())) previous_ = previous;
    setenv(name_.c_str(), value.c_str(), 1);
}

ScopedVariable::~ScopedVariable() {
    if (previous_) {
        setenv(name_.c_str(), previous_->c_str(), 1);
    } else {
        unsetenv(name_.c_str());
    }
}

FreshState::FreshState(const std::string& runtimeDirectory) : runtimeDirectory_("XDG_RUNTIME_DIR", runtimeDirectory) {
    resetSharedState();
}

FreshState::~FreshState() {
    resetSharedState();
}

}  // namespace kelvor
