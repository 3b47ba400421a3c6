// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services.h"

namespace kelvor::qt {

class QtShell : public Shell {
public:
    bool open(const std::string& target) override;
    /// Throws Error 76 too, when the working directory is not there.
    void start(const std::vector<std::string>& words, const std::string& workingDirectory) override;
};

}  // namespace kelvor::qt
