// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/event.h"
#include "controls/form.h"
#include "qt/binding.h"
#include "qt/convert.h"
#include "qt/qt_platform.h"

namespace kelvor::qt {

/// Widgets on a screen that nobody sees, with the real windows in force. An error of a handler fails the test.
class QtForms : public testing::Test {
protected:
    QtForms() {
        setErrorSink([](const Error& error) { ADD_FAILURE() << error.number() << ": " << error.description(); });
    }
    ~QtForms() override { setErrorSink({}); }

    static void letEventsRun() {
        for (int round = 0; round < 3; ++round) QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Runs `steps` on the next dialog that opens.
    template <typename Dialog>
    static void onDialog(std::function<void(Dialog&)> steps) {
        QTimer::singleShot(0, [steps = std::move(steps)] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            steps(*dialog);
        });
    }

    /// The widget of a loaded form's control.
    template <typename Widget>
    Widget& widget(const Form& form, const char* name) {
        return *platform_.windows().widgetOf(form)->findChild<Widget*>(name);
    }

    QtPlatform platform_;
};

/// A dialog with a column of widgets, of the names and the classes that a test gives them.
class Binding : public QtForms {
protected:
    /// A control, or a group of them, that lives as long as its form.
    template <typename Model, typename... Args>
    Model& make(const char* name, Args&&... args) {
        auto model = std::make_shared<Model>(form_, name, std::forward<Args>(args)...);
        controls_.push_back(model);
        return *model;
    }
    template <typename Widget>
    Widget& add(const char* name) {
        auto* widget = new Widget(&window_);
        widget->setObjectName(name);
        layout_.addWidget(widget);
        return *widget;
    }
    template <typename Model, typename Widget>
    struct Pair {
        Model& model;
        Widget& widget;
    };
    template <typename Model, typename Widget, typename... Args>
    Pair<Model, Widget> pair(const char* name, Args&&... args) {
        auto& model = make<Model>(name, std::forward<Args>(args)...);
        return {model, add<Widget>(name)};
    }
    /// The window stands there with the keyboard afterwards.
    void bind() {
        EXPECT_EQ(bindForm(form_, window_), std::vector<std::string>());
        window_.show();
        window_.activateWindow();
        letEventsRun();
    }
    ~Binding() override { unbindForm(form_, window_); }

    template <typename Widget>
    Widget& found(const char* name) {
        return *window_.findChild<Widget*>(name);
    }
    /// A key as the system sends it, for the widget in focus or a shortcut.
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window_.windowHandle(), key, modifiers);
    }
    void count(Event<>& event) {
        event.connect([this] { ++told_; });
    }

    Form form_{"test", "A form"};
    std::vector<std::shared_ptr<void>> controls_;
    QDialog window_;
    QVBoxLayout& layout_ = *new QVBoxLayout(&window_);
    int told_ = 0;
};

}  // namespace kelvor::qt
