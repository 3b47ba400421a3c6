// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_windows.h"

#include "assistants/template_holder.h"
#include "authoring/date_time.h"
#include "controls/mdi_area.h"
#include "frame/main_frame.h"
#include "frame/menu_table.h"
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
    const auto closeBox = [&](QWidget& box) {
        box.close();
        letEventsRun();
    };
    closeBox(subWindow(child));
    closeBox(window());
    EXPECT_TRUE(subWindow(child).isVisible() && window().isVisible());
    refuse = false;
    closeBox(subWindow(child));
    EXPECT_FALSE(child.isLoaded());
    for (const bool enabled : {false, true}) {
        frame_.setEnabled(enabled);
        closeBox(window());
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
        form_.unload();
    });
    tryTool(false);
    EXPECT_TRUE(tool.unload());
}

TEST_F(Frame, KeysNeverReachATextThatNobodySees) {
    EditWindow& first = open("/one");
    EditWindow& second = open("/two");
    QMdiSubWindow& icon = subWindow(second);
    const auto hasKeyboard = [&] { return windows().widgetOf(second)->isAncestorOf(QApplication::focusWidget()); };
    const std::function<void()> roads[] = {[&] { frame_.mdi.show(second); }, [&] { second.Text1.SetFocus(); },
                                           [&] {
                                               frame_.mdi.activate(first);
                                               frame_.mdi.activate(second);
                                           }};
    for (const auto& road : roads) {
        icon.showMinimized();
        letEventsRun();
        EXPECT_FALSE(hasKeyboard());
        road();
        letEventsRun();
        EXPECT_TRUE(icon.isMaximized()) << "as it was";
        EXPECT_TRUE(hasKeyboard());
    }
    icon.showMinimized();
    frame_.mdi.activate(first);
    area().setActiveSubWindow(&icon);
    letEventsRun();
    EXPECT_EQ(frame_.mdi.activeForm(), &second);
    EXPECT_TRUE(icon.isMinimized()) << "the user may want to move it";
    EXPECT_FALSE(hasKeyboard());
}

TEST_F(Frame, TheWindowMenuListsTheChildren) {
    EditWindow& first = open("/web/a&b.html");
    open("/web/two.html");
    const auto fixed = widget<QMenu>(frame_, "mnuWindow").actions().size();
    windowMenu();
    const auto rows = windowMenu();
    ASSERT_EQ(rows.size(), fixed + 3);
    EXPECT_EQ(rows[fixed + 1]->text(), "&1 a&&b.html - /web");
    EXPECT_TRUE(rows[fixed + 2]->isChecked());
    for (int time = 0; time < 2; ++time) {
        rows[fixed + 1]->trigger();
        EXPECT_EQ(frame_.mdi.activeForm(), &first);
        EXPECT_FALSE(subWindow(first).isMinimized());
        subWindow(first).showMinimized();
    }
}

TEST_F(Frame, TheWindowMenuHasNineRowsAndAListOfAll) {
    for (int number = 1; number < 10; ++number) open("/web/" + std::to_string(number) + ".htm");
    const auto rowsForNine = windowMenu().size();
    for (const char* name : {"\nx.htm", "late.htm", "last.htm"}) open("/web/" + std::string(name));
    const auto rows = windowMenu();
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

TEST_F(Frame, ARightPressOnTheBackgroundWithItsHintIsTheFrames) {
    std::vector<int> told;
    frame_.mouseDown.connect([&](const MousePress& press) { told = {press.button, press.shift, press.x, press.y}; });
    const auto& hint = *area().viewport()->findChild<QLabel*>();
    EXPECT_TRUE(hint.isVisible());
    QTest::mouseClick(area().viewport(), Qt::LeftButton);
    EXPECT_EQ(told, std::vector<int>());
    QTest::mouseClick(area().viewport(), Qt::RightButton, Qt::ControlModifier, {5, 6});
    EXPECT_EQ(std::exchange(told, {}), (std::vector{MousePress::right, modifier::ctrl, 5, 6}));
    EditWindow& child = open("/one");
    QTest::mouseClick(windows().widgetOf(child), Qt::RightButton);
    EXPECT_EQ(told, std::vector<int>());
    EXPECT_FALSE(hint.isVisible());
    close(child);
    EXPECT_TRUE(hint.isVisible());
}

TEST_F(Frame, APopupOpensBelowItsControl) {
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
    EXPECT_TRUE(form_.isLoaded());
    EXPECT_TRUE(window().isActiveWindow());
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
    const auto staysOpen = [&] { EXPECT_FALSE(form_.unload() || child.unload() || frame_.unload()); };
    Dialogs& dialogs = platform().dialogs;
    const std::function<void()> shown[] = {[&] { dialogs.message({.text = "?", .buttons = MessageButtons::yesNo}); },
                                           [&] { dialogs.input({}); },
                                           [&] { dialogs.openFiles({}); },
                                           [&] { dialogs.saveFile({}); },
                                           [&] { dialogs.folder("", ""); },
                                           [&] { dialogs.color("", 0); }};
    form_.load();
    windows().showModeless(form_, true);
    for (const auto& show : shown) {
        windows().widgetOf(form_)->activateWindow();
        letEventsRun();
        onDialog<QDialog>([&](QDialog& dialog) {
            staysOpen();
            letEventsRun();
            dialog.close();
        });
        show();
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
        HelpWindow& help = shown();
        EXPECT_EQ(help.windowHandle()->transientParent(), windows().widgetOf(form_)->windowHandle());
        QWidget* home = help.findChild<QToolBar*>()->widgetForAction(help.findChild<QToolBar*>()->actions()[2]);
        letEventsRun();
        QTest::mouseClick(help.windowHandle(), Qt::LeftButton, {}, home->mapTo(&help, home->rect().center()));
        EXPECT_TRUE(help.browser().toPlainText().contains("index.html"));
        form_.unload();
    });
    letEventsRun();
    QWindow& help = *platform_.help().window()->windowHandle();
    EXPECT_TRUE(help.isVisible());
    // Another window's place shows that it is set, not merely gone with the form.
    help.setTransientParent(window().windowHandle());
    shown();
    EXPECT_EQ(help.transientParent(), nullptr);
}

