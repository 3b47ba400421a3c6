#include "platform/label.h"

#include <QLabel>
#include <QMouseEvent>

#include "platform/qt/binders/binders.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

namespace {

/// The caption without the marks of its access key: "&" goes, of "&&" one stays.
QString withoutMarks(QString text) {
    for (auto at = text.indexOf(QLatin1Char('&')); at >= 0; at = text.indexOf(QLatin1Char('&'), at + 1))
        text.remove(at, 1);
    return text;
}

/// The widget knows access keys only where it has a field to lead to; elsewhere it shows each "&".
QString shownText(const Label& label, bool hasField) {
    QString caption = plainLines(label.caption());
    if (label.useMnemonic() == hasField) return caption;
    return hasField ? menuText(caption) : withoutMarks(caption);
}

void showColors(const Label& label, QLabel& widget) {
    QPalette palette;
    if (label.backColor() >= 0) palette.setColor(QPalette::Window, colorToQt(label.backColor()));
    if (label.foreColor() >= 0) {
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            palette.setColor(group, QPalette::WindowText, colorToQt(label.foreColor()));
    }
    widget.setAutoFillBackground(label.backColor() >= 0);
    widget.setPalette(palette);
}

class DoubleClicks : public QObject {
public:
    DoubleClicks(Label& label, FormLink& link) : QObject(&link), label_(label) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::MouseButtonDblClick) return false;
        const bool left = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        // Behind the event: what is opened by it may stay open.
        if (left && static_cast<QWidget*>(watched)->isEnabled())
            QMetaObject::invokeMethod(
                this, [this] { guarded([this] { label_.doubleClick(); }); }, Qt::QueuedConnection);
        return false;
    }

private:
    Label& label_;
};

}  // namespace

void bindLabel(Label& label, QLabel& widget, FormLink& link) {
    widget.setTextFormat(Qt::PlainText);
    widget.installEventFilter(new DoubleClicks(label, link));
    link.follow(label, widget, [&label, &widget](Aspect) {
        widget.setText(shownText(label, widget.buddy() != nullptr));
        showColors(label, widget);
    });
}

}  // namespace kelvor::qt
