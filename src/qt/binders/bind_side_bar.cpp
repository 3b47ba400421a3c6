// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/side_bar.h"

#include <QBoxLayout>
#include <QLabel>
#include <QSplitter>
#include <QToolButton>

#include "qt/binders/binders.h"

namespace kelvor::qt {

namespace {

/// The bar's title and the button that wants it away.
QWidget* makeHeader(SideBar& bar, QWidget& widget, FormLink& link) {
    auto* header = new QWidget(&widget);
    auto* title = new QLabel(widget.windowTitle(), header);
    title->setWordWrap(true);
    auto* close = new QToolButton(header);
    close->setText(QChar(0x00d7));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    close->setToolTip(QStringLiteral("Close"));
    close->setAccessibleName(QStringLiteral("Close ") + widget.windowTitle());
    QObject::connect(close, &QToolButton::clicked, &link, [&bar] { bar.closeClicked.raise(); });
    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(title, 1);
    layout->addWidget(close, 0, Qt::AlignTop);
    return header;
}

/// Moves the bar to the outer end of its side.
void placeAt(int side, QWidget& widget) {
    auto* splitter = qobject_cast<QSplitter*>(widget.parentWidget());
    if (!splitter) return;
    splitter->insertWidget(side == SideBar::left ? 0 : splitter->count() - 1, &widget);
}

}  // namespace

void bindSideBar(SideBar& bar, QWidget& widget, FormLink& link) {
    if (auto* layout = qobject_cast<QBoxLayout*>(widget.layout()))
        layout->insertWidget(0, makeHeader(bar, widget, link));
    link.follow(bar, widget, [&bar, &widget](Aspect) { placeAt(bar.align(), widget); });
}

}  // namespace kelvor::qt
