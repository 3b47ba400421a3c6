// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/drive_list.h"

#include <algorithm>

#include "base/error.h"
#include "files/volumes.h"

namespace kelvor {

void DriveList::Refresh() {
    change(list_, mountedVolumes(), Aspect::list);
}

void DriveList::setDrive(const std::string& drive) {
    if (drive == drive_) return;
    Refresh();
    if (std::find(list_.begin(), list_.end(), drive) == list_.end())
        throw Error(error_number::deviceUnavailable, "Device unavailable: " + drive);
    drive_ = drive;
    tell(Aspect::selection);
    changed.raise();
}

}  // namespace kelvor
