// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "controls/control.h"

namespace kelvor {

/// The preview pane: where it was sent, and how.
class WebBrowser : public Control {
public:
    /// Leaves no trace in the history, and takes nothing from the cache, so that a new save always shows.
    static constexpr int noHistory = 2;
    static constexpr int noWriteToCache = 8;

    using Control::Control;

    /// @param address  a path or a URL, as the user sees it
    /// @param flags    the sum of noHistory and noWriteToCache
    /// @param mapped   what a mapping made of the path, as it is sent to the server; "" where none did
    void Navigate(const std::string& address, int flags, const std::string& mapped = {}) {
        address_ = address;
        flags_ = flags;
        mapped_ = mapped;
        tell(Aspect::value);
    }
    /// Ends the page, and with it what it loads and the memory that it takes. Nothing when there is none.
    void Close() {
        if (address_.empty()) return;
        Navigate({}, 0);
    }
    /// "" while there is no page.
    const std::string& address() const { return address_; }
    const std::string& mapped() const { return mapped_; }
    int flags() const { return flags_; }

    /// Puts the pane on top of the source.
    void ZOrder() { tell(Aspect::order); }

private:
    std::string address_;
    std::string mapped_;
    int flags_ = 0;
};

}  // namespace kelvor
