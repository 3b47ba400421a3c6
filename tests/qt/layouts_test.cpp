#include <filesystem>
#include <set>

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
#include "support/about.h"
#include "support/scratch_pad.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

class Layouts : public QtForms {
protected:
    /// Making the window fails on a control without its widget, on one of another class and on a widget left over.
    template <typename... Forms>
    void bindEach() {
        const auto bindOne = [this](Form&& form) {
            EXPECT_NO_THROW(platform_.windows().create(form)) << form.name();
            platform_.windows().destroy(form);
            bound_.insert(form.name() + ".ui");
        };
        (bindOne(Forms()), ...);
    }

    /// These two are bound wherever a test starts the program.
    std::set<std::string> bound_{"MDIForm1.ui", "editWindow.ui"};
};

TEST_F(Layouts, EachFitsItsForm) {
    bindEach<About, CaseChange, Convert, DateTimeDialog, ExtendedFind, Find, FindReplace, Multi, NameAnchorFile,
             NamedLinks, ScratchPad, SpecialCharacterInsertion, Tags, TemplateHolder, TextFormat>();
    std::set<std::string> layouts;
    for (const auto& file : std::filesystem::directory_iterator(KELVOR_LAYOUTS)) layouts.insert(file.path().filename());
    EXPECT_EQ(bound_, layouts) << "a layout without its form here";
}

}  // namespace
}  // namespace kelvor::qt
