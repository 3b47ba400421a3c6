#include "tests/qt/program_fixture.h"

#include <QAbstractScrollArea>

namespace kelvor {
namespace {

std::string allBytes() {
    std::string bytes;
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    return bytes;
}

TEST_F(Program, ChangesOnlyTheBytesThatWereTyped) {
    ASSERT_TRUE(started_);
    const std::string mixed = "caf\xE9 one\r\ntwo\nthree\rfour\x81\r\n";
    const std::string unix8 = "caf\xC3\xA9 \xE2\x82\xAC\nlast line";
    openByDialog(
        {files.write("latin.htm", mixed), files.write("utf.htm", unix8), files.write("bytes.bin", allBytes())});
    ASSERT_EQ(documentManager()->MyDocuments().Count(), 3U);

    press(Qt::Key_End, Qt::ControlModifier);
    type("end");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("bytes.bin"), allBytes() + "end");

    clickTab("latin.htm");
    type("x");
    press(Qt::Key_Right, Qt::ControlModifier);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    chooseInList("Combo1", 2);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("latin.htm"), "xcaf\xE9 <H2>one</H2>\r\ntwo\nthree\rfour\x81\r\n");

    clickTab("utf.htm");
    press(Qt::Key_End);
    press(Qt::Key_Return);
    type("new");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(files.read("utf.htm"), "caf\xC3\xA9 \xE2\x82\xAC\nnew\nlast line");
}

TEST_F(Program, ASaveWithoutAnEditGivesBackEveryByte) {
    ASSERT_TRUE(started_);
    const std::vector<std::string> samples = {"",
                                              "\xEF\xBB\xBF",
                                              "\xEF\xBB\xBF<P>\xEF\xBB\xBF",
                                              std::string("\xFF\xFE<\0\xE9\0\r\0\n\0", 10),
                                              std::string("\xFE\xFF\0<", 4),
                                              "\xFF\xFE<",
                                              "\xC3(\xA0\x80\r\r\n",
                                              allBytes() + allBytes()};
    std::vector<std::string> paths;
    for (std::size_t index = 0; index < samples.size(); ++index)
        paths.push_back(files.write("sample" + std::to_string(index), samples[index]));
    openByDialog(paths);
    ASSERT_EQ(documentManager()->MyDocuments().Count(), samples.size());
    for (const std::string& path : paths) std::remove(path.c_str());
    for (std::size_t index = samples.size(); index-- > 0;) {
        press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(files.read("sample" + std::to_string(index)), samples[index]) << "sample " << index;
        press(Qt::Key_Q, Qt::ControlModifier);
    }
}

TEST_F(Program, TheWindowsCloseBoxAsksAndStaysOnCancel) {
    ASSERT_TRUE(started_);
    const std::string path = files.write("a.htm", "old");
    openByDialog({path});
    type("new");
    QString asked;
    whenDialogOpens([&](QWidget& box) {
        auto& message = dynamic_cast<QMessageBox&>(box);
        asked = message.windowTitle() + "|" + message.text();
        EXPECT_EQ(message.icon(), QMessageBox::Question);
        EXPECT_EQ(message.defaultButton()->text(), message.button(QMessageBox::Yes)->text());
        message.button(QMessageBox::Cancel)->click();
    });
    window().close();
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(asked.toStdString().substr(0, 7), "Kelvor|");
    EXPECT_NE(asked.indexOf("The text in [" + QString::fromStdString(path) + "] has changed."), -1);
    whenDialogOpens([](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click(); });
    window().close();
    EXPECT_FALSE(mainForm().isLoaded());
    EXPECT_EQ(files.read("a.htm"), "newold");
}

TEST_F(Program, ClipboardChordsActOnce) {
    ASSERT_TRUE(started_);
    openByDialog({files.write("a.htm", "word")});
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_End);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "wordword");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "word");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "");
}

TEST_F(Program, TheRoadOfOneCommandLeadsFromASelectedWordToThePreview) {
    ASSERT_TRUE(started_);
    const std::string path = files.write("page.htm", "<P>one word</P>\r\n");
    openByDialog({path});
    press(Qt::Key_Right, Qt::ControlModifier);
    while (mainForm().activeForm().Text1.selStart() < 7) press(Qt::Key_Right);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(mainForm().activeForm().Text1.selText(), "word");

    // The popup menu's Format..., Bold, by its keys.
    QTimer::singleShot(50, [] {
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Right, Qt::Key_Up, Qt::Key_Up,
                                  Qt::Key_Up, Qt::Key_Return})
            QTest::keyClick(QApplication::activePopupWidget(), key);
    });
    QTest::mouseClick(dynamic_cast<QAbstractScrollArea&>(text()).viewport(), Qt::RightButton);
    QApplication::processEvents();
    EXPECT_EQ(mainForm().activeForm().Text1.text(), "<P>one <B>word</B></P>\r\n");
    EXPECT_EQ(mainForm().activeForm().Text1.selText(), "<B>word</B>");
    EXPECT_EQ(mainForm().StatusBar1.panelText(panel::saved), "File Saved: No");
    EXPECT_EQ(mainForm().StatusBar1.panelText(panel::characters), "Characters: 24 ");

    whenDialogOpens([](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click(); });
    QTest::keyClick(&window(), Qt::Key_V, Qt::AltModifier);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_P);
    EXPECT_EQ(files.read("page.htm"), "<P>one <B>word</B></P>\r\n");
    EXPECT_EQ(documentManager()->currentDocument().ViewMode(), view_mode::preview);
    EXPECT_FALSE(mainForm().menu("mnuEdit").visible());
}

}  // namespace
}  // namespace kelvor
