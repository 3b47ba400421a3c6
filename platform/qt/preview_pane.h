#pragma once

#include <QUrl>
#include <QWidget>
#include <string>

class QLabel;
class QPushButton;
class QStackedLayout;

namespace kelvor::qt {

class Browser;

/// What stands in a document's window in preview: the page, or why there is none.
class PreviewPane : public QWidget {
public:
    explicit PreviewPane(QWidget& place);

    /// Loads the page anew, and the browser with it when it is the first page of all.
    /// @param address  a path, or a URL that begins with http://, https:// or file:
    void navigate(const std::string& address);

private:
    void load();
    void tell(const QString& message, bool canReload);

    QStackedLayout* layers_;
    QWidget* notice_;
    QLabel* message_;
    QPushButton* reload_;
    Browser* browser_ = nullptr;
    QUrl url_;
};

}  // namespace kelvor::qt
