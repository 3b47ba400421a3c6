// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tab_strip.h"

#include <QSignalBlocker>
#include <QTabBar>

#include "qt/binders/binders.h"
#include "qt/convert.h"
#include "text/shown_name.h"

namespace kelvor::qt {

namespace {

using Tab = TabStrip::Tab;

/// In characters; what of a caption a tab shows.
constexpr int longestTab = 32;

QString keyAt(const QTabBar& widget, int index) {
    return widget.tabData(index).toString();
}

/// Brings the tabs up to date, touching only those that differ. New tabs come at the end, and the rest keep their
/// order, so both rows are walked in step.
void showTabs(const TabStrip& strip, QTabBar& widget) {
    int index = 0;
    for (const Tab& tab : strip.tabs()) {
        const QString key = toQt(tab.key);
        while (index < widget.count() && keyAt(widget, index) != key) widget.removeTab(index);
        if (index == widget.count()) {
            widget.insertTab(index, QString());
            widget.setTabData(index, key);
        }
        const QString text = menuText(elidedInTheMiddle(toQt(shownName(tab.caption)), longestTab));
        if (widget.tabText(index) != text) widget.setTabText(index, text);
        const QString tip = toolTipText(shownName(tab.toolTip));
        if (widget.tabToolTip(index) != tip) widget.setTabToolTip(index, tip);
        ++index;
    }
    while (widget.count() > index) widget.removeTab(index);
}

void showSelection(const TabStrip& strip, QTabBar& widget) {
    if (!strip.hasSelection()) return;
    const QString key = toQt(strip.selectedItem().key);
    for (int i = 0; i < widget.count(); ++i)
        if (keyAt(widget, i) == key) widget.setCurrentIndex(i);
}

}  // namespace

void bindTabStrip(TabStrip& strip, QTabBar& widget, FormLink& link) {
    widget.setExpanding(false);
    widget.setDocumentMode(true);
    widget.setUsesScrollButtons(true);
    widget.setElideMode(Qt::ElideNone);
    link.follow(strip, widget, [&strip, &widget](Aspect aspect) {
        const QSignalBlocker blocker(widget);
        if (aspect != Aspect::selection) showTabs(strip, widget);
        showSelection(strip, widget);
    });
    const auto click = [&strip, &widget](int index) {
        const std::string key = fromQt(keyAt(widget, index));
        guarded([&] { strip.click(key); });
    };
    QObject::connect(&widget, &QTabBar::currentChanged, &link, click);
    // A press on the tab in front changes nothing in the bar, and is a click all the same.
    QObject::connect(&widget, &QTabBar::tabBarClicked, &link, [&widget, click](int index) {
        if (index >= 0 && index == widget.currentIndex()) click(index);
    });
}

}  // namespace kelvor::qt
