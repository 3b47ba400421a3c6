// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace kelvor::qt {

/// One line above a page that tells something about it, with a button where there is something to do. Hidden until
/// it has something to tell.
class PaneLine : public QFrame {
public:
    /// @param button  its caption; "" for none
    explicit PaneLine(const QString& button = {});

    /// Shows the text, and has a screen reader say it; "" hides the line.
    void tell(const QString& text);

    /// nullptr when the line has none.
    QPushButton* button() const { return button_; }

private:
    QLabel* label_;
    QPushButton* button_ = nullptr;
};

}  // namespace kelvor::qt
