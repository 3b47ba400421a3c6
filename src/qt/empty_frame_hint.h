// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QLabel;
class QMdiArea;

namespace kelvor::qt {

/// Says on the background of a frame without documents how to begin. Lives with the area.
class EmptyFrameHint : public QObject {
public:
    explicit EmptyFrameHint(QMdiArea& area);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QMdiArea& area_;
    QLabel& label_;
};

}  // namespace kelvor::qt
