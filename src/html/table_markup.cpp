// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/table_markup.h"

#include "base/error.h"
#include "html/attributes.h"
#include "text/code_points.h"

namespace kelvor {

namespace {

constexpr std::size_t longestText = 500;
constexpr std::size_t longestColor = 7;

std::string_view withoutBlanksAtEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// What a place for so many characters keeps of a text.
std::string_view kept(std::string_view text, std::size_t characters) {
    return withoutBlanksAtEnd(text.substr(0, positionBehind(text, characters)));
}

void appendBgColor(std::string& text, std::string_view color) {
    if (!color.empty()) appendAttribute(text, "BGCOLOR", color);
}

void appendTableTag(std::string& text, const TableAttributes& table) {
    text += "<TABLE";
    appendBgColor(text, table.bgColor);
    appendAttribute(text, "BORDER", std::to_string(table.borderSize));
    appendAttribute(text, "CELLSPACING", std::to_string(table.cellSpacing));
    appendAttribute(text, "CELLPADDING", std::to_string(table.cellPadding));
    const char* const unit = table.widthType == TableWidth::percentage ? "%" : "";
    if (table.widthType != TableWidth::ignored) appendAttribute(text, "WIDTH", std::to_string(table.width) + unit);
    text += ">\r\n";
}

void appendCell(std::string& text, const TableCell& cell) {
    const auto name = [](const auto& names, int number) { return names.at(static_cast<std::size_t>(number) - 1); };
    text += "\t<TD";
    if (cell.align != TableCell::left) appendAttribute(text, "ALIGN", name(alignNames, cell.align));
    if (cell.valign != TableCell::middle) appendAttribute(text, "VALIGN", name(valignNames, cell.valign));
    appendBgColor(text, cell.bgColor());
    text.append(">").append(cell.text()).append("</TD>\r\n");
}

}  // namespace

void TableCell::setText(std::string_view text) {
    text_ = kept(text, longestText);
}

void TableCell::setBgColor(std::string_view color) {
    bgColor_ = kept(color, longestColor);
}

TableCells::TableCells(int rows, int columns, const Step& step) : columns_(columns) {
    rows_.reserve(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) {
        rows_.emplace_back(static_cast<std::size_t>(columns));
        step();
    }
}

TableCell& TableCells::at(int row, int column) {
    if (row < 0 || row >= rows() || column < 0 || column >= columns())
        throw Error(error_number::subscriptOutOfRange, "Subscript out of range");
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

std::string tableMarkup(const TableAttributes& table, const TableCells& cells, const Step& step) {
    std::string text = table.isCentered ? "<CENTER>" : "";
    appendTableTag(text, table);
    for (int row = 0; row < cells.rows(); ++row) {
        text += "<TR>\r\n";
        for (const TableCell& cell : cells.row(row)) {
            appendCell(text, cell);
            step();
        }
        text += "</TR>\r\n";
    }
    return text + (table.isCentered ? "</TABLE>\r\n</CENTER>" : "</TABLE>");
}

}  // namespace kelvor
