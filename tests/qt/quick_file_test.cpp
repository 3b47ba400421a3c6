#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QSplitter>
#include <QTest>
#include <QToolButton>

#include "platform/directory_list.h"
#include "platform/drive_list.h"
#include "platform/file_list.h"
#include "platform/side_bar.h"
#include "tests/platform/scratch_directory.h"
#include "tests/qt/binding_fixture.h"

namespace kelvor::qt {
namespace {

QString textAt(const QListView& view, int row) {
    return view.model()->index(row, 0).data().toString();
}

QPoint placeOf(const QListView& view, int row) {
    return view.visualRect(view.model()->index(row, 0)).center();
}

class QuickFile : public Binding {
protected:
    QuickFile() { window_.resize(300, 700); }
    ScratchDirectory directory_;
};

TEST_F(QuickFile, VolumesAreReadWhenTheListOpensAndChosenBothWays) {
    auto& drives = make<DriveList>("Drive1");
    auto& box = add<QComboBox>("Drive1");
    count(drives.changed);
    bind();
    EXPECT_EQ(box.count(), 0);
    QTest::mousePress(&box, Qt::LeftButton);
    const int root = box.findText("/");
    ASSERT_GE(root, 0);
    EXPECT_EQ(box.count(), static_cast<int>(drives.list().size()));
    EXPECT_EQ(box.currentIndex(), -1);
    box.hidePopup();
    emit box.activated(root);
    EXPECT_EQ(drives.drive(), "/");
    EXPECT_EQ(box.currentText(), "/");
    EXPECT_EQ(told_, 1);
    EXPECT_THROW(drives.setDrive("/no/such/volume"), Error);
    EXPECT_EQ(box.currentText(), "/");
}

TEST_F(QuickFile, DirectoriesShowTheWayDownAndOpenByDoubleClickAndEnter) {
    std::filesystem::create_directories(directory_ / "one/inner");
    std::filesystem::create_directories(directory_ / "two");
    auto& list = make<DirectoryList>("Dir1");
    auto& view = add<QListView>("Dir1");
    count(list.changed);
    bind();
    letEventsRun();
    list.setPath(directory_.path());
    const int here = list.currentRow();
    ASSERT_EQ(view.model()->rowCount(), here + 3);
    EXPECT_EQ(textAt(view, 0), "/");
    EXPECT_EQ(textAt(view, here + 1), "one");
    EXPECT_EQ(view.currentIndex().row(), here);
    const auto bold = [&](int row) { return view.model()->index(row, 0).data(Qt::FontRole).value<QFont>().bold(); };
    EXPECT_TRUE(bold(here));
    EXPECT_FALSE(bold(here + 1));
    EXPECT_GT(view.sizeHintForIndex(view.model()->index(here + 1, 0)).width(),
              view.sizeHintForIndex(view.model()->index(0, 0)).width());

    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, placeOf(view, here + 1));
    EXPECT_EQ(told_, 1);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, placeOf(view, here + 1));
    EXPECT_EQ(list.path(), directory_ / "one");
    EXPECT_EQ(textAt(view, here + 2), "inner");
    EXPECT_EQ(view.currentIndex().row(), here + 1);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(told_, 2);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(list.path(), directory_.path());
    EXPECT_EQ(told_, 3);
}

class Files : public QuickFile {
protected:
    Files() {
        for (const char* name : {"a.htm", "b.htm", "c\xff.htm", "d.txt"}) directory_.write(name, "");
        files_.setPath(directory_.path());
        count(files_.doubleClicked);
        files_.keyUp.connect([this](int key) { keys_.push_back(key); });
        files_.mouseDown.connect([this](const MousePress& press) { buttons_.push_back(press.button); });
        bind();
        letEventsRun();
    }
    std::string selected() const {
        std::string marks;
        for (std::size_t i = 0; i < files_.list().size(); ++i) marks += files_.selected(i) ? 'x' : '-';
        return marks;
    }
    void press(int row, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view_.viewport(), button, modifiers, placeOf(view_, row));
        letEventsRun();
    }
    QModelIndexList chosen() const { return view_.selectionModel()->selectedIndexes(); }

    FileList& files_ = make<FileList>("File1");
    QListView& view_ = add<QListView>("File1");
    std::vector<int> keys_;
    std::vector<int> buttons_;
};

