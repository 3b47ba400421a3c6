// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/htmlkeys.h"

#include <exception>
#include <string>

#include "editing/anchors.h"
#include "editing/insertion.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace kelvor {

namespace {

enum class Modifiers { ctrlAlone, ctrlShift };
enum class ControlGets { nothing, theKey };

bool isDown(const KeyPress& key, Modifiers modifiers) {
    if (modifiers == Modifiers::ctrlAlone) return key.shift == modifier::ctrl;
    return (key.shift & modifier::shift) != 0 && (key.shift & modifier::ctrl) != 0;
}

/// Whether `key` is the chord of that row, whose key is swallowed then if the row says so.
template <typename Row>
bool takes(const Row& row, KeyPress& key) {
    if (key.keyCode != row.keyCode || !isDown(key, row.modifiers)) return false;
    if (row.controlGets == ControlGets::nothing) key.keyCode = 0;
    return true;
}

struct FileChord {
    int keyCode;
    Modifiers modifiers;
    ControlGets controlGets;
    std::function<void()> htmlkeys::FileChords::*act;
    bool focuses;  ///< whether the control has the focus afterwards
};

}  // namespace

struct htmlkeys::Chord {
    int keyCode;
    Modifiers modifiers;
    ControlGets controlGets;
    void (htmlkeys::*act)(const Chord&);
    std::string_view openText = {};
    std::string_view closeText = {};
};

htmlkeys::FileChords& htmlkeys::fileChords() {
    static FileChords chords;
    return chords;
}

void htmlkeys::setHookedRTB(EditControl* control) {
    keyDown_.reset();
    hookedRTB_ = control;
    if (!control) return;
    try {
        keyDown_ = control->keyDown.connectScoped([this](KeyPress& key) { HookedRTB_KeyDown(key); });
    } catch (const std::exception&) {
        keysDisabled_ = true;
        platform().dialogs.message(
            {.text = "Could not hookup the HTML Key press monitor class to this window.  HTML shortcut keys have been "
                     "disabled for this window.",
             .title = "HTML Shortcut keys not available",
             .icon = MessageIcon::critical});
    }
}

void htmlkeys::HookedRTB_KeyDown(KeyPress& key) {
    if (keysDisabled_) return;
    if (fileKeysEnabled_) runFileChords(key);
    runHtmlChords(key);
}

void htmlkeys::runFileChords(KeyPress& key) {
    using enum ControlGets;
    using enum Modifiers;
    static constexpr FileChord chords[] = {
        {'D', ctrlShift, nothing, &FileChords::previewDefault, false},
        {'L', ctrlShift, nothing, &FileChords::linkFileSys, false},
        {'W', ctrlShift, theKey, &FileChords::closeActiveForm, false},
        {'S', ctrlShift, nothing, &FileChords::cmdSaveAs, true},
    };
    for (const FileChord& chord : chords) {
        if (!takes(chord, key)) continue;
        (fileChords().*chord.act)();
        if (chord.focuses) hookedRTB_->SetFocus();
    }
}

void htmlkeys::runHtmlChords(KeyPress& key) {
    using enum ControlGets;
    using enum Modifiers;
    static constexpr Chord chords[] = {
        {'1', ctrlShift, nothing, &htmlkeys::wrapSelection, "<H1>", "</H1>"},
        {'2', ctrlShift, nothing, &htmlkeys::wrapSelection, "<H2>", "</H2>"},
        {'3', ctrlShift, nothing, &htmlkeys::wrapSelection, "<H3>", "</H3>"},
        {'4', ctrlShift, nothing, &htmlkeys::wrapSelection, "<H4>", "</H4>"},
        {'5', ctrlShift, nothing, &htmlkeys::wrapSelection, "<H5>", "</H5>"},
        {'6', ctrlShift, nothing, &htmlkeys::wrapSelection, "<H6>", "</H6>"},
        {'Q', ctrlShift, nothing, &htmlkeys::wrapSelection, "\"", "\""},
        {'I', ctrlShift, nothing, &htmlkeys::wrapSelection, "<LI>", "</LI>"},
        {'A', ctrlShift, nothing, &htmlkeys::insertFreeAnchor},
        {'N', ctrlShift, nothing, &htmlkeys::insertNameAnchor},
        {'K', ctrlShift, theKey, &htmlkeys::wrapSelection, "<BLOCKQUOTE>", "</BLOCKQUOTE>"},
        {key_code::space, ctrlShift, theKey, &htmlkeys::replaceSelection, "&nbsp;"},
        {'C', ctrlShift, theKey, &htmlkeys::wrapSelection, "<CENTER>", "</CENTER>"},
        {'P', ctrlShift, theKey, &htmlkeys::wrapSelection, "<P>", "</P>"},
        {'B', ctrlShift, theKey, &htmlkeys::replaceSelection, "<BR>"},
        {'B', ctrlAlone, theKey, &htmlkeys::wrapSelection, "<B>", "</B>"},
        {'I', ctrlAlone, nothing, &htmlkeys::wrapSelection, "<I>", "</I>"},
        {'U', ctrlAlone, theKey, &htmlkeys::wrapSelection, "<U>", "</U>"},
    };
    for (const Chord& chord : chords)
        if (takes(chord, key)) (this->*chord.act)(chord);
}

void htmlkeys::wrapSelection(const Chord& chord) {
    insertInHooked(chord.openText, chord.closeText);
}

void htmlkeys::replaceSelection(const Chord& chord) {
    hookedRTB_->setSelText(chord.openText);
    hookedRTB_->SetFocus();
}

void htmlkeys::insertFreeAnchor(const Chord& /*chord*/) {
    const std::string address = askAnchorUrl();
    if (!address.empty()) insertInHooked(openingAnchor(address), closingAnchor);
    hookedRTB_->SetFocus();
}

void htmlkeys::insertNameAnchor(const Chord& /*chord*/) {
    const std::string name = askAnchorName();
    if (!name.empty()) insertInHooked(openingNameAnchor(name), closingAnchor);
    hookedRTB_->SetFocus();
}

void htmlkeys::insertInHooked(std::string_view openText, std::string_view closeText) {
    if (insertAround(*hookedRTB_, openText, closeText)) hookedRTB_->SetFocus();
}

}  // namespace kelvor
