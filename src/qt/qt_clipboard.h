// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services.h"

namespace kelvor::qt {

class QtClipboard : public Clipboard {
public:
    std::string text() override;
    void setText(const std::string& text) override;
};

}  // namespace kelvor::qt
