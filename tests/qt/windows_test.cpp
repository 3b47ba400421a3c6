#include "platform/qt/windows.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>

#include "assistants/template_holder.h"
#include "core/frame.h"
#include "platform/mdi_area.h"
#include "support/about.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

/// The real frame with document windows in it, without what the program does with them.
class Frame : public QtForms {
protected:
    Frame() {
        frame_.load();
        platform_.windows().showModeless(frame_, false);
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

    QMainWindow& window() { return static_cast<QMainWindow&>(*platform_.windows().widgetOf(frame_)); }
    QMdiArea& area() { return widget<QMdiArea>(frame_, "MdiArea1"); }
    QMdiSubWindow& subWindow(const Form& child) {
        return static_cast<QMdiSubWindow&>(*platform_.windows().widgetOf(child)->parentWidget());
    }

    MDIForm1 frame_;
    std::vector<std::unique_ptr<EditWindow>> children_;
};

TEST_F(QtForms, EveryFormFitsItsLayout) {
    MDIForm1 frame;
    EditWindow document;
    TemplateHolder templates;
    About about;
    for (Form* form : std::initializer_list<Form*>{&frame, &document, &templates, &about}) {
        EXPECT_NO_THROW(platform_.windows().create(*form));
        platform_.windows().destroy(*form);
    }
    Form unknown("noSuchLayout", "");
    EXPECT_THROW(platform_.windows().create(unknown), Error);
}

TEST_F(Frame, AChildOpensMaximisedAndItsPathStandsInTheTitle) {
    EditWindow& child = open("/web/index.html");
    EXPECT_TRUE(subWindow(child).isMaximized());
    EXPECT_EQ(window().windowTitle(), "Kelvor - [/web/index.html]");
    child.setCaption("/" + std::string(300, 'x') + "/end.html");
    EXPECT_LT(window().windowTitle().size(), 130);
    EXPECT_TRUE(window().windowTitle().endsWith("/end.html]"));
}

TEST_F(Frame, TheModelAndTheAreaAgreeOnTheWindowInFront) {
    EditWindow& first = open("/one");
    EditWindow& second = open("/two");
    EXPECT_EQ(area().activeSubWindow(), &subWindow(second));
    frame_.mdi.activate(first);
    letEventsRun();
    EXPECT_EQ(area().activeSubWindow(), &subWindow(first));
    EXPECT_TRUE(subWindow(first).isMaximized());
    int activations = 0;
    second.activated.connect([&] { ++activations; });
    area().setActiveSubWindow(&subWindow(second));
    letEventsRun();
    EXPECT_EQ(frame_.mdi.activeForm(), &second);
    EXPECT_EQ(activations, 1);
    EXPECT_TRUE(platform_.windows().widgetOf(second)->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Frame, ARemovedChildLeavesTheOneThatTheModelChose) {
    EditWindow& first = open("/one");
    EditWindow& second = open("/two");
    EditWindow& third = open("/three");
    frame_.mdi.activate(first);
    frame_.mdi.activate(third);
    close(third);
    EXPECT_EQ(frame_.mdi.activeForm(), &first);
    EXPECT_EQ(area().activeSubWindow(), &subWindow(first));
    EXPECT_TRUE(subWindow(first).isMaximized());
    EXPECT_EQ(area().subWindowList().size(), 2);
    EXPECT_EQ(window().windowTitle(), "Kelvor - [/one]");
    close(first);
    close(second);
    EXPECT_EQ(window().windowTitle(), "Kelvor");
}

TEST_F(Frame, AChildsCloseBoxAsksItsForm) {
    EditWindow& child = open("/one");
    bool refuse = true;
    child.queryUnload.connect([&](bool& cancel) { cancel = refuse; });
    child.unloaded.connect([&] { frame_.mdi.remove(child); });
    QMdiSubWindow& box = subWindow(child);
    box.close();
    letEventsRun();
    EXPECT_TRUE(child.isLoaded());
    EXPECT_TRUE(box.isVisible());
    refuse = false;
    box.close();
    letEventsRun();
    EXPECT_FALSE(child.isLoaded());
    EXPECT_TRUE(area().subWindowList().isEmpty());
}

TEST_F(Frame, ArrangesItsChildren) {
    for (const char* name : {"/web/in/a/directory/that/lies/deep/one", "/two", "/three"}) open(name);
    const QRect inside = area().viewport()->rect();
    using Arrangement = MdiArea::Arrangement;
    for (const auto arrangement : {Arrangement::tileHorizontally, Arrangement::tileVertically}) {
        frame_.mdi.arrange(arrangement);
        QRegion covered;
        for (const auto& child : children_) {
            const QRect place = subWindow(*child).geometry();
            EXPECT_FALSE(covered.intersects(place));
            covered += place;
        }
        EXPECT_EQ(covered, QRegion(inside));
    }
    frame_.mdi.arrange(Arrangement::cascade);
    for (const auto& child : children_) EXPECT_TRUE(inside.contains(subWindow(*child).geometry()));
    EXPECT_NE(subWindow(*children_[0]).pos(), subWindow(*children_[1]).pos());
    EXPECT_EQ(area().activeSubWindow(), &subWindow(*children_[2]));

    subWindow(*children_[0]).showMinimized();
    subWindow(*children_[0]).move(200, 5);
    frame_.mdi.arrange(Arrangement::icons);
    EXPECT_EQ(subWindow(*children_[0]).geometry().bottomLeft(), inside.bottomLeft());
    frame_.mdi.arrange(Arrangement::tileHorizontally);
    EXPECT_TRUE(subWindow(*children_[0]).isMinimized());
    EXPECT_TRUE(subWindow(*children_[0]).windowTitle().endsWith("p/one"));
    EXPECT_FALSE(subWindow(*children_[0]).windowTitle().startsWith("/web"));
    EXPECT_FALSE(subWindow(*children_[0]).geometry().intersects(subWindow(*children_[2]).geometry()));

    frame_.mdi.activate(*children_[2]);
    frame_.mdi.activate(*children_[0]);
    EXPECT_FALSE(subWindow(*children_[0]).isMinimized()) << "its tab brings an icon back";
}

TEST_F(Frame, TheWindowMenuListsTheChildren) {
    frame_.menu("mnuWindow").setVisible(true);
    auto& menu = widget<QMenu>(frame_, "mnuWindow");
    const auto rows = menu.actions().size();
    EditWindow& first = open("/web/a&b.html");
    open("/web/two.html");
    for (int opened = 0; opened < 2; ++opened) {
        menu.popup({});
        menu.close();
    }
    ASSERT_EQ(menu.actions().size(), rows + 3);
    QAction& row = *menu.actions()[rows + 1];
    EXPECT_EQ(row.text(), "&1 /web/a&&b.html");
    EXPECT_FALSE(row.isChecked());
    EXPECT_TRUE(menu.actions()[rows + 2]->isChecked());
    row.trigger();
    EXPECT_EQ(frame_.mdi.activeForm(), &first);
}

TEST_F(Frame, ARightPressOnTheBackgroundIsTheFrames) {
    std::vector<int> buttons;
    frame_.mouseDown.connect([&](const MousePress& press) { buttons.push_back(press.button); });
    QTest::mouseClick(area().viewport(), Qt::LeftButton);
    QTest::mouseClick(area().viewport(), Qt::RightButton, Qt::ShiftModifier, {30, 40});
    EXPECT_EQ(buttons, std::vector<int>{2});
    open("/one");
    QTest::mouseClick(platform_.windows().widgetOf(*children_[0]), Qt::RightButton);
    EXPECT_EQ(buttons.size(), 1U);
}

TEST_F(Frame, OnlyThePaneOnTopIsSeen) {
    EditWindow& child = open("/one");
    auto& source = widget<QWidget>(child, "Text1");
    auto& preview = widget<QWidget>(child, "WebBrowser1");
    EXPECT_TRUE(source.isVisible());
    EXPECT_FALSE(preview.isVisible());
    child.StatusBar1.setSimpleText("file:///one");
    child.WebBrowser1.ZOrder();
    EXPECT_FALSE(source.isVisible());
    EXPECT_TRUE(preview.isVisible());
    EXPECT_TRUE(widget<QWidget>(child, "StatusBar1").isVisible());
    child.Text1.ZOrder();
    EXPECT_TRUE(source.isVisible());
    EXPECT_FALSE(preview.isVisible());
}

TEST_F(Frame, ItsCloseBoxAsksAndItsEndIsTold) {
    bool gone = false;
    platform_.windows().onFrameGone = [&] { gone = true; };
    EditWindow& child = open("/one");
    bool refuse = true;
    child.queryUnload.connect([&](bool& cancel) { cancel = refuse; });
    window().close();
    EXPECT_TRUE(window().isVisible());
    frame_.setEnabled(false);
    refuse = false;
    QTest::qWait(0);
    window().close();
    EXPECT_FALSE(gone);
    frame_.setEnabled(true);
    window().close();
    EXPECT_TRUE(gone);
    EXPECT_FALSE(frame_.isLoaded());
}

TEST_F(Frame, AModalFormReturnsWhenHiddenOrUnloaded) {
    TemplateHolder form;
    form.onLoad = {};
    form.load();
    // The form is ended from inside its own handlers, as its buttons do.
    QTimer::singleShot(0, [&] {
        EXPECT_EQ(QApplication::activeModalWidget(), platform_.windows().widgetOf(form));
        platform_.windows().hide(form);
    });
    platform_.windows().showModal(form);
    EXPECT_TRUE(form.isLoaded());
    QTimer::singleShot(0, [&] { form.unload(); });
    platform_.windows().showModal(form);
    EXPECT_FALSE(form.isLoaded());
}

TEST_F(Frame, HelpCanBeReadBesideAModalForm) {
    TemplateHolder form;
    form.onLoad = {};
    form.load();
    QTimer::singleShot(0, [&] {
        kelvor::platform().help.show("/no/help.chm::/1.html");
        HelpWindow& help = *platform_.help().window();
        QWidget* home = help.findChild<QToolBar*>()->widgetForAction(help.findChild<QToolBar*>()->actions()[2]);
        letEventsRun();
        QTest::mouseClick(help.windowHandle(), Qt::LeftButton, {}, home->mapTo(&help, home->rect().center()));
        EXPECT_TRUE(help.browser().toPlainText().contains("index.html"));
        platform_.windows().hide(form);
    });
    platform_.windows().showModal(form);
    form.unload();
    // It outlives the form that it stood above.
    letEventsRun();
    EXPECT_TRUE(platform_.help().window()->isVisible());
}

TEST_F(Frame, EscapeUnloadsAToolForm) {
    TemplateHolder form;
    form.onLoad = {};
    form.load();
    platform_.windows().showModeless(form, true);
    EXPECT_EQ(platform_.windows().widgetOf(form)->parentWidget(), &window());
    letEventsRun();
    QTest::keyClick(platform_.windows().widgetOf(form), Qt::Key_Escape);
    EXPECT_FALSE(form.isLoaded());
}

TEST_F(Frame, APopupOpensTheRowsOfItsMenuAndRunsTheChoice) {
    int chosen = 0;
    MenuItem& row = frame_.menu("mnuNoChild_New");
    row.clicked.connect([&] { ++chosen; });
    QTimer::singleShot(0, [&] {
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(popup, nullptr);
        EXPECT_EQ(popup->objectName(), "mnuNoChild");
        QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(popup->actions().front()).center());
    });
    platform_.windows().popupMenu(frame_.menu("mnuNoChild"));
    EXPECT_EQ(chosen, 1);
}

}  // namespace
}  // namespace kelvor::qt
