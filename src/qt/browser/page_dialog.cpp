// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/browser/page_dialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>
#include <QWindow>

namespace kelvor::qt {

namespace {

constexpr qsizetype longestText = 2000;
constexpr int longestEntry = 10000;

/// What the icon and the buttons of a title bar take, in heights of the bar.
constexpr int titleBarParts = 5;

}  // namespace

PageAnswer askForPage(QWidget& view, const QString& text, bool canRefuse, QString* entry) {
    // It stands above the view's window but is no child of it: the page may end while it is shown.
    QDialog dialog;
    dialog.winId();
    dialog.windowHandle()->setTransientParent(view.window()->windowHandle());
    dialog.setWindowTitle(QStringLiteral("Message of the page in preview"));
    auto* label = new QLabel(text.left(longestText));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* line = new QLineEdit(entry ? entry->left(longestEntry) : QString());
    line->selectAll();
    line->setVisible(entry != nullptr);
    auto* silence = new QCheckBox(QStringLiteral("&Show no more messages of this page"));
    using Box = QDialogButtonBox;
    auto* buttons = new Box(canRefuse ? Box::Ok | Box::Cancel : Box::StandardButtons(Box::Ok));
    QObject::connect(buttons, &Box::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &Box::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    for (QWidget* part : std::initializer_list<QWidget*>{label, line, silence, buttons}) layout->addWidget(part);

    QFont titleFont = dialog.font();
    titleFont.setBold(true);
    dialog.setMinimumWidth(QFontMetrics(titleFont).horizontalAdvance(dialog.windowTitle()) +
                           titleBarParts * dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight));

    const bool accepted = dialog.exec() == QDialog::Accepted;
    if (accepted && entry) *entry = line->text();
    return {.accepted = accepted, .silence = silence->isChecked()};
}

}  // namespace kelvor::qt
