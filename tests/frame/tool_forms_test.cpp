// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/tool_forms.h"

#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

struct ToolForms : FrameTest {
    Form form{"toolForm", "Tool"};
};

TEST_F(ToolForms, ShowsAFormForItsContext) {
    showFormForContext(form, ShowMode::floating);
    showFormForContext(form, ShowMode::free);
    EXPECT_EQ(platform.shownModeless, (std::vector<std::string>{"toolForm owned", "toolForm"}));
    const auto focusAfter = [this](const std::function<void()>& steps) {
        platform.expectModal([&](Form&) { steps(); });
        showFormForContext(form, ShowMode::modal);
        return platform.focused;
    };
    EXPECT_EQ(focusAfter([] {}), "") << "there is no document";
    openText("a.htm", "");
    EXPECT_FALSE(hasManyMdiChildren());
    EXPECT_EQ(focusAfter([] { setActiveFormName("frmTableWiz"); }), "");
    setActiveFormName("editWindow");
    EXPECT_EQ(focusAfter([this] { form.unload(); }), "Text1");
    openText("b.htm", "");
    EXPECT_TRUE(hasManyMdiChildren());
}

}  // namespace
}  // namespace kelvor
