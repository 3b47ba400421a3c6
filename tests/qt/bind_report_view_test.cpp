// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSignalSpy>
#include <cstdlib>
#include <set>

#include "controls/directory_list.h"
#include "controls/drive_list.h"
#include "controls/file_list.h"
#include "controls/report_view.h"
#include "controls/side_bar.h"
#include "qt/colors.h"
#include "qt/popup_place.h"
#include "qt/themed_icon.h"
#include "tests/kit/scratch_directory.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

using Rows = std::vector<int>;

QPoint placeOf(const QAbstractItemView& view, int row) {
    return view.visualRect(view.model()->index(row, 0)).center();
}

void press(const QAbstractItemView& view, QPoint place, Qt::MouseButton button = Qt::LeftButton,
           Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(view.viewport(), button, modifiers, place);
    QCoreApplication::processEvents();
}

std::string textAt(const QAbstractItemView& view, int row, int column = 0) {
    return fromQt(view.model()->index(row, column).data().toString());
}

class Reports : public Binding {
protected:
    Reports() {
        list_.setMultiSelect(true);
        list_.setIcons({"ok", "warning"});
        bind();
        window_.resize(600, 400);
        letEventsRun();
    }

    /// "page9", "page8" and so on, with the numbers of their rows.
    void addPages(int count) {
        std::vector<ReportView::Row> rows;
        for (int row = 0; row < count; ++row)
            rows.push_back({{"page" + std::to_string(count - row), std::to_string(row)}});
        list_.addRows(rows);
    }
    /// The numbers of the selected rows, on which the control and the view must agree.
    Rows selected() {
        letEventsRun();
        Rows rows;
        for (int row = 0; row < static_cast<int>(list_.count()); ++row) {
            EXPECT_EQ(view_.selectionModel()->isRowSelected(row), list_.isSelected(row)) << row;
            if (list_.isSelected(row)) rows.push_back(row);
        }
        return rows;
    }

    ReportView& list_ = make<ReportView>("ListView1", std::vector<std::string>{"Filename", "Total"});
    QTreeView& view_ = add<QTreeView>("ListView1");
};

TEST_F(Reports, RowsColumnsAndIconsFollowTheControl) {
    list_.addRows({{{"a\r\nb", "1"}, 2}, {{"c"}}});
    EXPECT_EQ(view_.model()->headerData(1, Qt::Horizontal).toString(), "Total");
    EXPECT_EQ(textAt(view_, 0) + textAt(view_, 0, 1) + textAt(view_, 1) + textAt(view_, 1, 1), R"(a\r\nb1c)");
    const auto picture = [this](int row) {
        return view_.model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>().pixmap(16, 16).toImage();
    };
    EXPECT_EQ(picture(0), themedIcon(QStringLiteral(":/rows/warning.svg")).pixmap(16, 16).toImage());
    EXPECT_TRUE(picture(1).isNull());
    list_.setRightAligned(1);
    const auto isRight = [](const QVariant& role) { return role.value<Qt::Alignment>().testFlag(Qt::AlignRight); };
    EXPECT_TRUE(isRight(view_.model()->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole)));
    EXPECT_TRUE(isRight(view_.model()->index(0, 1).data(Qt::TextAlignmentRole)));
    EXPECT_FALSE(isRight(view_.model()->index(0, 0).data(Qt::TextAlignmentRole)));
    list_.setCell(1, 1, "7");
    list_.removeRow(0);
    EXPECT_EQ(textAt(view_, 0) + textAt(view_, 0, 1), "c7");
}

TEST_F(Reports, TheChoiceGoesBothWaysAndIsScrolledToAndSorted) {
    view_.clearFocus();
    addPages(500);
    list_.setSelectedRow(0);
    list_.SetFocus();
    EXPECT_EQ(selected(), Rows{0}) << "the focus alone chooses nothing";
    press(view_, placeOf(view_, 3));
    view_.setFocus();
    pressKey(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (Rows{2, 3}));
    EXPECT_EQ(list_.selectedRow(), 2);
    list_.setSelectedRow(400);
    EXPECT_EQ(selected(), Rows{400});
    EXPECT_TRUE(view_.viewport()->rect().contains(placeOf(view_, 400)));
    list_.setSelected(2, true);
    list_.removeRow(0);
    EXPECT_EQ(selected(), (Rows{1, 399}));
    list_.columnClicked.connect([this](int column) { list_.sortBy(column, true); });
    QTest::mouseClick(view_.header()->viewport(), Qt::LeftButton, {}, {20, 5});
    EXPECT_EQ(textAt(view_, 0) + textAt(view_, 1), "page1page10");
    EXPECT_TRUE(selected().size() == 2 && view_.verticalScrollBar()->value() == 0);
}

