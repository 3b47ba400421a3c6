#include "platform/qt/binding.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <optional>

#include "platform/button.h"
#include "platform/combo_box.h"
#include "platform/label.h"
#include "platform/list_view.h"
#include "platform/menu_item.h"
#include "platform/picture_box.h"
#include "platform/qt/key_states.h"
#include "platform/status_bar.h"
#include "platform/tab_strip.h"
#include "platform/text_box.h"
#include "tests/qt/binding_fixture.h"

namespace kelvor::qt {
namespace {

TEST_F(Binding, AButtonFollowsItsControlAndGivesBackThePress) {
    auto& button = make<Button>("cmdGo", "&Go");
    count(button.clicked);
    auto& widget = add<QPushButton>("cmdGo");
    button.setToolTip("Break <BR>");
    bind();
    EXPECT_EQ(widget.text(), "&Go");
    EXPECT_TRUE(widget.toolTip().contains("&lt;BR&gt;")) << fromQt(widget.toolTip());
    QTest::mouseClick(&widget, Qt::LeftButton);
    EXPECT_EQ(told_, 1);
    button.setCaption("S&top");
    EXPECT_EQ(widget.text(), "S&top");
    button.setEnabled(false);
    QTest::mouseClick(&widget, Qt::LeftButton);
    EXPECT_EQ(told_, 1);
    button.setVisible(false);
    EXPECT_FALSE(widget.isVisible());
    button.setVisible(true);
    EXPECT_TRUE(widget.isVisible());
    EXPECT_EQ(told_, 1);
}

TEST_F(Binding, AnUnboundFormHearsNothingMore) {
    auto& button = make<Button>("cmdGo", "&Go");
    count(button.clicked);
    auto& widget = add<QPushButton>("cmdGo");
    bind();
    unbindForm(form_, window_);
    button.setCaption("Other");
    widget.click();
    EXPECT_EQ(widget.text(), "&Go");
    EXPECT_EQ(told_, 0);
}

TEST_F(Binding, AFormMayBeUnboundInsideItsOwnHandler) {
    auto& button = make<Button>("cmdGo", "&Go");
    auto& row = make<MenuItem>("mnuGo", nullptr);
    row.setCaption("Go");
    button.clicked.connect([this] { unbindForm(form_, window_); });
    row.clicked.connect([this] { unbindForm(form_, window_); });
    auto& widget = add<QPushButton>("cmdGo");
    bind();
    widget.click();
    EXPECT_EQ(bindForm(form_, window_), std::vector<std::string>());
    window_.menuBar()->actions().last()->trigger();
    button.setCaption("Other");
    EXPECT_EQ(widget.text(), "&Go");
}

TEST_F(Binding, ALabelShowsMarkUpAndLinesAsTheyStand) {
    auto& label = make<Label>("lblText", "<B>one</B>\r\ntwo");
    auto& widget = add<QLabel>("lblText");
    bind();
    EXPECT_EQ(widget.text(), "<B>one</B>\ntwo");
    EXPECT_EQ(widget.textFormat(), Qt::PlainText);
    label.setBackColor(0x0000ff);
    EXPECT_EQ(widget.palette().color(QPalette::Window), QColor(255, 0, 0));
    label.setBackColor(-1);
    EXPECT_EQ(widget.palette().color(QPalette::Window), window_.palette().color(QPalette::Window));
}

TEST_F(Binding, AListBoxChoosesRowsBothWays) {
    auto& box = make<ComboBox>("cboRows");
    for (const char* row : {"one", "two", "three"}) box.addItem(row);
    count(box.clicked);
    auto& widget = add<QComboBox>("cboRows");
    bind();
    EXPECT_EQ(widget.count(), 3);
    EXPECT_EQ(widget.currentIndex(), -1);
    box.setListIndex(1);
    EXPECT_EQ(widget.currentText(), "two");
    EXPECT_EQ(told_, 1);
    // The widget was changed by the model and must not have answered; a choice of the same row counts again.
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(box.listIndex(), 2);
    EXPECT_EQ(told_, 2);
    box.removeItem(0);
    EXPECT_EQ(widget.count(), 2);
    EXPECT_EQ(widget.currentText(), "three");
    box.clear();
    EXPECT_EQ(widget.count(), 0);
    EXPECT_EQ(widget.currentIndex(), -1);
    EXPECT_EQ(told_, 2);
}

TEST_F(Binding, AnEditableBoxTakesTextAndEnterChoosesNothing) {
    auto& box = make<ComboBox>("cboText", ComboBox::Style::editable);
    box.addItem("cat");
    count(box.clicked);
    auto& widget = add<QComboBox>("cboText");
    bind();
    QTest::keyClicks(widget.lineEdit(), "cat");
    QTest::keyClick(widget.lineEdit(), Qt::Key_Return);
    EXPECT_EQ(box.text(), "cat");
    EXPECT_EQ(box.listIndex(), 0);
    EXPECT_EQ(told_, 0);
    QTest::keyClick(widget.lineEdit(), Qt::Key_Home);
    QTest::keyClicks(widget.lineEdit(), "a ");
    EXPECT_EQ(box.text(), "a cat");
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.selStart(), 2);
    box.setText("dög");
    EXPECT_EQ(widget.currentText(), "dög");
    box.setSelStart(0);
    box.setSelLength(3);
    EXPECT_EQ(widget.lineEdit()->selectedText(), "dö");
    EXPECT_EQ(widget.count(), 1);
}

TEST_F(Binding, AFieldTakesTextAndSelectionInBytes) {
    auto& box = make<TextBox>("txtName", "über");
    count(box.changed);
    auto& widget = add<QLineEdit>("txtName");
    bind();
    widget.setSelection(0, 1);
    EXPECT_EQ(box.selLength(), 2);
    QTest::keyClicks(&widget, "o");
    QTest::keyClicks(&widget, "ff");
    EXPECT_EQ(box.text(), "offber");
    EXPECT_EQ(box.selStart(), 3);
    EXPECT_EQ(told_, 3);
    QTest::keyClick(&widget, Qt::Key_End);
    EXPECT_EQ(box.selStart(), 6);
    box.setText("neu");
    EXPECT_EQ(widget.text(), "neu");
    EXPECT_EQ(widget.cursorPosition(), 0);
    EXPECT_EQ(told_, 4);
}

TEST_F(Binding, AListFollowsItsRowsAndIsEditedThroughItsControl) {
    auto& list = make<ListView>("lbxRows");
    list.addRow("one");
    auto& widget = add<QListView>("lbxRows");
    bind();
    list.addRow("two");
    list.addRow("three");
    list.setSelectedRow(2);
    EXPECT_EQ(widget.currentIndex().row(), 2);
    list.removeRow(2);
    EXPECT_EQ(list.selectedRow(), 1);
    EXPECT_EQ(widget.currentIndex().row(), 1);
    EXPECT_EQ(widget.model()->rowCount(), 2);
    widget.setCurrentIndex(widget.model()->index(0, 0));
    EXPECT_EQ(list.selectedRow(), 0);
    EXPECT_TRUE(widget.model()->setData(widget.currentIndex(), "first", Qt::EditRole));
    EXPECT_EQ(list.rows().front(), "first");
    list.afterLabelEdit.connect([](const std::string&, bool& cancel) { cancel = true; });
    EXPECT_FALSE(widget.model()->setData(widget.currentIndex(), "refused", Qt::EditRole));
    EXPECT_EQ(widget.currentIndex().data().toString(), "first");
    const QRect place = widget.visualRect(widget.model()->index(1, 0));
    count(list.doubleClicked);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(widget.viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_EQ(told_, 1);
    EXPECT_EQ(list.selectedRow(), 1);
}

TEST_F(Binding, TabsFollowTheStripAndEachClickIsTold) {
    auto& strip = make<TabStrip>("TabStrip1");
    auto& bar = add<QTabBar>("TabStrip1");
    bind();
    strip.add("A", "a&b.htm");
    strip.add("B", "b.htm");
    strip.setTabToolTip("B", "/web/b.htm");
    EXPECT_EQ(bar.count(), 2);
    EXPECT_EQ(bar.tabText(0), "a&&b.htm");
    EXPECT_EQ(bar.tabToolTip(1), "/web/b.htm");
    EXPECT_EQ(bar.currentIndex(), 0);
    count(strip.clicked);
    strip.setSelectedItem("B");
    EXPECT_EQ(bar.currentIndex(), 1);
    EXPECT_EQ(told_, 1);
    const auto press = [&](int tab) { QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(tab).center()); };
    press(0);
    EXPECT_EQ(strip.selectedItem().key, "A");
    EXPECT_EQ(told_, 2);
    press(0);
    EXPECT_EQ(told_, 3);
    strip.remove("A");
    EXPECT_EQ(bar.count(), 1);
    EXPECT_EQ(bar.tabText(0), "b.htm");
    EXPECT_EQ(told_, 3);
    strip.remove("B");
    EXPECT_EQ(bar.count(), 0);
}

TEST_F(Binding, StatusPanelsShowTextsAndTheStateOfTheKeys) {
    using Kind = StatusBar::PanelKind;
    auto& bar = make<StatusBar>(
        "StatusBar1",
        std::vector<StatusBar::Panel>{
            {Kind::text, "Saved"}, {Kind::capsLock, "CAPS"}, {Kind::insert, "INS"}, {Kind::numLock, "NUM"}});
    auto& widget = add<QStatusBar>("StatusBar1");
    bind();
    const auto labels = widget.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 4);
    bar.setPanelText(1, "File Saved: No");
    EXPECT_EQ(labels[0]->text(), "File Saved: No");
    const int width = labels[0]->minimumWidth();
    bar.setPanelText(1, "x");
    EXPECT_EQ(labels[0]->minimumWidth(), width);

