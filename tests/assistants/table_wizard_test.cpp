// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/table_wizard.h"

#include <filesystem>

#include "authoring/date_time.h"
#include "editing/insertion.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

const std::string noAttributes = " BORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"0\"";

/// A table of empty cells, with this behind the name of its tag.
std::string emptyTable(int rows, int cols, const std::string& attributes = noAttributes) {
    std::string row = "<TR>\r\n";
    for (int col = 0; col < cols; ++col) row += "\t<TD></TD>\r\n";
    std::string table = "<TABLE" + attributes + ">\r\n";
    for (int i = 0; i < rows; ++i) table += row + "</TR>\r\n";
    return table + "</TABLE>";
}

class TableWizardDialog : public SelectionTest {
protected:
    /// The document after `steps` in the wizard, which end in its close.
    std::string afterWizard(std::function<void(TableWizard&)> steps) {
        return after(inDialog<TableWizard>(mnuInsert_TableWiz_Click, std::move(steps)), "[x]");
    }
    static void type(TableWizard& wizard, const std::string& rows, const std::string& cols) {
        wizard.txtRows.type(rows);
        wizard.txtCols.type(cols);
    }
    static void press(TableWizard& wizard, const std::string& buttons) {
        for (const char button : buttons) wizard.Command1[std::string("nbcf").find(button)].click();
    }
    /// The page, and the buttons that can be pressed.
    static std::string shown(const TableWizard& wizard) {
        std::string text;
        for (const std::size_t i : {0, 1, 2}) text += wizard.Frame2[i].visible() ? std::to_string(i) : "";
        for (const std::size_t i : {0, 1, 2, 3}) text += wizard.Command1[i].enabled() ? "nbcf"[i] : '\0';
        std::erase(text, '\0');
        return text;
    }
};

TEST_F(TableWizardDialog, SizesAreTakenOnceAndAnewOnlyWhereTheUserAgrees) {
    EXPECT_EQ(afterWizard([&](TableWizard& wizard) {
                  EXPECT_EQ(shown(wizard), "0c");
                  for (const auto& [rows, cols, page] :
                       {std::tuple{"01", "2", "0c"}, {"251", "2", "0ncf"}, {"2", "", "0c"}, {"2", "3", "0ncf"}}) {
                      type(wizard, rows, cols);
                      EXPECT_EQ(shown(wizard), page) << rows;
                      EXPECT_EQ(wizard.txtRows.text(), rows == std::string("251") ? "250" : rows);
                  }
                  for (const bool enabled : {false, true}) {
                      wizard.setEnabled(enabled);
                      press(wizard, enabled ? "f" : "c");
                  }
              }),
              emptyTable(2, 3) + "[] Text1");
    EXPECT_EQ(afterWizard([&](TableWizard& wizard) {
                  type(wizard, "2", "2.5");
                  for (const char* page : {"1nbcf", "2bcf"}) {
                      press(wizard, "n");
                      EXPECT_EQ(shown(wizard), page);
                  }
                  wizard.txtCellText.setText("old");
                  press(wizard, "bb");
                  platform.expectBox("Destroy Cells Confirmation", Answer::no);
                  press(wizard, "n");
                  EXPECT_EQ(wizard.txtCols.text() + wizard.grid1.text(), "2old");
                  press(wizard, "bnb");
                  type(wizard, "3", "1");
                  platform.expectBox("Destroy Cells Confirmation", Answer::yes);
                  press(wizard, "nn");
                  EXPECT_EQ(wizard.txtCellText.text() + wizard.grid1.text(), "");
                  EXPECT_EQ(wizard.grid1.rows() * 10 + wizard.grid1.cols(), 31);
                  press(wizard, "bb");
                  type(wizard, "9", "9");
                  press(wizard, "f");
              }),
              emptyTable(3, 1) + "[] Text1");
}

