#pragma once

#include <QtPlugin>
#include <functional>

class QUrl;
class QWidget;

namespace kelvor::qt {

/// A browser in a pane.
class Browser {
public:
    virtual ~Browser() = default;

    virtual QWidget& widget() = 0;

    /// Loads the page anew, with nothing kept of the pages before: no cache, no history, no stored data. May be
    /// called after the page's process has died.
    virtual void navigate(const QUrl& url) = 0;

    /// The page's process has died, and the widget shows nothing any more.
    std::function<void()> onPageDied;
};

/// What the module hands to the program, which links no web engine. The program sees to it that the engine can run
/// (its sandbox; shared OpenGL contexts) before it loads the module.
class BrowserModule {
public:
    virtual ~BrowserModule() = default;

    /// @param pane  becomes the parent of the browser's widget, and with it the browser's owner
    virtual Browser& createBrowser(QWidget& pane) = 0;
};

}  // namespace kelvor::qt

#define KELVOR_BROWSER_MODULE_ID "kelvor.BrowserModule/1"
Q_DECLARE_INTERFACE(kelvor::qt::BrowserModule, KELVOR_BROWSER_MODULE_ID)
