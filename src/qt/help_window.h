// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextDocument>
#include <QUrl>
#include <QWidget>

#include "platform/services.h"

class QLineEdit;
class QTextBrowser;
class QToolBar;

namespace kelvor::qt {

class HelpContents;

/// A window of its own for the help pages: their contents beside them, the way back, forward and home, and a search in
/// the page.
class HelpWindow : public QWidget {
public:
    HelpWindow();

    /// @param page  a file's address; what is not there is told in the window
    void showPage(const QUrl& page);
    QTextBrowser& browser() const { return *browser_; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void addMoves(QToolBar& bar);
    void addSearch(QToolBar& bar);
    void addKeys();
    /// Pages beside the one that is shown are shown here, pages of the net in the desktop's browser, no others.
    void follow(const QUrl& link);
    void goHome();
    void showState();
    void search(QTextDocument::FindFlags flags);

    HelpContents* contents_;
    QTextBrowser* browser_;
    QLineEdit* searched_;
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
