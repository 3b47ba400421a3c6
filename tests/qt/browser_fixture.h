#pragma once

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include "platform/form.h"
#include "platform/qt/binders/binders.h"
#include "platform/web_browser.h"
#include "tests/fake_platform.h"
#include "tests/qt/form_fixture.h"
#include "tests/qt/loopback_listener.h"

namespace kelvor::qt {

constexpr const char* sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

/// A preview pane in a window, files for it to show, and a listener for what the pages send. A page tells its
/// outcome in its title.
class Preview : public QtForms {
protected:
    void SetUp() override {
        if (!QFile::exists(QCoreApplication::applicationDirPath() + "/kelvor_browser.so"))
            GTEST_SKIP() << "built without Qt WebEngine";
        if (geteuid() == 0) qputenv(sandboxVariable, "1");
        window_.resize(400, 300);
        bindWebBrowser(browser_, window_, *new FormLink(form_, window_));
        window_.show();
    }

    static bool engineIsLoaded() {
        QFile maps("/proc/self/maps");
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("WebEngine");
    }

    void navigate(const std::string& address) {
        browser_.Navigate(address, WebBrowser::noHistory | WebBrowser::noWriteToCache);
    }
    /// Writes the page and shows it.
    void show(const std::string& name, const std::string& html) { navigate(files_.write(name, html)); }

    QObject* found(const char* className) const {
        for (QObject* object : window_.findChildren<QObject*>())
            if (object->inherits(className)) return object;
        return nullptr;
    }
    QString title() const {
        const QObject* view = found("QWebEngineView");
        return view ? view->property("title").toString() : QString();
    }
    /// The title once it begins so; what it is after ten seconds otherwise.
    std::string titleOnce(const char* beginning) const {
        [[maybe_unused]] const bool came =
            QTest::qWaitFor([&] { return title().startsWith(QLatin1String(beginning)); }, 10'000);
        return title().toStdString();
    }

    /// The text of the pane's own labels that are to be seen.
    QString notice() const {
        QString text;
        for (const QLabel* label : window_.findChildren<QLabel*>())
            if (label->isVisible()) text += label->text();
        return text;
    }
    QPushButton& reload() const { return *window_.findChild<QPushButton*>(); }

    TestDirectory files_;
    LoopbackListener listener_;
    Form form_{"preview", "Preview"};
    WebBrowser browser_{form_, "WebBrowser1"};
    QWidget window_;
};

}  // namespace kelvor::qt
