// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelvor {

/// "12.3 MB": a size for a person to read, in units of 1,024.
std::string sizeText(std::uintmax_t bytes);

/// How much the old files of a run will take that are kept, while the list of its files grows and shrinks.
class KeptSize {
public:
    /// Files that come behind the others. One that cannot be looked at has no size.
    void add(const std::vector<std::string>& paths);
    /// @param row  from 0; one that is not there is nothing
    void remove(int row);
    void clear() { sizes_.clear(); }

    /// "The old files, 12.3 MB, are kept until the next run."; "" without files.
    std::string caption() const;

private:
    std::vector<std::uintmax_t> sizes_;
};

}  // namespace kelvor
