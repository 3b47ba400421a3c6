// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/table_markup.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace kelvor {
namespace {

TEST(TableMarkup, ATableHasItsAttributesInTheirOrderAndIsCenteredWithoutALineBreakBefore) {
    const std::string none = " BORDER=\"0\" CELLSPACING=\"0\" CELLPADDING=\"0\"";
    const auto row = [](const std::string& cells) { return "<TR>\r\n" + cells + "</TR>\r\n"; };
    const std::string empty = "\t<TD></TD>\r\n";
    for (const auto& [table, size, markup] : {
             std::tuple{TableAttributes(), std::pair{1, 2},
                        "<TABLE" + none + ">\r\n" + row(empty + empty) + "</TABLE>"},
             {{.isCentered = true}, {0, 2}, "<CENTER><TABLE" + none + ">\r\n</TABLE>\r\n</CENTER>"},
             {{.widthType = TableWidth::percentage},
              {1, 0},
              "<TABLE" + none + " WIDTH=\"0%\">\r\n" + row("") + "</TABLE>"},
             {{.cellSpacing = 2,
             .cellPadding = 3,
             .borderSize = 32767,
             .bgColor = "#0000FF",
             .width = 500,
             .widthType = TableWidth::pixels},
              {2, 1},
              "<TABLE BGCOLOR=\"#0000FF\" BORDER=\"32767\" CELLSPACING=\"2\" CELLPADDING=\"3\" WIDTH=\"500\">\r\n" +
                  row(empty) + row(empty) + "</TABLE>"},
         })
        EXPECT_EQ(tableMarkup(table, TableCells(size.first, size.second)), markup);
}

TEST(TableMarkup, ACellSaysWhatDiffersAndKeepsWhatThereIsAPlaceFor) {
    using Row = std::tuple<int, int, std::string, std::string, std::string>;
    std::string umlauts;
    for (int i = 0; i < 499; ++i) umlauts += "ä";
    for (const auto& [align, valign, color, text, markup] : {
             Row{1, 2, "", " <B>&  ", "> <B>&"},
             {2, 1, "#FF0000", "", " ALIGN=\"CENTER\" VALIGN=\"TOP\" BGCOLOR=\"#FF0000\">"},
             {3, 3, "red ", "x", " ALIGN=\"RIGHT\" VALIGN=\"BOTTOM\" BGCOLOR=\"red\">x"},
             {1, 2, "     ", "a\r\nb", ">a\r\nb"},
             {1, 2, "üüüüüüüx", "", " BGCOLOR=\"üüüüüüü\">"},
             {1, 2, "", umlauts + "ß" + "x", ">" + umlauts + "ß"},
             {1, 2, "", umlauts + " x", ">" + umlauts},
         }) {
        TableCells cells(1, 1);
        TableCell& cell = cells.at(0, 0);
        cell.align = align;
        cell.valign = valign;
        cell.setBgColor(color);
        cell.setText(text);
        const std::string table = tableMarkup({}, cells);
        const auto start = table.find("\t<TD") + 4;
        EXPECT_EQ(table.substr(start, table.find("</TD>\r\n") - start), markup);
    }
    EXPECT_THROW(TableCells(2, 2).at(0, 2), Error);
}

}  // namespace
}  // namespace kelvor
