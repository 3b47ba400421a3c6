// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QObject>
#include <memory>

#include "controls/control.h"

class QWidget;

namespace kelvor {
class Form;
}

namespace kelvor::qt {

class InputLock;

/// What holds a form and its window together: the context of all connections between widgets and controls.
class FormLink : public QObject {
public:
    /// Makes itself a child of the window.
    FormLink(Form& form, QWidget& window);
    ~FormLink() override;

    /// The link of a window; nullptr when it has none.
    static FormLink* of(const QWidget& window);

    Form& form() const { return form_; }
    QWidget& window() const { return window_; }

    /// Lets the widget follow what every control has, as it is now and later: state, tool tip, focus. `show` is
    /// told all other changes of the control; it brings the widget up to date without raising its signals.
    void follow(Control& control, QWidget& widget, std::function<void(Aspect)> show);

    /// Runs an act of the user, and then `show`, which lets the widget be what the control has made of it. An act
    /// that takes the form off its window ends the link; then there is nothing to show.
    void perform(const std::function<void()>& act, const std::function<void()>& show);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followForm(Aspect aspect);
    bool filterWindow(QEvent& event);

    Form& form_;
    QWidget& window_;
    QHash<QObject*, Control*> controls_;
    std::unique_ptr<InputLock> lock_;  ///< while the form is disabled
};

}  // namespace kelvor::qt
