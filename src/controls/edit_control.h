// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "controls/control.h"
#include "controls/key_press.h"
#include "controls/mouse_press.h"
#include "files/file_stamp.h"
#include "text/changed_range.h"
#include "text/code_points.h"
#include "text/text_encoding.h"
#include "text/text_search.h"

namespace kelvor {

/// The plain text that every command works on. The text is valid UTF-8; positions and lengths are bytes of it,
/// from 0, and CR LF counts as two. Line ends stay as they are; CR LF, CR and LF each end a line.
/// A position in the middle of a character moves to the character's start, one behind the text to its end.
class EditControl : public Control {
public:
    using Control::Control;

    /// The whole text. A write replaces it, sets the caret to the start, and always raises `changed`;
    /// it can be undone. Bytes that are not UTF-8 are written as U+FFFD. What is written, here and in setSelText,
    /// must not be a view of the control's own text. Throws Error 7 when memory does not suffice.
    std::string text() const { return std::string(textView()); }
    void setText(std::string_view text);
    /// The same without a way back: the control holds another text from now on.
    void startText(std::string_view text);
    /// The text without a copy; good until the next change.
    virtual std::string_view textView() const = 0;
    /// A part of it, which must be there; cheap where the last change was.
    std::string_view textPart(int start, int length) const {
        return textFrom(start).substr(0, static_cast<std::size_t>(length));
    }
    virtual int textLength() const = 0;

    /// The selection's start, or the caret. A write sets the selection's length to 0.
    virtual int selStart() const = 0;
    void setSelStart(int position);
    virtual int selLength() const = 0;
    /// Selects from selStart; what lies behind the text is cut off.
    void setSelLength(int length);
    std::string selText() const;
    /// Replaces the selection, leaves the caret behind the new text, and always raises `changed`.
    void setSelText(std::string_view text);

    /// One colour for all text, red in the low byte; -1 is the desktop's. A write raises `changed`.
    int selColor() const { return selColor_; }
    void setSelColor(int color);
    int backColor() const { return backColor_; }
    void setBackColor(int color);

    /// Searches, selects the match and scrolls it into view.
    /// @param start    from where; left out: the selection is searched when there is one, else the whole text
    /// @param end      up to where; left out or behind the text: to its end
    /// @return the match's position, or -1 (the selection stays). An empty text, a start at or behind the end and a
    ///         negative start find nothing
    int Find(std::string_view text, std::optional<int> start = {}, std::optional<int> end = {},
             SearchOptions options = {});

    /// The line, from 0, that holds a position.
    virtual int GetLineFromChar(int position) const = 0;
    virtual int lineCount() const = 0;
    /// The position of the first character of a line, or of the caret's line for -1. Beyond the lines: the end.
    virtual int lineIndex(int line) const = 0;
    /// Characters (not bytes) in the whole text, and in [start, end).
    virtual int characterCount() const = 0;
    virtual int characterCount(int start, int end) const = 0;

    /// Replaces the text with a file's, keeps the file's encoding and line end, forgets the undo steps, raises
    /// `changed`. Throws what readFile throws, and then nothing has changed.
    void LoadFile(const std::string& path);
    /// Writes the text over the file in place, in the encoding kept. Throws what saveFileInPlace throws;
    /// error 5 when canBeSaved() is false.
    /// @param expected  as saveFileInPlace takes it
    /// @return false when the file holds something else than expected, and then nothing was written
    bool SaveFile(const std::string& path, const std::optional<ContentHash>& expected = {});
    /// Takes in what a file holds by now, as one step that can be undone; the caret stays in its place as far as the
    /// text round it does. Keeps the file's encoding and line end. Throws what readFile throws, and then nothing has
    /// changed.
    void ReloadFile(const std::string& path);
    /// Begins with the text of a file that held it, or is to hold it: keeps its encoding and line end, and the stamp.
    void startFileText(const DecodedText& text, const std::optional<FileStamp>& stamp);
    /// The file as it was when it was loaded or saved last; nothing before that.
    const std::optional<FileStamp>& fileStamp() const { return fileStamp_; }
    void setFileStamp(const std::optional<FileStamp>& stamp) { fileStamp_ = stamp; }

    /// What has changed since the last call, or since the text was begun anew.
    ChangedRange takeChange() { return std::exchange(change_, {}); }

