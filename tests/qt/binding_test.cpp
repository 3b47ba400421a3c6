// SPDX-License-Identifier: GPL-3.0-or-later
#include <Qsci/qsciscintillabase.h>
#include <QAccessible>

#include <QSignalSpy>
#include <array>

#include "controls/button.h"
#include "controls/check_box.h"
#include "controls/check_list.h"
#include "controls/combo_box.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_view.h"
#include "controls/menu_item.h"
#include "controls/month_view.h"
#include "controls/option_group.h"
#include "controls/progress_bar.h"
#include "controls/status_bar.h"
#include "controls/tab_control.h"
#include "controls/tab_strip.h"
#include "controls/text_box.h"
#include "qt/key_states.h"
#include "qt/scintilla_edit.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

TEST_F(Binding, AFormMayBeUnboundByItsOwnHandlersAndHearsNothingMore) {
    const auto [button, widget] = pair<Button, QPushButton>("cmdGo", "&Go");
    auto& row = make<MenuItem>("mnuGo", nullptr);
    for (auto* event : {&button.clicked, &row.clicked}) {
        count(*event);
        event->connect([this] { unbindForm(form_, window_); });
    }
    button.setToolTip("Break <BR>");
    button.setEnabled(false);
    bind();
    EXPECT_TRUE(widget.toolTip().contains("&lt;BR&gt;")) << fromQt(widget.toolTip());
    widget.click();
    button.setEnabled(true);
    button.setCaption("S&top");
    for (int press = 0; press < 2; ++press) widget.click();
    button.setCaption("Other");
    EXPECT_EQ(fromQt(widget.text()) + std::to_string(told_), "S&top1");
    bind();
    window_.findChildren<QMenuBar*>().last()->actions().last()->trigger();
    EXPECT_EQ(told_, 2);
}

TEST_F(Binding, AFormHearsItsSizeAndThatItComesForwardButNotFromABoxOfItsOwn) {
    bind();
    for (auto* event : {&form_.activated, &form_.resized}) count(*event);
    {
        QDialog box(&window_);
        box.show();
        box.activateWindow();
        letEventsRun();
    }
    window_.activateWindow();
    letEventsRun();
    EXPECT_EQ(told_, 0);
    window_.resize(window_.size() + QSize(10, 0));
    letEventsRun();
    EXPECT_EQ(told_, 1);
    QWidget another;
    Form other("other", "");
    bindForm(other, another);
    for (QWidget* window : {&another, static_cast<QWidget*>(&window_)}) {
        window->show();
        window->activateWindow();
        letEventsRun();
    }
    EXPECT_EQ(told_, 2);
}

