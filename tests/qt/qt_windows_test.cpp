// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_windows.h"

#include "assistants/template_holder.h"
#include "authoring/date_time.h"
#include "controls/mdi_area.h"
#include "frame/main_frame.h"
#include "qt/mdi_arrangement.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

/// The real frame with document windows in it, without what the program does with them.
class Frame : public QtForms {
protected:
    Frame() {
        form_.onLoad = {};
        frame_.load();
        windows().showModeless(frame_, false);
        letEventsRun();
    }
    ~Frame() override {
        for (const auto& child : children_) close(*child);
        frame_.unload();
        letEventsRun();
    }

    EditWindow& open(const std::string& caption) {
        EditWindow& child = *children_.emplace_back(std::make_unique<EditWindow>());
        child.load();
        child.setCaption(caption);
        child.activated.connect([&] { child.Text1.SetFocus(); });
        frame_.mdi.show(child);
        letEventsRun();
        return child;
    }
    void close(EditWindow& child) {
        frame_.mdi.remove(child);
        child.unload();
        letEventsRun();
    }
    /// The rows of the Window menu once it was opened.
    QList<QAction*> windowMenu() {
        frame_.menu("mnuWindow").setVisible(true);
        auto& menu = widget<QMenu>(frame_, "mnuWindow");
        menu.popup({});
        menu.close();
        return menu.actions();
    }
    /// Shows a modal form that lasts for `steps`.
    void whileModal(std::function<void()> steps) {
        form_.load();
        QTimer::singleShot(0, std::move(steps));
        windows().showModal(form_);
        letEventsRun();
    }

    QtWindows& windows() { return platform_.windows(); }
    QMainWindow& window() { return static_cast<QMainWindow&>(*windows().widgetOf(frame_)); }
    QRect placeOf(const char* name) {
        auto& found = widget<QWidget>(frame_, name);
        return {found.mapTo(&window(), QPoint()), found.size()};
    }
    QMdiArea& area() { return widget<QMdiArea>(frame_, "MdiArea1"); }
    QMdiSubWindow& subWindow(const Form& child) {
        return static_cast<QMdiSubWindow&>(*windows().widgetOf(child)->parentWidget());
    }

    MDIForm1 frame_;
    std::vector<std::unique_ptr<EditWindow>> children_;
    TemplateHolder form_;
};

TEST_F(Frame, TheModelAndTheAreaAgreeOnTheWindowInFront) {
    EditWindow& first = open("/one");
    open("/two");
    EditWindow& third = open("/three");
    EXPECT_EQ(subWindow(third).size(), area().viewport()->size()) << "maximised, as those before it";
    frame_.mdi.activate(first);
    EXPECT_EQ(area().activeSubWindow(), &subWindow(first));
    area().setActiveSubWindow(&subWindow(third));
    letEventsRun();
    EXPECT_EQ(frame_.mdi.activeForm(), &third);
    EXPECT_TRUE(windows().widgetOf(third)->isAncestorOf(QApplication::focusWidget()));
    // The one that was in front before it follows, not the one beside it.
    close(third);
    EXPECT_EQ(area().activeSubWindow(), &subWindow(first));
    EXPECT_TRUE(subWindow(first).isMaximized());
    EXPECT_EQ(window().windowTitle(), "Kelvor - [/one]");
    first.setCaption("/" + std::string(300, 'x') + "/end.html");
    EXPECT_LT(window().windowTitle().size(), 130);
    EXPECT_TRUE(window().windowTitle().endsWith("/end.html]"));
}

TEST_F(Frame, CloseBoxesAskTheirFormsAndTheFramesEndIsTold) {
    bool gone = false;
    bool refuse = true;
    windows().onFrameGone = [&] { gone = true; };
    EditWindow& child = open("/one");
    child.queryUnload.connect([&](bool& cancel) { cancel = refuse; });
    child.unloaded.connect([&] { frame_.mdi.remove(child); });
    subWindow(child).close();
    window().close();
    letEventsRun();
    EXPECT_TRUE(subWindow(child).isVisible() && window().isVisible());
    refuse = false;
    subWindow(child).close();
    letEventsRun();
    EXPECT_FALSE(child.isLoaded());
    for (const bool enabled : {false, true}) {
        frame_.setEnabled(enabled);
        window().close();
        letEventsRun();
        EXPECT_EQ(gone, enabled);
    }
}

