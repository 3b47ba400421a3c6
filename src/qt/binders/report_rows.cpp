// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/binders/report_rows.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

#include "qt/colors.h"
#include "qt/convert.h"
#include "qt/themed_icon.h"

namespace kelvor::qt {

namespace {

/// What the delegate reads a row's tint by.
constexpr int tintRole = Qt::UserRole;

}  // namespace

QColor tintColor(ReportView::Tint tint, const QPalette& palette) {
    static const QColor inks[] = {{}, {0, 170, 0}, {230, 0, 0}, {30, 100, 255}};
    constexpr double part = 0.25;
    const QColor& ink = inks[static_cast<int>(tint)];
    return ink.isValid() ? between(palette.color(QPalette::Base), ink, part) : QColor();
}

ReportRows::ReportRows(const ReportView& list, QObject* parent)
    : FollowedRows([&list] { return list.count(); }, parent), list_(list) {
    for (const std::string& name : list.icons())
        icons_.push_back(themedIcon(QStringLiteral(":/rows/%1.svg").arg(toQt(name))));
}

int ReportRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.columns().size());
}

QVariant ReportRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= list_.count()) return {};
    if (role == Qt::DisplayRole) return rowText(list_.cell(index.row(), index.column()));
    if (role == Qt::TextAlignmentRole) return alignmentOf(index.column());
    if (role == tintRole) return static_cast<int>(list_.rows()[row].tint);
    const auto icon = static_cast<std::size_t>(list_.rows()[row].icon);
    if (role == Qt::DecorationRole && index.column() == 0 && icon > 0 && icon <= icons_.size()) return icons_[icon - 1];
    return {};
}

QVariant ReportRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return alignmentOf(section);
    if (role != Qt::DisplayRole) return {};
    return toQt(list_.columns().at(static_cast<std::size_t>(section)));
}

QVariant ReportRows::alignmentOf(int column) const {
    return QVariant::fromValue((list_.isRightAligned(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

void ReportCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->textElideMode = index.column() == 0 ? Qt::ElideMiddle : Qt::ElideRight;
    const QColor tint = tintColor(static_cast<ReportView::Tint>(index.data(tintRole).toInt()), option->palette);
    if (tint.isValid()) option->backgroundBrush = tint;
}

bool ReportCells::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid()) return false;
    const bool isCut = sizeHint(option, index).width() > option.rect.width();
    const QString text = isCut ? toolTipText(fromQt(index.data().toString())) : QString();
    QToolTip::showText(event->globalPos(), text, view->viewport(), option.rect);
    return true;
}

}  // namespace kelvor::qt
