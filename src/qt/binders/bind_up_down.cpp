// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/up_down.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/text_box.h"
#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

constexpr int arrowWidth = 18;  // pixels

void addArrow(UpDown& upDown, QWidget& place, FormLink& link, Qt::ArrowType arrow, void (UpDown::*step)()) {
    auto* button = new QToolButton(&place);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    // The field keeps the keyboard; its own keys step too.
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedWidth(arrowWidth);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    button->setAccessibleName(arrow == Qt::UpArrow ? QStringLiteral("More") : QStringLiteral("Less"));
    QObject::connect(button, &QToolButton::clicked, &link, [&upDown, step] { guarded([&] { (upDown.*step)(); }); });
    place.layout()->addWidget(button);
}

/// The up and down keys in the field.
class FieldSteps : public QObject {
public:
    FieldSteps(UpDown& upDown, FormLink& link) : QObject(&link), upDown_(upDown) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.modifiers() & ~Qt::KeypadModifier) return false;
        if (key.key() != Qt::Key_Up && key.key() != Qt::Key_Down) return false;
        guarded([&] { key.key() == Qt::Key_Up ? upDown_.stepUp() : upDown_.stepDown(); });
        return true;
    }

private:
    UpDown& upDown_;
};

}  // namespace

void bindUpDown(UpDown& upDown, QWidget& place, FormLink& link) {
    auto* layout = new QVBoxLayout(&place);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addArrow(upDown, place, link, Qt::UpArrow, &UpDown::stepUp);
    addArrow(upDown, place, link, Qt::DownArrow, &UpDown::stepDown);
    link.follow(upDown, place, [](Aspect) {});
    auto* field = place.window()->findChild<QWidget*>(toQt(upDown.buddy().name()));
    if (!field) return;
    field->installEventFilter(new FieldSteps(upDown, link));
    // Otherwise a screen reader is given the title of the frame that the arrows stand in.
    place.setAccessibleName(QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name));
}

}  // namespace kelvor::qt