TEST_F(Binding, AListBoxChoosesRowsBothWays) {
    const auto [box, widget] = pair<ComboBox, QComboBox>("cboRows");
    for (const char* row : {"one", "two", "three"}) box.addItem(row);
    count(box.clicked);
    bind();
    box.setListIndex(1);
    EXPECT_TRUE(widget.currentText() == "two" && told_ == 1) << "the widget, changed by the model, must not answer";
    QTest::keyClick(&widget, Qt::Key_Down);
    widget.clearFocus();
    QWheelEvent turn({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &turn);
    EXPECT_EQ(told_, 2) << "a turn of the wheel passes by";
    box.removeItem(0);
    EXPECT_EQ(fromQt(widget.currentText()) + std::to_string(box.listIndex()) + std::to_string(told_), "three12");
}

TEST_F(Binding, AnEditableBoxTakesTextAndSelectionInBytes) {
    const auto [box, widget] = pair<ComboBox, QComboBox>("cboText", ComboBox::Style::editable);
    box.addItem("cat");
    count(box.clicked);
    bind();
    QLineEdit& field = *widget.lineEdit();
    QTest::keyClicks(&field, "cat");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(box.listIndex() == 0 && told_ == 0) << "Enter chooses nothing";
    box.setText("dög");
    box.setSelLength(3);
    EXPECT_EQ(field.selectedText(), "dö");
    field.setSelection(1, 1);
    EXPECT_EQ(box.selLength(), 2);
    QTest::keyClicks(&field, "o");
    EXPECT_EQ(box.text() + std::to_string(box.listIndex()), "dog-1");
}

TEST_F(Binding, AListFollowsItsRowsAndIsEditedThroughItsControl) {
    const auto [list, widget] = pair<ListView, QListView>("lbxRows");
    list.addRow("one");
    bind();
    const auto first = [view = &widget] { return view->model()->index(0, 0); };
    for (const char* row : {"two", "three"}) list.addRow(row);
    list.setSelectedRow(1);
    for (const int left : {1, 0}) {
        list.removeRow(1);
        EXPECT_TRUE(list.selectedRow() == left && widget.currentIndex().row() == left) << left;
    }
    const QSignalSpy changes(widget.model(), &QAbstractItemModel::dataChanged);
    widget.edit(first());
    QTest::keyClicks(QApplication::focusWidget(), "new");
    list.endEdit();
    EXPECT_EQ(list.rows().front() + fromQt(first().data().toString()), "newnew");
    EXPECT_FALSE(changes.isEmpty());
    list.afterLabelEdit.connect([](const std::string&, bool& cancel) { cancel = true; });
    EXPECT_FALSE(widget.model()->setData(first(), "refused", Qt::EditRole));
    count(list.doubleClicked);
    list.setSelectedRow(-1);
    const QPoint place = widget.visualRect(first()).center();
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(widget.viewport(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(told_ == 1 && list.selectedRow() == 0);
}

TEST_F(Binding, TabsADayAStatusAndABarFollowTheirControls) {
    using Kind = StatusBar::PanelKind;
    const std::vector<StatusBar::Panel> panels = {{Kind::text, "Saved"},
                                                  {Kind::capsLock, "CAPS"},
                                                  {Kind::numLock, "NUM"},
                                                  {Kind::insert, "INS"},
                                                  {Kind::notice, ""}};
    const auto [strip, tabs] = pair<TabStrip, QTabBar>("TabStrip1");
    const auto [view, calendar] = pair<MonthView, QCalendarWidget>("MonthView1");
    const auto [bar, progress] = pair<ProgressBar, QProgressBar>("ProgressBar1");
    const auto [status, widget] = pair<StatusBar, QStatusBar>("StatusBar1", panels);
    bind();
    strip.add("A", "a&b\n.htm");
    strip.add("B", "b.htm");
    EXPECT_EQ(tabs.tabText(0), "a&&b\\n.htm");
    count(strip.clicked);
    strip.setSelectedItem("B");
    // The second is on the tab in front.
    for (int click = 0; click < 2; ++click) QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    EXPECT_EQ(strip.selectedItem().key, "A");
    strip.remove("A");
    EXPECT_TRUE(tabs.tabText(0) == "b.htm" && told_ == 2);

    view.setValue({2026, 2, 28});
    EXPECT_EQ(calendar.selectedDate(), QDate(2026, 2, 28));
    calendar.setFocus();
    pressKey(Qt::Key_Right);
    EXPECT_EQ(toQt(view.value()), QDate(2026, 3, 1));
    bar.setRange(0, 3);
    bar.setValue(2);
    EXPECT_EQ(progress.text(), "66%");

    const auto labels = widget.findChildren<QLabel*>();
    status.setPanelText(1, "x");
    EXPECT_EQ(labels[0]->text(), "x");
    EXPECT_FALSE(labels[4]->isVisible());
    status.setPanelText(5, "fails");
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(labels[4]);
    EXPECT_TRUE(spoken.role() == QAccessible::Notification && spoken.text(QAccessible::Name) == "fails");
    for (const bool on : {true, false}) {
        pressKey(Qt::Key_CapsLock);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_CapsLock, {}, {}, true);
        QApplication::sendEvent(window_.windowHandle(), &held);
        EXPECT_TRUE(labels[1]->isEnabled() == on && labels[2]->isEnabled() != on);
        pressKey(Qt::Key_NumLock);
        EXPECT_EQ(labels[2]->isEnabled(), on);
        keyStates().setOvertype(on);
        EXPECT_EQ(labels[3]->text(), on ? "OVR" : "INS");
    }
}

TEST_F(Binding, EachFaultOfALayoutIsToldWithFormNameAndClasses) {
    make<Button>("cmdMissing", "");
    make<ComboBox>("cboWrong");
    make<TabControl>("SSTab1", std::vector<std::string>{"A", "B"});
    auto* page = new QGroupBox;
    (new QLineEdit(page))->setObjectName("txtForgotten");
    add<QTabWidget>("SSTab1").addTab(page, "");
    add<QPushButton>("cboWrong");
    EXPECT_EQ(bindForm(form_, window_),
              (std::vector<std::string>{"test: cmdMissing is missing in the layout; wanted is a QPushButton",
                                        "test: cboWrong should be a QComboBox and is a QPushButton",
                                        "test: SSTab1 has 1 pages in the layout for 2 tabs",
                                        "test: txtForgotten, a QLineEdit, belongs to no control"}));
}

TEST_F(Binding, ADisabledFormTakesNoInputAndKeepsItsFocus) {
    pair<TextBox, QLineEdit>("txtFirst");
    auto& box = pair<TextBox, QLineEdit>("txtName").model;
    auto& row = make<MenuItem>("mnuFile", nullptr);
    row.setShortcut("Ctrl+N");
    bind();
    for (auto* event : {&box.gotFocus, &row.clicked}) count(*event);
    box.SetFocus();
    EXPECT_EQ(told_, 1);
    for (const bool enabled : {true, false, true}) {
        form_.setEnabled(enabled);
        pressKey(enabled ? Qt::Key_A : Qt::Key_B);
        pressKey(Qt::Key_N, Qt::ControlModifier);
        pressKey(Qt::Key_X, Qt::AltModifier);
    }
    EXPECT_EQ(box.text(), "aa");
    EXPECT_EQ(told_, 3);
}

TEST_F(Binding, AMenusShortcutWorksWhileItsRowAndMenuAreThere) {
    auto& file = make<MenuItem>("mnuFile", nullptr);
    auto& open = make<MenuItem>("mnuFile_Open", &file);
    open.setShortcut("Ctrl+O");
    open.setChecked(true);
    count(open.clicked);
    bind();
    const auto press = [this] { pressKey(Qt::Key_O, Qt::ControlModifier); };
    for (MenuItem* item : {&file, &open}) {
        for (const auto set : {&Control::setEnabled, &Control::setVisible}) {
            (item->*set)(false);
            press();
            EXPECT_EQ(told_, 0) << item->name();
            (item->*set)(true);
        }
    }
    press();
    EXPECT_EQ(told_, 1);
    EXPECT_TRUE(found<QAction>("mnuFile_Open").isChecked()) << "a choice does not turn the mark by itself";
}

TEST_F(Binding, AHandlerMayRefuseAMarkAndAChoice) {
    auto& box = make<CheckBox>("check", "&Match case");
    auto& type = make<OptionGroup>("type", std::vector<std::string>{"&One", "&Two"});
    auto& letters = make<OptionGroup>("case", std::vector<std::string>{"Lower", "Upper"});
    std::vector<QAbstractButton*> buttons = {&add<QCheckBox>("check")};
    for (const char* name : {"type_0", "type_1", "case_0", "case_1"}) buttons.push_back(&add<QRadioButton>(name));
    bind();
    const auto chosen = [&buttons] {
        std::string marks;
        for (const QAbstractButton* button : buttons) marks += button->isChecked() ? 'x' : '-';
        return marks;
    };
    for (const int button : {0, 1, 3}) buttons[button]->click();
    EXPECT_EQ(chosen(), "xx-x-");
    buttons[1]->setFocus();
    pressKey(Qt::Key_Down);
    // As a screen reader does it.
    for (const int button : {0, 4})
        QAccessible::queryAccessibleInterface(buttons[button])
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ((std::vector<int>{box.value(), type.selected(), letters.selected()}), (std::vector{0, 1, 1}));
    letters.select(0);
    type.select(-1);
    box.clicked.connect([&] { box.setValue(true); });
    letters.clicked.connect([&](int) { letters.select(0); });
    for (const int button : {0, 0, 4}) buttons[button]->click();
    EXPECT_EQ(chosen(), "x--x-");
}

TEST_F(Binding, PagesAreShownBothWaysAndDisabledOnesByTheProgramOnly) {
    auto& tabs = make<TabControl>("SSTab1", std::vector<std::string>{"&Files", "Options", "Results"});
    auto& widget = add<QTabWidget>("SSTab1");
    std::array<QLineEdit*, 3> fields{};
    for (QLineEdit*& field : fields) widget.addTab(field = new QLineEdit, "");
    bind();
    const auto press = [&](int page) {
        QTest::mouseClick(widget.tabBar(), Qt::LeftButton, {}, widget.tabBar()->tabRect(page).center());
    };
    press(2);
    pressKey(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabs.tab(), 1);
    // As a run does it: the pages with the fields first, then the results are shown.
    for (const int page : {0, 1}) tabs.setTabEnabled(page, false);
    EXPECT_FALSE(fields[1]->isEnabled());
    EXPECT_EQ(widget.currentIndex(), 1);
    tabs.setTab(2);
    press(1);
    pressKey(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(widget.currentIndex(), 2);
    tabs.setTab(1);
    EXPECT_TRUE(fields[1]->isVisible());
    tabs.setTabEnabled(0, true);
    tabs.setCaption(1, "Edit");
    EXPECT_EQ(widget.tabText(1), "Edit");
    tabs.clicked.connect([&](int) { tabs.setTab(2); });
    press(0);
    EXPECT_EQ(widget.currentIndex(), 2) << "a handler refuses the page";
}

TEST_F(Binding, ALabelShowsPlainTextInItsColoursAndTellsDoubleClicks) {
    const auto [label, widget] = pair<Label, QLabel>("lblDirFolder", "<B>a&b && c</B>\r\ntwo");
    bind();
    EXPECT_TRUE(widget.text() == "<B>a&b && c</B>\ntwo" && widget.textFormat() == Qt::PlainText);
    label.setUseMnemonic(true);
    EXPECT_EQ(widget.text(), "<B>ab & c</B>\ntwo");
    label.setBackColor(0x0000ff);
    label.setForeColor(0xff0000);
    const QPalette shown = widget.palette();
    EXPECT_EQ(shown.color(QPalette::Window).name() + shown.color(QPalette::WindowText).name(), "#ff0000#0000ff");
    count(label.doubleClicked);
    for (const bool enabled : {true, false}) {
        widget.setEnabled(enabled);
        QTest::mouseDClick(&widget, Qt::LeftButton);
        letEventsRun();
    }
    EXPECT_TRUE(told_ == 1 && widget.focusPolicy() == Qt::NoFocus);
}

TEST_F(Binding, ALabelWhoseClickIsHeardIsALinkForMouseAndKeys) {
    const auto [label, widget] = pair<Label, QLabel>("lblFullLink", "Here");
    count(label.clicked);
    bind();
    const auto toldBehind = [this] {
        letEventsRun();
        return std::exchange(told_, 0);
    };
    QTest::mouseClick(&widget, Qt::LeftButton);
    QTest::mouseDClick(&widget, Qt::LeftButton);
    QTest::mouseRelease(&widget, Qt::LeftButton);
    EXPECT_EQ(toldBehind(), 1) << "a double click is one click";
    QTest::mouseClick(&widget, Qt::RightButton);
    QTest::mousePress(&widget, Qt::LeftButton);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {-5, -5});
    EXPECT_EQ(toldBehind(), 0) << "taken back, and another button";
    widget.setFocus();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_A}) pressKey(key);
    EXPECT_EQ(toldBehind(), 2);
}

