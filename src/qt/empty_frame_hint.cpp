// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/empty_frame_hint.h"

#include <QEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace kelvor::qt {

EmptyFrameHint::EmptyFrameHint(QMdiArea& area)
    : QObject(&area),
      area_(area),
      label_(*new QLabel(QStringLiteral("Ctrl+N starts a new page.\n"
                                        "Ctrl+O opens a file, and so does a double click in Quick File."),
                         area.viewport())) {
    label_.setAlignment(Qt::AlignCenter);
    label_.setWordWrap(true);
    // The background's popup menu opens here as anywhere.
    label_.setAttribute(Qt::WA_TransparentForMouseEvents);
    area.viewport()->installEventFilter(this);
    place();
}

bool EmptyFrameHint::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
        case QEvent::Resize:
        case QEvent::ChildAdded:
        case QEvent::ChildRemoved:
            place();
            break;
        default:
            break;
    }
    return false;
}

void EmptyFrameHint::place() {
    const QWidget& background = *area_.viewport();
    label_.setGeometry(background.rect());
    label_.setVisible(background.findChild<QMdiSubWindow*>(QString(), Qt::FindDirectChildrenOnly) == nullptr);
}

}  // namespace kelvor::qt
