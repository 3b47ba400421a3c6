// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_box.h"

#include "controls/up_down.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

TEST_F(Binding, AFieldTakesItsKeysOnlyAndAllOthersLive) {
    const struct {
        std::string_view keys;
        std::string pasted;
        std::string text;      ///< after 1, x, 2, Backspace, "." and a paste
        std::string replaced;  ///< after Select All, the key x and a "y" put in
    } rows[] = {{"", "a\nb", "1x.a", "xy"}, {keys::number, "a3b\n4", "1.3", "1.3"}, {keys::digits, "4.", "124", "124"}};
    const auto [box, widget] = pair<TextBox, QLineEdit>("txtRows");
    const auto [button, other] = pair<TextBox, QLineEdit>("txtNext");
    bind();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.keys);
        box.setText("");
        box.setKeys(row.keys);
        box.SetFocus();
        for (const char key : {'1', 'x', '2', '\b', '.'}) QTest::keyClick(&widget, key);
        QApplication::clipboard()->setText(toQt(row.pasted));
        widget.paste();
        EXPECT_TRUE(box.text() == row.text && fromQt(widget.text()) == row.text) << box.text();
        EXPECT_EQ(widget.cursorPosition(), static_cast<int>(row.text.size()));
        pressKey(Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&widget, 'x');
        widget.insert("y");
        EXPECT_EQ(box.text(), row.replaced);
        pressKey(Qt::Key_Tab);
        EXPECT_TRUE(other.hasFocus());
    }
    box.setKeys("");
    const std::string given = "one\r\ntwo\nthree" + std::string(40000, '.');
    box.setText(given);
    widget.end(false);
    QTest::keyClicks(&widget, "!");
    EXPECT_EQ(box.text(), given + "!") << "the lines that it was given stay";
    box.setText(std::string(300000, '.'));
    QTest::keyClick(&widget, Qt::Key_Delete);
    EXPECT_EQ(box.text().size(), 300000);
}

TEST_F(Binding, AFieldShowsItsColorWithATextToReadAndIsOpenedByDoubleClicksAndKeys) {
    const auto [box, widget] = pair<TextBox, QLineEdit>("txtColor", "(n/a)");
    bind();
    QTest::mouseDClick(&widget, Qt::LeftButton);
    letEventsRun();
    EXPECT_TRUE(widget.hasSelectedText());
    count(box.doubleClicked);
    QTest::mouseDClick(&widget, Qt::LeftButton);
    QTest::keyClick(&widget, Qt::Key_F4);
    QTest::keyClick(&widget, Qt::Key_Down, Qt::AltModifier);
    letEventsRun();
    EXPECT_EQ(told_, 3);
    box.setBackColor(0x800000);
    EXPECT_EQ(widget.palette().color(QPalette::Text), QColor(Qt::white));
    box.setBackColor(-1);
    EXPECT_EQ(widget.palette(), QApplication::palette(&widget));
}

TEST_F(Binding, ArrowsStepTheNumberBesideThemWithinTheirRange) {
    const struct {
        std::string text;
        std::string up;
        std::string down;  ///< of what up has made
    } rows[] = {{"0", "1", "1"},    {"1", "2", "1"}, {"9", "10", "9"}, {"10", "10", "9"},
                {"500", "10", "9"}, {"", "1", "1"},  {".", "1", "1"},  {"99999999999999999999", "10", "9"}};
    const auto [box, widget] = pair<TextBox, QLineEdit>("txtSize");
    const auto [steps, place] = pair<UpDown, QWidget>("UpDown1", box, 1, 10);
    widget.setAccessibleName(QStringLiteral("Size"));
    bind();
    EXPECT_EQ(place.accessibleName(), widget.accessibleName());
    const auto arrows = place.findChildren<QToolButton*>();
    ASSERT_EQ(arrows.size(), 2);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        box.setText(row.text);
        arrows.first()->click();
        EXPECT_EQ(fromQt(widget.text()), row.up);
        QTest::keyClick(&widget, Qt::Key_Down);
        EXPECT_EQ(fromQt(widget.text()), row.down);
    }
    steps.setMaximum(3);
    steps.setEnabled(false);
    QTest::keyClick(&widget, Qt::Key_Up);
    EXPECT_EQ(box.text(), "9");
    steps.setEnabled(true);
    arrows.first()->click();
    EXPECT_EQ(box.text(), "3");
}

}  // namespace
}  // namespace kelvor::qt
