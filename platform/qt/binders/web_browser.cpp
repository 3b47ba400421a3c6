#include "platform/web_browser.h"

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

#include "platform/qt/binders/binders.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

void bindWebBrowser(WebBrowser& browser, QWidget& place, FormLink& link) {
    auto* notice = new QLabel(&place);
    notice->setTextFormat(Qt::PlainText);
    notice->setAlignment(Qt::AlignCenter);
    notice->setWordWrap(true);
    auto* layout = new QVBoxLayout(&place);
    layout->addWidget(notice);
    link.follow(browser, place, [&browser, notice](Aspect) {
        notice->setText(QStringLiteral("The page cannot be shown here.\n%1").arg(toQt(browser.address())));
    });
}

}  // namespace kelvor::qt
