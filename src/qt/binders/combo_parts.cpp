// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/binders/combo_parts.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QChildEvent>
#include <QComboBox>
#include <QLineEdit>

#include "qt/form_link.h"

namespace kelvor::qt {

namespace {

/// The list is made when somebody asks for it.
class PartNames : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::ChildPolished) return false;
        auto* part = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child());
        QWidget* named = qobject_cast<QLineEdit*>(part);
        if (part && !named) named = part->findChild<QAbstractItemView*>();
        if (named) named->setAccessibleName(QAccessible::queryAccessibleInterface(watched)->text(QAccessible::Name));
        return false;
    }
};

}  // namespace

void nameParts(QComboBox& box, FormLink& link) {
    box.installEventFilter(new PartNames(&link));
}

}  // namespace kelvor::qt