/// Compares a menu and all below it with the rows of the table.
/// @return how many rows these are
std::size_t compareMenu(const QWidget& menu, std::string_view parent) {
    const auto actions = menu.actions();
    qsizetype place = 0;
    std::size_t below = 0;
    for (const MenuRow& row : menuTable()) {
        if (row.parent != parent || place == actions.size()) continue;
        const QAction& action = *actions[place++];
        const QObject& named = action.menu() ? static_cast<const QObject&>(*action.menu()) : action;
        EXPECT_EQ(fromQt(named.objectName()), row.name);
        EXPECT_EQ(action.isSeparator() ? "-" : fromQt(action.text()), row.caption) << row.name;
        EXPECT_EQ(fromQt(action.shortcut().toString(QKeySequence::PortableText)), row.shortcut) << row.name;
        EXPECT_TRUE(action.isChecked() == row.isChecked && action.isCheckable() == row.isChecked) << row.name;
        EXPECT_EQ(action.isVisible(), !row.isHidden && !row.isPopup) << row.name;
        EXPECT_EQ(action.isEnabled(), action.isVisible() && !row.isDisabled) << row.name;
        if (action.menu()) below += compareMenu(*action.menu(), row.name);
    }
    EXPECT_EQ(place, actions.size()) << parent;
    return static_cast<std::size_t>(place) + below;
}

TEST_F(Frame, TheMenuBarIsTheTable) {
    EXPECT_EQ(compareMenu(*window().menuBar(), ""), menuTable().size());
}

TEST_F(Frame, TheToolbarsAreTheTables) {
    for (const ToolBar* bar : {&frame_.Toolbar1, &frame_.Toolbar2, &frame_.Toolbar3, &frame_.Toolbar4}) {
        auto& widget = this->widget<QToolBar>(frame_, bar->name().c_str());
        const auto actions = widget.actions();
        ASSERT_EQ(static_cast<std::size_t>(actions.size()), bar->buttons().size()) << bar->name();
        for (QAction* action : actions) {
            const ToolBar::Button& button = bar->buttons()[static_cast<std::size_t>(actions.indexOf(action))];
            EXPECT_EQ(action->isSeparator(), button.kind == ToolBar::ButtonKind::separator) << button.key;
            if (action->isSeparator()) continue;
            auto& face = *qobject_cast<QToolButton*>(widget.widgetForAction(action));
            EXPECT_EQ(fromQt(action->objectName()), button.key);
            // A tip is rich text when it would be taken for that otherwise, as "<BR>" is.
            const QString tip = face.toolTip();
            EXPECT_EQ(fromQt(Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip),
                      button.toolTip);
            EXPECT_EQ(fromQt(face.accessibleName()), button.toolTip);
            EXPECT_FALSE(face.icon().isNull()) << button.key;
            EXPECT_EQ(face.isChecked(), button.pressed) << button.key;
        }
    }
}

