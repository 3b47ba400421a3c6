// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPainter>
#include <QWidget>

namespace kelvor::qt {

/// The program's icon, as large as the widget.
class ProgramIcon : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        windowIcon().paint(&painter, rect());
    }
};

}  // namespace kelvor::qt
