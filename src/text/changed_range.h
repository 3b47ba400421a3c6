// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

namespace kelvor {

/// The smallest stretch of a text that holds all changes made to it since some moment. In bytes.
struct ChangedRange {
    int start = 0;
    int removed = 0;   ///< what it was long at that moment
    int inserted = 0;  ///< what it is long now

    bool isEmpty() const { return removed == 0 && inserted == 0; }

    /// Takes another change in: `taken` bytes at `place` of the text as it is now gave way to `given` others.
    void add(int place, int taken, int given) {
        if (isEmpty()) {
            *this = {place, taken, given};
            return;
        }
        const int first = std::min(start, place);
        const int last = std::max(start + inserted, place + taken);
        removed += (start - first) + (last - start - inserted);
        inserted = last - first - taken + given;
        start = first;
    }

    bool operator==(const ChangedRange&) const = default;
};

}  // namespace kelvor