TEST_F(TableWizardDialog, PropertiesAreLimitedAndWhatIsNoNumberIsAnErrorThatEndsNothing) {
    const auto table = afterWizard([this](TableWizard& wizard) {
        type(wizard, "1", "1");
        EXPECT_EQ(reportedBy([&] { wizard.txtRows.type("."); }), "13 Type mismatch: \".\";");
        EXPECT_EQ(reportedBy([&] { press(wizard, "n"); }), "13 Type mismatch: \".\";");
        type(wizard, "1", "1");
        press(wizard, "n");
        EXPECT_FALSE(wizard.txtTableWidth.enabled() || wizard.UpDown1.enabled());
        wizard.optTW[1].click();
        wizard.txtTableWidth.type("2001");
        EXPECT_EQ(wizard.txtTableWidth.text() + std::to_string(wizard.UpDown1.maximum()), "20002000");
        wizard.txtTableWidth.type("");
        EXPECT_EQ(reportedBy([&] { wizard.optTW[0].click(); }), "13 Type mismatch: \"\";");
        EXPECT_EQ(wizard.UpDown1.maximum(), 100);
        wizard.optTW[1].click();
        wizard.txtTableWidth.type("500");
        wizard.optTW[0].click();
        wizard.txtCellSpacing.type("32768");
        wizard.txtCellPadding.type("2.5");
        wizard.UpDown4.stepUp();
        wizard.chkTblCenter.click();
        for (const auto& color : {std::optional(0xFF), {}}) {
            platform.expectColor(color);
            wizard.txtBgColor.doubleClick();
            EXPECT_EQ(platform.colorTitle, "Select an image file");
        }
        wizard.txtBgColor.type("green");
        press(wizard, "f");
    });
    EXPECT_EQ(table, "<CENTER>" +
                         emptyTable(1, 1,
                                    " BGCOLOR=\"#FF0000\" BORDER=\"1\" CELLSPACING=\"32767\" CELLPADDING=\"2\" "
                                    "WIDTH=\"100%\"") +
                         "\r\n</CENTER>[] Text1");
}

TEST_F(TableWizardDialog, CellsAreEditedWhereTheGridIsAndTakeWhatOtherToolsDeliver) {
    files.write("program/tags.txt", "<B>,</B>,\r\n");
    std::filesystem::create_directories(files.path("program/Scripts"));
    files.write("program/Scripts/a.js", "x");
    const auto table = afterWizard([this](TableWizard& wizard) {
        type(wizard, "2", "2");
        press(wizard, "nn");
        EXPECT_EQ(wizard.lblActiveCell.caption() + platform.focused, "C1 : R1txtCellText");
        wizard.txtCellText.setText(std::string(499, 'a') + "\u00E4x");
        EXPECT_EQ(wizard.grid1.text(), std::string(499, 'a') + "\u00E4x") << "the grid shows all of it";
        wizard.grid1.move(0, 1);
        wizard.cboAlign.choose(1);
        wizard.cboValign.choose(2);
        wizard.txtCellBgColor.type("#00ff00");
        EXPECT_EQ(wizard.grid1.backColor(), 0) << "one typed is not shown";
        platform.expectColor(0);
        wizard.txtCellBgColor.doubleClick();
        EXPECT_EQ(wizard.grid1.backColor(), 1);
        wizard.grid1.click(1, 0);
        EXPECT_EQ(wizard.cboAlign.text() + wizard.cboValign.text() + wizard.txtCellBgColor.text(), "LEFTMIDDLE");
        const auto choose = [&](MenuItem& row, const std::function<void(Form&)>& steps) {
            platform.expectPopup([&row](MenuItem& /*menu*/) { row.click(); });
            platform.expectModal(steps);
            wizard.txtCellText.mouseDown.raise({.button = MousePress::right});
        };
        choose(wizard.mnuTableWiz_datetime, [](Form& form) { dynamic_cast<DateTimeDialog&>(form).cmdInsert.click(); });
        EXPECT_EQ(wizard.grid1.text(), "short 2026-11-21");
        for (const auto& [row, name] : {std::pair{&wizard.mnuTableWiz_image, "frmImage"},
                                        {&wizard.mnuTableWiz_link, "linkman"},
                                        {&wizard.mnuTableWiz_quick, "textFormat"},
                                        {&wizard.mnuTableWiz_script, "frmScripts"},
                                        {&wizard.mnuTableWiz_special, "specialCharacterInsertion"},
                                        {&wizard.mnuTableWiz_tags, "tags"}})
            choose(*row, [name = name](Form& form) {
                EXPECT_EQ(form.name(), name);
                deliveryTarget().setSelText("!");
                form.unload();
            });
        wizard.grid1.click(0, 1);
        EXPECT_EQ(wizard.cboAlign.text() + wizard.cboValign.text() + wizard.txtCellBgColor.text(),
                  "CENTERBOTTOM#000000");
        wizard.grid1.click(0, 0);
        EXPECT_EQ(wizard.grid1.text(), std::string(499, 'a') + "\u00E4");
        press(wizard, "f");
    });
    EXPECT_EQ(table, "<TABLE" + noAttributes + ">\r\n<TR>\r\n\t<TD>" + std::string(499, 'a') +
                         "\u00E4</TD>\r\n\t<TD ALIGN=\"CENTER\" VALIGN=\"BOTTOM\" BGCOLOR=\"#000000\"></TD>\r\n</TR>"
                         "\r\n<TR>\r\n\t<TD>short 2026-11-21!!!!!!</TD>\r\n\t<TD></TD>\r\n</TR>\r\n</TABLE>[] Text1");
    EXPECT_EQ(activeFormName, documentForm);
    EXPECT_EQ(&deliveryTarget(), text);
}

}  // namespace
}  // namespace kelvor
