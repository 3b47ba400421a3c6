// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/window_commands.h"

#include "controls/mdi_area.h"
#include "core/document_manager.h"
#include "frame/main_frame.h"

namespace kelvor {

void mnuWindow_Cascade_Click() {
    mainForm().mdi.arrange(MdiArea::Arrangement::cascade);
}

void mnuWindow_TileH_Click() {
    mainForm().mdi.arrange(MdiArea::Arrangement::tileHorizontally);
}

void mnuWindow_TileV_Click() {
    mainForm().mdi.arrange(MdiArea::Arrangement::tileVertically);
}

void mnuWindow_ArrangeIcons_Click() {
    mainForm().mdi.arrange(MdiArea::Arrangement::icons);
}

void nextMdiWindow() {
    mainForm().mdi.activateNext();
}

void previousMdiWindow() {
    mainForm().mdi.activatePrevious();
}

void TabStrip1_Click() {
    mainForm().mdi.show(documentManager().currentDocument().SourceForm());
}

}  // namespace kelvor
