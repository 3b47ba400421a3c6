// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/error.h"
#include "controls/tab_control.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <QTabWidget>

#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// The widget leaves a page that gets disabled; the control's page is shown all the same.
void showPages(const TabControl& tabs, QTabWidget& widget) {
    const QSignalBlocker blocker(widget);
    for (int page = 0; page < widget.count(); ++page) {
        widget.setTabText(page, toQt(tabs.caption(page)));
        if (widget.isTabEnabled(page) != tabs.tabEnabled(page)) widget.setTabEnabled(page, tabs.tabEnabled(page));
    }
    widget.setCurrentIndex(tabs.tab());
}

/// Goes to the next page that the user may reach, round about.
void step(TabControl& tabs, int direction) {
    const int count = static_cast<int>(tabs.count());
    for (int steps = 1; steps < count; ++steps) {
        const int page = (tabs.tab() + count + direction * steps) % count;
        if (tabs.tabEnabled(page)) return tabs.choose(page);
    }
}

}  // namespace

void bindTabControl(TabControl& tabs, QTabWidget& widget, FormLink& link) {
    if (widget.count() != static_cast<int>(tabs.count()))
        throw Error(error_number::elementNotFound, "has " + std::to_string(widget.count()) +
                                                       " pages in the layout for " + std::to_string(tabs.count()) +
                                                       " tabs");
    widget.setAccessibleName(QStringLiteral("Pages"));
    const auto show = [&tabs, &widget] { showPages(tabs, widget); };
    link.follow(tabs, widget, [show](Aspect) { show(); });
    QObject::connect(&widget, &QTabWidget::currentChanged, &link,
                     [&tabs, &link, show](int page) { link.perform([&tabs, page] { tabs.choose(page); }, show); });
    // Ctrl+Tab is the toolkit's own, but an edit control types with it.
    for (const auto& [key, direction] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
        auto* shortcut = new QShortcut(Qt::CTRL | key, &widget, nullptr, nullptr, Qt::WindowShortcut);
        QObject::connect(shortcut, &QShortcut::activated, &link,
                         [&tabs, direction = direction] { guarded([&] { step(tabs, direction); }); });
    }
}

}  // namespace kelvor::qt
