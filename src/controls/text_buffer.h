// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "controls/edit_control.h"
#include "controls/key_press.h"

namespace kelvor {

/// The edit control in memory: hidden working copies, and all tests without a window.
class TextBuffer : public EditControl {
public:
    using EditControl::EditControl;

    std::string_view textView() const override;
    int textLength() const override { return static_cast<int>(storage_.size()) - gapLength_; }
    int selStart() const override { return selStart_; }
    int selLength() const override { return selLength_; }
    int GetLineFromChar(int position) const override;
    int lineCount() const override;
    int lineIndex(int line) const override;
    int characterCount() const override { return characters_; }
    int characterCount(int start, int end) const override;
    void SetFocus() override;

    /// The user's acts: a text typed at the selection, a key with its events, a press of a mouse button.
    /// Keys that type or delete do so unless a handler swallows them; letters and digits without Ctrl and Alt.
    void type(std::string_view text) {
        if (!isReadOnly()) setSelText(text);
    }
    void press(int keyCode, int shift = 0);
    void pressMouse(const MousePress& press) { mouseDown.raise(press); }

protected:
    void replaceRange(int start, int length, std::string_view text) override;
    void select(int start, int length) override;
    void scrollToSelection() override {}
    bool loadText(std::size_t bytes, const TextParts& next) override;
    bool undoStep() override;
    bool redoStep() override;
    void showColors() override {}
    void beginBatch() override;
    void endBatch() override;
    std::string_view textFrom(int start) const override;
    int characterStart(int position) const override;

private:
    /// The way back of one replacement.
    struct Edit {
        int start;
        int inserted;
        std::string removed;
    };
    using Step = std::vector<Edit>;

    bool revertLast(std::vector<Step>& steps, std::vector<Step>& waysBack);
    void act(const KeyPress& key);
    void removeAt(int position);
    void exchange(int start, int length, std::string_view text);
    void moveGap(int position) const;
    void growGap(int length);
    char at(int position) const;
    void scanLines(int end) const;
    void dropLines(int from) const;

    /// The text with a gap where the last change was, so that a run of near changes moves few bytes.
    /// Reading may move the gap.
    mutable std::string storage_;
    mutable int gapStart_ = 0;
    int gapLength_ = 0;

    int characters_ = 0;
    int selStart_ = 0;
    int selLength_ = 0;
    std::vector<Step> steps_;
    /// What can be done again; the last one first.
    std::vector<Step> undone_;

    /// The starts of the lines as far as the text has been scanned for them.
    mutable std::vector<int> lineStarts_{0};
    mutable int scanned_ = 0;
};

}  // namespace kelvor
