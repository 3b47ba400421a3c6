#include <QCalendarWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "platform/button.h"
#include "platform/check_box.h"
#include "platform/frame.h"
#include "platform/label.h"
#include "platform/month_view.h"
#include "platform/option_group.h"
#include "platform/progress_bar.h"
#include "platform/tab_control.h"
#include "tests/qt/binding_fixture.h"

namespace kelvor::qt {
namespace {

TEST_F(Binding, ABoxIsTickedThroughItsControl) {
    auto& box = make<CheckBox>("chkCase", "&Match case");
    count(box.clicked);
    auto& widget = add<QCheckBox>("chkCase");
    bind();
    EXPECT_EQ(widget.text(), "&Match case");
    box.setValue(true);
    EXPECT_TRUE(widget.isChecked());
    EXPECT_EQ(told_, 1);
    widget.click();
    EXPECT_FALSE(box.value());
    EXPECT_EQ(told_, 2);
    box.clicked.connect([&box] { box.setValue(false); });
    widget.click();
    EXPECT_FALSE(widget.isChecked());
}

class Options : public QtForms {
protected:
    Options() {
        for (const char* name : {"optType_0", "optType_1", "optType_2", "optCase_0", "optCase_1"}) {
            auto* button = new QRadioButton;
            button->setObjectName(name);
            layout_.addWidget(button);
        }
        EXPECT_EQ(bindForm(form_, window_), std::vector<std::string>());
        window_.show();
        window_.activateWindow();
        letEventsRun();
    }
    ~Options() override { unbindForm(form_, window_); }
    QRadioButton& widget(const char* name) { return *window_.findChild<QRadioButton*>(name); }
    /// The numbers of the buttons of a group whose widgets are chosen.
    std::string chosen(const std::string& group, int size) {
        std::string numbers;
        for (int i = 0; i < size; ++i)
            if (widget((group + "_" + std::to_string(i)).c_str()).isChecked()) numbers += std::to_string(i);
        return numbers;
    }

    Form form_{"test", ""};
    QWidget window_;
    QVBoxLayout& layout_ = *new QVBoxLayout(&window_);
    OptionGroup type_{form_, "optType", {"&One", "&Two", "Th&ree"}};
    OptionGroup case_{form_, "optCase", {"Lower", "Upper"}};
};

TEST_F(Options, EachGroupChoosesForItself) {
    EXPECT_EQ(chosen("optType", 3), "");
    type_.select(1);
    case_.select(0);
    EXPECT_EQ(chosen("optType", 3) + chosen("optCase", 2), "10");
    widget("optType_0").click();
    EXPECT_EQ(type_.selected(), 0);
    EXPECT_EQ(chosen("optType", 3) + chosen("optCase", 2), "00");
    widget("optType_0").setFocus();
    QTest::keyClick(&widget("optType_0"), Qt::Key_Down);
    EXPECT_EQ(type_.selected(), 1);
    type_.select(-1);
    EXPECT_EQ(chosen("optType", 3), "");
    widget("optType_2").click();
    EXPECT_EQ(chosen("optType", 3), "2");
}

TEST_F(Options, ARefusedChoiceIsTakenBack) {
    type_.select(1);
    type_.clicked.connect([this](int) { type_.select(1); });
    widget("optType_2").click();
    EXPECT_EQ(chosen("optType", 3), "1");
}

TEST_F(Binding, ADisabledFrameTakesItsFieldsAlong) {
    auto& frame = make<Frame>("Frame1", "Conversion type");
    auto& widget = add<QGroupBox>("Frame1");
    auto& inside = *new QLabel(&widget);
    bind();
    EXPECT_EQ(widget.title(), "Conversion type");
    frame.setEnabled(false);
    EXPECT_FALSE(inside.isEnabled());
}

TEST_F(Binding, ABarShowsItsValueAlsoInAnEmptyRange) {
    auto& bar = make<ProgressBar>("ProgressBar1");
    auto& widget = add<QProgressBar>("ProgressBar1");
    bind();
    bar.setRange(0, 7);
    bar.setValue(7);
    EXPECT_EQ(widget.text(), "100%");
    bar.setValue(9);
    EXPECT_EQ(widget.text(), "100%");
    bar.setRange(0, 0);
    EXPECT_EQ(widget.text(), "0%");
}

TEST_F(Binding, ACalendarShowsAndChoosesADay) {
    auto& view = make<MonthView>("MonthView1");
    count(view.changed);
    auto& widget = add<QCalendarWidget>("MonthView1");
    bind();
    view.setValue({2024, 2, 29});
    EXPECT_EQ(widget.selectedDate(), QDate(2024, 2, 29));
    EXPECT_EQ(widget.monthShown(), 2);
    EXPECT_EQ(told_, 1);
    widget.setSelectedDate({2024, 3, 1});
    EXPECT_EQ(view.value(), (Date{2024, 3, 1}));
    EXPECT_EQ(told_, 2);
    EXPECT_EQ(widget.firstDayOfWeek(), QLocale().firstDayOfWeek());
}

class Tabs : public Binding {
protected:
    Tabs() {
        for (int page = 0; page < 3; ++page) {
            fields_.push_back(new QLineEdit);
            auto* place = new QWidget;
            (new QVBoxLayout(place))->addWidget(fields_.back());
            widget_.addTab(place, "");
        }
        bind();
        window_.activateWindow();
        letEventsRun();
        tabs_.clicked.connect([this](int before) { before_.push_back(before); });
    }
    void press(int page) {
        QTest::mouseClick(widget_.tabBar(), Qt::LeftButton, {}, widget_.tabBar()->tabRect(page).center());
    }