    QWindow* native = window_.windowHandle();
    EXPECT_FALSE(labels[1]->isEnabled());
    QTest::keyClick(native, Qt::Key_CapsLock);
    EXPECT_TRUE(labels[1]->isEnabled());
    EXPECT_FALSE(labels[3]->isEnabled());
    QTest::keyClick(native, Qt::Key_NumLock);
    EXPECT_TRUE(labels[3]->isEnabled());
    EXPECT_TRUE(labels[1]->isEnabled());
    QTest::keyClick(native, Qt::Key_CapsLock);
    QTest::keyClick(native, Qt::Key_NumLock);
    EXPECT_FALSE(labels[1]->isEnabled());
    EXPECT_FALSE(labels[3]->isEnabled());

    EXPECT_EQ(labels[2]->text(), "INS");
    keyStates().setOvertype(true);
    EXPECT_EQ(labels[2]->text(), "OVR");
    keyStates().setOvertype(false);
}

TEST_F(Binding, EachFaultOfALayoutIsToldWithFormNameAndClasses) {
    make<Button>("cmdMissing", "");
    make<ComboBox>("cboWrong");
    make<PictureBox>("Picture1");
    add<QPushButton>("cboWrong");
    auto& box = add<QWidget>("Picture1");
    (new QLineEdit(&box))->setObjectName("txtForgotten");
    add<QLabel>("lblPlain");
    EXPECT_EQ(bindForm(form_, window_),
              (std::vector<std::string>{"test: cmdMissing is missing in the layout; wanted is a QPushButton",
                                        "test: cboWrong should be a QComboBox and is a QPushButton",
                                        "test: txtForgotten, a QLineEdit, belongs to no control"}));
}

