// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/drive_list.h"

#include <QComboBox>
#include <QEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "qt/binders/binders.h"
#include "qt/binders/combo_parts.h"
#include "qt/binders/string_rows.h"

namespace kelvor::qt {

namespace {

/// Looks for the volumes anew before the user opens the list or steps through it.
class Refresher : public QObject {
public:
    Refresher(DriveList& drives, FormLink& link) : QObject(&link), drives_(drives) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress)
            guarded([this] { drives_.Refresh(); });
        return false;
    }

private:
    DriveList& drives_;
};

void showChoice(const DriveList& drives, QComboBox& widget) {
    const auto& list = drives.list();
    const auto chosen = std::find(list.begin(), list.end(), drives.drive());
    widget.setCurrentIndex(chosen == list.end() ? -1 : static_cast<int>(chosen - list.begin()));
}

}  // namespace

void bindDriveList(DriveList& drives, QComboBox& widget, FormLink& link) {
    auto* rows = new StringRows(drives.list(), &link);
    nameParts(widget, link);
    widget.setModel(rows);
    widget.setFocusPolicy(Qt::StrongFocus);
    widget.installEventFilter(new Refresher(drives, link));
    link.follow(drives, widget, [&drives, &widget, rows](Aspect aspect) {
        const QSignalBlocker blocker(widget);
        if (aspect == Aspect::list) rows->renew();
        showChoice(drives, widget);
    });
    QObject::connect(&widget, &QComboBox::activated, &link, [&drives, &widget](int index) {
        // A copy: the list is read anew meanwhile.
        guarded([&, drive = drives.list().at(static_cast<std::size_t>(index))] { drives.setDrive(drive); });
        // One that has gone was not chosen.
        const QSignalBlocker blocker(widget);
        showChoice(drives, widget);
    });
}

}  // namespace kelvor::qt
