// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/pictures.h"

#include <sys/stat.h>

#include <QImage>
#include <QScrollBar>

#include "controls/picture_box.h"
#include "controls/scroll_bar.h"
#include "tests/kit/scratch_directory.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

using namespace std::string_literals;

/// "WxH", or the error's number.
std::string loaded(const std::string& path) {
    try {
        const auto picture = loadPicture(path);
        return std::to_string(picture->width) + "x" + std::to_string(picture->height);
    } catch (const Error& error) {
        return std::to_string(error.number());
    }
}

/// A picture of one colour in a file of the kind that its name says.
std::string writePicture(const std::string& path, int width, int height, Qt::GlobalColor color) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(QString::fromStdString(path))) << path;
    return path;
}

TEST(Pictures, AreMeasuredAndAllElseIsRefused) {
    const ScratchDirectory files;
    const std::string gif = "GIF89a\2\0\3\0\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\2\0\3\0\0\2\3\x84\x8f\x05\0;"s;
    std::string empty = gif;
    for (const std::size_t side : {6, 8, 24, 26}) empty[side] = 0;
    const std::string png = writePicture(files / "a.png", 40, 30, Qt::red);
    const std::string svg = "http://www.w3.org/2000/svg";
    const std::string pipe = files / "pipe.gif";
    mkfifo(pipe.c_str(), 0600);
    const std::pair<std::string, std::string> rows[] = {
        {png, "40x30"},
        {writePicture(files / "b.bmp", 7, 5, Qt::red), "7x5"},
        {files.write("gif.jpg", gif), "2x3"},
        {files.write("a.svg", "<?xml-stylesheet type=\"text/css\" href=\"" + pipe + "\"?><svg xmlns=\"" + svg +
                                  "\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"6\" height=\"4\">" +
                                  "<image xlink:href=\"" + pipe + "\" width=\"1\" height=\"1\"/></svg>"),
         "6x4"},
        {files.write("cut.gif", gif.substr(0, 25)), "481"},
        {files.write("none.gif", empty), "481"},
        {files.write("void.gif", ""), "481"},
        {files / "missing.gif", "53"},
        {pipe, "75"},
        {std::string(files / "gif.jpg") + "/", "76"},
        {files / ".", "75"},
    };
    for (const auto& [path, outcome] : rows) EXPECT_EQ(loaded(path), outcome) << path;
}

TEST_F(Binding, ABoxIsAsLargeAsItsPictureAndStandsWhereItIsPut) {
    const ScratchDirectory files;
    const auto [frame, outer] = pair<PictureBox, QWidget>("picFrame");
    auto& box = make<PictureBox>("Picture1");
    auto& widget = *new QWidget(&outer);
    widget.setObjectName("Picture1");
    outer.setMinimumSize(200, 150);
    bind();
    EXPECT_EQ(QSize(frame.width(), frame.height()), outer.size());
    count(box.resized);
    for (const auto color : {Qt::red, Qt::blue}) {
        box.setPicture(loadPicture(writePicture(files / "a.png", 100, 80, color)));
        EXPECT_EQ(widget.size(), QSize(100, 80));
        EXPECT_EQ(widget.grab().toImage().pixelColor(99, 79), QColor(color));
    }
    EXPECT_EQ(told_, 2);
    box.setLeft(-50);
    EXPECT_EQ(widget.pos(), QPoint(-50, 0));
}

TEST_F(Binding, ABarScrollsBothWays) {
    const auto [bar, widget] = pair<ScrollBar, QScrollBar>("HScroll1");
    bind();
    count(bar.changed);
    bar.setMaximum(100);
    bar.setLargeChange(30);
    for (int press = 0; press < 2; ++press) QTest::keyClick(&widget, Qt::Key_PageDown);
    EXPECT_TRUE(bar.value() == 60 && told_ == 2) << bar.value();
    widget.setSliderDown(true);
    widget.setValue(90);
    EXPECT_TRUE(bar.value() == 90 && told_ == 2) << "a drag is told by another event";
    widget.setSliderDown(false);
    bar.setMaximum(40);
    EXPECT_TRUE(bar.value() + widget.value() == 80 && told_ == 3);
    bar.setMaximum(-5);
    EXPECT_EQ(bar.value() + widget.maximum(), 0);
    EXPECT_THROW(bar.setMaximum(32768), Error);
}

}  // namespace
}  // namespace kelvor::qt
