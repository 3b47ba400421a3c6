// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/tool_forms.h"

#include <filesystem>

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

TEST_F(ToolForms, UnloadsAFormThatFailsToLoad) {
    form.onLoad = [] { throw Error(53, "File not found: a.lst", "File not found."); };
    platform.expectMessage(critical("An error occurred while loading the form", "Load error", "File not found."));
    showFormForContext(form, ShowMode::modal);
    EXPECT_FALSE(form.isLoaded() || formLoadFailed);
    EXPECT_TRUE(platform.shownModeless.empty());
    EXPECT_FALSE(std::filesystem::exists(files.path("program/errorlog.txt")));
}

}  // namespace
}  // namespace kelvor
