// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QsciScintillaBase;

namespace kelvor::qt {

/// Tells a screen reader what becomes of the text and the caret of an edit control; does nothing while none is active.
/// Scintilla's own notices count the characters in front of each place one by one, which takes longer than most
/// changes.
class TextSpeech : private QAccessible::ActivationObserver {
public:
    /// @param widget  outlives this
    explicit TextSpeech(QsciScintillaBase& widget);
    ~TextSpeech() override;
    TextSpeech(const TextSpeech&) = delete;
    TextSpeech& operator=(const TextSpeech&) = delete;

    /// `length` bytes are about to be put in or taken out at `start`.
    void changing(bool insertion, int start, int length);
    /// A change or a move is over.
    void tell();

    /// While it lives a screen reader hears nothing. At its end it hears as one change what has become of the text.
    /// They do not nest.
    class Pause {
    public:
        explicit Pause(TextSpeech& speech);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        TextSpeech& speech_;
        QPointer<QsciScintillaBase> widget_;
    };

private:
    struct Range {
        long start = 0;
        long end = 0;
        bool operator==(const Range&) const = default;
    };
    void accessibilityActiveChanged(bool active) override;
    bool isHeard() const;
    void tellInserted();
    void tellCaret();

    QsciScintillaBase& widget_;
    bool active_ = QAccessible::isActive();
    bool paused_ = false;
    /// The text that the reader knows while it hears nothing.
    std::optional<std::string> heard_;
    /// Put in and not told of yet: the notice of it comes before the text.
    Range inserted_;
    /// Anchor and caret as last told.
    Range caret_;
};

/// Hears the notices in place of the screen readers, active or not; an empty one gives them back to these. Tests set
/// their own: where no reader can come the toolkit drops what it is told.
void setSpeechSink(std::function<void(QAccessibleEvent&)> hear);

/// The control's text in Scintilla's own memory; good until the next change.
std::string_view shownText(const QsciScintillaBase& widget);
/// Part of it; both positions are within the text.
std::string_view shownText(const QsciScintillaBase& widget, long start, long end);
/// The characters in front of a position: readers count these.
int offsetOf(const QsciScintillaBase& widget, long position);

}  // namespace kelvor::qt
