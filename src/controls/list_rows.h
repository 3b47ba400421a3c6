// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace kelvor {

/// What happened to the rows of a list, told to the view behind the change: many rows cost as many inserts.
struct RowChange {
    enum class Kind { inserted, removed, changed, renewed };

    Kind kind = Kind::renewed;
    /// The rows concerned, as they are numbered in the longer list; nothing for `renewed`, which is all of them.
    int first = 0;
    int last = -1;
};

using RowFollower = std::function<void(const RowChange&)>;

}  // namespace kelvor
