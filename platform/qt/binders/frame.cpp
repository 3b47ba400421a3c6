#include "platform/frame.h"

#include <QGroupBox>

#include "platform/qt/binders/binders.h"
#include "platform/qt/convert.h"

namespace kelvor::qt {

void bindFrame(Frame& frame, QGroupBox& widget, FormLink& link) {
    widget.setTitle(toQt(frame.caption()));
    link.follow(frame, widget, [](Aspect) {});
}

}  // namespace kelvor::qt
