// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help_contents.h"

#include <QFile>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTreeWidgetItemIterator>
#include <algorithm>

namespace kelvor::qt {

namespace {

constexpr int addressRole = Qt::UserRole;

/// Where the first link of a block leads; "" without one.
QString linkOf(const QTextBlock& block) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece)
        if (QString link = piece.fragment().charFormat().anchorHref(); !link.isEmpty()) return link;
    return {};
}

}  // namespace

HelpContents::HelpContents(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(QStringLiteral("Contents"));
    connect(this, &QTreeWidget::currentItemChanged, this, &HelpContents::choose);
}

void HelpContents::read(const QUrl& home) {
    if (home == home_) return;
    home_ = home;
    const QSignalBlocker blocker(this);
    clear();
    QFile file(home.toLocalFile());
    if (!file.open(QIODevice::ReadOnly)) return;
    QTextDocument document;
    document.setHtml(QString::fromUtf8(file.readAll()));
    // The last row of each level, to which the next deeper one belongs.
    QList<QTreeWidgetItem*> rows = {invisibleRootItem()};
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (!block.textList()) continue;
        const auto level = std::clamp<qsizetype>(block.textList()->format().indent(), 1, rows.size());
        rows.resize(level);
        auto* row = new QTreeWidgetItem(rows.last(), {block.text().simplified()});
        if (const QString link = linkOf(block); !link.isEmpty()) row->setData(0, addressRole, home.resolved(link));
        rows.append(row);
    }
    expandAll();
}

void HelpContents::mark(const QUrl& page) {
    const QSignalBlocker blocker(this);
    QTreeWidgetItemIterator row(this);
    while (*row && (*row)->data(0, addressRole).toUrl() != page.adjusted(QUrl::RemoveFragment)) ++row;
    setCurrentItem(*row);
    if (*row) scrollToItem(*row);
}

void HelpContents::choose() {
    if (!currentItem() || !onChosen) return;
    if (const QUrl page = currentItem()->data(0, addressRole).toUrl(); !page.isEmpty()) onChosen(page);
}

}  // namespace kelvor::qt
