// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/path_completer.h"

#include <limits.h>

#include <vector>

#include "base/error.h"
#include "files/folder_entries.h"
#include "files/paths.h"
#include "files/typed_paths.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

std::vector<FolderEntry> readableEntries(const std::string& directory) {
    try {
        return folderEntries(directory);
    } catch (const Error&) {
        return {};
    }
}

}  // namespace

PathCompleter::PathCompleter(bool foldersOnly, QObject* parent) : QCompleter(parent), foldersOnly_(foldersOnly) {
    setModel(&list_);
    setCaseSensitivity(Qt::CaseInsensitive);
}

void PathCompleter::prepare(const QString& text, const std::string& directory) {
    const qsizetype headLength = text.lastIndexOf(QLatin1Char('/')) + 1;
    const QString head = text.left(headLength);
    const auto folders = typedPaths(fromQt(head.isEmpty() ? QStringLiteral(".") : head), directory);
    if (text.size() > PATH_MAX || text.startsWith(QLatin1Char('"')) || folders.size() != 1) {
        listed_.reset();
        return list_.setStringList({});
    }
    const Listing wanted = {.folder = folders.front(), .withHidden = text.mid(headLength).startsWith(QLatin1Char('.'))};
    if (listed_ == wanted && head_ == head) return;
    listed_ = wanted;
    head_ = head;
    list_.setStringList(offers(directory));
}

QStringList PathCompleter::offers(const std::string& directory) const {
    const auto& [folder, hidden] = *listed_;
    QStringList offers;
    for (const FolderEntry& entry : readableEntries(folder)) {
        if ((entry.name.starts_with('.') && !hidden) || (foldersOnly_ && !entry.isFolder)) continue;
        const QString offer = head_ + toQt(entry.name);
        // What would be taken for another name when it is typed is not offered.
        if (typedPaths(fromQt(offer), directory) == std::vector{joinPath(folder, entry.name)}) offers += offer;
    }
    return offers;
}

}  // namespace kelvor::qt
