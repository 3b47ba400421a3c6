// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services.h"

namespace kelvor::qt {

class QtClock : public Clock {
public:
    DateTime now() override;
    std::string shortDate(const Date& day) override;
    std::string mediumDate(const Date& day) override;
    std::string longDate(const Date& day) override;
    std::string time(const DateTime& moment) override;
    std::string monthName(const Date& day) override;
    std::string dayName(const Date& day) override;
};

}  // namespace kelvor::qt
