// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

#include "base/error.h"

namespace kelvor {

/// The row's place among so many rows; a row that is not there is an error 9.
inline std::size_t checkedRow(int row, std::size_t count) {
    if (row >= 0 && static_cast<std::size_t>(row) < count) return static_cast<std::size_t>(row);
    throw Error(error_number::subscriptOutOfRange, "There is no row " + std::to_string(row));
}

}  // namespace kelvor
