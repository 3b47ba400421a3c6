// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_screen.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCursor>
#include <QFontDatabase>
#include <QImageReader>

#include "qt/convert.h"
#include "qt/pictures.h"

namespace kelvor::qt {

void QtScreen::beep() {
    QApplication::beep();
}

void QtScreen::setMousePointer(MousePointer pointer) {
    const bool shown = QApplication::overrideCursor() != nullptr;
    if (pointer == MousePointer::hourglass && !shown) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (pointer == MousePointer::standard && shown) QApplication::restoreOverrideCursor();
}

std::vector<std::string> QtScreen::fonts() {
    QStringList families;
    for (const QString& family : QFontDatabase::families()) {
        // A family of several foundries is listed once for each, as "Name [Foundry]".
        const auto foundry = family.lastIndexOf(QLatin1String(" ["));
        families += foundry > 0 && family.endsWith(QLatin1Char(']')) ? family.left(foundry) : family;
    }
    families.sort(Qt::CaseInsensitive);
    families.removeDuplicates();
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(families.size()));
    for (const QString& family : families) names.push_back(fromQt(family));
    return names;
}

bool QtScreen::showsPictures(std::string_view suffix) {
    return QImageReader::supportedImageFormats().contains(
        QByteArray(suffix.data(), static_cast<qsizetype>(suffix.size())));
}

std::shared_ptr<const Picture> QtScreen::loadPicture(const std::string& path) {
    return qt::loadPicture(path);
}

void QtScreen::processEvents() {
    QApplication::processEvents();
}

void QtScreen::setIdleWork(std::function<bool()> work) {
    QObject::disconnect(idle_);
    if (!work) return;
    QAbstractEventDispatcher* events = QAbstractEventDispatcher::instance();
    idle_ = QObject::connect(events, &QAbstractEventDispatcher::aboutToBlock, events, [events, work] {
        if (work()) events->wakeUp();
    });
}

PlainPointer::PlainPointer() : hourglass_(QApplication::overrideCursor() != nullptr) {
    if (hourglass_) QApplication::restoreOverrideCursor();
}

PlainPointer::~PlainPointer() {
    if (hourglass_ && !QApplication::overrideCursor()) QApplication::setOverrideCursor(Qt::WaitCursor);
}

}  // namespace kelvor::qt
