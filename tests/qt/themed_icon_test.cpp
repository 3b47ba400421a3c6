#include "platform/qt/themed_icon.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <set>

#include "core/toolbar_table.h"
#include "platform/qt/button_pictures.h"

namespace kelvor::qt {
namespace {

/// A test that may change the application's palette.
class ThemedIcons : public testing::Test {
protected:
    ~ThemedIcons() override { QGuiApplication::setPalette(before_); }

    static void setInks(const QColor& enabled, const QColor& disabled) {
        QPalette palette = QGuiApplication::palette();
        palette.setColor(QPalette::Active, QPalette::ButtonText, enabled);
        palette.setColor(QPalette::Inactive, QPalette::ButtonText, enabled);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, disabled);
        QGuiApplication::setPalette(palette);
    }

    /// The colours of the pixels that are wholly covered.
    static std::set<QString> colors(const QIcon& icon, QIcon::Mode mode = QIcon::Normal) {
        const QImage image = icon.pixmap(QSize(96, 96), 1.0, mode).toImage();
        std::set<QString> found;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (const QColor color = image.pixelColor(x, y); color.alpha() == 255) found.insert(color.name());
        return found;
    }

private:
    const QPalette before_ = QGuiApplication::palette();
};

TEST_F(ThemedIcons, TheInkIsThePalettesAlsoWhenItChanges) {
    const QIcon icon = buttonPicture("Bold");
    for (const char* ink : {"#101112", "#f0f1f2"}) {
        setInks(ink, "#777879");
        EXPECT_EQ(colors(icon), std::set<QString>{ink});
        EXPECT_EQ(colors(icon, QIcon::Disabled), std::set<QString>{"#777879"});
    }
}

TEST_F(ThemedIcons, OtherColoursStayAndAreGreyWhenDisabled) {
    setInks("#f0f1f2", "#777777");
    const QIcon icon = buttonPicture("Find");
    const auto enabled = colors(icon);
    EXPECT_TRUE(enabled.contains("#3584e4")) << "the handle of the glass";
    EXPECT_TRUE(enabled.contains("#f0f1f2"));
    for (const QString& name : colors(icon, QIcon::Disabled))
        EXPECT_EQ(QColor(name).saturation(), 0) << qPrintable(name);
}

TEST_F(ThemedIcons, FineScreensGetFinePixels) {
    const QPixmap fine = buttonPicture("Bold").pixmap(QSize(24, 24), 2.0);
    EXPECT_EQ(fine.size(), QSize(48, 48));
    EXPECT_EQ(fine.devicePixelRatio(), 2.0);
}

TEST_F(ThemedIcons, EveryButtonHasAPictureOfItsOwn) {
    for (const int size : {16, 24, 32}) {
        std::set<QByteArray> seen;
        std::size_t count = 0;
        for (const auto& buttons : {mainButtons(), helperButtons(), formButtons(), viewModeButtons()}) {
            for (const ToolBar::Button& button : buttons) {
                if (button.kind == ToolBar::ButtonKind::separator) continue;
                const QImage image = buttonPicture(button.key).pixmap(QSize(size, size), 1.0).toImage();
                ASSERT_EQ(image.size(), QSize(size, size)) << button.key;
                int covered = 0;
                for (int pixel = 0; pixel < size * size; ++pixel)
                    if (qAlpha(image.pixel(pixel % size, pixel / size)) > 127) ++covered;
                EXPECT_GT(covered, size) << button.key;
                seen.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
                ++count;
            }
        }
        EXPECT_EQ(seen.size(), count);
        EXPECT_EQ(count, 54U);
    }
    EXPECT_TRUE(buttonPicture("new").isNull());
}

}  // namespace
}  // namespace kelvor::qt
