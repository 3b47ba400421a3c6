#include "core/window_commands.h"

#include "core/document_manager.h"
#include "core/enablement.h"

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
    for (const auto& document : documentManager()->MyDocuments().items()) document->tabClicked();
    // Of several files opened at once the second one's tab is clicked before the command that opens them is done.
    enableMenuItems();
    const bool preview = documentManager()->currentDocument().ViewMode() == view_mode::preview;
    ControlFunctionForMode(preview ? view_mode::preview : view_mode::source);
}

}  // namespace kelvor
