#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QWidget>
#include <memory>

#include "platform/event.h"
#include "platform/form.h"
#include "platform/qt/convert.h"
#include "platform/qt/qt_platform.h"

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

    /// The widget of a loaded form's control.
    template <typename Widget>
    Widget& widget(const Form& form, const char* name) {
        auto* found = platform_.windows().widgetOf(form)->findChild<Widget*>(QString::fromUtf8(name));
        if (!found) throw Error(error_number::elementNotFound, name);
        return *found;
    }

    QtPlatform platform_;
};

}  // namespace kelvor::qt
