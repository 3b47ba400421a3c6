// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <set>

#include "tests/qt/all_forms.h"
#include "tests/qt/form_fixture.h"

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
    const auto* label = qobject_cast<const QLabel*>(widget);
    EXPECT_TRUE(label ? label->accessibleName().isEmpty() : !isReached || !part.text(QAccessible::Name).isEmpty())
        << place << " has no name, or says another text than it shows";
    EXPECT_FALSE(part.text(QAccessible::Description).contains("</")) << place;
    for (int i = 0; i < part.childCount(); ++i)
        if (QAccessibleInterface* child = part.child(i)) checkSpeech(*child, place);
}

TEST_F(QtForms, EachLayoutFitsItsFormAndNamesItsParts) {
    std::set<std::string> bound;
    AllForms::forEach([&](Form&& form) {
        // Fails on a control without its widget, on one of another class and on a widget left over.
        EXPECT_NO_THROW(platform_.windows().create(form)) << form.name();
        QWidget& window = *platform_.windows().widgetOf(form);
        // The lists that drop down are made when somebody asks for them.
        for (const QComboBox* box : window.findChildren<QComboBox*>()) box->view();
        letEventsRun();
        checkSpeech(*QAccessible::queryAccessibleInterface(&window), form.name());
        platform_.windows().destroy(form);
        bound.insert(form.name() + ".ui");
    });
    std::set<std::string> layouts;
    for (const auto& file : std::filesystem::directory_iterator(KELVOR_LAYOUTS)) layouts.insert(file.path().filename());
    EXPECT_EQ(bound, layouts) << "a layout without its form here";
}

}  // namespace
}  // namespace kelvor::qt