TEST_F(Frame, BarsComeAndGoAndNothingElseLeavesTheWindow) {
    EXPECT_FALSE(widget<QToolBar>(frame_, "Toolbar3").isVisible());
    frame_.Toolbar3.setVisible(true);
    letEventsRun();
    EXPECT_GE(placeOf("Toolbar2").top(), placeOf("Toolbar1").bottom());
    EXPECT_GE(placeOf("Toolbar3").top(), placeOf("Toolbar2").bottom());
    frame_.Picture1.setVisible(false);
    letEventsRun();
    EXPECT_EQ(placeOf("Toolbar2").left(), 0) << "the helpers stay where they are without the lists";
    for (Control* bar :
         std::initializer_list<Control*>{&frame_.Toolbar1, &frame_.Toolbar2, &frame_.Toolbar3, &frame_.Picture1,
                                         &frame_.Picture2, &frame_.CoolBar1, &frame_.CoolBar2}) {
        bar->setVisible(false);
        letEventsRun();
        EXPECT_FALSE(widget<QWidget>(frame_, bar->name().c_str()).isVisible()) << bar->name();
        EXPECT_TRUE(window().rect().contains(placeOf("MdiArea1"))) << bar->name();
    }
    EXPECT_EQ(placeOf("MdiArea1").width(), window().width());
}

TEST_F(Frame, TheSideBarsStandBesideTheDocuments) {
    frame_.CoolBar2.setAlign(SideBar::right);
    letEventsRun();
    EXPECT_LT(placeOf("CoolBar1").right(), placeOf("MdiArea1").left());
    EXPECT_GT(placeOf("CoolBar2").left(), placeOf("MdiArea1").right());
    const int width = placeOf("CoolBar2").width();
    EXPECT_LE(width, widget<QToolBar>(frame_, "Toolbar4").sizeHint().width() + 4) << "no wider than its buttons";
    frame_.CoolBar1.setVisible(false);
    frame_.CoolBar2.setAlign(SideBar::left);
    letEventsRun();
    EXPECT_LT(placeOf("CoolBar2").right(), placeOf("MdiArea1").left());
    EXPECT_EQ(placeOf("CoolBar2").width(), width);
    frame_.CoolBar1.setVisible(true);
    letEventsRun();
    EXPECT_GE(placeOf("CoolBar1").width(), 120);
    EXPECT_FALSE(placeOf("CoolBar1").intersects(placeOf("CoolBar2")));
}

TEST_F(Frame, ANarrowWindowOffersTheButtonsThatItHasNoRoomFor) {
    const auto& more = *widget<QToolBar>(frame_, "Toolbar1").findChild<QToolButton*>("qt_toolbar_ext_button");
    // The wider one is what the margins leave of a screen of 1024 pixels.
    for (const int width : {984, 500}) {
        window().resize(width, 600);
        letEventsRun();
        EXPECT_EQ(window().width(), width);
        EXPECT_EQ(more.isVisible(), width == 500);
    }
}

TEST_F(Frame, NoMenuOfTheToolkitsOwnHidesABar) {
    auto& bar = widget<QToolBar>(frame_, "Toolbar1");
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, bar.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&bar, &event);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_FALSE(bar.isFloatable());
}

TEST(Tiles, CoverTheAreaWithoutOverlapInAnyNumber) {
    constexpr QSize area(333, 257);
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (const int count : {1, 2, 5, 7, 40}) {
            QRegion covered;
            int pixels = 0;
            for (const QRect& place : tiles(area, count, orientation)) {
                covered += place;
                pixels += place.width() * place.height();
            }
            // As many pixels as the area has, and each of them covered: so none twice.
            EXPECT_EQ(pixels, area.width() * area.height()) << count;
            EXPECT_EQ(covered, QRegion(QRect({}, area))) << count;
        }
    }
}

TEST(Places, AreToldByOrientationAndBeginAnewAtTheEdge) {
    const QSize area(900, 600);
    EXPECT_EQ(tiles(area, 3, Qt::Horizontal)[1], QRect(0, 200, 900, 200));
    EXPECT_EQ(tiles(area, 3, Qt::Vertical)[1], QRect(300, 0, 300, 600));
    // Six would be too low to read: two columns of three.
    EXPECT_EQ(tiles(area, 6, Qt::Horizontal)[3], QRect(450, 0, 450, 200));
    EXPECT_EQ(cascade(area, 30, 30)[6].topLeft(), QPoint(0, 0));
    for (const QRect& place : cascade(area, 30, 30)) EXPECT_TRUE(QRect({}, area).contains(place));
}

}  // namespace
}  // namespace kelvor::qt
