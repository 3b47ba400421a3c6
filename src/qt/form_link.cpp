// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/form_link.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QShortcutEvent>
#include <QStackedWidget>
#include <utility>

#include "controls/form.h"
#include "qt/convert.h"
#include "qt/input_lock.h"

namespace kelvor::qt {

namespace {

const QString linkName = QStringLiteral("formLink");

/// Brings a widget to the top of the stack that it stands in, itself or with the page around it.
void bringToTop(QWidget& widget) {
    for (QWidget* page = &widget; page->parentWidget(); page = page->parentWidget()) {
        if (auto* stack = qobject_cast<QStackedWidget*>(page->parentWidget())) {
            stack->setCurrentWidget(page);
            return;
        }
    }
    widget.raise();
}

bool takesLine(const QObject& watched) {
    const auto* list = qobject_cast<const QComboBox*>(&watched);
    return qobject_cast<const QLineEdit*>(&watched) || (list && list->isEditable());
}

/// Presses the button of an access key now. The toolkit would do so a tenth of a second later, when keys that were
/// pressed after it have had their effect.
bool press(QObject& watched, const QShortcutEvent& event) {
    auto* button = qobject_cast<QAbstractButton*>(&watched);
    if (!button || event.isAmbiguous()) return false;
    if (button->isCheckable()) button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
}

/// Whether the window becomes active after another form's. A message or a file dialog of its own, or another
/// program, that had the keyboard meanwhile does not count.
bool comesForward(QWidget& window) {
    static QPointer<QWidget> active;
    return std::exchange(active, &window) != &window;
}

}  // namespace

FormLink::FormLink(Form& form, QWidget& window) : QObject(&window), form_(form), window_(window) {
    setObjectName(linkName);
    window.installEventFilter(this);
    form.follow([this](Aspect aspect) { followForm(aspect); });
    followForm(Aspect::caption);
    followForm(Aspect::enabled);
}

FormLink::~FormLink() = default;

FormLink* FormLink::of(const QWidget& window) {
    return static_cast<FormLink*>(window.findChild<QObject*>(linkName, Qt::FindDirectChildrenOnly));
}

void FormLink::followForm(Aspect aspect) {
    switch (aspect) {
        case Aspect::caption:
            window_.setWindowTitle(windowTitle(form_.caption()));
            break;
        case Aspect::enabled:
            lock_ = form_.enabled() ? nullptr : std::make_unique<InputLock>(window_);
            break;
        case Aspect::focus:
            window_.activateWindow();
            break;
        default:
            break;
    }
}

void FormLink::follow(Control& control, QWidget& widget, std::function<void(Aspect)> show) {
    controls_.insert(&widget, &control);
    widget.installEventFilter(this);
    const auto follower = [&control, &widget, show = std::move(show)](Aspect aspect) {
        switch (aspect) {
            case Aspect::enabled:
                widget.setEnabled(control.enabled());
                break;
            case Aspect::visible:
                widget.setVisible(control.visible());
                break;
            case Aspect::toolTip:
                widget.setToolTip(toolTipText(control.toolTip()));
                // Otherwise a screen reader is given the tool tip, with its mark-up.
                widget.setAccessibleDescription(plainLines(control.toolTip()));
                break;
            case Aspect::focus:
                widget.setFocus();
                break;
            case Aspect::order:
                bringToTop(widget);
                break;
            default:
                show(aspect);
                break;
        }
    };
    if (!control.enabled()) follower(Aspect::enabled);
    if (control.visible() == widget.isHidden()) follower(Aspect::visible);
    if (!control.toolTip().empty()) follower(Aspect::toolTip);
    follower(Aspect::caption);
    control.follow(follower);
}

void FormLink::perform(const std::function<void()>& act, const std::function<void()>& show) {
    const QPointer<FormLink> alive(this);
    guarded(act);
    if (alive) show();
}

bool FormLink::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_) return filterWindow(*event);
    switch (event->type()) {
        case QEvent::FocusIn:
            // A menu of the control's own that closes gives back what it had not taken.
            if (static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason) return false;
            if (Control* control = controls_.value(watched)) control->gotFocus.raise();
            return false;
        case QEvent::Shortcut:
            return press(*watched, static_cast<QShortcutEvent&>(*event));
        case QEvent::KeyPress: {
            // A field would type the letter of an access key that the form does not have.
            const auto& key = static_cast<QKeyEvent&>(*event);
            if (key.modifiers() != Qt::AltModifier || key.text().isEmpty() || !takesLine(*watched)) return false;
            event->ignore();
            return true;
        }
        case QEvent::Wheel:
            // A turn over a list passes it by on the way through the window; it would choose rows.
            if (!qobject_cast<QComboBox*>(watched) || static_cast<QWidget*>(watched)->hasFocus()) return false;
            event->ignore();
            return true;
        default:
            return false;
    }
}

bool FormLink::filterWindow(QEvent& event) {
    Form& form = form_;
    switch (event.type()) {
        case QEvent::Close:
            event.ignore();
            if (form.enabled()) guarded([&form] { form.unload(); });
            return true;
        case QEvent::KeyPress:
            if (!qobject_cast<QDialog*>(&window_) || !static_cast<QKeyEvent&>(event).matches(QKeySequence::Cancel))
                return false;
            guarded([&form] { form.unload(); });
            return true;
        case QEvent::Resize:
            form.resized.raise();
            return false;
        case QEvent::WindowActivate:
            if (form.kind() != Form::Kind::child && comesForward(window_)) form.activated.raise();
            return false;
        default:
            return false;
    }
}

}  // namespace kelvor::qt
