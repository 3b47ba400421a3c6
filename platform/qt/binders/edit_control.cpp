#include "platform/edit_control.h"

#include <QVBoxLayout>
#include <QWidget>

#include "platform/qt/binders/binders.h"
#include "platform/qt/key_states.h"
#include "platform/qt/scintilla_edit.h"

namespace kelvor::qt {

void bindEditControl(EditControl& edit, QWidget& place, FormLink& link) {
    link.follow(edit, place, [](Aspect) {});
    auto* surface = dynamic_cast<ScintillaEdit*>(&edit);
    if (!surface || !surface->widget()) return;
    QWidget* widget = surface->widget();
    widget->setAccessibleName(place.accessibleName());
    auto* layout = new QVBoxLayout(&place);
    layout->setContentsMargins({});
    layout->addWidget(widget);
    // Tab comes to it where it comes to the place, which it would reach last otherwise.
    place.setFocusPolicy(Qt::StrongFocus);
    QWidget::setTabOrder(&place, widget);
    place.setFocusProxy(widget);
    const auto tellOvertype = [surface] { keyStates().setOvertype(surface->overtype()); };
    surface->overtypeChanged.connect(tellOvertype);
    surface->gotFocus.connect(tellOvertype);
}

}  // namespace kelvor::qt
