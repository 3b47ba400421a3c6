// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/shared_state.h"

#include "authoring/insert_lists.h"
#include "base/event.h"
#include "controls/form.h"
#include "core/document_manager.h"
#include "core/virtual_directories.h"
#include "editing/editor_colors.h"
#include "editing/htmlkeys.h"
#include "editing/insertion.h"
#include "frame/file_dialogs.h"
#include "frame/tool_forms.h"
#include "support/fields.h"
#include "support/settings.h"

namespace kelvor {

namespace {

void unloadForms() {
    // A form that ends another one in its unload leaves that alive to the end of this.
    const EventScope scope;
    const auto forms = loadedForms();
    for (Form* form : forms)
        if (form->kind() != Form::Kind::frame) form->unload();
}

}  // namespace

void resetSharedState() {
    endDocumentManager();
    endVDirs();
    // A form that unloads may store a setting and tell an error.
    unloadForms();
    closeSettings();
    resetToolForms();
    resetDeliveryTarget();
    htmlkeys::fileChords() = {};
    resetEditorColors();
    resetLastDir();
    resetUserStrings();
    resetFontList();
}

}  // namespace kelvor
