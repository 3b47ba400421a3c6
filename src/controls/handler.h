// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include "base/event.h"

namespace kelvor {

class Form;

/// What a form does at an event of one of its controls, named where the control is declared: a member function of the
/// form's class that takes the event's values, or takes none of them.
template <typename... Args>
class Handler {
public:
    Handler() = default;
    template <typename Owner, typename Function>
    Handler(Function Owner::*method)
        : bind_([method](Form& form) { return bound(static_cast<Owner&>(form), method); }) {}

    /// Has `event` call the member function of `form`, when there is one.
    void connectTo(Event<Args...>& event, Form& form) const {
        if (bind_) event.connect(bind_(form));
    }

private:
    template <typename Owner, typename Method>
    static typename Event<Args...>::Handler bound(Owner& owner, Method method) {
        return [&owner, method](Args... args) {
            if constexpr (std::is_invocable_v<Method, Owner&, Args...>) {
                std::invoke(method, owner, std::forward<Args>(args)...);
            } else {
                std::invoke(method, owner);
            }
        };
    }

    std::function<typename Event<Args...>::Handler(Form&)> bind_;
};

}  // namespace kelvor
