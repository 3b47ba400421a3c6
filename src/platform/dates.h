// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// A day of the calendar: year, month from 1, day from 1.
struct Date {
    int year = 2000;
    int month = 1;
    int day = 1;

    bool operator==(const Date&) const = default;
};

/// A moment of a day.
struct DateTime {
    Date date;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

}  // namespace kelvor