TEST_F(Binding, FocusGoesBothWays) {
    make<TextBox>("txtFirst");
    auto& second = make<TextBox>("txtSecond");
    add<QLineEdit>("txtFirst");
    auto& widget = add<QLineEdit>("txtSecond");
    bind();
    window_.activateWindow();
    letEventsRun();
    count(second.gotFocus);
    second.SetFocus();
    EXPECT_TRUE(widget.hasFocus());
    EXPECT_EQ(told_, 1);
}

TEST_F(Binding, ADisabledFormTakesNoInputAndKeepsItsFocus) {
    auto& box = make<TextBox>("txtName");
    auto& menu = make<MenuItem>("mnuFile", nullptr);
    auto& row = make<MenuItem>("mnuFile_New", &menu);
    menu.setCaption("&File");
    row.setCaption("&New");
    row.setShortcut("Ctrl+N");
    count(row.clicked);
    auto& widget = add<QLineEdit>("txtName");
    bind();
    window_.activateWindow();
    widget.setFocus();
    letEventsRun();
    QWindow* native = window_.windowHandle();
    QTest::keyClick(native, Qt::Key_A);
    QTest::keyClick(native, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(told_, 1);
    form_.setEnabled(false);
    QTest::keyClick(native, Qt::Key_B);
    QTest::keyClick(native, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(box.text(), "a");
    EXPECT_EQ(told_, 1);
    form_.setEnabled(true);
    QTest::keyClick(native, Qt::Key_C);
    EXPECT_EQ(box.text(), "ac");
}

class Menus : public Binding {
protected:
    Menus() {
        file_.setCaption("&File");
        open_.setCaption("&Open");
        open_.setShortcut("Ctrl+O");
        line_.setCaption("-");
        popup_.setVisible(false);
        cut_.setCaption("Cut");
        count(open_.clicked);
        bind();
        window_.activateWindow();
        letEventsRun();
    }
    QAction& action(const char* name) { return *window_.findChild<QAction*>(name); }
    void pressShortcut() { QTest::keyClick(window_.windowHandle(), Qt::Key_O, Qt::ControlModifier); }

    MenuItem& file_ = make<MenuItem>("mnuFile", nullptr);
    MenuItem& open_ = make<MenuItem>("mnuFile_Open", &file_);
    MenuItem& line_ = make<MenuItem>("", &file_);
    MenuItem& popup_ = make<MenuItem>("mnuRClick", nullptr);
    MenuItem& cut_ = make<MenuItem>("mnuRClick_Cut", &popup_);
};

TEST_F(Menus, TheBarHasTheTreeOfTheControls) {
    const auto tops = window_.menuBar()->actions();
    ASSERT_EQ(tops.size(), 2);
    EXPECT_EQ(tops[0]->text(), "&File");
    EXPECT_FALSE(tops[1]->isVisible());
    const auto rows = tops[0]->menu()->actions();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0]->shortcut(), QKeySequence("Ctrl+O"));
    EXPECT_TRUE(rows[1]->isSeparator());
}

