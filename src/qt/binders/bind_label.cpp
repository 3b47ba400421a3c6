// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/label.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <functional>

#include "qt/binders/binders.h"
#include "qt/convert.h"
#include "qt/spoken_notice.h"

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
    // One that takes the keyboard shows it as a chosen row does.
    const bool focused = widget.hasFocus();
    widget.setBackgroundRole(focused ? QPalette::Highlight : QPalette::NoRole);
    widget.setForegroundRole(focused ? QPalette::HighlightedText : QPalette::NoRole);
    widget.setAutoFillBackground(focused || label.backColor() >= 0);
    widget.setPalette(palette);
}

/// Clicks and double clicks, and the keys that do the same on a label that takes the keyboard.
class LabelActs : public QObject {
public:
    LabelActs(Label& label, QLabel& widget, FormLink& link) : QObject(&link), label_(label), widget_(widget) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseButtonRelease:
                takeMouse(static_cast<QMouseEvent&>(*event));
                return false;
            case QEvent::KeyPress:
                return takeKey(static_cast<QKeyEvent&>(*event));
            case QEvent::FocusIn:
            case QEvent::FocusOut:
                showColors(label_, widget_);
                return false;
            default:
                return false;
        }
    }

private:
    /// The second press of a double click begins no other click.
    void takeMouse(const QMouseEvent& event) {
        if (event.button() != Qt::LeftButton) return;
        if (event.type() == QEvent::MouseButtonDblClick) act(&Label::doubleClick);
        const bool ends = event.type() == QEvent::MouseButtonRelease && pressed_;
        pressed_ = event.type() == QEvent::MouseButtonPress;
        if (ends && widget_.rect().contains(event.position().toPoint())) act(&Label::click);
    }

    bool takeKey(const QKeyEvent& event) {
        const int key = event.key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return false;
        if (!event.isAutoRepeat()) act(label_.clicked.isConnected() ? &Label::click : &Label::doubleClick);
        return true;
    }

    /// Behind the event: what is opened by it may stay open.
    void act(void (Label::*usersAct)()) {
        if (!widget_.isEnabled()) return;
        QMetaObject::invokeMethod(
            this, [this, usersAct] { guarded([this, usersAct] { std::invoke(usersAct, label_); }); },
            Qt::QueuedConnection);
    }

    Label& label_;
    QLabel& widget_;
    bool pressed_ = false;
};

}  // namespace

void bindLabel(Label& label, QLabel& widget, FormLink& link) {
    widget.setTextFormat(Qt::PlainText);
    if (label.isNotice()) makeNotice(widget);
    if (label.clicked.isConnected()) {
        widget.setFocusPolicy(Qt::StrongFocus);
        widget.setCursor(Qt::PointingHandCursor);
    }
    widget.installEventFilter(new LabelActs(label, widget, link));
    link.follow(label, widget, [&label, &widget](Aspect aspect) {
        widget.setText(shownText(label, widget.buddy() != nullptr));
        showColors(label, widget);
        // The widget says by itself that it is shown, and nothing of a new text while it is.
        if (label.isNotice() && aspect == Aspect::caption) sayAgain(widget);
    });
}

}  // namespace kelvor::qt
