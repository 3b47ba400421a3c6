// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace kelvor::qt {

struct LockKeys {
    bool caps = false;
    bool num = false;
};

/// The lock keys as the X server has them now; nothing on other window systems.
std::optional<LockKeys> lockKeys();

}  // namespace kelvor::qt
