// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/pane_line.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace kelvor::qt {

PaneLine::PaneLine(const QString& button) : label_(new QLabel) {
    setFrameShape(QFrame::StyledPanel);
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    auto* parts = new QHBoxLayout(this);
    const int gap = fontMetrics().height() / 4;
    parts->setContentsMargins(2 * gap, gap, gap, gap);
    parts->addWidget(label_, 1);
    if (!button.isEmpty()) {
        button_ = new QPushButton(button);
        button_->setAutoDefault(true);
        parts->addWidget(button_);
    }
    hide();
}

void PaneLine::tell(const QString& text) {
    label_->setText(text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
    if (text.isEmpty()) return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace kelvor::qt