TEST_F(Menus, ARowFollowsItsControlAndItsMarkIsTheControls) {
    open_.setChecked(true);
    EXPECT_TRUE(action("mnuFile_Open").isChecked());
    // A choice does not turn the mark by itself.
    action("mnuFile_Open").trigger();
    EXPECT_EQ(told_, 1);
    EXPECT_TRUE(action("mnuFile_Open").isChecked());
    open_.setCaption("Open...");
    EXPECT_EQ(action("mnuFile_Open").text(), "Open...");
}

TEST_F(Menus, AShortcutWorksOnlyWhileItsRowAndMenuAreThere) {
    pressShortcut();
    EXPECT_EQ(told_, 1);
    struct Case {
        MenuItem& item;
        void (Control::*set)(bool);
    };
    for (const Case& each : {Case{open_, &Control::setEnabled}, Case{open_, &Control::setVisible},
                             Case{file_, &Control::setEnabled}, Case{file_, &Control::setVisible}}) {
        (each.item.*each.set)(false);
        pressShortcut();
        EXPECT_EQ(told_, 1) << each.item.name();
        (each.item.*each.set)(true);
    }
    pressShortcut();
    EXPECT_EQ(told_, 2);
}

TEST_F(Menus, AMenuIsToldWhenItOpensAlsoAPopup) {
    count(file_.clicked);
    count(popup_.clicked);
    for (const char* name : {"mnuFile", "mnuRClick"}) {
        auto* menu = window_.findChild<QMenu*>(name);
        menu->popup({});
        menu->close();
    }
    EXPECT_EQ(told_, 2);
}

}  // namespace
}  // namespace kelvor::qt
