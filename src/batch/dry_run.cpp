// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/dry_run.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <numeric>
#include <utility>

#include "base/event.h"
#include "files/content_hash.h"
#include "files/file_replace.h"
#include "frame/tool_forms.h"
#include "support/report_error.h"
#include "text/counted.h"

namespace kelvor {

namespace {

/// The column of ListView1 with numbers.
constexpr int countColumn = 4;

constexpr const char* allFiles = "(all files)";
constexpr const char* allPairs = "(all pairs)";

using Counts = std::vector<std::size_t>;

std::size_t sumOf(const Counts& counts) {
    return std::accumulate(counts.begin(), counts.end(), std::size_t{0});
}

std::string outcomeOf(const DryRunFile& file) {
    if (!file.failure.empty()) return "Left as it is: " + file.failure;
    if (file.isRepeated) return "Not counted again: stands further up too";
    if (!file.changes) return "Written with the same bytes";
    return sumOf(file.counts) > 0 ? "Changed" : "Changed: ends of lines only";
}

std::string outcomeOfAll(const std::vector<DryRunFile>& files) {
    const auto changed = std::count_if(files.begin(), files.end(), [](const DryRunFile& file) { return file.changes; });
    return std::to_string(changed) + " of " + std::to_string(files.size()) + " changed";
}

/// What is told of a file, or of all.
struct Told {
    std::string name;
    const Counts& counts;
    std::string outcome;
};

void addRows(std::vector<ReportView::Row>& rows, const Told& told, const std::vector<FindItem>& items,
             bool withThoseNotFound) {
    rows.push_back({{told.name, allPairs, "", told.outcome, std::to_string(sumOf(told.counts))}});
    for (std::size_t item = 0; item < told.counts.size(); ++item) {
        const std::size_t count = told.counts[item];
        if (count > 0 || withThoseNotFound)
            rows.push_back({{told.name, items[item].text, items[item].replacement, "", std::to_string(count)}});
    }
}

}  // namespace

DryRunFile lookAtFile(BytesRewrite& rewrite, const std::string& path, const Step& step) {
    try {
        // What a file that failed half way has left.
        rewrite.takeCounts();
        auto bytes = readForReplacement(path, step).bytes;
        const ContentHash before = hashOf(bytes);
        const bool changes = hashOf(rewrite.apply(std::move(bytes), path, step)) != before;
        return {.path = path, .counts = rewrite.takeCounts(), .changes = changes};
    } catch (const std::exception&) {
        return {.path = path, .failure = currentReason()};
    }
}

std::vector<ReportView::Row> dryRunRows(const std::vector<FindItem>& items, const std::vector<DryRunFile>& files) {
    Counts all(items.size());
    for (const DryRunFile& file : files)
        std::transform(file.counts.begin(), file.counts.end(), all.begin(), all.begin(), std::plus<>());
    std::vector<ReportView::Row> rows;
    addRows(rows, {allFiles, all, outcomeOfAll(files)}, items, true);
    for (const DryRunFile& file : files) addRows(rows, {file.path, file.counts, outcomeOf(file)}, items, false);
    return rows;
}

DryRun::DryRun() : ToolDialog("frmDryRun", "Dry Run of Multifile Find and Replace") {
    ListView1.setRightAligned(countColumn);
}

void DryRun::take(std::vector<ReportView::Row> rows, std::size_t left) {
    ListView1.clear();
    ListView1.addRows(std::move(rows));
    ListView1.setSelectedRow(0);
    if (left > 0)
        Label1.setCaption("Cancelled; " + counted(left, "file") + (left == 1 ? " was" : " were") +
                          " not looked at. Nothing has been written. This is what Start would do:");
}

/// Numbers go from large to small, so that what is replaced most stands first.
void DryRun::ListView1_ColumnClick(int column) {
    if (column != countColumn) return ListView1.sortBy(column, true);
    std::vector<ReportView::Row> rows = ListView1.rows();
    std::stable_sort(rows.begin(), rows.end(), [](const ReportView::Row& left, const ReportView::Row& right) {
        return std::stoull(left.cells[countColumn]) > std::stoull(right.cells[countColumn]);
    });
    ListView1.clear();
    ListView1.addRows(std::move(rows));
    ListView1.setSelectedRow(0);
}

void showDryRun(const std::vector<FindItem>& items, const std::vector<DryRunFile>& files, std::size_t left) {
    const EventScope scope;
    toolForm<DryRun>().take(dryRunRows(items, files), left);
    openToolForm(toolForm<DryRun>(), ShowMode::modal);
}

}  // namespace kelvor
