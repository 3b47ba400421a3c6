#pragma once

#include <QWebEnginePage>
#include <memory>

namespace kelvor::qt {

class RequestGuard;

/// One page in preview, in a profile of its own that leaves nothing behind. What is in it may come from anywhere: it
/// is shown and run, and is refused whatever reaches beyond its pane.
class PreviewPage : public QWebEnginePage {
    Q_OBJECT
public:
    /// @param document  what will be loaded; the rules for all that follows depend on it
    PreviewPage(const QUrl& document, QWidget& view);
    ~PreviewPage() override;

signals:
    /// The page, or a click in it, wanted to go where the preview does not follow.
    void refused(const QUrl& url);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& standard, QString* result) override;

private:
    PreviewPage(QWebEngineProfile* profile, const QUrl& document, QWidget& view);
    void chooseSettings();
    void denyRequests();
    bool showDialog(const QString& text, bool canRefuse, QString* entry);

    QWidget& view_;
    std::unique_ptr<RequestGuard> guard_;
    bool silenced_ = false;  ///< the user wants no more of this page's messages
};

}  // namespace kelvor::qt