TEST_F(Frame, ArrangesItsChildren) {
    for (const char* name : {"/web/in/a/directory/that/lies/deep/one", "/two", "/three"}) open(name);
    const QRect inside = area().viewport()->rect();
    QMdiSubWindow& first = subWindow(*children_[0]);
    QMdiSubWindow& third = subWindow(*children_[2]);
    frame_.mdi.arrange(MdiArea::Arrangement::cascade);
    EXPECT_EQ(third.geometry(), cascade(inside.size(), 3, third.x() / 2)[2]);
    EXPECT_EQ(area().activeSubWindow(), &third);
    first.showMinimized();
    first.move(200, 5);
    frame_.mdi.arrange(MdiArea::Arrangement::tileHorizontally);
    EXPECT_EQ(first.geometry().bottomLeft(), inside.bottomLeft());
    EXPECT_TRUE(first.windowTitle().startsWith("one - /web") && !first.windowTitle().endsWith("deep"));
    EXPECT_EQ(third.geometry(), tiles({inside.width(), first.y()}, 2, Qt::Horizontal)[1]);
}

TEST_F(Frame, AToolThatFloatsServesADialogAndFloatsAgain) {
    DateTimeDialog tool;
    const auto tryTool = [&](bool modal) {
        QWidget& window = *windows().widgetOf(tool);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget() == &window, modal);
        EXPECT_EQ(window.isModal(), modal);
        EXPECT_FALSE(windows().isBlocked(tool));
    };
    tool.load();
    windows().showModeless(tool, true);
    whileModal([&] {
        EXPECT_TRUE(windows().isBlocked(tool));
        QTimer::singleShot(0, [&] {
            tryTool(true);
            EXPECT_TRUE(windows().isBlocked(form_));
            windows().hide(tool);
        });
        windows().showModal(tool);
        EXPECT_FALSE(windows().isBlocked(form_));
        // While it is modal it may be asked to float.
        QTimer::singleShot(0, [&] { windows().showModeless(tool, true); });
        windows().showModal(tool);
        tryTool(false);
        tool.unload();
        tool.load();
        QTimer::singleShot(0, [&] { windows().hide(tool); });
        windows().showModal(tool);
        EXPECT_FALSE(window().menuBar()->testAttribute(Qt::WA_NativeWindow)) << "left black beside a preview";
        windows().showModeless(tool, true);
        form_.unload();
    });
    tryTool(false);
    EXPECT_TRUE(tool.unload());
}

TEST_F(Frame, KeysNeverReachATextThatNobodySees) {
    EditWindow& first = open("/one");
    EditWindow& second = open("/two");
    QMdiSubWindow& icon = subWindow(second);
    const auto hasKeyboard = [&] {
        letEventsRun();
        return windows().widgetOf(second)->isAncestorOf(QApplication::focusWidget());
    };
    const std::function<void()> roads[] = {[&] { frame_.mdi.show(second); }, [&] { second.Text1.SetFocus(); },
                                           [&] { frame_.mdi.activate(first), frame_.mdi.activate(second); }};
    for (const auto& road : roads) {
        icon.showMinimized();
        EXPECT_FALSE(hasKeyboard());
        road();
        EXPECT_TRUE(hasKeyboard());
        EXPECT_TRUE(icon.isMaximized()) << "as it was";
    }
    icon.showMinimized();
    frame_.mdi.activate(first);
    area().setActiveSubWindow(&icon);
    EXPECT_FALSE(hasKeyboard());
    EXPECT_EQ(frame_.mdi.activeForm(), &second);
    EXPECT_TRUE(icon.isMinimized()) << "the user may want to move it";
}

TEST_F(Frame, TheWindowMenuHasNineChildrenAndAListOfAll) {
    EditWindow& first = open("/web/a&b.html");
    open("/web/2.htm");
    const auto fixed = widget<QMenu>(frame_, "mnuWindow").actions().size();
    windowMenu();
    auto rows = windowMenu();
    ASSERT_EQ(rows.size(), fixed + 3);
    EXPECT_EQ(rows[fixed + 1]->text(), "&1 a&&b.html - /web");
    EXPECT_TRUE(rows[fixed + 2]->isChecked());
    for (int time = 0; time < 2; ++time) {
        rows[fixed + 1]->trigger();
        EXPECT_EQ(frame_.mdi.activeForm(), &first);
        EXPECT_FALSE(subWindow(first).isMinimized());
        subWindow(first).showMinimized();
    }
    for (int number = 3; number < 10; ++number) open("/web/" + std::to_string(number) + ".htm");
    const auto rowsForNine = windowMenu().size();
    for (const char* name : {"\nx.htm", "late.htm", "last.htm"}) open("/web/" + std::string(name));
    rows = windowMenu();
    EXPECT_EQ(rows.size(), rowsForNine + 1);
    onDialog<QDialog>([](QDialog& dialog) {
        auto& list = *dialog.findChild<QListWidget*>();
        EXPECT_EQ(list.count(), 12);
        EXPECT_EQ(list.currentItem()->text(), "last.htm - /web");
        EXPECT_EQ(list.item(9)->text(), "\\nx.htm - /web");
        QTest::keyClicks(&list, "lat");
        QTest::keyClick(&list, Qt::Key_Return);
    });
    rows.last()->trigger();
    EXPECT_EQ(frame_.mdi.activeForm()->caption(), "/web/late.htm");
}

