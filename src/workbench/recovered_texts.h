// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/label.h"
#include "controls/report_view.h"
#include "core/journal_list.h"
#include "frame/tool_dialog.h"

namespace kelvor {

/// What a left text is, for a list: its name, or why it has none.
std::string leftTextName(const LeftJournal& journal);

/// How long it is; "" for what has no text.
std::string leftTextSize(const LeftJournal& journal);

/// What is to be known of a left text before it is brought back, in sentences.
/// @param onDisk  the text of its file by now; nothing when there is none, or none that can be read
std::string describeLeftText(const JournalContent& content, std::optional<std::string_view> onDisk);

/// The texts that copies of the program have left unsaved which ended in disorder. Those with which nothing is done
/// stay where they are.
class RecoveredTexts : public ToolDialog {
public:
    RecoveredTexts();

    Label lblTexts{*this, "lblTexts", "&These texts were not saved when Kelvor ended without being closed:"};
    ReportView lstTexts{*this,
                        "lstTexts",
                        {"Name", "When", "Size"},
                        {.doubleClicked = &RecoveredTexts::cmdBringBack_Click,
                         .returnPressed = &RecoveredTexts::cmdBringBack_Click,
                         .chosen = &RecoveredTexts::lstTexts_Chosen}};
    Label lblAbout{*this, "lblAbout"};
    Label lblOthers{*this, "lblOthers"};
    Button cmdBringBack{*this, "cmdBringBack", "&Bring Back", &RecoveredTexts::cmdBringBack_Click};
    Button cmdLook{*this, "cmdLook", "&Look...", &RecoveredTexts::cmdLook_Click};
    Button cmdDiscard{*this, "cmdDiscard", "&Discard...", &RecoveredTexts::cmdDiscard_Click};
    Button cmdClose{*this, "cmdClose", "&Close", &RecoveredTexts::unload};
    Button cmdHelp{*this, "cmdHelp", "&Help", &RecoveredTexts::showHelp};

    /// Takes what is to be listed; before the window is made.
    void take(LeftJournals journals);

private:
    void Form_Load() override;
    void lstTexts_Chosen();
    void cmdBringBack_Click();
    void cmdLook_Click();
    void cmdDiscard_Click();

    std::vector<int> chosenRows() const;
    static std::string about(const LeftJournal& journal);
    static bool bringBack(LeftJournal& journal);
    template <typename Act>
    void withChosen(Act act);

    std::vector<std::unique_ptr<LeftJournal>> journals_;  ///< one for each row
    std::size_t others_ = 0;
};

/// Shows the texts that were left, if there are any, and returns when that is closed.
void offerLeftTexts();

}  // namespace kelvor
