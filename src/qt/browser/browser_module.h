// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtPlugin>
#include <functional>

class QUrl;
class QWidget;

namespace kelvor::qt {

/// Characters of an address that are shown, its middle left out when there are more.
inline constexpr int longestAddress = 200;

/// Why a page is not there, and what the user can do about it.
struct Obstacle {
    enum class Way {
        reload,  ///< load it once more
        goOn,    ///< take its site's certificate after all
        logIn    ///< give a name and a password
    };

    QString message;
    Way way = Way::reload;
    bool certificateStays = false;  ///< of `goOn`: the site is none that may be taken without a good certificate
};

/// What a page from the disk waits for until the user lets it use the network.
enum class HeldBack { scripts, remoteContent };

/// A browser in a pane.
class Browser {
public:
    virtual ~Browser() = default;

    virtual QWidget& widget() = 0;

    /// Loads the page anew, with nothing kept of the pages before: no cache, no history, no stored data. May be
    /// called after the page's process has died.
    /// @param remoteContent  whether a page from the disk runs its scripts and gets at the network
    virtual void navigate(const QUrl& url, bool remoteContent) = 0;
    /// Ends the page and its process.
    virtual void close() = 0;
    /// Loads no more of the page.
    virtual void stop() = 0;
    /// From now on takes the certificate that was the last obstacle.
    virtual void trustSite() = 0;
    /// Keeps the name and the password for what was the last obstacle until the program ends.
    virtual void keepLogin(const QString& name, const QString& password) = 0;

    std::function<void(const Obstacle&)> onObstacle;
    /// Something that the page did not get.
    std::function<void(const QString&)> onRefused;
    std::function<void(HeldBack)> onHeldBack;
    /// Loading begins or has ended.
    std::function<void(bool)> onLoading;
    /// The pane shows another page.
    std::function<void()> onMoved;
};

/// What the module hands to the program, which links no web engine. The program sees to it that the engine can run
/// (its sandbox; shared OpenGL contexts) before it loads the module.
class BrowserModule {
public:
    virtual ~BrowserModule() = default;

    /// @param pane  becomes the parent of the browser's widget, and with it the browser's owner
    virtual Browser& createBrowser(QWidget& pane) = 0;

    virtual QString engineVersion() const = 0;
};

}  // namespace kelvor::qt

#define KELVOR_BROWSER_MODULE_ID "kelvor.BrowserModule/3"
Q_DECLARE_INTERFACE(kelvor::qt::BrowserModule, KELVOR_BROWSER_MODULE_ID)
