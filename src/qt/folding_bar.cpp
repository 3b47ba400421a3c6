// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/folding_bar.h"

#include <QBoxLayout>
#include <QEvent>
#include <QWidget>

namespace kelvor::qt {

namespace {

/// So many characters of the words find room beside the buttons, or all stand above them.
constexpr int fewestCharacters = 24;

}  // namespace

FoldingBar::FoldingBar(QWidget& bar) : QObject(&bar), bar_(bar), layout_(qobject_cast<QBoxLayout*>(bar.layout())) {
    if (layout_) bar.installEventFilter(this);
}

bool FoldingBar::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::Resize) fold();
    return false;
}

void FoldingBar::fold() {
    const int room = bar_.width() - layout_->itemAt(1)->sizeHint().width();
    const bool isNarrow = room < fewestCharacters * bar_.fontMetrics().averageCharWidth();
    layout_->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

}  // namespace kelvor::qt
