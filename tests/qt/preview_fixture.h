// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "controls/web_browser.h"
#include "qt/binders/binders.h"
#include "tests/kit/fake_platform.h"
#include "tests/qt/form_fixture.h"
#include "tests/qt/loopback_listener.h"

namespace kelvor::qt {

using Heard = std::vector<std::string>;

/// A preview pane in a window, files for it to show, and a listener for what the pages send. A page tells its
/// outcome in its title.
class Preview : public QtForms {
protected:
    void SetUp() override {
        if (!QFile::exists(QCoreApplication::applicationDirPath() + "/kelvor_browser.so"))
            GTEST_SKIP() << "built without Qt WebEngine";
        if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
        window_.resize(400, 300);
        bindWebBrowser(browser_, window_, *new FormLink(form_, window_));
        window_.show();
    }

    /// Writes the page and shows it.
    void show(const std::string& name, const std::string& html) { browser_.Navigate(files_.write(name, html), 0); }
    /// Shows a page of the listener, as a mapping does.
    void showServed(const std::string& path) { browser_.Navigate("http://" + listener_.address() + path, 0); }

    QPushButton* button(const char* caption) const {
        for (QPushButton* button : window_.findChildren<QPushButton*>())
            if (button->isVisible() && button->text().remove('&') == caption) return button;
        return nullptr;
    }
    /// Presses a button of the pane once it is there.
    void press(const char* caption) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return button(caption) != nullptr; }, 10'000)) << caption;
        QTest::mouseClick(button(caption), Qt::LeftButton);
    }
    /// Lets all pages of this test run their scripts and use the network.
    void loadRemoteContent() {
        show("first.html", "<script></script>");
        press("Load remote content");
    }

    QVariant ofEngine(const char* className, const char* property) const {
        for (const QObject* object : window_.findChildren<QObject*>())
            if (object->inherits(className)) return object->property(property);
        return {};
    }
    QString title() const { return ofEngine("QWebEngineView", "title").toString(); }
    /// The title once it begins so; what it is after ten seconds otherwise.
    std::string titleOnce(const std::string& beginning) const {
        [[maybe_unused]] const bool came =
            QTest::qWaitFor([&] { return title().startsWith(beginning.c_str()); }, 10'000);
        return title().toStdString();
    }
    /// Whether one of the pane's own labels tells this.
    bool tellsNow(const char* words) const {
        for (const QLabel* label : window_.findChildren<QLabel*>())
            if (label->isVisible() && label->text().contains(words)) return true;
        return false;
    }
    /// Whether one comes to tell it in that many milliseconds.
    bool tells(const char* words, int patience = 10'000) const {
        return QTest::qWaitFor([&] { return tellsNow(words); }, patience);
    }

    TestDirectory files_;
    LoopbackListener listener_;
    Form form_{"preview", "Preview"};
    WebBrowser browser_{form_, "WebBrowser1"};
    QWidget window_;
};

/// What a script of the page makes its title, once all is loaded.
inline std::string titled(const std::string& expression) {
    return "<script>onload = () => { document.title = " + expression + "; }</script>";
}

}  // namespace kelvor::qt