TEST_F(Reports, ANewCurrentRowIsToldOnceAndOneFromAfarStandsInTheMiddle) {
    addPages(500);
    count(list_.chosen);
    for (int times = 0; times < 2; ++times) list_.setSelectedRow(400);
    EXPECT_EQ(selected(), Rows{400});
    EXPECT_EQ(told_, 1);
    const int middle = view_.viewport()->height() / 2;
    EXPECT_LE(std::abs(placeOf(view_, 400).y() - middle), view_.visualRect(view_.currentIndex()).height());
    press(view_, placeOf(view_, 402));
    EXPECT_GT(told_, 1);
    EXPECT_EQ(list_.selectedRow(), 402);
}

TEST_F(Reports, MarkedRowsHaveColoursOnWhichTheirTextsCanBeRead) {
    using enum ReportView::Tint;
    for (const auto tint : {none, added, removed, changed}) list_.addRows({{.cells = {"text"}, .tint = tint}});
    QTest::qWait(100);
    for (const auto& [text, base] : {std::pair(QColor(Qt::black), QColor(Qt::white)),
                                     {Qt::white, Qt::black},
                                     {QColor(0xEFF0F1), QColor(0x232629)}}) {
        QPalette palette;
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::Base, base);
        view_.setPalette(palette);
        const QImage shown = view_.viewport()->grab().toImage();
        std::set<QRgb> colors;
        for (int row = 0; row < 4; ++row) {
            const QColor color = shown.pixelColor(view_.viewport()->width() - 3, placeOf(view_, row).y());
            EXPECT_GE(contrast(text, color), 7) << row;
            EXPECT_TRUE(colors.insert(color.rgb()).second) << row;
        }
    }
}

TEST_F(Reports, PressesAreToldAndARightOneBesideTheRowsKeepsTheChoice) {
    addPages(3);
    list_.setSelectedRow(1);
    letEventsRun();
    std::string buttons;
    QPoint popup;
    list_.mouseDown.connect([&](const MousePress& press) {
        buttons += press.button == MousePress::right ? 'R' : 'L';
        popup = PopupPlace::take();
    });
    count(list_.doubleClicked);
    press(view_, {20, view_.viewport()->height() - 5}, Qt::RightButton);
    EXPECT_EQ(list_.selectedRow(), 1);
    EXPECT_EQ(popup, QCursor::pos());
    QTest::keyClick(&view_, Qt::Key_F10, Qt::ShiftModifier);
    letEventsRun();
    EXPECT_EQ(popup, view_.viewport()->mapToGlobal(view_.visualRect(view_.model()->index(1, 0)).bottomLeft()));
    for (const auto button : {Qt::MiddleButton, Qt::LeftButton}) press(view_, placeOf(view_, 2), button);
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, placeOf(view_, 2));
    EXPECT_EQ(selected(), Rows{2});
    EXPECT_EQ(buttons + std::to_string(told_), "RRL1");
}

TEST_F(Reports, ReturnOverSelectedRowsIsTheListsWhenItHearsIt) {
    auto& button = add<QPushButton>("cmdBegin");
    button.setDefault(true);
    const QSignalSpy presses(&button, &QPushButton::clicked);
    addPages(2);
    const auto enterOver = [&](int row) {
        list_.setSelectedRow(row);
        letEventsRun();
        view_.setFocus();
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) pressKey(key);
        return Rows{told_, static_cast<int>(presses.count())};
    };
    EXPECT_EQ(enterOver(0), (Rows{0, 2}));
    count(list_.returnPressed);
    EXPECT_EQ(enterOver(0), (Rows{2, 2}));
    EXPECT_EQ(enterOver(-1), (Rows{2, 4}));
}

TEST_F(Reports, ColumnsHaveTheWidthToldOrShareTheRoom) {
    const auto width = [this](int column) {
        letEventsRun();
        EXPECT_EQ(view_.header()->length(), view_.viewport()->width());
        return view_.header()->sectionSize(column);
    };
    list_.addRow({std::string(300, 'x'), "1"});
    const int room = view_.viewport()->width();
    EXPECT_LT(width(0), room);
    list_.setCell(0, 0, "x");
    list_.setColumnWidth(0, 1750);
    EXPECT_EQ(width(0), 1750 / 15);
    list_.setColumnWidth(1, 3500);
    EXPECT_LE(std::abs(3 * width(0) - room), 3);
    // Numbers stand beside their texts, and these take what is left.
    list_.setRightAligned(1);
    for (const int column : {0, 1}) list_.setColumnWidth(column, 0);
    EXPECT_GT(width(0), room / 2);
}

