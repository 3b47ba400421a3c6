#include "platform/report_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include "platform/list_box.h"
#include "tests/qt/binding_fixture.h"

namespace kelvor::qt {
namespace {

constexpr int manyRows = 20'000;

class Reports : public Binding {
protected:
    using Rows = std::vector<int>;

    Reports() {
        list_.setMultiSelect(true);
        bind();
        window_.resize(600, 400);
        window_.activateWindow();
        letEventsRun();
    }

    static std::vector<ReportView::Row> numbered(int count) {
        std::vector<ReportView::Row> rows;
        for (int row = 0; row < count; ++row)
            rows.push_back({{"/web/page" + std::to_string(count - row) + ".htm", std::to_string(row % 7)}});
        return rows;
    }
    QModelIndex at(int row, int column = 0) { return view_.model()->index(row, column); }
    QString text(int row, int column = 0) { return at(row, column).data().toString(); }
    void press(int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view_.viewport(), Qt::LeftButton, modifiers, view_.visualRect(at(row)).center());
    }
    Rows selectedInModel() const {
        Rows rows;
        for (int row = 0; row < static_cast<int>(list_.count()); ++row)
            if (list_.isSelected(row)) rows.push_back(row);
        return rows;
    }
    Rows selectedInView() {
        letEventsRun();
        Rows rows;
        for (const QModelIndex& index : view_.selectionModel()->selectedRows()) rows.push_back(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    ReportView& list_ = make<ReportView>("ListView1", std::vector<std::string>{"Filename", "Total items found"});
    QTreeView& view_ = add<QTreeView>("ListView1");
};

TEST_F(Reports, RowsColumnsAndIconsFollowTheControl) {
    list_.addRows({{{"a\r\nb", "1"}, 2}, {{"c"}}});
    EXPECT_EQ(view_.model()->headerData(1, Qt::Horizontal).toString(), "Total items found");
    EXPECT_EQ(text(0), "a b");
    EXPECT_EQ(text(1, 1), "");
    EXPECT_FALSE(at(0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(at(1).data(Qt::DecorationRole).isValid());
    list_.setCell(1, 1, "7");
    EXPECT_EQ(text(1, 1), "7");
    list_.removeRow(0);
    EXPECT_EQ(text(0), "c");
    list_.clear();
    EXPECT_EQ(view_.model()->rowCount(), 0);
}

TEST_F(Reports, ManyRowsAreOneInsertAlsoInAPlainList) {
    const QSignalSpy inserts(view_.model(), &QAbstractItemModel::rowsInserted);
    list_.addRows(numbered(manyRows));
    EXPECT_EQ(inserts.count(), 1);

    Form form("lists", "");
    ListBox box(form, "lst");
    QWidget window;
    QListView list(&window);
    list.setObjectName("lst");
    EXPECT_EQ(bindForm(form, window), std::vector<std::string>());
    const QSignalSpy boxInserts(list.model(), &QAbstractItemModel::rowsInserted);
    box.addRows(std::vector<std::string>(10'000, "row"));
    EXPECT_EQ(boxInserts.count(), 1);
    EXPECT_EQ(list.model()->rowCount(), 10'000);
    unbindForm(form, window);
}

TEST_F(Reports, TheUsersChoiceReachesTheControl) {
    list_.addRows(numbered(5));
    letEventsRun();
    view_.setFocus();
    EXPECT_EQ(list_.selectedRow(), -1);
    press(3);
    press(1, Qt::ControlModifier);
    EXPECT_EQ(selectedInModel(), (Rows{1, 3}));
    EXPECT_EQ(list_.selectedRow(), 1);
    QTest::keyClick(&view_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedInModel().size(), 5U);
    QTest::keyClick(&view_, Qt::Key_Delete);
    EXPECT_EQ(list_.count(), 5U);
}

TEST_F(Reports, TheControlsChoiceIsShownAndScrolledTo) {
    list_.addRows(numbered(500));
    list_.setSelectedRow(400);
    EXPECT_EQ(selectedInView(), Rows{400});
    EXPECT_EQ(view_.currentIndex().row(), 400);
    EXPECT_TRUE(view_.viewport()->rect().contains(view_.visualRect(at(400))));
    list_.setSelected(2, true);
    EXPECT_EQ(selectedInView(), (Rows{2, 400}));
    list_.setSelectedRow(400);
    list_.removeRow(0);
    EXPECT_EQ(selectedInView(), Rows{399});
    list_.setSelectedRow(-1);
    EXPECT_EQ(selectedInView(), Rows{});
    EXPECT_EQ(list_.selectedRow(), -1);
}

TEST_F(Reports, AClickOnAHeaderSortsByTheControlOnly) {
    list_.columnClicked.connect([this](int column) { list_.sortBy(column, column == 0); });
    list_.addRows(numbered(3));
    list_.setSelectedRow(0);
    letEventsRun();
    QHeaderView& header = *view_.header();
    const int width = header.sectionSize(0);
    const auto click = [&header](int column) {
        const QPoint place(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, 5);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
    };
    click(0);
    EXPECT_EQ(text(0), "/web/page1.htm");
    EXPECT_EQ(selectedInView(), Rows{2});
    click(1);
    EXPECT_EQ(text(0, 1), "2");
    EXPECT_EQ(header.sectionSize(0), width);
}

TEST_F(Reports, PressesAreToldAndARightOneBesideTheRowsKeepsTheChoice) {
    list_.addRows(numbered(3));
    list_.setSelectedRow(1);
    letEventsRun();
    std::vector<int> buttons;
    list_.mouseDown.connect([&](const MousePress& press) { buttons.push_back(press.button); });
    count(list_.doubleClicked);
    QTest::mouseClick(view_.viewport(), Qt::RightButton, {}, {20, view_.viewport()->height() - 5});
    QTest::mouseClick(view_.viewport(), Qt::RightButton, {}, view_.visualRect(at(1)).center());
    EXPECT_EQ(selectedInView(), Rows{1});
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&view_, &menuKey);
    press(2);
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, view_.visualRect(at(2)).center());
    QTest::keyClick(&view_, Qt::Key_Return);
    letEventsRun();
    EXPECT_EQ(buttons, (std::vector<int>{MousePress::right, MousePress::right, MousePress::right, MousePress::left}));
    EXPECT_EQ(told_, 1);
    EXPECT_EQ(list_.selectedRow(), 2);
}

TEST_F(Reports, ColumnsHaveTheWidthToldOrShareTheRoom) {
    const auto width = [this](int column) {
        letEventsRun();
        return view_.header()->sectionSize(column);
    };
    list_.addRow({std::string(300, 'x'), "1"});
    const int room = view_.viewport()->width();
    EXPECT_EQ(width(0) + width(1), room);
    EXPECT_GT(width(0), room / 2);
    EXPECT_GE(width(1), view_.header()->sectionSizeHint(1));
    list_.clear();
    list_.addRow({"x", "1"});
    EXPECT_LT(width(0), room / 2);
    list_.setColumnWidth(0, 1750);
    EXPECT_EQ(width(0), 1750 / 15);
    EXPECT_EQ(width(0) + width(1), room);
}

TEST_F(Reports, EachOfManyRowsCanBeSelectedInTurn) {
    list_.addRows(numbered(manyRows));
    letEventsRun();
    const QSignalSpy changes(view_.selectionModel(), &QItemSelectionModel::selectionChanged);
    for (int row = 0; row < manyRows; ++row) list_.setSelected(row, true);
    EXPECT_EQ(selectedInView().size(), std::size_t{manyRows});
    EXPECT_EQ(changes.count(), 1);
}

}  // namespace
}  // namespace kelvor::qt
