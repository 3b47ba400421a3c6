// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace kelvor {

/// Called often during long work, so that the user is heard meanwhile. What it throws ends the work.
using Step = std::function<void()>;

inline void noStep() {
}

}  // namespace kelvor
