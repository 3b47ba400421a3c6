// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Qsci/qsciscintillabase.h>

#include <string>

#include "bench/comparison.h"

namespace kelvor::bench {

using Sci = QsciScintillaBase;

/// Lines of 60 bytes with one match each, CR LF at their ends.
inline std::string lines(int count) {
    const std::string line = "<TD ALIGN=\"left\"><FONT SIZE=\"2\">Some table text</FONT></TD>\r\n";
    std::string text;
    text.reserve(line.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) text += line;
    return text;
}

constexpr int linesOf12Megabytes = 200'000;
inline const std::string oldText = "size=\"2\"";
inline const std::string newText = "SIZE=\"+1\"";

/// Scintilla with as little around it as the work allows.
class BareScintilla : public Sci {
public:
    explicit BareScintilla(long searchFlags = 0) {
        SendScintilla(SCI_SETCODEPAGE, static_cast<long>(SC_CP_UTF8));
        SendScintilla(SCI_SETMODEVENTMASK, 0L);
        SendScintilla(SCI_SETSEARCHFLAGS, searchFlags);
    }
    void append(const std::string& text) { send(SCI_APPENDTEXT, text); }
    /// The position of `text` from `from` on, which is the target then; -1 when there is none.
    long find(const std::string& text, long from) {
        SendScintilla(SCI_SETTARGETRANGE, static_cast<unsigned long>(from), SendScintilla(SCI_GETLENGTH));
        return send(SCI_SEARCHINTARGET, text);
    }
    long send(unsigned int message, const std::string& text) {
        return SendScintilla(message, static_cast<uintptr_t>(text.size()), text.data());
    }
};

inline double bareReplaceAll(const std::string& text) {
    BareScintilla bare;
    bare.append(text);
    const auto start = Clock::now();
    bare.SendScintilla(Sci::SCI_BEGINUNDOACTION);
    for (long found = bare.find(oldText, 0); found >= 0;) {
        bare.send(Sci::SCI_REPLACETARGET, newText);
        found = bare.find(oldText, found + static_cast<long>(newText.size()));
    }
    bare.SendScintilla(Sci::SCI_ENDUNDOACTION);
    return secondsSince(start);
}

}  // namespace kelvor::bench
