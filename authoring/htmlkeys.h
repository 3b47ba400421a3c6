#pragma once

#include <functional>

#include "platform/edit_control.h"

namespace kelvor {

/// Turns key chords in one edit control into tags. Every document and every tool form with an edit control of its own
/// has one; it writes to that control only.
class htmlkeys {
public:
    /// What the chords of a document window do beside the tags; filled in once at start.
    struct FileChords {
        std::function<void()> previewDefault;
        std::function<void()> linkFileSys;
        std::function<void()> closeActiveForm;
        std::function<void()> cmdSaveAs;
    };
    static FileChords& fileChords();

    /// Watches `control`, which must outlive this object. When that fails the user is told and the keys stay off.
    void setHookedRTB(EditControl* control);
    EditControl* HookedRTB() const { return hookedRTB_; }

    /// Whether the file chords work: in a document window.
    bool fileKeysEnabled() const { return fileKeysEnabled_; }
    void setFileKeysEnabled(bool enabled) { fileKeysEnabled_ = enabled; }

    bool keysDisabled() const { return keysDisabled_; }

private:
    EditControl* hookedRTB_ = nullptr;
    bool fileKeysEnabled_ = false;
    bool keysDisabled_ = false;
    Connection keyDown_;
};

}  // namespace kelvor
