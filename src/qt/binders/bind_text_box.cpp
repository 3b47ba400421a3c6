// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_box.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "qt/binders/binders.h"
#include "qt/binders/text_field.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// Keeps the keys away that the field does not take, and tells double clicks and the keys that do the same: those that
/// open a list elsewhere.
class FieldInput : public QObject {
public:
    FieldInput(TextBox& box, QLineEdit& widget, FormLink& link) : QObject(&link), box_(box), widget_(widget) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonDblClick)
            return static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && open();
        if (event->type() != QEvent::KeyPress) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool drops = key.key() == Qt::Key_Down && key.modifiers() == Qt::AltModifier;
        return drops || (key.key() == Qt::Key_F4 && key.modifiers() == Qt::NoModifier) ? open() : isForeign(key);
    }

private:
    /// Whether the key would change the text in a way that the field does not take.
    bool isForeign(const QKeyEvent& key) const {
        if (key.key() == Qt::Key_Backspace) return !box_.takesKey('\b');
        const QString text = key.text();
        return text.size() == 1 && text.front().isPrint() && !box_.takesKey(text.front().toLatin1());
    }

    /// Behind the event: what is opened by it may stay open.
    bool open() {
        if (!widget_.isEnabled() || !box_.doubleClicked.isConnected()) return false;
        QMetaObject::invokeMethod(
            this, [this] { guarded([this] { box_.doubleClick(); }); }, Qt::QueuedConnection);
        return true;
    }

    TextBox& box_;
    QLineEdit& widget_;
};

}  // namespace

void bindTextBox(TextBox& box, QLineEdit& widget, FormLink& link) {
    joinField(box, widget, link);
    link.follow(box, widget, [&box, &widget](Aspect aspect) {
        showField(box, widget, aspect);
        showBackColor(widget, box.backColor());
    });
    QObject::connect(&widget, &QLineEdit::textEdited, &link, [&box, &widget, &link](const QString& text) {
        link.perform([&] { box.type(fromQt(text)); }, [&] { showField(box, widget, Aspect::text); });
    });
    widget.installEventFilter(new FieldInput(box, widget, link));
}

}  // namespace kelvor::qt