TEST_F(Frame, ARightPressOnTheBackgroundWithItsHintIsTheFramesAndAPopupOpensBelowItsControl) {
    std::vector<int> told;
    frame_.mouseDown.connect([&](const MousePress& press) { told = {press.button, press.shift, press.x, press.y}; });
    const auto& hint = *area().viewport()->findChild<QLabel*>();
    EXPECT_TRUE(hint.isVisible());
    QTest::mouseClick(area().viewport(), Qt::LeftButton);
    EXPECT_TRUE(told.empty());
    QTest::mouseClick(area().viewport(), Qt::RightButton, Qt::ControlModifier, {5, 6});
    EXPECT_EQ(std::exchange(told, {}), (std::vector{MousePress::right, modifier::ctrl, 5, 6}));
    EditWindow& child = open("/one");
    QTest::mouseClick(windows().widgetOf(child), Qt::RightButton);
    EXPECT_TRUE(told.empty() && !hint.isVisible());
    close(child);
    EXPECT_TRUE(hint.isVisible());

    QPoint place;
    QTimer::singleShot(0, [&place] {
        place = QApplication::activePopupWidget()->pos();
        QApplication::activePopupWidget()->close();
    });
    windows().popupMenu(frame_.menu("mnuNoChild"), &frame_.Toolbar1);
    EXPECT_EQ(place, window().mapToGlobal(placeOf("Toolbar1").bottomLeft() + QPoint(0, 1)));
}

TEST_F(Frame, AToolFormEndsByItsOwnActsAndByEscape) {
    whileModal([this] { windows().hide(form_); });
    EXPECT_TRUE(form_.isLoaded() && window().isActiveWindow());
    windows().showModeless(form_, false);
    EXPECT_FALSE(windows().widgetOf(form_)->isModal());
    whileModal([this] { form_.unload(); });
    EXPECT_FALSE(form_.isLoaded());
    form_.load();
    windows().showModeless(form_, true);
    EXPECT_EQ(windows().widgetOf(form_)->parentWidget(), &window());
    QTest::keyClick(windows().widgetOf(form_), Qt::Key_Escape);
    EXPECT_FALSE(form_.isLoaded());
}

TEST_F(Frame, NothingBelowADialogOrAModalFormCloses) {
    EditWindow& child = open("/one");
    form_.load();
    windows().showModeless(form_, true);
    for (const bool isBox : {true, false}) {
        windows().widgetOf(form_)->activateWindow();
        letEventsRun();
        onDialog<QDialog>([&](QDialog& dialog) {
            EXPECT_FALSE(form_.unload() || child.unload() || frame_.unload());
            letEventsRun();
            dialog.close();
        });
        if (isBox)
            platform().dialogs.input({});
        else
            platform().dialogs.openFiles({});
    }
    EXPECT_TRUE(form_.unload());
    whileModal([&] {
        TemplateHolder above;
        above.onLoad = {};
        above.load();
        EXPECT_FALSE(child.unload() || frame_.unload());
        EXPECT_TRUE(above.unload()) << "opened above the modal form";
        EXPECT_TRUE(form_.unload());
    });
    EXPECT_TRUE(child.isLoaded());
}

TEST_F(Frame, HelpFloatsAboveAModalFormAndOutlivesIt) {
    const auto shown = [this]() -> HelpWindow& {
        platform().help.show("/no/help.chm::/1.html");
        return *platform_.help().window();
    };
    whileModal([&] {
        EXPECT_EQ(shown().windowHandle()->transientParent(), windows().widgetOf(form_)->windowHandle());
        form_.unload();
    });
    letEventsRun();
    EXPECT_TRUE(platform_.help().window()->isVisible());
    EXPECT_EQ(shown().windowHandle()->transientParent(), nullptr);
}

