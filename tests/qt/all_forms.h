// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "assistants/form_open.h"
#include "assistants/form_select.h"
#include "assistants/form_text_area.h"
#include "assistants/form_text_box.h"
#include "assistants/format_document.h"
#include "assistants/image_assistant.h"
#include "assistants/link_manager.h"
#include "assistants/table_wizard.h"
#include "assistants/template_holder.h"
#include "authoring/convert.h"
#include "authoring/date_time.h"
#include "authoring/name_anchor_file.h"
#include "authoring/named_links.h"
#include "authoring/special_character_insertion.h"
#include "authoring/tags.h"
#include "authoring/text_format.h"
#include "batch/case_change.h"
#include "batch/dry_run.h"
#include "batch/extended_find.h"
#include "batch/find.h"
#include "batch/find_replace.h"
#include "batch/multi.h"
#include "batch/script_assistant.h"
#include "batch/take_back.h"
#include "core/compare.h"
#include "core/look.h"
#include "core/save_over.h"
#include "frame/main_frame.h"
#include "workbench/about.h"
#include "workbench/add_browser.h"
#include "workbench/add_string.h"
#include "workbench/file_versions.h"
#include "workbench/preferences.h"
#include "workbench/recovered_texts.h"
#include "workbench/scratch_pad.h"

namespace kelvor::qt {

template <typename... Forms>
struct FormList {
    /// Hands a new form of each class to `visit`.
    template <typename Visit>
    static void forEach(const Visit& visit) {
        (visit(Forms()), ...);
    }
};

/// Each form that has a layout.
using AllForms = FormList<About, AddBrowser, AddString, Preferences, CaseChange, Compare, Convert, DateTimeDialog,
                          DryRun, EditWindow, ExtendedFind, Find, FileVersions, FindReplace, FormatDocument, FormOpen,
                          FormSelect, FormTextArea, FormTextBox, ImageAssistant, LinkManager, Look, MDIForm1, Multi,
                          NameAnchorFile, NamedLinks, RecoveredTexts, SaveOver, ScratchPad, ScriptAssistant,
                          SpecialCharacterInsertion, TableWizard, Tags, TakeBack, TemplateHolder, TextFormat>;

}  // namespace kelvor::qt
