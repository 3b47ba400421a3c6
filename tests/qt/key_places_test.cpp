// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/key_places.h"

#include "controls/button.h"
#include "controls/menu_item.h"
#include "controls/text_box.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

TEST_F(Binding, ChordsGoByTheirPlaceWhereTheLettersAreOfAnotherScript) {
    const KeyPlaces places(nullptr);
    QLineEdit& field = pair<TextBox, QLineEdit>("txtField").widget;
    std::string did;
    auto& save = make<MenuItem>("mnuSave", nullptr);
    save.setShortcut("Ctrl+S");
    save.clicked.connect([&] { did += "save "; });
    pair<Button, QPushButton>("cmdPress", "&Press").model.clicked.connect([&] { did += "press "; });
    bind();
    QApplication::clipboard()->setText("pasted");
    constexpr quint32 placeOfS = 39, placeOfP = 33, placeOfV = 55;
    const struct {
        char32_t key = 0;
        Qt::KeyboardModifiers modifiers;
        quint32 scanCode = 0;
        const char* does = nullptr;  ///< what is typed into the field included
    } rows[] = {
        {U'Ы', Qt::ControlModifier, placeOfS, "save "},
        {U'З', Qt::AltModifier, placeOfP, "press "},
        {U'М', Qt::ControlModifier, placeOfV, "pasted"},
        {U'Ы', Qt::ControlModifier, placeOfS + 1, ""},
        {U'Ы', Qt::ControlModifier | Qt::AltModifier, placeOfS, "ы"},
        {U'Ы', Qt::NoModifier, placeOfS, "ы"},
        // A Latin layout with other letters there: the chord is theirs.
        {U'É', Qt::ControlModifier, placeOfS, ""},
        {U';', Qt::ControlModifier, placeOfS, ""},
    };
    for (const auto& [key, modifiers, scanCode, does] : rows) {
        did.clear();
        field.clear();
        field.setFocus();
        const bool isTyped = modifiers.testFlag(Qt::ControlModifier) == modifiers.testFlag(Qt::AltModifier);
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, static_cast<int>(key), modifiers, scanCode, 0, 0,
                            isTyped ? QString(QChar(key)).toLower() : QString());
            QCoreApplication::sendEvent(window_.windowHandle(), &event);
        }
        EXPECT_EQ(did + fromQt(field.text()), does) << static_cast<unsigned>(key) << " with " << modifiers;
    }
}

}  // namespace
}  // namespace kelvor::qt
