// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services.h"

namespace kelvor::qt {

class QtLibraries : public Libraries {
public:
    /// The web engine is among them once a page has been shown.
    std::vector<std::string> inUse() override;
};

}  // namespace kelvor::qt
