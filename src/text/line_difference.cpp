// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/line_difference.h"

#include <git2.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <new>

#include "base/error.h"

namespace kelvor {

namespace {

using Lines = std::vector<TextLine>;

Lines linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const auto length = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view rest = text.substr(length);
        const auto end = rest.substr(0, rest.starts_with("\r\n") ? 2 : 1);
        lines.push_back({static_cast<int>(lines.size()) + 1, text.substr(0, length), end});
        text.remove_prefix(length + end.size());
    }
    return lines;
}

/// A mark for each line, the same one for lines with the same text. The library ends lines at LF alone, and takes a
/// text with a NUL byte or of a gigabyte for none; of the marks it takes any. Lines that share one by chance are still
/// told apart when they stand side by side.
std::string marksOf(const Lines& lines) {
    constexpr int bits = 7;  // with the eighth set, no byte of a mark is an LF
    constexpr int length = (std::numeric_limits<std::size_t>::digits + bits - 1) / bits;
    std::string marks;
    marks.reserve(lines.size() * (length + 1));
    for (const TextLine& line : lines) {
        auto hash = std::hash<std::string_view>()(line.text);
        for (int byte = 0; byte < length; ++byte, hash >>= bits) marks += static_cast<char>(hash | 1U << bits);
        marks += '\n';
    }
    return marks;
}

/// A run of lines of the left text that gave way to one of the right text. Either may be empty, not both.
struct Stretch {
    std::size_t left;
    std::size_t leftEnd;
    std::size_t right;
    std::size_t rightEnd;
};

/// The library counts lines from 1; where a side has none it gives the line in front.
std::size_t startOf(int firstLine, int lines) {
    return static_cast<std::size_t>(lines > 0 ? firstLine - 1 : firstLine);
}

/// No exception may run through the library, which is C.
int takeHunk(const git_diff_delta* /*delta*/, const git_diff_hunk* hunk, void* stretches) {
    const std::size_t left = startOf(hunk->old_start, hunk->old_lines);
    const std::size_t right = startOf(hunk->new_start, hunk->new_lines);
    try {
        static_cast<std::vector<Stretch>*>(stretches)->push_back(
            {left, left + static_cast<std::size_t>(hunk->old_lines), right,
             right + static_cast<std::size_t>(hunk->new_lines)});
    } catch (const std::bad_alloc&) {
        return GIT_EUSER;
    }
    return GIT_OK;
}

void check(int outcome) {
    if (outcome >= GIT_OK) return;
    const git_error* error = git_error_last();
    if (outcome == GIT_EUSER || !error || error->klass == GIT_ERROR_NOMEMORY) throw outOfMemoryError();
    throw Error(error_number::invalidProcedureCall, error->message);
}

class Library {
public:
    Library() { check(git_libgit2_init()); }
    ~Library() { git_libgit2_shutdown(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

std::vector<Stretch> stretchesBetween(const Lines& left, const Lines& right) {
    static const Library library;
    const std::string leftMarks = marksOf(left);
    const std::string rightMarks = marksOf(right);
    git_diff_options options = GIT_DIFF_OPTIONS_INIT;
    options.flags = GIT_DIFF_FORCE_TEXT;
    options.context_lines = 0;
    options.max_size = -1;
    std::vector<Stretch> stretches;
    check(git_diff_buffers(leftMarks.data(), leftMarks.size(), nullptr, rightMarks.data(), rightMarks.size(), nullptr,
                           &options, nullptr, nullptr, takeHunk, nullptr, &stretches));
    return stretches;
}

class Rows {
public:
    Rows(const Lines& left, const Lines& right) : left_(left), right_(right) {
        rows_.reserve(std::max(left.size(), right.size()));
    }

    void addPairs(std::size_t leftEnd, std::size_t rightEnd) {
        while (atLeft_ < leftEnd && atRight_ < rightEnd) addPair(left_[atLeft_++], right_[atRight_++]);
    }

    void addStretch(const Stretch& stretch) {
        addPairs(stretch.leftEnd, stretch.rightEnd);
        while (atLeft_ < stretch.leftEnd) rows_.push_back({DifferenceRow::Kind::removed, left_[atLeft_++], {}});
        while (atRight_ < stretch.rightEnd) rows_.push_back({DifferenceRow::Kind::added, {}, right_[atRight_++]});
    }

    std::vector<DifferenceRow> take() { return std::move(rows_); }

private:
    void addPair(const TextLine& left, const TextLine& right) {
        using enum DifferenceRow::Kind;
        const auto kind = left.text != right.text ? changed : left.end != right.end ? lineEnd : same;
        rows_.push_back({kind, left, right});
    }

    const Lines& left_;
    const Lines& right_;
    std::size_t atLeft_ = 0;
    std::size_t atRight_ = 0;
    std::vector<DifferenceRow> rows_;
};

}  // namespace

std::vector<DifferenceRow> compareLines(std::string_view left, std::string_view right) {
    const Lines leftLines = linesOf(left);
    const Lines rightLines = linesOf(right);
    Rows rows(leftLines, rightLines);
    for (const Stretch& stretch : stretchesBetween(leftLines, rightLines)) {
        rows.addPairs(stretch.left, stretch.right);
        rows.addStretch(stretch);
    }
    rows.addPairs(leftLines.size(), rightLines.size());
    return rows.take();
}

LineCounts countDifferences(std::string_view before, std::string_view after) {
    LineCounts counts;
    for (const DifferenceRow& row : compareLines(before, after)) {
        if (row.kind == DifferenceRow::Kind::same) continue;
        if (row.left.number > 0) ++counts.removed;
        if (row.right.number > 0) ++counts.added;
    }
    return counts;
}

std::string libgit2Version() {
    int major = 0;
    int minor = 0;
    int patch = 0;
    git_libgit2_version(&major, &minor, &patch);
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
}

}  // namespace kelvor
