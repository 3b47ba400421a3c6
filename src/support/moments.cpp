// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/moments.h"

#include "platform/platform.h"

namespace kelvor {

std::string shownMoment(std::time_t moment) {
    constexpr int firstYear = 1900;
    std::tm local{};
    if (!localtime_r(&moment, &local)) return {};
    const Date day{local.tm_year + firstYear, local.tm_mon + 1, local.tm_mday};
    Clock& clock = platform().clock;
    return clock.shortDate(day) + " " + clock.time({day, local.tm_hour, local.tm_min, local.tm_sec});
}

}  // namespace kelvor
