// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QBoxLayout;
class QWidget;

namespace kelvor::qt {

/// Puts the words of a bar above its buttons where there is too little room beside them. The bar's layout has the words
/// first and then a layout of the buttons.
class FoldingBar : public QObject {
public:
    explicit FoldingBar(QWidget& bar);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fold();

    QWidget& bar_;
    QBoxLayout* layout_;
};

}  // namespace kelvor::qt
