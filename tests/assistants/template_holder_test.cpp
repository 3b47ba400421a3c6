// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/template_holder.h"

#include <filesystem>

#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class Templates : public KelvorTest {
protected:
    Templates() {
        for (const char* name : {"my default template copy", "Page"})
            files.write(std::string("program/Templates/") + name + ".tpl", "<P>");
        start();
    }

    /// Chooses New, and runs `steps` on the dialog while it is shown.
    void inDialog(const std::function<void(TemplateHolder&)>& steps) {
        platform.expectModal([&](Form& form) {
            steps(dynamic_cast<TemplateHolder&>(form));
            form.unload();
        });
        menu("mnuFile_New").click();
    }
    bool exists(const std::string& name) { return std::filesystem::exists(templateFile(name)); }
};

TEST_F(Templates, OpenTakesTheChosenOneUntitledAndEditTheFileItself) {
    inDialog([this](TemplateHolder& holder) {
        EXPECT_EQ(holder.lbxTemplates.rows(), (std::vector<std::string>{"my default template copy", "Page"}));
        EXPECT_EQ(holder.lbxTemplates.selectedRow(), 0);
        std::filesystem::remove(templateFile("Page"));
        platform.expectMessage(noSuchFile(templateFile("Page")));
        platform.expectMessage(openError(templateFile("Page")));
        holder.lbxTemplates.doubleClick(1);
        EXPECT_TRUE(holder.isLoaded());
        files.write("program/Templates/Page.tpl", "<P>");
        holder.lbxTemplates.doubleClick(1);
        EXPECT_FALSE(holder.isLoaded());
    });
    EXPECT_EQ(mainForm().activeForm().caption(), "Untitled 1");
    EXPECT_TRUE(menu("mnuEdit").visible());
    EXPECT_EQ(mainForm().untitledCount, 2);
    inDialog([](TemplateHolder& holder) {
        holder.lbxTemplates.setSelectedRow(1);
        holder.cmdEdit.click();
        EXPECT_FALSE(holder.isLoaded());
    });
    EXPECT_EQ(menu("mnuFile_RecentFiles_0").caption(), templateFile("Page"));
}

TEST_F(Templates, RenameAndDeleteActOnTheFileWhenTheyMay) {
    inDialog([this](TemplateHolder& holder) {
        platform.expectBox("Illegal character in requested template name");
        EXPECT_FALSE(holder.lbxTemplates.edit(1, "a.b"));
        for (const char character : std::string("\\/:*?\"<>|")) {
            platform.expectBox("Illegal filename");
            EXPECT_FALSE(holder.lbxTemplates.edit(1, std::string("a") + character));
        }
        EXPECT_EQ(platform.beeps, 10);
        for (const char* nothing : {"", "  ", "\u00A0\u3000\t"}) EXPECT_FALSE(holder.lbxTemplates.edit(1, nothing));
        platform.expectMessage(exclamation("There is a template of this name already: my default template copy",
                                           "Template file already exists."));
        EXPECT_FALSE(holder.lbxTemplates.edit(1, "my default template copy"));
        holder.lbxTemplates.setSelectedRow(0);
        platform.expectBox("Template deletion error");
        holder.cmdDelete.click();
        holder.lbxTemplates.setSelectedRow(1);
        // The name is still being edited when the button is pressed.
        holder.lbxTemplates.follow([&](Aspect aspect) {
            if (aspect == Aspect::value) holder.lbxTemplates.edit(1, "näme (1)");
        });
        for (const Answer answer : {Answer::no, Answer::yes}) {
            auto deletion = question("Delete [näme (1).tpl] template?", "Delete confirmation");
            deletion.standard = Answer::no;
            platform.expectMessage(deletion, answer);
            holder.cmdDelete.click();
            EXPECT_FALSE(exists("Page"));
            EXPECT_EQ(exists("näme (1)"), answer == Answer::no);
        }
        holder.lbxTemplates.follow({});
        EXPECT_EQ(holder.lbxTemplates.count(), 1U);
    });
    EXPECT_TRUE(exists("my default template copy"));
}

TEST_F(Templates, TheActiveTextBecomesATemplateUnderAFreeName) {
    const std::string prompt =
        "Enter a descriptive name for the template.\r\n\r\nNote: This name must also be a valid filename.";
    open("a.htm", "<HTML>");
    platform.expectInput(prompt, "Create Template.", "Page");
    platform.expectBox("Template file already exists.");
    platform.expectInput(prompt, "Create Template.", "a.b");
    platform.expectMessage(information("Template add complete!", "Template added"));
    mnuTools_CreateTemplate_Click();
    EXPECT_EQ(files.read("program/Templates/a.b.tpl"), "<HTML>\r\n");
    EXPECT_EQ(files.read("program/Templates/Page.tpl"), "<P>");
    toolForm<TemplateHolder>().unload();
}

}  // namespace
}  // namespace kelvor
