#pragma once

#include <string>
#include <vector>

#include "platform/edit_control.h"

namespace kelvor {

/// The edit control in memory: hidden working copies, and all tests without a window.
class TextBuffer : public EditControl {
public:
    using EditControl::EditControl;

    std::string_view textView() const override;
    int textLength() const override;
    int selStart() const override;
    int selLength() const override;
    int GetLineFromChar(int position) const override;
    int lineCount() const override;
    int lineIndex(int line) const override;
    using EditControl::characterCount;
    int characterCount() const override;
    int characterCount(int start, int end) const override;
    void undo() override;
    void SetFocus() override;

    /// The user's acts: a text typed at the selection, a key with its events, a press of a mouse button.
    void type(std::string_view text);
    void press(int keyCode, int shift = 0);
    void pressMouse(const MousePress& press) { mouseDown.raise(press); }

private:
    // to be completed by its implementer
};

}  // namespace kelvor
