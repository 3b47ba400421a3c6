// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <optional>
#include <string>

#include "qt/name_lookups.h"

class QStackedLayout;

namespace kelvor::qt {

class Browser;
class PaneLine;
class PaneObstacle;
enum class HeldBack;
struct Obstacle;

/// What stands in a document's window in preview: the page with some lines above it, or why there is none.
class PreviewPane : public QWidget {
public:
    explicit PreviewPane(QWidget& place);
    ~PreviewPane() override;

    /// Loads the page anew, and the browser with it when it is the first page of all.
    /// @param address  a path, or a URL that begins with http://, https:// or file:
    /// @param mapped   what a mapping made of the path, encoded; loaded instead of `address` when it is a URL
    void navigate(const std::string& address, const std::string& mapped);
    /// Ends the page.
    void close();

private:
    void makeLines();
    bool makeBrowser();
    void load();
    void loadRemoteContent();
    void showPage();
    void showObstacle(const Obstacle& obstacle);
    void tellHeldBack(HeldBack what);
    void tellLoading(bool begins);
    void tellWaiting();

    QStackedLayout* layers_;
    PaneLine* mapping_ = nullptr;
    PaneLine* heldBack_ = nullptr;
    PaneLine* refused_ = nullptr;
    PaneLine* loading_ = nullptr;
    PaneObstacle* obstacle_;
    Browser* browser_ = nullptr;
    QTimer patience_;
    QUrl url_;
    QString shownAddress_;
    bool remoteContent_ = false;  ///< the user's choice, for as long as the document is open
    bool scriptsWait_ = false;
    bool networkWaits_ = false;
    int waited_ = 0;  ///< seconds
    std::optional<NameLookupPermit> nameLookups_;
};

}  // namespace kelvor::qt
