// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tool_bar.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "qt/binders/binders.h"
#include "qt/binders/mouse_presses.h"
#include "qt/button_pictures.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

using Kind = ToolBar::ButtonKind;

void addEntries(ToolBar& bar, const ToolBar::Button& button, QToolButton& face, FormLink& link) {
    auto* menu = new QMenu(&face);
    for (const ToolBar::Entry& entry : button.entries) {
        QAction* row = menu->addAction(menuText(toQt(entry.caption)));
        QObject::connect(row, &QAction::triggered, &link, [&bar, key = button.key, entry = entry.key] {
            guarded([&] { bar.chooseEntry(key, entry); });
        });
    }
    face.setMenu(menu);
    face.setPopupMode(QToolButton::MenuButtonPopup);
}

/// The action is named by the button's key.
QAction& addButton(ToolBar& bar, const ToolBar::Button& button, QToolBar& widget, FormLink& link) {
    const std::string_view caption = button.caption.empty() ? button.toolTip : button.caption;
    auto* action = new QAction(buttonPicture(button.key), menuText(toQt(caption)), &widget);
    action->setObjectName(toQt(button.key));
    action->setToolTip(toolTipText(button.toolTip));
    action->setCheckable(button.kind == Kind::toggle);
    widget.addAction(action);
    QObject::connect(action, &QAction::triggered, &link,
                     [&bar, key = button.key, action, alive = QPointer<FormLink>(&link)] {
                         guarded([&] { bar.click(key); });
                         // The toolkit has turned a toggle button by itself; the model decides.
                         if (alive) action->setChecked(bar.button(key).pressed);
                     });
    auto& face = *qobject_cast<QToolButton*>(widget.widgetForAction(action));
    face.setAccessibleName(toQt(button.toolTip));
    // Otherwise the tool tip is taken, with its mark-up.
    face.setAccessibleDescription(toQt(button.toolTip));
    // A click leaves the keyboard to the text.
    face.setFocusPolicy(Qt::TabFocus);
    if (button.kind == Kind::dropDown) addEntries(bar, button, face, link);
    const auto tell = [&bar](const MousePress& press) { bar.mouseDown.raise(press); };
    tellMousePresses(face, widget, link, tell);
    tellMenuKey(face, widget, link, tell);
    return *action;
}

/// Gives the buttons of an upright bar one width.
void alignFaces(QToolBar& widget) {
    const auto faces = widget.findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
    int widest = 0;
    for (const QToolButton* face : faces) widest = std::max(widest, face->sizeHint().width());
    for (QToolButton* face : faces) face->setMinimumWidth(widest);
}

/// The button that shows what a narrow bar has no room for comes without a name.
void nameExtension(QToolBar& widget) {
    auto* extension = widget.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
    if (!extension) return;
    const QString name = QStringLiteral("More of ") + widget.windowTitle();
    extension->setAccessibleName(name);
    extension->setToolTip(name);
}

}  // namespace

void bindToolBar(ToolBar& bar, QToolBar& widget, FormLink& link) {
    std::vector<QAction*> actions;
    for (const ToolBar::Button& button : bar.buttons()) {
        const bool line = button.kind == Kind::separator;
        actions.push_back(line ? widget.addSeparator() : &addButton(bar, button, widget, link));
    }
    nameExtension(widget);
    if (widget.orientation() == Qt::Vertical) alignFaces(widget);
    tellMousePresses(widget, widget, link, [&bar](const MousePress& press) { bar.mouseDown.raise(press); });
    link.follow(bar, widget, [&bar, actions](Aspect) {
        for (std::size_t i = 0; i < actions.size(); ++i) {
            actions[i]->setEnabled(bar.buttons()[i].enabled);
            actions[i]->setChecked(bar.buttons()[i].pressed);
        }
    });
}

}  // namespace kelvor::qt
