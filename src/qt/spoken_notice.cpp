// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/spoken_notice.h"

#include <QAccessibleWidget>
#include <QLabel>

namespace kelvor::qt {

namespace {

constexpr const char* noticeProperty = "notice";

/// What a screen reader says of itself when it appears.
class Notice : public QAccessibleWidget {
public:
    explicit Notice(QLabel& label) : QAccessibleWidget(&label, QAccessible::Notification), label_(label) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? label_.text() : QAccessibleWidget::text(kind);
    }

private:
    const QLabel& label_;
};

QAccessibleInterface* noticeOf(const QString&, QObject* object) {
    auto* label = qobject_cast<QLabel*>(object);
    return label && label->property(noticeProperty).toBool() ? new Notice(*label) : nullptr;
}

}  // namespace

void makeNotice(QLabel& label) {
    QAccessible::installFactory(noticeOf);
    label.setProperty(noticeProperty, true);
}

void sayAgain(QLabel& notice) {
    if (!notice.isVisible()) return;
    QAccessibleEvent shown(&notice, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

}  // namespace kelvor::qt
