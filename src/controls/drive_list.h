// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace kelvor {

/// The mounted volumes, of which one is chosen.
class DriveList : public Control {
public:
    using Control::Control;

    /// The volumes' mount points as of the last refresh.
    const std::vector<std::string>& list() const { return list_; }
    /// Looks for the volumes anew; the chosen one stays chosen.
    void Refresh();

    /// The chosen volume's mount point, "" before the first choice.
    const std::string& drive() const { return drive_; }
    /// Chooses a volume and raises `changed` when it is another. One that is not there is an error 68.
    void setDrive(const std::string& drive);

    Event<> changed;

private:
    std::vector<std::string> list_;
    std::string drive_;
};

}  // namespace kelvor