TEST_F(Frame, EachButtonOfItsToolbarsHasAPicture) {
    for (const ToolBar* bar : {&frame_.Toolbar1, &frame_.Toolbar2, &frame_.Toolbar3, &frame_.Toolbar4})
        for (const QAction* button : widget<QToolBar>(frame_, bar->name().c_str()).actions())
            EXPECT_TRUE(button->isSeparator() || !button->icon().isNull())
                << bar->name() << fromQt(button->objectName());
}

TEST_F(Frame, BarsComeAndGoWhereTheyBelongAndNothingElseLeavesTheWindow) {
    const auto visible = [this](Control& bar, bool on) {
        bar.setVisible(on);
        letEventsRun();
        EXPECT_EQ(widget<QWidget>(frame_, bar.name().c_str()).isVisible(), on) << bar.name();
        EXPECT_TRUE(window().rect().contains(placeOf("MdiArea1"))) << bar.name();
    };
    EXPECT_FALSE(widget<QToolBar>(frame_, "Toolbar3").isVisible());
    visible(frame_.Toolbar3, true);
    EXPECT_GE(placeOf("Toolbar2").top(), placeOf("Toolbar1").bottom());
    EXPECT_GE(placeOf("Toolbar3").top(), placeOf("Toolbar2").bottom());
    visible(frame_.Picture1, false);
    EXPECT_EQ(placeOf("Toolbar2").left(), 0) << "the helpers stay where they are without the lists";

    const int width = widget<QToolBar>(frame_, "Toolbar4").sizeHint().width() + 4;
    for (const auto side : {SideBar::right, SideBar::left}) {
        visible(frame_.CoolBar1, false);
        frame_.CoolBar2.setAlign(side);
        visible(frame_.CoolBar1, true);
        EXPECT_LT(placeOf("CoolBar1").right(), placeOf("MdiArea1").left());
        EXPECT_EQ(placeOf("CoolBar2").left() > placeOf("MdiArea1").right(), side == SideBar::right);
        EXPECT_LE(placeOf("CoolBar2").width(), width) << "no wider than its buttons";
        EXPECT_FALSE(placeOf("CoolBar2").intersects(placeOf("CoolBar1")));
    }
    EXPECT_GE(placeOf("CoolBar1").width(), 120);

    auto& bar = widget<QToolBar>(frame_, "Toolbar1");
    const auto& more = *bar.findChild<QToolButton*>("qt_toolbar_ext_button");
    // The wider one is what the margins leave of a screen of 1024 pixels.
    for (const int room : {984, 500}) {
        window().resize(room, 600);
        letEventsRun();
        EXPECT_EQ(window().width(), room);
        EXPECT_EQ(more.isVisible(), room == 500) << "the buttons that it has no room for";
    }
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, bar.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&bar, &event);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "no menu of the toolkit's own hides a bar";
    EXPECT_FALSE(bar.isFloatable());
    for (Control* each : std::initializer_list<Control*>{&frame_.Toolbar1, &frame_.Toolbar2, &frame_.Toolbar3,
                                                         &frame_.Picture2, &frame_.CoolBar1, &frame_.CoolBar2})
        visible(*each, false);
    EXPECT_EQ(placeOf("MdiArea1").width(), window().width());
}

TEST(Places, CoverTheAreaByOrientationAndBeginAnewAtTheEdge) {
    for (const int count : {1, 5, 7, 40}) {
        QRegion covered;
        int pixels = 0;
        for (const QRect& place : tiles({333, 257}, count, Qt::Horizontal)) {
            covered += place;
            pixels += place.width() * place.height();
        }
        // As many pixels as the area has, and each of them covered: so none twice.
        EXPECT_EQ(pixels, 333 * 257) << count;
        EXPECT_EQ(covered, QRegion(0, 0, 333, 257)) << count;
    }
    const QSize area(900, 600);
    EXPECT_EQ(tiles(area, 3, Qt::Vertical)[1], QRect(300, 0, 300, 600));
    // Six would be too low to read: two columns of three.
    EXPECT_EQ(tiles(area, 6, Qt::Horizontal)[3], QRect(450, 0, 450, 200));
    EXPECT_EQ(cascade(area, 30, 30)[6].topLeft(), QPoint(0, 0));
    for (const QRect& place : cascade(area, 30, 30)) EXPECT_TRUE(QRect({}, area).contains(place));
}

}  // namespace
}  // namespace kelvor::qt
