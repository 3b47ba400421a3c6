#include "authoring/convert.h"

#include <gtest/gtest.h>

#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class ConvertDialog : public KelvorTest {
protected:
    ConvertDialog() { start(); }

    /// Shows the dialog, chooses a direction and presses Convert; gives the pairs that were shown.
    std::vector<std::string> run(int direction, int replacements) {
        std::vector<std::string> pairs;
        platform.expectModal([&](Form& form) {
            auto& dialog = dynamic_cast<Convert&>(form);
            dialog.lblFinishString.follow([&](Aspect) {
                EXPECT_EQ(dialog.progBar1.value(), static_cast<int>(pairs.size()));
                EXPECT_FALSE(dialog.enabled() || dialog.cmdClose.enabled() || mainForm().enabled());
                EXPECT_EQ(platform.pointer, MousePointer::hourglass);
                pairs.push_back(dialog.lblStartString.caption() + " " + dialog.lblFinishString.caption());
            });
            dialog.optType[static_cast<std::size_t>(direction)].click();
            EXPECT_FALSE(dialog.lblStart.visible());
            dialog.cmdConvert.click();
            EXPECT_FALSE(dialog.isLoaded());
        });
        platform.expectMessage({.text = std::to_string(replacements) + " replacements made.",
                                .title = "Special Character Conversion",
                                .icon = MessageIcon::information});
        mnuTools_ConvertSpec_Click();
        EXPECT_TRUE(mainForm().enabled());
        EXPECT_EQ(platform.pointer, MousePointer::standard);
        EXPECT_EQ(platform.focused, "Text1");
        return pairs;
    }
};

TEST_F(ConvertDialog, RewritesTheConvertibleRowsOnly) {
    const std::string kept = "<p class=\"a\">&amp;&lt;&nbsp;&copy;&trade;&AGRAVE; \xC2\xAE\xC2\xA9 TM \xC3\x97</p>";
    const std::string characters = "\xC3\xBF" + kept + "\xC3\x80\xC3\xA0\xC3\xA0";
    const std::string entities = "&yuml;" + kept + "&Agrave;&agrave;&agrave;";
    EditControl& text = open("a.htm", characters).SourceRTB();
    text.selectAll();
    const auto pairs = run(0, 4);
    EXPECT_EQ(text.text(), entities);
    EXPECT_EQ(std::pair(text.selStart(), text.selLength()), std::pair(6, 0));  // behind the last row's replacement
    ASSERT_EQ(pairs.size(), 62U);
    EXPECT_EQ(pairs.front() + ", " + pairs.back(), "\xC3\x80 &&Agrave;, \xC3\xBF &&yuml;");
    run(0, 0);
    EXPECT_EQ(text.text(), entities);
    EXPECT_EQ(run(1, 4).front(), "&&Agrave; \xC3\x80");
    EXPECT_EQ(text.text(), characters);
    text.undo();
    EXPECT_EQ(text.text(), entities);
}

TEST_F(ConvertDialog, WithoutADocumentTheErrorLeavesTheDialogUsable) {
    int told = 0;
    setErrorSink([&](const Error& error) { told = error.number(); });
    convert().load();
    convert().cmdConvert.click();
    EXPECT_EQ(told, error_number::objectNotSet);
    EXPECT_TRUE(convert().enabled() && convert().cmdConvert.enabled() && mainForm().enabled());
    convert().cmdClose.click();
}

}  // namespace
}  // namespace kelvor
