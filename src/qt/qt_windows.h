// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <functional>
#include <unordered_map>

#include "platform/services.h"
#include "qt/mdi_view.h"

class QEventLoop;
class QMainWindow;
class QWidget;

namespace kelvor::qt {

class QtWindows : public Windows {
public:
    QtWindows() = default;
    ~QtWindows() override;
    QtWindows(const QtWindows&) = delete;
    QtWindows& operator=(const QtWindows&) = delete;

    /// Runs when the frame's window has been taken away.
    std::function<void()> onFrameGone;

    /// Throws Error 35601 when the form has no layout, or one that does not fit its controls.
    void create(Form& form) override;
    void destroy(Form& form) override;
    void showModal(Form& form) override;
    void showModeless(Form& form, bool owned) override;
    void hide(Form& form) override;
    /// Any modal window counts, of the forms' and of the library's; only one that the form was opened above does not.
    bool isBlocked(const Form& form) const override;
    void popupMenu(MenuItem& menu, const Control* below) override;
    std::unique_ptr<EditControl> createEditControl(Form& form, const std::string& name) override;

    /// The window of a form; nullptr when it has none.
    QWidget* widgetOf(const Form& form) const;

private:
    struct Window {
        QPointer<QWidget> widget;
        QPointer<QWidget> above;  ///< the modal window that had the input when this one was opened
        QEventLoop* modalLoop = nullptr;
    };

    QWidget* frameWidget() const;
    void setUpFrame(Form& form, QMainWindow& window);
    void endModal(Window& window);

    std::unordered_map<const Form*, Window> windows_;
    std::unique_ptr<MdiView> mdi_;
};

}  // namespace kelvor::qt
