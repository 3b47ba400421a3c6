// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSignalSpy>

#include "controls/grid.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

class Grids : public Binding {
protected:
    Grids() {
        grid_.setRows(2);
        grid_.setCols(3);
        bind();
        window_.resize(500, 300);
        grid_.clicked.connect([this] { acts_ += "click" + place(grid_.row(), grid_.col()); });
        grid_.moved.connect([this] { acts_ += "move" + place(grid_.row(), grid_.col()); });
    }

    static std::string place(int row, int col) { return " " + std::to_string(row) + "," + std::to_string(col) + ";"; }
    QModelIndex index(int row, int col) const { return view_.model()->index(row, col); }
    /// The current cell, on which the control and the view must agree.
    std::string current() {
        EXPECT_EQ(place(view_.currentIndex().row(), view_.currentIndex().column()), place(grid_.row(), grid_.col()));
        EXPECT_TRUE(view_.selectionModel()->isSelected(view_.currentIndex()));
        return place(grid_.row(), grid_.col());
    }

    Grid& grid_ = make<Grid>("grid1");
    QTableView& view_ = add<QTableView>("grid1");
    QLineEdit& field_ = add<QLineEdit>("");
    std::string acts_;
};

TEST_F(Grids, CellsFollowTheControlOneByOneAndAllAtOnce) {
    grid_.setCol(2);
    QSignalSpy changes(view_.model(), &QAbstractItemModel::dataChanged);
    QSignalSpy resets(view_.model(), &QAbstractItemModel::modelReset);
    for (const char* text : {"a\r\nb", "a\r\nb"}) grid_.setText(text);
    for (const int color : {0x0000FF, 1}) grid_.setBackColor(color);
    ASSERT_EQ(changes.size(), 3);
    const QModelIndex cell = changes[0][0].toModelIndex();
    EXPECT_EQ(cell, index(0, 2));
    EXPECT_EQ(cell.data().toString(), R"(a\r\nb)");
    EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(), R"(C3 : R1 a\r\nb)");
    EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QColor>(), QColor(1, 0, 0)) << "0 alone is the desktop's own colour";
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::white));
    grid_.setText("");
    EXPECT_EQ(view_.grab().toImage().pixelColor(view_.viewport()->mapToParent(view_.visualRect(cell).center())),
              QColor(1, 0, 0))
        << "in the current cell as well";
    grid_.setBackColor(0);
    EXPECT_FALSE(cell.data(Qt::BackgroundRole).isValid());
    EXPECT_EQ(resets.size(), 0);
    grid_.setRows(4);
    grid_.setCols(1);
    EXPECT_EQ(view_.model()->rowCount() * 10 + view_.model()->columnCount(), 41);
    EXPECT_EQ(current(), place(0, 0));
    grid_.setText("x");
    grid_.clear();
    EXPECT_EQ(index(0, 0).data().toString(), "");
    EXPECT_EQ(acts_, "") << "the program's own writes are no acts";
    EXPECT_THROW(grid_.setRow(4), Error);
    grid_.setRows(0);
    EXPECT_THROW(grid_.setText("x"), Error);
}

TEST_F(Grids, KeysMoveThroughTheCellsAndEnterAndThePressOfTheMouseClickThem) {
    view_.setFocus();
    for (const auto key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) pressKey(key);
    EXPECT_EQ(std::exchange(acts_, {}), "move 0,1;move 1,1;click 1,1;");
    for (int time = 0; time < 2; ++time) {
        const QPoint middle = view_.visualRect(index(0, 2)).center();
        QTest::mousePress(view_.viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseMove(view_.viewport(), view_.visualRect(index(0, 0)).center());
        QTest::mouseRelease(view_.viewport(), Qt::LeftButton, {}, middle);
    }
    EXPECT_EQ(acts_, "click 0,2;click 0,2;") << "a drag is one";
    EXPECT_EQ(current(), place(0, 2));
    view_.setFocus();
    pressKey(Qt::Key_Tab);
    EXPECT_TRUE(field_.hasFocus());
}

}  // namespace
}  // namespace kelvor::qt
