#pragma once

#include <string>

#include "platform/control.h"

namespace kelvor {

/// The preview pane: where it was sent, and how.
class WebBrowser : public Control {
public:
    /// Leaves no trace in the history, and takes nothing from the cache, so that a new save always shows.
    static constexpr int noHistory = 2;
    static constexpr int noWriteToCache = 8;

    using Control::Control;

    /// @param address  a path or a URL
    /// @param flags    the sum of noHistory and noWriteToCache
    void Navigate(const std::string& address, int flags) {
        address_ = address;
        flags_ = flags;
        tell(Aspect::value);
    }
    const std::string& address() const { return address_; }
    int flags() const { return flags_; }

    /// Puts the pane on top of the source.
    void ZOrder() { tell(Aspect::order); }

private:
    std::string address_;
    int flags_ = 0;
};

}  // namespace kelvor
