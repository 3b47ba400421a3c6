// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <QWidget>

#include "platform/services.h"

class QTextBrowser;

namespace kelvor::qt {

/// A window of its own for the help pages, with the way back, forward and home.
class HelpWindow : public QWidget {
public:
    HelpWindow();

    /// @param page  a file's address; what is not there is told in the window
    void showPage(const QUrl& page);
    QTextBrowser& browser() const { return *browser_; }

private:
    void showTitle();

    QTextBrowser* browser_;
};

/// The address of a help page's file. `address` is the help file, or the help file, "::/" and a page's
/// name; pages lie beside the help file.
QUrl helpAddress(const std::string& address);

class QtHelpViewer : public HelpViewer {
public:
    QtHelpViewer();
    ~QtHelpViewer() override;

    void show(const std::string& address) override;

    /// nullptr before the first page.
    HelpWindow* window() const { return window_.get(); }

private:
    std::unique_ptr<HelpWindow> window_;
};

}  // namespace kelvor::qt
