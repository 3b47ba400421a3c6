// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// The lock that one running copy per user holds. The kernel frees it when the process ends, however it ends.
class SingleInstance {
public:
    /// Tries for the lock on a file of mode 0600 in the user's run-time directory.
    SingleInstance();
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// False when another copy holds it. Where no lock file can be made there is nothing to refuse by: true.
    bool isFirst() const { return first_; }

private:
    int descriptor_ = -1;
    bool first_ = true;
};

}  // namespace kelvor
