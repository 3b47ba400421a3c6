// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelvor {

/// A stored text under its key.
struct Setting {
    std::string key;
    std::string value;
};

}  // namespace kelvor