TEST_F(Files, SelectionGoesBothWays) {
    EXPECT_EQ(textAt(view_, 2), "c" + QString(QChar(0xfffd)) + ".htm");
    press(0, Qt::LeftButton);
    press(2, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(selected(), "x-x-");
    press(3, Qt::LeftButton);
    EXPECT_EQ(selected(), "---x");
    QTest::keyClick(&view_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected(), "xxxx");
    files_.setSelected(1, false);
    EXPECT_EQ(chosen().size(), 3);
    EXPECT_FALSE(chosen().contains(view_.model()->index(1, 0)));
    files_.setPattern("*.htm");
    EXPECT_EQ(view_.model()->rowCount(), 3);
    EXPECT_TRUE(chosen().isEmpty());
    files_.setSelected(2, true);
    EXPECT_EQ(chosen(), QModelIndexList{view_.model()->index(2, 0)});
    press(0, Qt::LeftButton);
    EXPECT_EQ(selected(), "x--");
}

TEST_F(Files, ADoubleClickIsToldWithItsFileAlone) {
    press(1, Qt::LeftButton);
    QTest::keyClick(&view_, Qt::Key_A, Qt::ControlModifier);
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, placeOf(view_, 1));
    EXPECT_EQ(told_, 1);
    EXPECT_EQ(selected(), "-x--");
    EXPECT_EQ(chosen().size(), 1);
}

TEST_F(Files, OnlyAKeyThatWentDownHereIsToldWhenItGoesUp) {
    view_.setFocus();
    QTest::keyRelease(&view_, Qt::Key_Return);
    EXPECT_TRUE(keys_.empty());
    QTest::keyClick(&view_, Qt::Key_Return);
    QTest::keyClick(&view_, Qt::Key_Down);
    EXPECT_EQ(keys_, (std::vector<int>{13, 40}));
}

TEST_F(Files, ARightPressIsToldWhenItsFileIsSelected) {
    std::string atPress;
    files_.mouseDown.connect([&](const MousePress&) { atPress = selected(); });
    press(1, Qt::RightButton);
    EXPECT_EQ(buttons_, std::vector<int>{MousePress::right});
    EXPECT_EQ(atPress, "-x--");
    press(2, Qt::LeftButton, Qt::ControlModifier);
    press(1, Qt::RightButton);
    EXPECT_EQ(atPress, "-xx-") << "a press on one of several leaves them selected";
}

TEST_F(Binding, ASideBarFollowsItsSideAndAsksToBeClosed) {
    auto& splitter = add<QSplitter>("workplace");
    auto& bar = *new QWidget;
    bar.setObjectName("CoolBar2");
    bar.setWindowTitle("Assistant");
    new QVBoxLayout(&bar);
    auto& documents = *new QWidget;
    splitter.addWidget(&bar);
    splitter.addWidget(&documents);
    auto& model = make<SideBar>("CoolBar2");
    count(model.closeClicked);
    bind();
    EXPECT_EQ(splitter.indexOf(&bar), 0);
    EXPECT_EQ(bar.findChild<QLabel*>()->text(), "Assistant");
    model.setAlign(SideBar::right);
    EXPECT_EQ(splitter.indexOf(&bar), 1);
    EXPECT_TRUE(bar.isVisible());
    model.setAlign(SideBar::left);
    EXPECT_EQ(splitter.indexOf(&documents), 1);
    QTest::mouseClick(bar.findChild<QToolButton*>(), Qt::LeftButton);
    EXPECT_EQ(told_, 1);
    EXPECT_TRUE(bar.isVisible()) << "the model decides";
    model.setVisible(false);
    EXPECT_FALSE(bar.isVisible());
}

}  // namespace
}  // namespace kelvor::qt
