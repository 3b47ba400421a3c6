// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaObject>

#include "platform/services.h"

namespace kelvor::qt {

class QtScreen : public Screen {
public:
    void beep() override;
    void setMousePointer(MousePointer pointer) override;
    std::vector<std::string> fonts() override;
    bool showsPictures(std::string_view suffix) override;
    std::shared_ptr<const Picture> loadPicture(const std::string& path) override;
    void processEvents() override;
    void setIdleWork(std::function<bool()> work) override;

private:
    QMetaObject::Connection idle_;
};

/// The ordinary pointer while it lives, also above a command that shows the hourglass: for dialogs.
class PlainPointer {
public:
    PlainPointer();
    ~PlainPointer();
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

private:
    bool hourglass_;
};

}  // namespace kelvor::qt
