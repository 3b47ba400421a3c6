// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace kelvor {

/// What some lists and fields show in the place of a value that is not there.
inline constexpr std::string_view notAvailable = "(n/a)";

}  // namespace kelvor
