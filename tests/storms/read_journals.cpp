// SPDX-License-Identifier: GPL-3.0-or-later
// read_journals DIRECTORY: puts each text that was left unsaved into a file of DIRECTORY, and tells of each journal in
// a line what the text is or why there is none, the file, and the name of its document.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "core/journal_list.h"

int main(int argumentCount, char** arguments) {
    using namespace kelvor;
    if (argumentCount != 2) return 2;
    const std::filesystem::path directory = arguments[1];
    try {
        int number = 0;
        for (const auto& journal : findLeftJournals().newest) {
            const JournalContent content =
                journal->fault == JournalFault::none ? readLeftJournal(*journal) : JournalContent{journal->fault};
            const char* const kind = content.fault != JournalFault::none ? "none"
                                     : content.save                      ? "being saved"
                                                                         : "text";
            const std::string file = std::to_string(++number);
            std::ofstream(directory / file, std::ios::binary) << content.text;
            std::cout << kind << '\t' << file << '\t' << journal->header.name << '\t' << causeOf(content.fault) << '\n';
        }
    } catch (const std::exception& error) {
        std::cerr << "read_journals: " << error.what() << '\n';
        return 1;
    }
}
