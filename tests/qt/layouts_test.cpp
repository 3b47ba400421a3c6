// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <filesystem>
#include <set>

#include "assistants/format_document.h"
#include "assistants/link_manager.h"
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

/// Whether the keyboard or a screen reader may come to a part, whose name must then be told. A label's is its text, a
/// row of tabs has those of its tabs.
bool needsName(QAccessibleInterface& part) {
    constexpr QAccessible::Role buttons[] = {QAccessible::Button, QAccessible::ButtonMenu, QAccessible::ButtonDropDown};
    if (qobject_cast<QLabel*>(part.object())) return false;
    return part.state().focusable ||
           std::find(std::begin(buttons), std::end(buttons), part.role()) != std::end(buttons);
}

/// What a screen reader says of a window's parts: all have names, and no text has mark-up.
void checkSpeech(QAccessibleInterface& part, std::string place) {
    const QObject* widget = part.object();
    if (qobject_cast<const QTabBar*>(widget)) return;
    place += "/" + (widget ? widget->objectName() + " " + widget->metaObject()->className() : QString()).toStdString();
    EXPECT_FALSE(needsName(part) && part.text(QAccessible::Name).isEmpty()) << place << " has no name";
    EXPECT_FALSE(part.text(QAccessible::Description).contains("</")) << place;
    for (int i = 0; i < part.childCount(); ++i)
        if (QAccessibleInterface* child = part.child(i)) checkSpeech(*child, place);
}

class Layouts : public QtForms {
protected:
    /// Making the window fails on a control without its widget, on one of another class and on a widget left over.
    template <typename... Forms>
    void bindEach() {
        const auto bindOne = [this](Form&& form) {
            EXPECT_NO_THROW(platform_.windows().create(form)) << form.name();
            QWidget& window = *platform_.windows().widgetOf(form);
            // The lists that drop down are made when somebody asks for them.
            for (const QComboBox* box : window.findChildren<QComboBox*>()) box->view();
            letEventsRun();
            checkSpeech(*QAccessible::queryAccessibleInterface(&window), form.name());
            platform_.windows().destroy(form);
            bound_.insert(form.name() + ".ui");
        };
        (bindOne(Forms()), ...);
    }

    std::set<std::string> bound_;
};

TEST_F(Layouts, EachFitsItsFormAndNamesItsParts) {
    bindEach<About, CaseChange, Convert, DateTimeDialog, EditWindow, ExtendedFind, Find, FindReplace, FormatDocument,
             LinkManager, MDIForm1, Multi, NameAnchorFile, NamedLinks, ScratchPad, ScriptAssistant,
             SpecialCharacterInsertion, Tags, TemplateHolder, TextFormat>();
    std::set<std::string> layouts;
    for (const auto& file : std::filesystem::directory_iterator(KELVOR_LAYOUTS)) layouts.insert(file.path().filename());
    EXPECT_EQ(bound_, layouts) << "a layout without its form here";
}

}  // namespace
}  // namespace kelvor::qt
