// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/image_assistant.h"

#include "frame/file_dialogs.h"
#include "support/settings.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

class ImageDialog : public SelectionTest {
protected:
    ImageDialog() {
        for (const auto& [name, width] :
             {std::pair{"a.gif", 40}, {"Wide.png", 4000}, {"wider.png", 32767 + 200}, {"widest.png", 32767 + 201}})
            platform.pictures[path(name)] = {width, 30};
    }

    std::string path(const std::string& name) const { return files.path("Pictures") + "/" + name; }

    /// Chooses that file, or cancels with "", and is told what `expectTold` expects.
    void browse(
        ImageAssistant& form, const std::string& name, const std::function<void()>& expectTold = [] {}) {
        platform.expectOpen("Select and image file",
                            name.empty() ? std::vector<std::string>() : std::vector{path(name)});
        expectTold();
        form.cmbBrowse.click();
    }
    Act inImageDialog(std::function<void(ImageAssistant&)> steps) {
        return inDialog<ImageAssistant>(mnuInsert_Image_Click, std::move(steps));
    }
};

TEST_F(ImageDialog, AnImageIsChosenMeasuredAndWritten) {
    // Which of its filters is for documents alone, and no number is one that their dialog refuses.
    for (const auto& [key, value] : {std::pair{"LCase", "True"}, {"DFilter", "none"}})
        SaveSetting(application, "User", key, value);
    menu("mnuToolBars_forms").click();
    platform.expectModal([this](Form& shown) {
        auto& form = dynamic_cast<ImageAssistant&>(shown);
        EXPECT_TRUE(form.txtValue.visible() && form.lblValue.visible());
        form.txtValue.type("v");
        browse(form, "a.gif");
        form.cmdHelp.click();
        form.cmdInsert.click();
    });
    EXPECT_EQ(after([] { mainForm().Toolbar3.click("form_image"); }),
              R"(a<INPUT TYPE="image" SRC="pictures/a.gif" WIDTH="40" HEIGHT="30" BORDER="0" VALUE="v">[]c Text1)");
    const auto insert = inImageDialog([this](ImageAssistant& form) {
        EXPECT_FALSE(form.txtValue.visible() || form.txtValue.enabled());
        platform.expectMessage(exclamation("You must select an image file first.", "No image file selected."));
        form.cmdInsert.click();
        form.Option1[1].click();
        form.txtWidth.type("150.5");
        form.Option1[0].click();
        EXPECT_EQ(form.txtWidth.text(), "0");
        browse(form, "Wide.png");
        EXPECT_EQ(lastDir, files.path("Pictures"));
        browse(form, "");
        for (const int unit : {1, 0, 1}) form.Option1[unit].click();
        form.txtHspace.type("");
        form.txtVspace.type("1x.5");
        form.cboAlign.choose(9);
        form.cmdHelp.click();
        form.cmdInsert.click();
    });
    EXPECT_EQ(after(insert),
              R"(a<IMG SRC="pictures/wide.png" WIDTH="100%" HEIGHT="30" HSPACE="" VSPACE="1.5" BORDER="0" ALIGN="TOP">)"
              "[]c Text1");
    EXPECT_TRUE(platform.helpPages[0].ends_with("51.html") && platform.helpPages[1].ends_with("23.html"));
}

TEST_F(ImageDialog, ThePreviewFollowsTheBarsAndAPictureTooLargeIsAnError) {
    const auto look = inImageDialog([this](ImageAssistant& form) {
        form.picFrame.resize(200, 100);
        const auto bars = [&form] {
            return std::to_string(form.HScroll1.visible()) + std::to_string(form.VScroll1.visible());
        };
        browse(form, "Wide.png");
        EXPECT_EQ(bars(), "10");
        EXPECT_EQ(form.HScroll1.maximum() - form.HScroll1.largeChange(), 3600);
        form.picFrame.resize(300, 8);
        EXPECT_EQ(bars(), "11");
        form.HScroll1.drag(3700);
        form.VScroll1.setValue(5);
        EXPECT_EQ(form.Picture1.left() * 100 + form.Picture1.top(), -370005);
        browse(form, "a.gif");
        EXPECT_EQ(bars() + std::to_string(form.Picture1.left()), "010");
        form.picFrame.resize(200, 100);
        browse(form, "Wide.png");
        for (const auto& [name, ofBars] : {std::pair{"wider.png", ""}, {"widest.png", "6 Overflow;"}}) {
            EXPECT_EQ(reportedBy([&, file = name] { browse(form, file, [this] { expectError(6, "Overflow"); }); }),
                      ofBars);
            EXPECT_EQ(form.txtImageName.text() + form.txtWidth.text(), "4000");
        }
        browse(form, "a.gif");
        browse(form, "b.gif", [this] {
            platform.expectMessage(exclamation(path("b.gif") + " is not a valid image file.", "Invalid file format"));
        });
        EXPECT_EQ(form.txtImageName.text() + form.txtWidth.text(), "40");
        form.txtWidth.type(".");
        EXPECT_EQ(reportedBy([&form] { form.Option1[1].click(); }), "13 Type mismatch: \".\";");
        form.cmdClose.click();
    });
    EXPECT_EQ(after(look), "a[b]c Text1");
}

}  // namespace
}  // namespace kelvor
