// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string_view>

#include "controls/edit_control.h"
#include "controls/key_press.h"

namespace kelvor {

/// Turns key chords in one edit control into tags. Every document and every tool form with an edit control of its own
/// has one; it writes to that control only.
class htmlkeys {
public:
    /// What the chords of a document window do beside the tags; filled in once at start.
    struct FileChords {
        std::function<void()> previewDefault;
        std::function<void()> linkFileSys;
        /// Unloads the window in front and gives the next one the focus.
        std::function<void()> closeActiveForm;
        std::function<void()> cmdSaveAs;
    };
    static FileChords& fileChords();

    htmlkeys() = default;
    htmlkeys(const htmlkeys&) = delete;
    htmlkeys& operator=(const htmlkeys&) = delete;

    /// Watches `control`, which must outlive this object, and no other one; nullptr ends the watch. When the control
    /// cannot be watched the user is told and the keys stay off.
    void setHookedRTB(EditControl* control);
    EditControl* HookedRTB() const { return hookedRTB_; }

    /// Whether the file chords work: in a document window.
    bool fileKeysEnabled() const { return fileKeysEnabled_; }
    void setFileKeysEnabled(bool enabled) { fileKeysEnabled_ = enabled; }

    bool keysDisabled() const { return keysDisabled_; }

private:
    struct Chord;

    void HookedRTB_KeyDown(KeyPress& key);
    void runFileChords(KeyPress& key);
    void runHtmlChords(KeyPress& key);

    void wrapSelection(const Chord& chord);
    void replaceSelection(const Chord& chord);
    void insertFreeAnchor(const Chord& chord);
    void insertNameAnchor(const Chord& chord);
    void insertInHooked(std::string_view openText, std::string_view closeText);

    EditControl* hookedRTB_ = nullptr;
    bool fileKeysEnabled_ = false;
    bool keysDisabled_ = false;
    Connection keyDown_;
};

}  // namespace kelvor
