// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_on_disk.h"

#include <exception>
#include <optional>

#include "base/event.h"
#include "core/compare.h"
#include "files/files.h"
#include "files/paths.h"
#include "support/messages.h"
#include "support/report_error.h"
#include "text/shown_name.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

const ContentHash& hashOfNothing() {
    static const ContentHash hash = hashOf({});
    return hash;
}

}  // namespace

DiskState lookAtFile(EditControl& text, const std::string& path) {
    auto known = text.fileStamp();
    if (!known) return stampNow(path) ? DiskState::replaced : DiskState::same;
    const DiskState state = lookAgain(*known, path);
    if (state == DiskState::same) text.setFileStamp(known);
    return state;
}

DiskContents contentsOnDisk(EditControl& text, const std::string& path) {
    switch (lookAtFile(text, path)) {
        case DiskState::same: {
            const auto& known = text.fileStamp();
            return {.hash = known ? known->hash : hashOfNothing()};
        }
        case DiskState::gone:
            return {.hash = hashOfNothing()};
        default:
            return newsOnDisk(path);
    }
}

DiskContents newsOnDisk(const std::string& path) {
    try {
        return {.hash = readStamp(path).hash, .isNews = true};
    } catch (const std::exception&) {
        return {};
    }
}

void compareWithDisk(const EditControl& text, const std::string& path) {
    const std::string name = shownName(fileNamePart(path));
    try {
        const std::string onDisk = decode(readFile(path)).text;
        compareTexts({name + " on the disk", onDisk}, {name + " in the editor", text.text()});
    } catch (const std::exception&) {
        reportOpenError(path, loggedFailure(currentError()).cause());
    }
}

}  // namespace kelvor
