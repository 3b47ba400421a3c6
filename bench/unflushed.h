// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/system_calls.h"

namespace kelvor::bench {

/// While it lives no save waits for the disk, as no peer that rewrites files does.
class Unflushed {
private:
    static SystemCalls callsThatNeverFlush() {
        auto calls = kernelCalls();
        calls.fsync = [](int) { return 0; };
        return calls;
    }

    ScopedSystemCalls calls_{callsThatNeverFlush()};
};

}  // namespace kelvor::bench
