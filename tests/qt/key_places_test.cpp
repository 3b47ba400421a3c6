// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/key_places.h"

#include "controls/button.h"
#include "controls/menu_item.h"
#include "controls/text_box.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

/// A window with a menu's shortcut, a button's access key and a field, and its keys by their places.
class KeyPlacesTest : public Binding {
protected:
    KeyPlacesTest() {
        auto& save = make<MenuItem>("mnuSave", nullptr);
        save.setShortcut("Ctrl+S");
        save.clicked.connect([this] { did_ += "save "; });
        pair<Button, QPushButton>("cmdPress", "&Press").model.clicked.connect([this] { did_ += "press "; });
        bind();
    }

    /// What a key does; what is typed into the field included.
    std::string press(int key, Qt::KeyboardModifiers modifiers, quint32 scanCode, const QString& text) {
        did_.clear();
        field_.clear();
        field_.setFocus();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, scanCode, 0, 0, text);
            QCoreApplication::sendEvent(window_.windowHandle(), &event);
        }
        return did_ + field_.text().toStdString();
    }

    KeyPlaces places_{nullptr};
    QLineEdit& field_ = pair<TextBox, QLineEdit>("txtField").widget;
    std::string did_;
};

TEST_F(KeyPlacesTest, ChordsGoByTheirPlaceWhereTheLettersAreOfAnotherScript) {
    constexpr quint32 placeOfS = 39;
    constexpr quint32 placeOfP = 33;
    QApplication::clipboard()->setText("pasted");
    const struct {
        char32_t key = 0;
        Qt::KeyboardModifiers modifiers;
        quint32 scanCode = 0;
        const char* does = nullptr;
    } rows[] = {
        {U'Ы', Qt::ControlModifier, placeOfS, "save "},
        {U'Σ', Qt::ControlModifier, placeOfS, "save "},
        {U'ד', Qt::ControlModifier, placeOfS, "save "},
        {U'З', Qt::AltModifier, placeOfP, "press "},
        {U'М', Qt::ControlModifier, 55, "pasted"},
        {U'Ы', Qt::ControlModifier, placeOfS + 1, ""},
        {U'Ы', Qt::ControlModifier | Qt::AltModifier, placeOfS, "ы"},
        {U'Ы', Qt::NoModifier, placeOfS, "ы"},
        // A Latin layout with other letters there: the chord is theirs.
        {U'É', Qt::ControlModifier, placeOfS, ""},
        {U'O', Qt::ControlModifier, placeOfS, ""},
        {U';', Qt::ControlModifier, placeOfS, ""},
    };
    for (const auto& row : rows) {
        const QString text = row.modifiers.testFlag(Qt::ControlModifier) != row.modifiers.testFlag(Qt::AltModifier)
                                 ? QString()
                                 : QString(QChar(row.key)).toLower();
        EXPECT_EQ(press(static_cast<int>(row.key), row.modifiers, row.scanCode, text), row.does)
            << static_cast<unsigned>(row.key) << " with " << row.modifiers;
    }
}

}  // namespace
}  // namespace kelvor::qt
