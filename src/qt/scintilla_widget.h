// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Qsci/qsciscintillabase.h>

#include <string_view>

#include "controls/edit_control.h"
#include "qt/text_speech.h"

namespace kelvor::qt {

/// The widget under an edit control: its looks, its keys, and the user's acts given on as the control's events.
/// Outlives the control when it must, and then takes part in nothing any more.
class ScintillaWidget : public QsciScintillaBase {
public:
    /// What the control does for the widget.
    class Owner {
    public:
        /// `length` bytes are about to be put in or taken out at `start`.
        virtual void noteChange(bool insertion, int start, int length) = 0;
        /// An act of the user is over; raises what came of it.
        virtual void reportActs() = 0;
        virtual void widgetEnded() = 0;

    protected:
        ~Owner() = default;
    };

    ScintillaWidget(EditControl& control, Owner& owner);
    ~ScintillaWidget() override;

    /// Leaves the control, which ends; the widget ends with the event in progress, or now when there is none.
    void release();

    /// nullptr once it has ended.
    EditControl* control() const { return control_; }

    /// What a screen reader hears.
    TextSpeech& speech() { return speech_; }

    /// Moves the windows over the selection aside, now and once the events in progress are over.
    void uncoverSelection();

    /// Text and background colours, red in the low byte; -1 is the palette's.
    void showColors(int textColor, int backColor);

    /// The caret was put elsewhere by no key: the next one goes up and down from there. Not before, since for its
    /// column a line is laid out whole.
    void leaveColumn() { leavesColumn_ = true; }

    /// An empty document of its own kind: UTF-8, with no style bytes. The undo steps of the one before are gone.
    /// @param bytes  what there is room for
    void openDocument(std::size_t bytes);

    long send(unsigned int message, unsigned long first = 0, long second = 0) const {
        return SendScintilla(message, first, second);
    }
    /// The messages that take a text: NUL bytes are text like any other.
    long send(unsigned int message, std::string_view text) const {
        return SendScintilla(message, static_cast<uintptr_t>(text.size()), text.empty() ? "" : text.data());
    }

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    QByteArray fromMimeData(const QMimeData* source, bool& rectangular) const override;

private:
    template <typename Handle>
    bool handled(Handle handle);
    QRect selectionOnScreen() const;
    void openPopupAtCaret();
    void setUpText();
    void setUpKeys();
    void showFont();
    bool runClipboardKey(const QKeyEvent& event);
    void takeLineEnd() const;
    void type(QKeyEvent* event);

    EditControl* control_;
    Owner& owner_;  ///< ends with the control
    /// In a form of fields the text is one of them: Tab leaves it, and its lines end at its width.
    const bool isField_;
    int handling_ = 0;
    TextSpeech speech_{*this};
    int textColor_ = -1;
    int backColor_ = -1;
    bool leavesColumn_ = false;
};

}  // namespace kelvor::qt
