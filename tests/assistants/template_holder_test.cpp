#include "assistants/template_holder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class Templates : public KelvorTest {
protected:
    Templates() {
        for (const char* name : {"default template", "My Default Template copy", "Page"}) addTemplate(name, "<P>");
        start();
    }

    void addTemplate(const std::string& name, const std::string& text) {
        files.write("program/Templates/" + name + ".tpl", text);
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

TEST_F(Templates, NewOpensTheChosenOneUntitled) {
    inDialog([](TemplateHolder& holder) {
        EXPECT_EQ(holder.lbxTemplates.rows(),
                  (std::vector<std::string>{"default template", "My Default Template copy", "Page"}));
        EXPECT_EQ(holder.lbxTemplates.selectedRow(), 0);
        holder.lbxTemplates.doubleClick(2);
        EXPECT_FALSE(holder.isLoaded());
    });
    EXPECT_EQ(mainForm().activeForm().caption(), "Untitled 1");
    EXPECT_TRUE(documentManager()->currentDocument().IsUntitled());
    EXPECT_TRUE(menu("mnuEdit").visible());
    EXPECT_EQ(mainForm().untitledCount, 2);
}

TEST_F(Templates, EditOpensTheFileItself) {
    inDialog([](TemplateHolder& holder) {
        holder.lbxTemplates.setSelectedRow(2);
        holder.cmdEdit.click();
    });
    EXPECT_EQ(mainForm().activeForm().caption(), templateFile("Page"));
    EXPECT_EQ(menu("mnuFile_RecentFiles_0").caption(), templateFile("Page"));
}

TEST_F(Templates, DeleteAsksAndProtectsTheDefaultOnes) {
    inDialog([this](TemplateHolder& holder) {
        for (const int row : {0, 1}) {
            holder.lbxTemplates.setSelectedRow(row);
            platform.expectMessage({.text = "You can not delete the default template.\r\n"
                                            "You can open and modify the default template with the editor.",
                                    .title = "Template deletion error",
                                    .icon = MessageIcon::exclamation});
            holder.cmdDelete.click();
        }
        holder.lbxTemplates.setSelectedRow(2);
        for (const Answer answer : {Answer::no, Answer::yes}) {
            EXPECT_TRUE(exists("Page"));
            platform.expectMessage({.text = "Delete [Page.tpl] template?",
                                    .title = "Delete confirmation",
                                    .icon = MessageIcon::question,
                                    .buttons = MessageButtons::yesNo,
                                    .standard = Answer::no},
                                   answer);
            holder.cmdDelete.click();
        }
        EXPECT_EQ(holder.lbxTemplates.count(), 2U);
    });
    EXPECT_FALSE(exists("Page"));
    EXPECT_TRUE(exists("default template"));
}

TEST_F(Templates, RenamingInPlaceRenamesTheFileOrKeepsTheName) {
    inDialog([this](TemplateHolder& holder) {
        platform.expectMessage({.text = "A template name cannot contain a period(.).",
                                .title = "Illegal character in requested template name",
                                .icon = MessageIcon::critical});
        EXPECT_FALSE(holder.lbxTemplates.edit(2, "a.b"));
        platform.expectMessage({.text = "A filename cannot contain any of the following characters:\r\n"
                                        "\\ / : * ? \" < > |",
                                .title = "Illegal filename",
                                .icon = MessageIcon::critical});
        EXPECT_FALSE(holder.lbxTemplates.edit(2, "a/b"));
        EXPECT_TRUE(exists("Page"));
        EXPECT_TRUE(holder.lbxTemplates.edit(2, "Letter"));
    });
    EXPECT_TRUE(exists("Letter"));
    EXPECT_FALSE(exists("Page"));
}

TEST_F(Templates, AnOpenThatFailsIsToldAndTheDialogStays) {
    inDialog([this](TemplateHolder& holder) {
        std::filesystem::remove(templateFile("Page"));
        platform.expectMessage({.text = "The file " + templateFile("Page") + " does not exist.",
                                .title = "File Open Error",
                                .icon = MessageIcon::exclamation});
        platform.expectMessage({.text = "An error occurred while opening " + templateFile("Page") +
                                        "\r\nMake sure that the file is not already locked by another application.",
                                .title = "File open error",
                                .icon = MessageIcon::critical});
        holder.lbxTemplates.doubleClick(2);
        EXPECT_TRUE(holder.isLoaded());
    });
}

TEST_F(Templates, TheActiveTextBecomesATemplateUnderAFreeName) {
    const std::string prompt =
        "Enter a descriptive name for the template.\r\n\r\nNote: This name must also be a valid filename.";
    open("a.htm", "<HTML>");
    platform.expectInput(prompt, "Create Template.", "Page");
    platform.expectMessage({.text = "You already have a template file on disk with the filename required by this new "
                                    "template.\r\n\r\nPlease modify the template name slightly to allow the addition "
                                    "of the new template to occur.",
                            .title = "Template file already exists.",
                            .icon = MessageIcon::question});
    platform.expectInput(prompt, "Create Template.", "a.b");
    platform.expectMessage(
        {.text = "Template add complete!", .title = "Template added", .icon = MessageIcon::information});
    mnuTools_CreateTemplate_Click();
    EXPECT_EQ(files.read("program/Templates/a.b.tpl"), "<HTML>\r\n");
    EXPECT_EQ(files.read("program/Templates/Page.tpl"), "<P>");
    templateHolder().unload();
}

}  // namespace
}  // namespace kelvor
