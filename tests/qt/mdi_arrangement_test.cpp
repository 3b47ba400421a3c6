#include "platform/qt/mdi_arrangement.h"

#include <gtest/gtest.h>

#include <QRegion>

namespace kelvor::qt {
namespace {

TEST(Tiles, CoverTheAreaWithoutOverlapInAnyNumber) {
    for (const QSize& area : {QSize(1100, 600), QSize(333, 257), QSize(50, 40)}) {
        for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
            for (const int count : {1, 2, 3, 5, 7, 12, 40}) {
                QRegion covered;
                int pixels = 0;
                const auto places = tiles(area, count, orientation);
                EXPECT_EQ(places.size(), static_cast<std::size_t>(count));
                for (const QRect& place : places) {
                    covered += place;
                    pixels += place.width() * place.height();
                }
                // As many pixels as the area has, and each of them covered: so none twice.
                EXPECT_EQ(pixels, area.width() * area.height()) << count;
                EXPECT_EQ(covered, QRegion(QRect({}, area))) << count;
            }
        }
    }
}

TEST(Tiles, AreWideBelowEachOtherOrTallSideBySide) {
    const QSize area(900, 600);
    EXPECT_EQ(tiles(area, 3, Qt::Horizontal)[1], QRect(0, 200, 900, 200));
    EXPECT_EQ(tiles(area, 3, Qt::Vertical)[1], QRect(300, 0, 300, 600));
    // Six would be too low to read: two columns of three.
    EXPECT_EQ(tiles(area, 6, Qt::Horizontal)[3], QRect(450, 0, 450, 200));
    EXPECT_EQ(tiles(area, 6, Qt::Vertical)[3], QRect(0, 300, 300, 300));
}

TEST(Cascade, StaysInsideTheAreaAndBeginsAnew) {
    const QSize area(900, 600);
    const auto places = cascade(area, 30, 30);
    ASSERT_EQ(places.size(), 30U);
    EXPECT_EQ(places[1].topLeft(), QPoint(30, 30));
    EXPECT_EQ(places[6].topLeft(), QPoint(0, 0));
    for (const QRect& place : places) EXPECT_TRUE(QRect({}, area).contains(place));
    EXPECT_EQ(cascade({10, 10}, 2, 30)[1], QRect(0, 0, 10, 10));
}

TEST(IconPlaces, FillRowsFromTheBottomUp) {
    const auto places = iconPlaces({500, 400}, 4, {200, 30});
    EXPECT_EQ(places[0].topLeft(), QPoint(0, 370));
    EXPECT_EQ(places[1].topLeft(), QPoint(200, 370));
    EXPECT_EQ(places[2].topLeft(), QPoint(0, 340));
    EXPECT_EQ(iconHeight({500, 400}, 4, {200, 30}), 60);
    EXPECT_EQ(iconHeight({500, 400}, 0, {}), 0);
}

}  // namespace
}  // namespace kelvor::qt
