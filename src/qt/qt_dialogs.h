// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/dialogs.h"

namespace kelvor::qt {

/// The dialogs of the widget library, each above the window that is active.
class QtDialogs : public Dialogs {
public:
    Answer message(const Message& message) override;
    std::string input(const InputRequest& request) override;
    std::vector<std::string> openFiles(const FileRequest& request) override;
    std::optional<std::string> saveFile(const FileRequest& request) override;
    std::optional<std::string> folder(const std::string& title, const std::string& start) override;
    std::optional<int> color(const std::string& title, int start) override;
};

}  // namespace kelvor::qt
