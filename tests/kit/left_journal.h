// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "core/journal_format.h"

namespace kelvor {

/// The bytes of a journal with a whole text.
inline std::string journalBytes(const JournalHeader& header, const std::string& text,
                                const std::optional<SaveMark>& save = {}) {
    std::string bytes;
    ContentHash check;
    const auto add = [&](const JournalRecord& record) {
        bytes.append(record.head).append(record.body);
        check = record.check;
    };
    add(headerRecord(header));
    add(snapshotRecord(check, text));
    if (save) add(beingSavedRecord(check, *save));
    return bytes;
}

}  // namespace kelvor
