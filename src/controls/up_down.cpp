// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/up_down.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "controls/text_box.h"

namespace kelvor {

void UpDown::step(int by) {
    if (!enabled() || !visible()) return;
    const std::string& text = buddy_.text();
    long long number = minimum_ - by;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec == std::errc::result_out_of_range) number = maximum_;
    buddy_.setText(std::to_string(std::clamp<long long>(number + by, minimum_, maximum_)));
}

}  // namespace kelvor
