// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/script_assistant.h"

#include <filesystem>

#include "controls/text_buffer.h"
#include "editing/insertion.h"
#include "frame/tool_forms.h"
#include "support/user_settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class Scripts : public KelvorTest {
protected:
    Scripts() {
        start();
        open("a.htm", "-");
        std::filesystem::create_directories(files.path("program/Scripts/sub"));
        for (const char* name : {"one.js", "sub/two.js", "v.vbs"})
            files.write(std::string("program/Scripts/") + name, name);
    }
    ~Scripts() override { toolForm<ScriptAssistant>().unload(); }

    ScriptAssistant& openForm() {
        menu("mnuInsert_Scripts").click();
        return toolForm<ScriptAssistant>();
    }
    std::string folder() { return files.path("program/Scripts"); }
    std::size_t gathered(ScriptAssistant& form) {
        form.cmdGather.click();
        return form.lstList.count();
    }
};

TEST_F(Scripts, AreGatheredByTheChosenLanguageAndFolder) {
    ScriptAssistant& form = openForm();
    EXPECT_EQ(platform.shownModeless.back(), "frmScripts owned");
    EXPECT_EQ(form.Frame3.caption() + form.lstList.cell(0, 0), folder() + "/" + folder() + "/one.js");
    form.SSTab1.choose(1);
    EXPECT_FALSE(form.cmdInsert.enabled());
    form.chkSubDir.click();
    EXPECT_EQ(gathered(form), 2U);
    EXPECT_TRUE(form.SSTab1.tab() == 0 && form.cmdInsert.enabled());
    form.cboFilter.choose(1);
    EXPECT_EQ(gathered(form), 1U);
    for (const std::string& answer : {std::string(), folder() + "/sub"}) {
        platform.expectFolder("Select a new script directory.", answer);
        form.lblFolder.doubleClick();
        EXPECT_EQ(form.lblFolder.caption(), answer.empty() ? folder() : answer);
    }
    EXPECT_EQ(form.lstList.count(), 1U) << "nothing is gathered unasked";
    form.SSTab1.choose(1);
    platform.expectBox("No files to search");
    EXPECT_TRUE(gathered(form) == 0 && form.SSTab1.tab() == 1);
    EXPECT_EQ(form.Frame3.caption() + platform.pointersAtBoxes, "No scripts found in: " + folder() + "/suba");
}

TEST_F(Scripts, TheLanguageAtFirstIsTheUsers) {
    for (const auto& [stored, row] : {std::pair{"VBS", 1}, {"JS", 0}, {"vbs", 0}}) {
        user::scriptLanguage.store(stored);
        EXPECT_EQ(openForm().cboFilter.listIndex(), row) << stored;
        toolForm<ScriptAssistant>().unload();
        EXPECT_EQ(platform.focused, "Text1");
    }
}

TEST_F(Scripts, AreInsertedAsEditedInTheTagOfTheChosenRow) {
    ScriptAssistant& form = openForm();
    form.lstList.doubleClick(0);
    form.rtbScript.setSelText("x ");
    for (const std::size_t method : {0, 1}) {
        form.optWhere[method].click();
        form.cmdInsert.click();
    }
    form.cboFilter.choose(1);
    form.rtbScript.setText("");
    form.cmdInsert.click();
    EXPECT_EQ(activeText().text(),
              "x one.js"
              "<SCRIPT LANGUAGE=\"JavaScript\">\r\n<!-- Begin Hide\r\n\r\nx one.js"
              "\r\n\r\n// end hide -->\r\n</SCRIPT>\r\n"
              "<SCRIPT LANGUAGE=\"VBScript\">\r\n<!-- Begin Hide\r\n\r\n"
              "\r\n\r\n'end hide -->\r\n</SCRIPT>\r\n-");
    form.lstList.pressReturn();
    EXPECT_EQ(form.rtbScript.text(), "one.js") << "the file is as it was";
    TextBuffer cell(form, "txtCellText");
    setDeliveryTarget("frmTableWiz", &cell);
    setActiveFormName("frmTableWiz");
    form.optWhere[0].click();
    form.cmdInsert.click();
    EXPECT_EQ(cell.text(), "one.js");
    platform.focused.clear();
    form.unload();
    EXPECT_EQ(platform.focused, "");
    setDeliveryTarget("", nullptr);
}

TEST_F(Scripts, AFileThatIsGoneLosesItsRowAndOneThatCannotBeReadDoesNot) {
    files.write("program/Scripts/two.js", "2");
    ScriptAssistant& form = openForm();
    form.rtbScript.setText("kept");
    const std::string folder = form.lstList.cell(0, 0);
    const std::string gone = form.lstList.cell(1, 0);
    for (const std::string& path : {folder, gone}) std::filesystem::remove(path);
    std::filesystem::create_directory(folder);
    EXPECT_EQ(reportedBy([&] { form.lstList.doubleClick(0); }).substr(0, 2), "75");
    platform.expectMessage(exclamation("The file " + gone + " does not exist", "File not found"));
    form.lstList.doubleClick(1);
    EXPECT_EQ(std::to_string(form.lstList.count()) + form.rtbScript.text(), "1kept");
}

}  // namespace
}  // namespace kelvor
