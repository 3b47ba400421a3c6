// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/window_list.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/form.h"
#include "controls/mdi_area.h"
#include "files/paths.h"
#include "qt/convert.h"
#include "qt/modal.h"
#include "text/shown_name.h"

namespace kelvor::qt {

namespace {

/// In characters; what of a path a row of the menu shows.
constexpr int longestRow = 70;
/// As many as there are digits to choose them by.
constexpr std::size_t rowsInMenu = 9;
/// In pixels; what a name and a good part of its folder need.
constexpr QSize dialogSize(520, 420);

/// What was listed may have closed in the meantime.
void bringForward(MdiArea& area, Form* child) {
    const auto& open = area.children();
    if (std::find(open.begin(), open.end(), child) != open.end()) guarded([&] { area.show(*child); });
}

/// Lets the user choose among all windows. Letters that are typed go to the next name that begins with them.
void chooseWindow(MdiArea& area) {
    const std::vector<Form*> children = area.children();
    QDialog dialog;
    dialog.setWindowTitle(QStringLiteral("Select Window"));
    auto* list = new QListWidget;
    list->setAccessibleName(QStringLiteral("Windows"));
    list->setUniformItemSizes(true);
    for (const Form* child : children) {
        list->addItem(nameFirst(child->caption()));
        if (child == area.activeForm()) list->setCurrentRow(list->count() - 1);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    dialog.resize(dialogSize);
    if (showUntilAnswered(dialog) == QDialog::Accepted && list->currentRow() >= 0)
        bringForward(area, children[static_cast<std::size_t>(list->currentRow())]);
}

void fillMenu(MdiArea& area, QMenu& menu) {
    static const QString listed = QStringLiteral("windowListRow");
    for (QAction* action : menu.actions())
        if (action->objectName() == listed) delete action;
    const std::vector<Form*>& children = area.children();
    if (children.empty()) return;
    menu.addSeparator()->setObjectName(listed);
    for (std::size_t index = 0; index < std::min(children.size(), rowsInMenu); ++index) {
        Form* child = children[index];
        const QString title = menuText(elidedInTheMiddle(nameFirst(child->caption()), longestRow));
        QAction* action = menu.addAction(QStringLiteral("&%1 ").arg(index + 1) + title);
        action->setObjectName(listed);
        action->setCheckable(true);
        action->setChecked(child == area.activeForm());
        QObject::connect(action, &QAction::triggered, &menu, [&area, child] { bringForward(area, child); });
    }
    if (children.size() <= rowsInMenu) return;
    QAction* more = menu.addAction(QStringLiteral("&More Windows..."));
    more->setObjectName(listed);
    QObject::connect(more, &QAction::triggered, &menu, [&area] { chooseWindow(area); });
}

}  // namespace

QString nameFirst(std::string_view caption) {
    const std::string path = shownName(caption);
    const std::string directory = directoryPart(path);
    const std::string name = fileNamePart(path);
    return toQt(directory.empty() ? path : name + " - " + directory);
}

void listWindows(MdiArea& area, QMenu& menu) {
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&area, &menu] { fillMenu(area, menu); });
}

}  // namespace kelvor::qt
