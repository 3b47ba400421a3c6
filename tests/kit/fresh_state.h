// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace kelvor {

/// A variable of the environment that has another value while this lives.
class ScopedVariable {
public:
    ScopedVariable(std::string name, const std::string& value);
    ~ScopedVariable();
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
    explicit FreshState(const std::string& runtimeDirectory);
    ~FreshState();
    FreshState(const FreshState&) = delete;
    FreshState& operator=(const FreshState&) = delete;

private:
    ScopedVariable runtimeDirectory_;
};

}  // namespace kelvor