TEST_F(Binding, AFramesCaptionChangesStandsAsItIsAndGivesWayWhereItMay) {
    const auto [frame, box] = pair<Frame, QGroupBox>("Frame3", "at first");
    box.setMinimumWidth(100);
    bind();
    frame.setCaption("/a&b/c\n");
    EXPECT_EQ(box.title(), R"(/a&&b/c\n)");
    frame.setCaption(std::string(300, 'x'));
    EXPECT_LT(box.title().size(), 300);
    EXPECT_EQ(box.accessibleName().size(), 300);
}

TEST_F(Binding, BoxesOfAListAreTickedBothWaysAndByKeys) {
    const auto [list, view] = pair<CheckList, QListView>("List1");
    list.addRow("one");
    list.setTicked(0, true);
    bind();
    list.addRow("two");
    std::string told;
    list.ticked.connect(
        [&, list = &list](int row) { told += std::to_string(row) + (list->isTicked(row) ? "x" : "-"); });
    const auto boxes = [rows = view.model()] {
        std::string marks;
        for (int row = 0; row < rows->rowCount(); ++row)
            marks += rows->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked ? 'x' : '-';
        return marks;
    };
    EXPECT_EQ(boxes(), "x-");
    const QRect row = view.visualRect(view.model()->index(0, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
    view.setFocus();
    for (const auto key : {Qt::Key_Down, Qt::Key_Space}) pressKey(key);
    EXPECT_EQ(boxes(), "-x");
    list.setTicked(0, true);
    list.setTicked(0, true);
    EXPECT_EQ(told, "0-1x0x");
    list.ticked.connect([list = &list](int) { list->setTicked(1, true); });
    pressKey(Qt::Key_Space);
    EXPECT_EQ(boxes(), "xx") << "a handler refuses it";
}

/// A dialog with a field, a text and two buttons, as the layouts of tool forms are.
class ToolForms : public Binding {
protected:
    ToolForms() {
        pair<TextBox, QLineEdit>("txtName");
        add<QWidget>("Text1").setMinimumSize(200, 100);
        add<QPushButton>("cmdInsert");
        insert_.clicked.connect([this] { clicks_ += 'I'; });
        pair<Button, QPushButton>("cmdClose", "").model.clicked.connect([this] { clicks_ += 'C'; });
        bind();
    }
    void focus(const char* name) { found<QWidget>(name).setFocus(); }
    long askText(unsigned message) { return window_.findChild<QsciScintillaBase*>()->SendScintilla(message, 0UL); }

    EditControl& edit_ = make<ScintillaEdit>("Text1");
    Button& insert_ = make<Button>("cmdInsert", "&Insert");
    std::string clicks_;
};

TEST_F(ToolForms, EnterPressesTheDefaultUnlessTheFocusHasAUseForIt) {
    focus("txtName");
    pressKey(Qt::Key_Return);
    EXPECT_EQ(clicks_, "") << "no button is the default before one is told to be";
    insert_.setDefault(true);
    for (const char* name : {"txtName", "cmdClose", "Text1"}) {
        focus(name);
        pressKey(Qt::Key_Enter);
    }
    EXPECT_EQ(clicks_, "IC");
    EXPECT_EQ(edit_.text(), "\r\n");
    focus("cmdClose");
    pressKey(Qt::Key_I, Qt::AltModifier);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(clicks_, "ICIC") << "keys act in the order in which they were pressed";
}

TEST_F(ToolForms, AnEditControlIsLeftByTabWrapsItsLinesAndLooksDisabledWhenItIs) {
    count(edit_.gotFocus);
    edit_.SetFocus();
    EXPECT_EQ(told_, 1);
    pressKey(Qt::Key_Tab, Qt::ControlModifier);
    pressKey(Qt::Key_Tab);
    EXPECT_TRUE(found<QWidget>("cmdInsert").hasFocus());
    for (int back = 0; back < 2; ++back) pressKey(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(found<QWidget>("txtName").hasFocus());
    EXPECT_EQ(edit_.text(), "\t") << "typed with Ctrl";

    const auto enabledInk = askText(QsciScintillaBase::SCI_STYLEGETFORE);
    edit_.setText(std::string(500, ' ') + "word");
    edit_.SetFocus();
    edit_.setEnabled(false);
    EXPECT_NE(askText(QsciScintillaBase::SCI_STYLEGETFORE), enabledInk);
    pressKey(Qt::Key_A);
    EXPECT_EQ(edit_.textLength(), 504);
    letEventsRun();
    EXPECT_GT(askText(QsciScintillaBase::SCI_WRAPCOUNT), 1);
}

TEST_F(ToolForms, AMenuThatClosesLeavesTheFocusAsItWas) {
    for (Control* control : form_.controls()) {
        control->SetFocus();
        count(control->gotFocus);
        QMenu menu;
        menu.addAction("Paste");
        menu.popup({});
        letEventsRun();
        menu.close();
        letEventsRun();
        EXPECT_EQ(told_, 0) << control->name();
    }
}

}  // namespace
}  // namespace kelvor::qt
