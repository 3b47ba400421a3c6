// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/convert.h"

#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class ConvertDialog : public StartedTest {
protected:
    /// Shows the dialog, chooses a direction and presses Convert; gives the pairs that were shown.
    std::vector<std::string> run(std::size_t direction) {
        std::vector<std::string> pairs;
        platform.expectModal([&](Form& form) {
            auto& dialog = dynamic_cast<Convert&>(form);
            dialog.optType[direction].click();
            pairs = {dialog.lblStart.caption() + " " + dialog.lblFinish.caption()};
            dialog.lblFinishString.follow([&](Aspect) {
                EXPECT_EQ(dialog.progBar1.value(), static_cast<int>(pairs.size()) - 1);
                EXPECT_FALSE(dialog.enabled() || mainForm().enabled());
                EXPECT_EQ(platform.pointer, MousePointer::hourglass);
                EXPECT_EQ(disabledIn(dialog), "cmdConvert cmdClose ");
                EXPECT_TRUE(dialog.lblStart.visible() && dialog.lblFinish.visible());
                pairs.push_back(dialog.lblStartString.caption() + " " + dialog.lblFinishString.caption());
            });
            dialog.cmdConvert.click();
            EXPECT_FALSE(dialog.isLoaded());
        });
        platform.expectMessage(information("4 replacements made.", "Special Character Conversion"));
        mnuTools_ConvertSpec_Click();
        EXPECT_EQ(platform.pointersAtBoxes.back(), 'a');
        EXPECT_TRUE(mainForm().enabled());
        return pairs;
    }
};

TEST_F(ConvertDialog, RewritesTheConvertibleRowsOnly) {
    const std::string kept = "<p class=\"a\">&amp;&lt;&nbsp;&copy;&trade;&AGRAVE; ®© TM ×</p>";
    const std::string characters = "ÿ" + kept + "Ààà";
    const std::string entities = "&yuml;" + kept + "&Agrave;&agrave;&agrave;";
    EditControl& text = open("a.htm", characters).SourceRTB();
    text.selectAll();
    const auto pairs = run(0);
    EXPECT_EQ(text.text(), entities);
    EXPECT_EQ(std::pair(text.selStart(), text.selLength()), std::pair(6, 0));  // behind the last row's replacement
    ASSERT_EQ(pairs.size(), 63U);
    EXPECT_EQ(pairs[0], "Converting special character: to HTML value:");
    EXPECT_EQ(pairs[1] + ", " + pairs[62], "À &&Agrave;, ÿ &&yuml;");
    EXPECT_EQ(run(1)[1], "&&Agrave; À");
    EXPECT_EQ(text.text(), characters);
    text.undo();
    EXPECT_EQ(text.text(), entities);
}

}  // namespace
}  // namespace kelvor