TEST_F(Reports, ManyRowsAreOneInsertAndEachCanBeSelectedInTurn) {
    const QSignalSpy inserts(view_.model(), &QAbstractItemModel::rowsInserted);
    addPages(20'000);
    const QSignalSpy changes(view_.selectionModel(), &QItemSelectionModel::selectionChanged);
    for (int row = 0; row < 20'000; ++row) list_.setSelected(row, true);
    EXPECT_EQ(selected().size(), 20'000U);
    EXPECT_EQ(inserts.count() + changes.count(), 2);
}

struct QuickFile : Binding {
    QuickFile() { window_.resize(300, 700); }
    ScratchDirectory directory_;
};

TEST_F(QuickFile, VolumesAreReadWhenTheListOpensAndChosenBothWays) {
    const auto [drives, box] = pair<DriveList, QComboBox>("Drive1");
    bind();
    EXPECT_EQ(box.count(), 0);
    QTest::mousePress(&box, Qt::LeftButton);
    box.hidePopup();
    emit box.activated(box.findText("/"));
    EXPECT_EQ(drives.drive() + fromQt(box.currentText()), "//");
}

TEST_F(QuickFile, DirectoriesShowTheWayDownAndOpenByDoubleClickAndEnter) {
    std::filesystem::create_directories(directory_ / "one/inner");
    const auto [list, view] = pair<DirectoryList, QListView>("Dir1");
    count(list.changed);
    bind();
    list.setPath(directory_.path());
    const int here = list.currentRow();
    EXPECT_EQ(view.model()->rowCount(), here + 2);
    EXPECT_TRUE(view.currentIndex().data(Qt::FontRole).value<QFont>().bold());
    press(view, placeOf(view, here + 1));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, placeOf(view, here + 1));
    EXPECT_EQ(list.path(), directory_ / "one");
    EXPECT_EQ(textAt(view, here + 2), "inner");
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(list.path(), directory_.path());
    EXPECT_EQ(told_, 3);
}

TEST_F(QuickFile, FilesAreSelectedBothWaysAndTellKeysThatWentDownHereAndPresses) {
    for (const char* name : {"a.htm", "b\n.htm", "c\xff.htm", "d.txt"}) directory_.write(name, "");
    const auto pair = this->pair<FileList, QListView>("File1");
    auto& [files, view] = pair;
    files.setPath(directory_.path());
    bind();
    // A mark for each file, on which the control and the view must agree.
    const auto selected = [&pair] {
        std::string marks;
        for (int row = 0; row < pair.widget.model()->rowCount(); ++row) {
            marks += pair.model.selected(static_cast<std::size_t>(row)) ? 'x' : '-';
            EXPECT_EQ(pair.widget.selectionModel()->isRowSelected(row), marks.back() == 'x') << row;
        }
        return marks;
    };
    EXPECT_EQ(textAt(view, 1) + textAt(view, 2), R"(b\n.htmc\xFF.htm)");
    press(view, placeOf(view, 0));
    press(view, placeOf(view, 2), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(selected(), "x-x-");
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    files.setSelected(1, false);
    EXPECT_EQ(selected(), "x-xx");
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, placeOf(view, 2));
    EXPECT_EQ(selected(), "--x-") << "a double click is told with its file alone";

    std::string told;
    files.keyUp.connect([&told](KeyPress key) { told += "key " + std::to_string(key.keyCode) + ", "; });
    files.mouseDown.connect([&](const MousePress& press) { told += std::to_string(press.button) + selected() + ", "; });
    QTest::keyRelease(&view, Qt::Key_Return);
    press(view, placeOf(view, 0), Qt::RightButton);
    QTest::keyClick(&view, Qt::Key_Down);
    press(view, placeOf(view, 2), Qt::LeftButton, Qt::ControlModifier);
    press(view, placeOf(view, 1), Qt::RightButton);
    EXPECT_EQ(told, "2x---, key 40, 1-xx-, 2-xx-, ") << "a press on one of several leaves them selected";
}

TEST_F(Binding, ASideBarAsksToBeClosed) {
    const auto [model, bar] = pair<SideBar, QWidget>("CoolBar2");
    new QVBoxLayout(&bar);
    count(model.closeClicked);
    bind();
    bar.findChild<QToolButton*>()->click();
    EXPECT_TRUE(told_ == 1 && bar.isVisible()) << "the model decides";
}

}  // namespace
}  // namespace kelvor::qt
