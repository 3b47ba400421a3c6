// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <utility>

#include "base/error.h"

namespace kelvor {

/// The one object of its kind, kept by the unit that makes and ends it; everyone else gets a reference.
template <typename T>
class Single {
public:
    /// Makes the object, in the place of one that is there.
    template <typename... Args>
    T& make(Args&&... args) {
        object_ = std::make_unique<T>(std::forward<Args>(args)...);
        return *object_;
    }
    void end() { object_.reset(); }

    /// Without an object an error 91.
    T& get() const {
        if (!object_) throw objectNotSetError();
        return *object_;
    }

private:
    std::unique_ptr<T> object_;
};

}  // namespace kelvor
