// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>
#include <stdexcept>

#include "batch/case_change.h"
#include "bench/driver_task.h"
#include "bench/unflushed.h"
#include "frame/main_frame.h"
#include "html/link_references.h"

namespace kelvor::bench {

namespace {

/// References that a file has after the run; their number is the same as before.
std::size_t referencesIn(const std::string& file, const std::string& attribute) {
    Form form("", "");
    TextBuffer text(form, "");
    text.LoadFile(file);
    return parseLinkReferences(text.textView(), attribute).links.size();
}

/// From Apply to the end of the run; the result is the number of the references.
TaskResult changeLinksTask(const std::vector<std::string>& arguments) {
    mainForm().load();  // a run ends with the frame
    CaseChange& form = toolForm<CaseChange>();
    form.load();
    form.optWhere.select(2);
    form.lblStartDir.setCaption(arguments.at(0));
    form.chkSubDir.setValue(true);
    form.cboFilter.setListIndex(1);
    for (std::size_t box = 0; box < form.chkVal.size(); ++box)
        form.chkVal[box].setValue(form.chkVal[box].caption() == arguments.at(1));
    form.optCase.select(arguments.at(2) == "lower" ? 0 : 1);
    std::optional<Unflushed> unflushed;
    if (arguments.at(3) == "unflushed") unflushed.emplace();
    TaskResult done = measured([&] { form.cmdApply.click(); });
    if (form.ListView1.count() == 0) throw std::runtime_error("no file was changed");
    std::size_t references = 0;
    for (const auto& row : form.ListView1.rows()) references += referencesIn(row.cells.at(0), arguments.at(1));
    done.result = std::to_string(references);
    form.unload();
    return done;
}

const RegisteredTask task("change_links", "TREE ATTRIBUTE lower|upper flushed|unflushed", changeLinksTask);

}  // namespace

}  // namespace kelvor::bench
