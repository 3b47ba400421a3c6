// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "controls/text_buffer.h"
#include "frame/tool_forms.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {

using Act = std::function<void()>;

/// Everything that inserts at a selection. Square brackets stand around it.
class SelectionTest : public KelvorTest {
protected:
    SelectionTest() {
        SaveSetting(application, "UserStrings", "Footer", "<HR>\r\nme");
        start();
        text = &open("a.htm", "").SourceRTB();
    }

    /// The text after `act`, over `before`; behind a blank the control focused last.
    std::string after(const Act& act, std::string before = "a[b]c") {
        const auto from = before.find('[');
        const auto to = before.erase(from, 1).find(']');
        text->setText(before.erase(to, 1));
        text->setSelStart(static_cast<int>(from));
        text->setSelLength(static_cast<int>(to - from));
        platform.focused.clear();
        act();
        std::string result = text->text();
        const auto start = static_cast<std::size_t>(text->selStart());
        result.insert(start + static_cast<std::size_t>(text->selLength()), "]").insert(start, "[");
        return result + " " + platform.focused;
    }

    /// Opens a modal dialog by `command` and takes the user's steps in it, which close it.
    template <typename Dialog>
    Act inDialog(void (*command)(), std::function<void(Dialog&)> steps) {
        return [=, this] {
            platform.expectModal([=](Form& form) {
                steps(dynamic_cast<Dialog&>(form));
                EXPECT_FALSE(form.isLoaded());
            });
            command();
        };
    }

    EditControl* text = nullptr;
};

}  // namespace kelvor
