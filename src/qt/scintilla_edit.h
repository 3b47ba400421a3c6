// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "controls/edit_control.h"
#include "qt/scintilla_widget.h"

namespace kelvor::qt {

/// The edit control as a widget. When the widget's parent ends it first, the control is empty and
/// takes nothing in any more.
class ScintillaEdit : public EditControl, private ScintillaWidget::Owner {
public:
    ScintillaEdit(Form& form, std::string name);
    ~ScintillaEdit() override;

    /// The widget, to be placed in a window; nullptr when its parent has ended it.
    QWidget* widget() const;

    /// Whether lines that are longer than the widget go on below; so they do in a dialog.
    void setWordWrap(bool wraps);

    /// Whether typing overwrites, which the Insert key switches.
    bool overtype() const;
    Event<> overtypeChanged;

    std::string_view textView() const override;
    int textLength() const override;
    int selStart() const override;
    int selLength() const override;
    int GetLineFromChar(int position) const override;
    int lineCount() const override;
    int lineIndex(int line) const override;
    int characterCount() const override;
    int characterCount(int start, int end) const override;
    void SetFocus() override;
    void uncoverSelection() override;

protected:
    void replaceRange(int start, int length, std::string_view text) override;
    void select(int start, int length) override;
    void scrollToSelection() override;
    bool loadText(std::size_t bytes, const TextParts& next) override;
    bool undoStep() override;
    bool redoStep() override;
    void showColors() override;
    void showReadOnly() override;
    void beginBatch() override;
    void endBatch() override;
    std::string_view textFrom(int start) const override;
    int characterStart(int position) const override;

private:
    struct Range {
        int start = 0;
        int length = 0;
        bool operator==(const Range&) const = default;
    };

    int send(unsigned int message, unsigned long first = 0, long second = 0) const;
    std::string_view bytesAt(int start, int length) const;
    Range shownSelection() const;
    bool appendAll(const TextParts& next);
    bool goStep(unsigned int question, unsigned int step);

    /// While it lives the program writes, whatever the user may not.
    class Writing;

    void noteChange(bool insertion, int start, int length) override;
    void reportActs() override;
    void widgetEnded() override { widget_ = nullptr; }

    ScintillaWidget* widget_ = nullptr;

    /// Characters of the whole text, without those of the last insertion, which are counted once it is done.
    mutable int characters_ = 0;
    mutable Range inserted_;
    void countInserted() const;

    /// What the handlers know of.
    bool textChanged_ = false;
    Range knownSelection_;
    bool knownOvertype_ = false;

    /// The selection inside a batch; the one on the screen follows at its end.
    Range batchSelection_;
    bool batchScrolls_ = false;
    std::optional<TextSpeech::Pause> batchPause_;
};

}  // namespace kelvor::qt
