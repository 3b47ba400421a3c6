// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/menu_item.h"

#include <QAction>
#include <QHash>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <algorithm>
#include <set>

#include "controls/form.h"
#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// In characters; what of a path a row shows.
constexpr int longestName = 70;

QString captionOf(const MenuItem& item) {
    const QString caption = toQt(item.caption());
    return item.isName() ? menuText(elidedInTheMiddle(caption, longestName)) : caption;
}

void follow(MenuItem& item, QAction& action) {
    const auto follower = [&item, &action](Aspect aspect) {
        switch (aspect) {
            case Aspect::caption:
                action.setSeparator(item.isSeparator());
                action.setText(item.isSeparator() ? QString() : captionOf(item));
                break;
            case Aspect::enabled:
                action.setEnabled(item.enabled());
                break;
            case Aspect::visible:
                action.setVisible(item.visible());
                break;
            case Aspect::toolTip:
                action.setToolTip(toolTipText(item.toolTip()));
                break;
            case Aspect::value:
                if (item.checked()) action.setCheckable(true);
                action.setChecked(item.checked());
                break;
            default:
                break;
        }
    };
    follower(Aspect::caption);
    follower(Aspect::enabled);
    follower(Aspect::visible);
    follower(Aspect::value);
    item.follow(follower);
}

/// A row that the user can choose.
void addRow(MenuItem& item, QWidget& parent, FormLink& link) {
    auto* action = new QAction(&parent);
    action->setObjectName(toQt(item.name()));
    action->setMenuRole(QAction::NoRole);
    if (!item.shortcut().empty()) action->setShortcut(QKeySequence(toQt(item.shortcut()), QKeySequence::PortableText));
    follow(item, *action);
    parent.addAction(action);
    QObject::connect(action, &QAction::triggered, &link, [&item, action, alive = QPointer<FormLink>(&link)] {
        guarded([&] { item.click(); });
        // The toolkit has turned the mark by itself; the model decides.
        if (alive) action->setChecked(item.checked());
    });
}

QMenu& addMenu(MenuItem& item, QWidget& parent, FormLink& link) {
    auto* menu = new QMenu(&parent);
    menu->setObjectName(toQt(item.name()));
    follow(item, *menu->menuAction());
    parent.addAction(menu->menuAction());
    QObject::connect(menu, &QMenu::aboutToShow, &link, [&item] {
        if (item.enabled()) item.clicked.raise();
    });
    return *menu;
}

QMenuBar& menuBarOf(QWidget& window) {
    if (auto* main = qobject_cast<QMainWindow*>(&window)) return *main->menuBar();
    auto* bar = new QMenuBar(&window);
    if (window.layout()) window.layout()->setMenuBar(bar);
    return *bar;
}

}  // namespace

void bindMenus(FormLink& link) {
    std::vector<MenuItem*> items;
    std::set<const MenuItem*> parents;
    for (Control* control : link.form().controls()) {
        auto* item = dynamic_cast<MenuItem*>(control);
        if (!item) continue;
        items.push_back(item);
        if (item->parent()) parents.insert(item->parent());
    }
    if (items.empty()) return;
    // Where all the tops are hidden, being popups, there is no bar to have them.
    const bool onlyPopups = std::none_of(items.begin(), items.end(),
                                         [](const MenuItem* item) { return !item->parent() && item->visible(); });
    QWidget& top = onlyPopups ? link.window() : menuBarOf(link.window());
    QHash<const MenuItem*, QWidget*> places{{nullptr, &top}};
    for (MenuItem* item : items) {
        QWidget& place = *places.value(item->parent(), &top);
        if (parents.contains(item)) {
            places.insert(item, &addMenu(*item, place, link));
        } else {
            addRow(*item, place, link);
        }
    }
}

}  // namespace kelvor::qt
