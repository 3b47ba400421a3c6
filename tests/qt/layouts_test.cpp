// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <set>

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
#include "batch/extended_find.h"
#include "batch/find.h"
#include "batch/find_replace.h"
#include "batch/multi.h"
#include "batch/script_assistant.h"
#include "frame/main_frame.h"
#include "tests/qt/form_fixture.h"
#include "workbench/about.h"
#include "workbench/scratch_pad.h"

namespace kelvor::qt {
namespace {

/// What a screen reader says of a window's parts: all have names where the keyboard or it may come to them, and no text
/// has mark-up. A label's name is its text, a row of tabs has those of its tabs.
void checkSpeech(QAccessibleInterface& part, std::string place) {
    const QObject* widget = part.object();
    if (qobject_cast<const QTabBar*>(widget)) return;
    place += "/" + (widget ? widget->objectName() + " " + widget->metaObject()->className() : QString()).toStdString();
    const bool isReached = part.state().focusable || part.role() == QAccessible::ButtonMenu ||
                           part.role() == QAccessible::Button || part.role() == QAccessible::ButtonDropDown;
    EXPECT_TRUE(!isReached || qobject_cast<const QLabel*>(widget) || !part.text(QAccessible::Name).isEmpty())
        << place << " has no name";
    EXPECT_FALSE(part.text(QAccessible::Description).contains("</")) << place;
    for (int i = 0; i < part.childCount(); ++i)
        if (QAccessibleInterface* child = part.child(i)) checkSpeech(*child, place);
}

/// The names of the forms' layouts, each of them bound once. Making a window fails on a control without its widget, on
/// one of another class and on a widget left over.
template <typename... Forms>
std::set<std::string> bindEach(QtWindows& windows) {
    std::set<std::string> bound;
    const auto bindOne = [&](Form&& form) {
        EXPECT_NO_THROW(windows.create(form)) << form.name();
        QWidget& window = *windows.widgetOf(form);
        // The lists that drop down are made when somebody asks for them.
        for (const QComboBox* box : window.findChildren<QComboBox*>()) box->view();
        QCoreApplication::processEvents();
        checkSpeech(*QAccessible::queryAccessibleInterface(&window), form.name());
        windows.destroy(form);
        bound.insert(form.name() + ".ui");
    };
    (bindOne(Forms()), ...);
    return bound;
}

TEST_F(QtForms, EachLayoutFitsItsFormAndNamesItsParts) {
    const auto bound =
        bindEach<About, CaseChange, Convert, DateTimeDialog, EditWindow, ExtendedFind, Find, FindReplace,
                 FormatDocument, FormOpen, FormSelect, FormTextArea, FormTextBox, ImageAssistant, LinkManager, MDIForm1,
                 Multi, NameAnchorFile, NamedLinks, ScratchPad, ScriptAssistant, SpecialCharacterInsertion, TableWizard,
                 Tags, TemplateHolder, TextFormat>(platform_.windows());
    std::set<std::string> layouts;
    for (const auto& file : std::filesystem::directory_iterator(KELVOR_LAYOUTS)) layouts.insert(file.path().filename());
    EXPECT_EQ(bound, layouts) << "a layout without its form here";
}

}  // namespace
}  // namespace kelvor::qt
