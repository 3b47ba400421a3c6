// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QObject>
#include <functional>

#include "controls/mdi_area.h"

class QMdiArea;
class QMdiSubWindow;

namespace kelvor::qt {

/// The child windows on the screen. They follow the model, which alone decides which one is in front;
/// what the user does with them goes to the model first.
class MdiView : public QObject {
public:
    using WidgetOf = std::function<QWidget*(Form&)>;

    /// @param frame     hears of a right press on the empty background
    /// @param widgetOf  gives the window of a loaded child form
    MdiView(MdiArea& model, Form& frame, QMdiArea& area, WidgetOf widgetOf);
    ~MdiView() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(MdiArea::Change change, Form* child);
    void show(Form& child);
    void remove(Form& child);
    void restore(Form* child);
    void activate(Form* child);
    void arrange();
    void keepKeysSeen(QWidget* focus);
    std::vector<QMdiSubWindow*> windowsInOrder(bool minimised) const;

    MdiArea& model_;
    Form& frame_;
    QMdiArea& area_;
    WidgetOf widgetOf_;
    QHash<Form*, QMdiSubWindow*> windows_;
    /// The view is changing by the model's word; what the widgets report meanwhile is no act of the user.
    bool following_ = false;
};

}  // namespace kelvor::qt
