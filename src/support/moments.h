// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ctime>
#include <string>

namespace kelvor {

/// A moment as lists show it: day and time of the day in the locale's short form and the environment's zone.
std::string shownMoment(std::time_t moment);

}  // namespace kelvor
