// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tool_bar.h"

#include <set>

#include "controls/key_press.h"
#include "controls/text_box.h"
#include "qt/button_pictures.h"
#include "qt/colors.h"
#include "qt/style.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

class Bar : public Binding {
protected:
    Bar() {
        bar_.buttonClicked.connect([this](std::string_view key) { clicked_ += std::string(key) + " "; });
        bar_.entryChosen.connect([this](std::string_view entry) { clicked_ += "entry " + std::string(entry); });
        bar_.mouseDown.connect([this](const MousePress& press) { presses_.push_back(press); });
        bind();
    }

    QToolButton& face(const char* key) {
        return *qobject_cast<QToolButton*>(widget_.widgetForAction(&found<QAction>(key)));
    }
    /// Presses in the middle of a button, on its picture.
    void press(const char* key, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&face(key), button, {}, {8, 8});
        letEventsRun();
    }

    using Kind = ToolBar::ButtonKind;
    ToolBar& bar_ = make<ToolBar>(
        "Toolbar1", std::vector<ToolBar::Button>{
                        {"New", ""}, {"Tags", "", Kind::toggle}, {"color", "", Kind::dropDown, {{"red", "a&b"}}}});
    QToolBar& widget_ = add<QToolBar>("Toolbar1");
    QLineEdit& field_ = pair<TextBox, QLineEdit>("txtField").widget;
    std::string clicked_;
    std::vector<MousePress> presses_;
};

TEST_F(Bar, APressIsTheModelsAndTakesNoFocusAndMayUnbindItsForm) {
    press("color");
    bar_.setEnabled(false);
    press("New");
    bar_.setEnabled(true);
    EXPECT_EQ(clicked_, "color ");
    press("New");
    const auto rows = face("color").menu()->actions();
    EXPECT_EQ(rows[0]->text(), "a&&b");
    rows[0]->trigger();
    EXPECT_EQ(clicked_, "color New entry red");
    EXPECT_TRUE(field_.hasFocus());
    for (const bool down : {false, true}) {
        bar_.setValue("Tags", down);
        press("Tags");
        EXPECT_EQ(face("Tags").isChecked(), down) << "the model says so";
    }
    bar_.buttonClicked.connect([this](std::string_view) { unbindForm(form_, window_); });
    press("Tags");
}

TEST_F(Bar, MousePressesAreToldOnButtonsDisabledOnesAndBetween) {
    bar_.setButtonEnabled("New", false);
    press("New", Qt::RightButton);
    press("Tags");
    QTest::mouseClick(&widget_, Qt::RightButton, Qt::ControlModifier, {widget_.width() - 2, 3});
    letEventsRun();
    ASSERT_EQ(presses_.size(), 3U);
    EXPECT_TRUE(presses_[0].button == MousePress::right && presses_[0].x == face("New").x() + 8);
    EXPECT_TRUE(presses_[1].button == MousePress::left && presses_[2].shift == modifier::ctrl);
}

TEST(Pictures, HaveThePalettesInkAndAreGreyWhenDisabled) {
    // The colours of the pixels that are wholly covered.
    const auto colors = [](const char* picture, QIcon::Mode mode) {
        const QImage image = buttonPicture(picture).pixmap(QSize(48, 48), 2.0, mode).toImage();
        EXPECT_EQ(image.size(), QSize(96, 96)) << "fine screens get fine pixels";
        std::set<QString> found;
        for (int pixel = 0; pixel < image.width() * image.height(); ++pixel) {
            const QColor color = image.pixelColor(pixel % image.width(), pixel / image.width());
            if (color.alpha() == 255) found.insert(color.name());
        }
        return found;
    };
    for (const char* ink : {"#101112", "#f0f1f2"}) {
        QPalette palette;
        palette.setColor(QPalette::All, QPalette::ButtonText, QColor(ink));
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, "#777777");
        QApplication::setPalette(palette);
        EXPECT_EQ(colors("Bold", QIcon::Normal), std::set<QString>{ink});
        EXPECT_EQ(colors("Bold", QIcon::Disabled), std::set<QString>{"#777777"});
        EXPECT_TRUE(colors("Find", QIcon::Normal).contains("#3584e4")) << "the handle of the glass";
        for (const QString& name : colors("Find", QIcon::Disabled)) EXPECT_EQ(QColor(name).saturation(), 0);
    }
    QApplication::setPalette({});
}

/// One control of the desktop's style, 16 by 16, drawn in a window.
QImage drawn(const QStyle& style, QStyle::PrimitiveElement element, const QPalette& palette) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QStyleOptionFrame option;
    option.palette = palette;
    option.rect = image.rect();
    option.lineWidth = 1;
    option.state = QStyle::State_Enabled;
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter);
    return image;
}

TEST(Style, LetsDisabledTextsBeReadInHighContrastAndOutlinesFieldsOnDarkWindows) {
    const struct {
        QColor text;
        QColor window;
        QColor field;
        double least = 0, most = 0;  ///< contrast of a disabled text
        double outline = 0;          ///< contrast of a frame at most; 0: as the desktop's style draws it
    } rows[] = {{"#eff0f1", "#31363b", "#232629", 1, 1.2, 5.5}, {"#c0c0c0", "#1e1e1e", "#2d2d2d", 1, 1.2, 5.5},
                {Qt::white, Qt::black, Qt::black, 4.5, 6, 21},  {Qt::yellow, Qt::black, Qt::black, 4.5, 6, 21},
                {Qt::black, Qt::white, Qt::white, 4.5, 6, 21},  {Qt::black, "#efefef", Qt::white, 1, 1.2, 0}};
    for (const auto& [text, window, field, least, most, outline] : rows) {
        SCOPED_TRACE(fromQt(text.name() + window.name()));
        QPalette palette(text, window, window, window, window, text, text, field, window);
        for (const auto element : {QStyle::PE_FrameLineEdit, QStyle::PE_IndicatorCheckBox}) {
            const QImage image = drawn(Style(), element, palette);
            const double edge = contrast(image.pixelColor(0, image.height() / 2), window);
            EXPECT_TRUE(outline == 0 ? image == drawn(QProxyStyle(), element, palette) : edge >= 3 && edge <= outline)
                << edge;
        }
        palette.setColor(QPalette::Disabled, QPalette::WindowText, window);
        palette.setColor(QPalette::PlaceholderText, field);
        Style().polish(palette);
        const double shown = contrast(palette.color(QPalette::Disabled, QPalette::WindowText), window);
        EXPECT_TRUE(shown >= least && shown <= most) << shown;
        EXPECT_TRUE(isReadable(palette.color(QPalette::PlaceholderText), field));
    }
}

}  // namespace
}  // namespace kelvor::qt
