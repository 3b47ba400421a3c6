#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QTextDocumentFragment>
#include <QToolBar>
#include <QToolButton>

#include "frame/main_frame.h"
#include "frame/menu_table.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

/// The frame's real window as it stands before anything has run.
class CommandSurface : public QtForms {
protected:
    CommandSurface() {
        frame_.load();
        platform_.windows().showModeless(frame_, false);
        letEventsRun();
    }
    ~CommandSurface() override {
        frame_.unload();
        letEventsRun();
    }
    QMainWindow& window() { return static_cast<QMainWindow&>(*platform_.windows().widgetOf(frame_)); }
    QRect placeOf(const char* name) {
        auto& found = widget<QWidget>(frame_, name);
        return {found.mapTo(&window(), QPoint()), found.size()};
    }

    MDIForm1 frame_;
};

using Lines = std::vector<std::string>;

void tellFlags(std::string& line, bool checked, bool enabled, bool visible) {
    if (checked) line += " checked";
    if (!visible) line += " hidden";
    if (visible && !enabled) line += " disabled";
}

/// The rows of a menu and all below it, one a line: the depth as blanks, name, caption, shortcut, flags.
void tellMenu(const QWidget& menu, const std::string& indent, Lines& lines) {
    for (const QAction* action : menu.actions()) {
        const QObject* named = action->menu() ? static_cast<const QObject*>(action->menu()) : action;
        std::string line = indent + fromQt(named->objectName()) + " '" +
                           (action->isSeparator() ? "-" : fromQt(action->text())) + "' " +
                           fromQt(action->shortcut().toString(QKeySequence::PortableText));
        EXPECT_EQ(action->isCheckable(), action->isChecked()) << line;
        tellFlags(line, action->isChecked(), action->isEnabled(), action->isVisible());
        lines.push_back(line);
        if (action->menu()) tellMenu(*action->menu(), indent + " ", lines);
    }
}

void tellTable(std::string_view parent, const std::string& indent, Lines& lines) {
    for (const MenuRow& row : menuTable()) {
        if (row.parent != parent) continue;
        std::string line =
            indent + std::string(row.name) + " '" + std::string(row.caption) + "' " + std::string(row.shortcut);
        const bool visible = !row.isHidden && !row.isPopup;
        tellFlags(line, row.isChecked, !row.isDisabled, visible);
        lines.push_back(line);
        if (!row.name.empty()) tellTable(row.name, indent + " ", lines);
    }
}

TEST_F(CommandSurface, TheMenuBarIsTheTable) {
    Lines shown;
    Lines told;
    tellMenu(*window().menuBar(), "", shown);
    tellTable("", "", told);
    EXPECT_EQ(told.size(), menuTable().size());
    ASSERT_EQ(shown.size(), told.size());
    for (std::size_t i = 0; i < told.size(); ++i) EXPECT_EQ(shown[i], told[i]);
}

TEST_F(CommandSurface, TheToolbarsAreTheTables) {
    for (const ToolBar* bar : {&frame_.Toolbar1, &frame_.Toolbar2, &frame_.Toolbar3, &frame_.Toolbar4}) {
        auto& widget = this->widget<QToolBar>(frame_, bar->name().c_str());
        const auto actions = widget.actions();
        ASSERT_EQ(static_cast<std::size_t>(actions.size()), bar->buttons().size()) << bar->name();
        for (std::size_t i = 0; i < bar->buttons().size(); ++i) {
            const ToolBar::Button& button = bar->buttons()[i];
            const QAction& action = *actions[static_cast<int>(i)];
            EXPECT_EQ(action.isSeparator(), button.kind == ToolBar::ButtonKind::separator) << button.key;
            if (action.isSeparator()) continue;
            auto& face = *qobject_cast<QToolButton*>(widget.widgetForAction(actions[static_cast<int>(i)]));
            EXPECT_EQ(fromQt(action.objectName()), button.key);
            // A tip is rich text when it would be taken for that otherwise, as "<BR>" is.
            const QString tip = face.toolTip();
            EXPECT_EQ(fromQt(Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip),
                      button.toolTip);
            EXPECT_EQ(fromQt(face.accessibleName()), button.toolTip);
            EXPECT_FALSE(face.icon().isNull()) << button.key;
            EXPECT_EQ(face.isCheckable(), button.kind == ToolBar::ButtonKind::toggle) << button.key;
            EXPECT_EQ(face.isChecked(), button.pressed) << button.key;
            EXPECT_EQ(face.menu() ? face.menu()->actions().size() : 0, static_cast<int>(button.entries.size()));
        }
    }
}

TEST_F(CommandSurface, BarsComeAndGoAndNothingElseLeavesTheWindow) {
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

TEST_F(CommandSurface, TheSideBarsStandBesideTheDocuments) {
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

TEST_F(CommandSurface, ANarrowWindowOffersTheButtonsThatItHasNoRoomFor) {
    auto& bar = widget<QToolBar>(frame_, "Toolbar1");
    auto& more = *bar.findChild<QToolButton*>("qt_toolbar_ext_button");
    // What the margins leave of a screen of 1024 pixels.
    window().resize(984, 600);
    letEventsRun();
    EXPECT_FALSE(more.isVisible());
    window().resize(500, 600);
    letEventsRun();
    EXPECT_EQ(window().width(), 500);
    EXPECT_TRUE(more.isVisible());
}

TEST_F(CommandSurface, NoMenuOfTheToolkitsOwnHidesABar) {
    auto& bar = widget<QToolBar>(frame_, "Toolbar1");
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, bar.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&bar, &event);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_FALSE(bar.isFloatable());
}

}  // namespace
}  // namespace kelvor::qt
