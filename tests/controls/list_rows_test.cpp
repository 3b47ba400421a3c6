// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_rows.h"

#include <gtest/gtest.h>

#include <random>

#include "controls/combo_box.h"
#include "controls/report_view.h"
#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

std::vector<std::string> cellsOf(const ReportView& list) {
    std::vector<std::string> cells;
    for (int row = 0; row < static_cast<int>(list.count()); ++row)
        cells.push_back(list.cell(row, 0) + "|" + list.cell(row, 1));
    return cells;
}
struct Lists : testing::Test {
    FakePlatform platform;
    Form form{"form", ""};
    std::vector<std::string> seen;
};

TEST_F(Lists, OfReportsTellTheirViewsEveryChangeAndKeepTheCurrentRowCurrent) {
    ReportView report(form, "report", {"one", "two"});
    std::mt19937 random{11};
    const auto anyRow = [&random](std::size_t count) { return static_cast<int>(random() % count); };
    const auto anyText = [&random] { return std::to_string(random() % 10); };
    // A view: it knows the rows by what it is told alone.
    report.followRows([&](const RowChange& change) {
        const auto rows = cellsOf(report);
        const auto at = seen.begin() + change.first;
        const auto end = change.last + 1;
        if (change.kind == RowChange::Kind::inserted) seen.insert(at, rows.begin() + change.first, rows.begin() + end);
        if (change.kind == RowChange::Kind::removed) seen.erase(at, seen.begin() + end);
        if (change.kind == RowChange::Kind::changed) std::copy(rows.begin() + change.first, rows.begin() + end, at);
        if (change.kind == RowChange::Kind::renewed) seen = rows;
    });
    int selectionsTold = 0;
    report.follow([&](Aspect aspect) { selectionsTold += aspect == Aspect::selection ? 1 : 0; });
    for (int count = 0; count < 500; ++count) {
        const auto size = report.count();
        const int act = count % 100 == 99 ? 0 : anyRow(7);
        const int current = report.selectedRow();
        const std::string text = current < 0 ? "" : cellsOf(report)[static_cast<std::size_t>(current)];
        const int told = selectionsTold;
        if (act == 0) report.addRows({});
        if (act == 0 && count % 100 == 99) report.clear();
        if (act == 1 || act == 2) report.addRow({anyText(), anyText()});
        if (act == 3 && size > 0) report.removeRow(anyRow(size));
        if (act == 4 && size > 0) report.setCell(anyRow(size), 1, anyText());
        if (act == 5) report.sortBy(anyRow(2), count % 2 == 0);
        if (act == 6 && size > 0) report.setSelectedRow(anyRow(size));
        ASSERT_EQ(seen, cellsOf(report)) << act;
        ASSERT_TRUE(act == 0 || current == report.selectedRow() || selectionsTold > told) << act;
        const bool stays = act == 5 && current >= 0;
        ASSERT_EQ(stays ? cellsOf(report)[static_cast<std::size_t>(report.selectedRow())] : text, text);
    }
}

TEST_F(Lists, ThatDropDownRaiseEachChoiceOnceAndKeepItWhileRowsComeAndGo) {
    ComboBox list(form, "list");
    int clicks = 0;
    list.clicked.connect([&] { ++clicks; });
    list.follow([&](Aspect aspect) {
        if (aspect == Aspect::list) seen = list.list();
    });
    list.setSorted(true);
    for (const char* item : {"banana", "(none)", "Apple", "cherry"}) list.addItem(item);
    EXPECT_EQ(seen, (std::vector<std::string>{"(none)", "Apple", "banana", "cherry"}));
    for (int i = 0; i < 2; ++i) list.setListIndex(2);
    EXPECT_EQ(clicks, 1);
    list.choose(2);
    EXPECT_EQ(clicks, 2) << "the user may choose the same row again";
    list.insertItem(0, "first");
    EXPECT_EQ(list.listIndex(), 3);
    list.removeItem(0);
    EXPECT_EQ(list.listIndex(), 2);
    list.removeItem(2);
    EXPECT_EQ(std::to_string(list.listIndex()) + list.text(), "-1");
    EXPECT_EQ(seen, list.list());
    list.clear();
    EXPECT_TRUE(seen.empty());
    for (const int row : {-2, 1}) EXPECT_THROW(list.setListIndex(row), Error);
    EXPECT_THROW(list.removeItem(0), Error);
}

}  // namespace
}  // namespace kelvor