    TabControl& tabs_ = make<TabControl>("SSTab1", std::vector<std::string>{"&Files", "Options", "Results"});
    QTabWidget& widget_ = add<QTabWidget>("SSTab1");
    std::vector<QLineEdit*> fields_;
    std::vector<int> before_;
};

TEST_F(Tabs, PagesAreShownBothWays) {
    EXPECT_EQ(widget_.tabText(0), "&Files");
    tabs_.setTab(1);
    EXPECT_EQ(widget_.currentIndex(), 1);
    press(2);
    EXPECT_EQ(tabs_.tab(), 2);
    fields_[2]->setFocus();
    QTest::keyClick(fields_[2], Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(tabs_.tab(), 0);
    QTest::keyClick(window_.windowHandle(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabs_.tab(), 2);
    EXPECT_EQ(before_, (std::vector<int>{0, 1, 2, 0}));
}

TEST_F(Tabs, ADisabledPageIsShownByTheProgramOnly) {
    // As a run does it: the pages with the fields first, then the results are shown.
    tabs_.setTabEnabled(0, false);
    EXPECT_EQ(widget_.currentIndex(), 0);
    EXPECT_FALSE(fields_[0]->isEnabled());
    tabs_.setTabEnabled(1, false);
    tabs_.setTab(2);
    EXPECT_EQ(widget_.currentIndex(), 2);
    for (const int page : {0, 1}) {
        press(page);
        EXPECT_EQ(widget_.currentIndex(), 2);
    }
    QTest::keyClick(window_.windowHandle(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs_.tab(), 2);
    tabs_.setTab(1);
    EXPECT_EQ(widget_.currentIndex(), 1);
    EXPECT_TRUE(widget_.widget(1)->isVisible());
    EXPECT_FALSE(fields_[1]->isEnabled());
    tabs_.setTabEnabled(0, true);
    tabs_.setTabEnabled(1, true);
    EXPECT_EQ(widget_.currentIndex(), 1);
    EXPECT_TRUE(fields_[1]->isEnabled());
    EXPECT_EQ(before_, (std::vector<int>{0, 2}));
}

TEST_F(Tabs, ARefusedPageIsLeftAgain) {
    tabs_.clicked.connect([this](int) { tabs_.setTab(0); });
    press(1);
    EXPECT_EQ(widget_.currentIndex(), 0);
}

TEST_F(Binding, PagesAreLookedIntoForTheFaultsOfALayout) {
    make<TabControl>("SSTab1", std::vector<std::string>{"A", "B"});
    make<MonthView>("MonthView1");
    auto* page = new QWidget;
    add<QTabWidget>("SSTab1").addTab(page, "");
    (new QCalendarWidget(page))->setObjectName("MonthView1");
    (new QLineEdit(page))->setObjectName("txtForgotten");
    EXPECT_EQ(bindForm(form_, window_),
              (std::vector<std::string>{"test: SSTab1 has 1 pages in the layout for 2 tabs",
                                        "test: txtForgotten, a QLineEdit, belongs to no control"}));
}

TEST_F(Binding, AnAmpersandOfALabelMarksAKeyOnlyWhereItIsToldTo) {
    struct Row {
        bool useMnemonic, hasField;
        const char* shown;
    };
    for (const Row& row : {Row{false, false, "a&b && c"}, Row{false, true, "a&&b &&&& c"}, Row{true, true, "a&b && c"},
                           Row{true, false, "ab & c"}}) {
        Form form("labels", "");
        Label label(form, "lbl", "a&b && c");
        label.setUseMnemonic(row.useMnemonic);
        QWidget window;
        QLabel widget(&window);
        QLineEdit field(&window);
        widget.setObjectName("lbl");
        if (row.hasField) widget.setBuddy(&field);
        EXPECT_EQ(bindForm(form, window), std::vector<std::string>());
        EXPECT_EQ(widget.text(), row.shown);
        unbindForm(form, window);
    }
}

TEST_F(Binding, ALabelHasItsColourAndItsDoubleClickWhileItIsEnabled) {
    auto& label = make<Label>("lblDirFolder", "/web");
    count(label.doubleClicked);
    auto& widget = add<QLabel>("lblDirFolder");
    bind();
    label.setForeColor(0xff0000);
    EXPECT_EQ(widget.palette().color(QPalette::Active, QPalette::WindowText), QColor(0, 0, 255));
    EXPECT_NE(widget.palette().color(QPalette::Disabled, QPalette::WindowText), QColor(0, 0, 255));
    const auto doubleClick = [&widget] {
        QTest::mouseDClick(&widget, Qt::LeftButton);
        letEventsRun();
    };
    doubleClick();
    EXPECT_EQ(told_, 1);
    content_.setEnabled(false);
    doubleClick();
    EXPECT_EQ(told_, 1);
}

}  // namespace
}  // namespace kelvor::qt