    /// Whether the user can change nothing: no key, paste, drop or step back does. What the program writes goes in.
    bool isReadOnly() const { return readOnly_; }
    void setReadOnly(bool readOnly);

    Encoding encoding() const { return encoding_; }
    void setEncoding(Encoding encoding) { encoding_ = encoding; }
    /// Whether the encoding kept has every character of the text.
    bool canBeSaved() const;

    /// What Enter puts in: the line end that the loaded text has most often, CR LF where it has none.
    const std::string& lineEnd() const { return lineEnd_; }

    /// The clipboard commands carry plain text only. Cut and copy without a selection do nothing. What is pasted
    /// gets the line ends of lineEnd().
    void cut();
    void copy();
    void paste();
    /// Takes the last step back; the caret goes to where that was. Nothing inside a Batch.
    void undo();
    /// Does the step again that was taken back last, unless the text has changed since. Nothing inside a Batch.
    void redo();
    void selectAll();
    /// Moves the windows in front of the selection aside, those too that come up next. For a selection that the
    /// program has made and the user is to look at.
    virtual void uncoverSelection() {}

    /// Puts the control on top of its pane.
    void ZOrder() { tell(Aspect::order); }

    /// Raised after each change of the text or its colour, and after each move of the caret or the selection.
    Event<> changed;
    Event<> selectionChanged;
    Event<> clicked;
    Event<KeyPress&> keyDown;
    Event<KeyPress&> keyUp;
    Event<MousePress> mouseDown;

    /// While it lives all changes are one undo step, nothing is painted, Find and setSelText leave the visible
    /// selection alone, and `changed` and `selectionChanged` wait for its end. Batches nest.
    class Batch {
    public:
        explicit Batch(EditControl& control) : control_(control) { control_.enterBatch(); }
        ~Batch() { control_.leaveBatch(); }
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        EditControl& control_;
    };

protected:
    /// The surface under the operations above. None of these raises an event; positions are within the text
    /// and `text` is valid UTF-8.
    virtual void replaceRange(int start, int length, std::string_view text) = 0;
    virtual void select(int start, int length) = 0;
    virtual void scrollToSelection() = 0;
    /// Gives a text part by part: the next one, good until the next call, and none at the end. Nothing when it turns
    /// out that there is no such text.
    using TextParts = std::function<std::optional<std::string_view>()>;
    /// The whole text anew, with no undo step left; false when there is none, and then nothing has changed.
    /// @param bytes  about how many will come
    virtual bool loadText(std::size_t bytes, const TextParts& next) = 0;
    /// Takes the last step back and moves the caret there; false when there is none.
    virtual bool undoStep() = 0;
    virtual bool redoStep() = 0;
    virtual void showColors() = 0;
    virtual void showReadOnly() {}
    virtual void beginBatch() = 0;
    virtual void endBatch() = 0;
    /// The text from `start` to the end, cheap right behind the last change. Good until the next change.
    virtual std::string_view textFrom(int start) const = 0;
    /// The nearest character start at or before `position`, within the text.
    virtual int characterStart(int position) const = 0;

    /// The surface calls this for each change of the text, in their order; before or after it does not matter.
    void noteReplaced(int start, int removed, int inserted) { change_.add(start, removed, inserted); }

    bool inBatch() const { return batchDepth_ > 0; }
    void raiseChanged();
    void raiseSelectionChanged();

private:
    template <typename Act>
    void perform(Act act);
    bool loadAnew(std::size_t bytes, const TextParts& next);
    bool loadUtf8(const std::string& path);
    void loadDecoded(const std::string& path);
    struct FileText {
        DecodedText decoded;
        FileStamp stamp;
    };
    static FileText readText(const std::string& path);
    void takeKind(const DecodedText& text);
    const TextSearch& searchFor(std::string_view text, SearchOptions options);
    void enterBatch();
    void leaveBatch();

    /// The search of the last Find; a run of equal ones makes it ready once.
    struct Search {
        std::string text;
        SearchOptions options;
        TextSearch search;
    };
    std::optional<Search> search_;
    int selColor_ = -1;
    int backColor_ = -1;
    bool readOnly_ = false;
    Encoding encoding_ = Encoding::utf8;
    std::string lineEnd_ = "\r\n";
    std::optional<FileStamp> fileStamp_;
    ChangedRange change_;
    int batchDepth_ = 0;
    bool changedInBatch_ = false;
    bool selectionChangedInBatch_ = false;
};

}  // namespace kelvor
