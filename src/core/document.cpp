// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/document.h"

#include <exception>

#include "base/error.h"
#include "base/event.h"
#include "controls/common_dialog.h"
#include "controls/edit_control.h"
#include "controls/key_press.h"
#include "controls/mouse_press.h"
#include "controls/web_browser.h"
#include "core/file_on_disk.h"
#include "core/journal_list.h"
#include "core/recent_files.h"
#include "core/save_over.h"
#include "core/versions.h"
#include "editing/editor_colors.h"
#include "files/paths.h"
#include "frame/enablement.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "support/report_error.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// A key that goes with Ctrl through the Edit commands.
struct EditChord {
    int keyCode;
    EditAction action;
};

constexpr EditChord editChords[] = {{'V', EditAction::paste},
                                    {'C', EditAction::copy},
                                    {'X', EditAction::cut},
                                    {'Z', EditAction::undo},
                                    {'A', EditAction::selectAll}};

Answer askSaveAsUtf8(const std::string& name) {
    return beepAndShow({.text = "The text in [" + name + "] has characters that its file's encoding lacks.\r\n" +
                                "Do you want to save it as UTF-8?",
                        .title = "File Save Error",
                        .icon = MessageIcon::question,
                        .buttons = MessageButtons::yesNo});
}

}  // namespace

CDocument::CDocument(const DocumentSurroundings& surroundings)
    : documentManager_(surroundings.manager),
      docTabStrip_(surroundings.tabs),
      vdirManager_(surroundings.vdirManager),
      window_(std::make_unique<EditWindow>()),
      journal_(window_->Text1),
      untitledCount_(surroundings.untitledCount) {
    window_->onLoad = [this] { editWindow_Load(); };
    window_->load();
    uniqueDocID_ = mainForm().fileCount;
    strUniqueID_ = "TABID" + std::to_string(uniqueDocID_);
    connectWindow();
}

CDocument::~CDocument() = default;

void CDocument::connectWindow() {
    window_->activated.connect([this] { editWindow_Activate(); });
    window_->queryUnload.connect([this](bool& cancel) { editWindow_QueryUnload(cancel); });
    window_->unloaded.connect([this] { editWindow_Unload(); });
    EditControl& text = window_->Text1;
    text.changed.connect([this] { Text1_Change(); });
    text.selectionChanged.connect([this] { Text1_SelChange(); });
    text.clicked.connect([this] { showPosition(); });
    text.keyUp.connect([this](KeyPress&) { showPosition(); });
    text.keyDown.connect([this](KeyPress& key) { Text1_KeyDown(key); });
    text.mouseDown.connect([](const MousePress& press) {
        if (press.button == MousePress::right) rightPressed().raise();
    });
}

Event<>& CDocument::rightPressed() {
    static Event<> event;
    return event;
}

Event<>& CDocument::closed() {
    static Event<> event;
    return event;
}

Event<>& CDocument::frontChanged() {
    static Event<> event;
    return event;
}

Event<EditAction>& CDocument::editChord() {
    static Event<EditAction> event;
    return event;
}

void CDocument::editWindow_Load() {
    MDIForm1& frame = mainForm();
    EditControl& text = window_->Text1;
    keys_.setHookedRTB(&text);
    keys_.setFileKeysEnabled(true);
    tracker_ = std::make_unique<CRichTextBox>();
    tracker_->setHookedRichTextBox(text);
    activeFormName = window_->name();
    frame.Picture2.setVisible(true);
    isSaved_ = true;
    ++frame.fileCount;
    if (editorBackColor != -1 && editorForeColor != -1) {
        const ColorsChanging scope;
        text.setBackColor(editorBackColor);
        tracker_->setTextColor(editorForeColor);
    }
}

/// @param path  of its file; "" for one that gets the next untitled name
template <typename Load>
Outcome CDocument::begin(const std::string& path, const Load& load) {
    try {
        load();
        window_->showSource();
        docTabStrip_.add(strUniqueID_, longFileName_ + strUniqueID_);
        docTabStrip_.setTag(strUniqueID_, strUniqueID_);
        documentManager_.add(shared_from_this());
        isUntitled_ = path.empty();
        applyFileName(isUntitled_ ? "Untitled " + std::to_string(untitledCount_) : path);
        mainForm().mdi.show(*window_);
        isSaved_ = true;
        journal_.start(!isUntitled_);
        showSavedState();
        return Outcome::done();
    } catch (const std::exception&) {
        // The text that was loaded half way is nobody's change.
        isSaved_ = true;
        return loggedFailure(currentError());
    }
}

Outcome CDocument::OpenDoc(const std::string& path, bool isUntitled) {
    return begin(isUntitled ? "" : path, [&] {
        SourceRTB().LoadFile(path);
        if (isUntitled) SourceRTB().setEncoding(Encoding::utf8);
    });
}

Outcome CDocument::OpenLeft(LeftJournal& journal) {
    JournalContent content;
    Outcome opened = begin(journal.header.isUntitled ? "" : journal.header.name, [&] {
        content = readLeftJournal(journal);
        if (content.fault != JournalFault::none)
            throw Error(error_number::inputPastEnd, "A journal without a text", causeOf(content.fault));
        const Encoding encoding = content.save ? content.save->encoding : content.header.encoding;
        const auto stamp = fileSeen(content);
        SourceRTB().startFileText({std::move(content.text), encoding}, stamp);
    });
    if (!opened) return opened;
    journal_.adopt(std::move(journal.file), journal.path, content);
    isSaved_ = false;
    showSavedState();
    return opened;
}

void CDocument::applyFileName(const std::string& name) {
    if (name.empty()) return;
    longFileName_ = name;
    urlForDocument_ = vdirManager_.GetVDirForPath(name);
    shortFileName_ = fileNamePart(name);
    docTabStrip_.setCaption(strUniqueID_, shortFileName_);
    docTabStrip_.setTabToolTip(strUniqueID_, longFileName_);
    window_->setCaption(longFileName_);
}

/// @return nothing when the file holds something else than expected; then nothing was written
std::optional<Outcome> CDocument::writeText(const std::string& path, const std::optional<ContentHash>& expected) {
    EditControl& text = SourceRTB();
    const Encoding before = text.encoding();
    if (!text.canBeSaved()) {
        saveDeclined_ = askSaveAsUtf8(path) != Answer::yes;
        if (saveDeclined_) return Outcome::failed();
        text.setEncoding(Encoding::utf8);
    }
    journal_.beginSave({longFileName_, isUntitled_}, path);
    try {
        keepVersion(path);
        if (text.SaveFile(path, expected)) return Outcome::done();
        text.setEncoding(before);
        journal_.saveFailed();
        return std::nullopt;
    } catch (const std::exception&) {
        text.setEncoding(before);
        journal_.saveFailed();
        return loggedFailure(currentError());
    }
}

Outcome CDocument::SaveDoc(const std::string& path) {
    const std::string target = path.empty() ? longFileName_ : path;
    const bool isOwn = !isUntitled_ && target == longFileName_;
    saveDeclined_ = false;
    Outcome written = isOwn ? writeOwnFile() : *writeText(target);
    if (!written) return written;
    // The user may have given the document another name meanwhile.
    applyFileName(isOwn ? std::string(longFileName_) : target);
    documentIsAsOnDisk();
    frontChanged().raise();
    return written;
}

/// Asks before what the document has not seen is written over, and again when the file has changed since.
Outcome CDocument::writeOwnFile() {
    DiskContents found = contentsOnDisk(SourceRTB(), longFileName_);
    while (true) {
        const SaveOverChoice choice =
            found.isNews ? askSaveOver(SourceRTB(), longFileName_) : SaveOverChoice{.act = SaveOverAct::overwrite};
        if (choice.act == SaveOverAct::saveAs) return saveElsewhere(choice.path);
        saveDeclined_ = choice.act == SaveOverAct::cancel;
        if (saveDeclined_) return Outcome::failed();
        if (auto written = writeText(longFileName_, found.hash)) return *written;
        found = newsOnDisk(longFileName_);
    }
}

/// A failure is told here: the one who saves knows of no other path than the document's.
Outcome CDocument::saveElsewhere(const std::string& path) {
    Outcome saved = SaveDocAs(path);
    if (saved) {
        addOpenFile(path);
        recentFileMenu();
    } else if (!saveDeclined_) {
        reportSaveError(path, saved.cause());
        saveDeclined_ = true;
    }
    return saved;
}

Outcome CDocument::ReloadDoc() {
    try {
        SourceRTB().ReloadFile(longFileName_);
    } catch (const std::exception&) {
        return loggedFailure(currentError());
    }
    documentIsAsOnDisk();
    showSavedState();
    // The page is the file's too.
    if (viewMode_ == view_mode::preview) ChangeMode(viewMode_);
    return Outcome::done();
}

DiskState CDocument::lookAtDisk() {
    return isUntitled_ ? DiskState::same : lookAtFile(SourceRTB(), longFileName_);
}

void CDocument::documentIsAsOnDisk() {
    isSaved_ = true;
    journal_.start(true);
}

void CDocument::documentIsNotAsOnDisk() {
    isSaved_ = false;
    journal_.keepText({longFileName_, isUntitled_});
    showSavedState();
}

Outcome CDocument::SaveDocAs(const std::string& path) {
    Outcome saved = SaveDoc(path);
    if (!saved) return saved;
    isUntitled_ = false;
    showSavedState();
    return saved;
}

bool CDocument::CloseDoc() {
    window_->unload();
    return true;
}

bool CDocument::ChangeMode(int mode) {
    viewMode_ = mode;
    if (mode == view_mode::source) {
        window_->showSource();
        PreviewWB().Close();
    }
    if (mode == view_mode::preview && isSaved_ && !isUntitled_) {
        const bool mapped = vdirManager_.EnforceVDirs();
        const std::string& address = mapped ? urlForDocument_ : longFileName_;
        PreviewWB().Navigate(address, WebBrowser::noHistory | WebBrowser::noWriteToCache,
                             mapped ? vdirManager_.encodedURLForPath(longFileName_) : "");
        window_->StatusBar1.setSimpleText(address);
        window_->showPage();
    }
    SetDocFocus();
    return true;
}

/// Every road by which a document comes to the front leads here: a click, the end of another, its own opening.
void CDocument::editWindow_Activate() {
    docTabStrip_.setSelectedItem(strUniqueID_);
    enableMenuItems();
    ControlFunctionForMode(viewMode_);
    Text1_SelChange();
    SetDocFocus();
    frontChanged().raise();
}

void CDocument::showSavedState() const {
    mainForm().StatusBar1.setPanelText(panel::saved, isSaved_ ? "File Saved: Yes" : "File Saved: No");
}

void CDocument::Text1_Change() {
    if (colorsChanging) return;
    journal_.noteChange({longFileName_, isUntitled_});
    isSaved_ = false;
    showSavedState();
    documentManager_.UpdateChars(*this);
}

void CDocument::Text1_SelChange() {
    documentManager_.UpdateChars(*this);
    documentManager_.UpdateLineStats(*this);
    showSavedState();
}

void CDocument::showPosition() {
    // The key that goes up may have closed the window when it went down.
    if (tracker_) documentManager_.UpdateLineStats(*this);
}

void CDocument::Text1_KeyDown(KeyPress& key) {
    {
        const ColorsChanging scope;
        SourceRTB().setSelColor(editorForeColor);
    }
    if (key.shift != modifier::ctrl) return;
    for (const EditChord& chord : editChords) {
        if (key.keyCode != chord.keyCode) continue;
        key.keyCode = 0;
        editChord().raise(chord.action);
    }
}

bool CDocument::saveBeforeClosing() {
    if (isUntitled_) {
        using namespace dialog_flag;
        longFileName_ = pickSavePath("", overwritePrompt | hideReadOnly | noReadOnlyReturn);
    }
    const Outcome saved = SaveDoc(longFileName_);
    if (!saved && !saveDeclined_) reportSaveError(longFileName_, saved.cause());
    updateOpenFileCollection();
    return bool(saved);
}

void CDocument::editWindow_QueryUnload(bool& cancel) {
    if (isSaved_) return;
    const std::string name = isUntitled_ ? shortFileName_ : longFileName_;
    const Answer answer = platform().dialogs.message(
        {.text = "The text in [" + name + "] has changed.\r\nDo you want to save the changes?",
         .title = "Kelvor",
         .icon = MessageIcon::question,
         .buttons = MessageButtons::yesNoCancel});
    if (answer == Answer::no) return;
    // Whatever goes wrong below keeps the window open.
    cancel = true;
    if (answer == Answer::cancel) return;
    try {
        cancel = !saveBeforeClosing();
    } catch (const Error& error) {
        if (error.number() != error_number::dialogCancelled) throw;
    }
}

void CDocument::editWindow_Unload() {
    MDIForm1& frame = mainForm();
    if (documentManager_.count() == 1) {
        disableMenuItems();
        frame.StatusBar1.setPanelText(panel::position, "Line:");
        frame.StatusBar1.setPanelText(panel::characters, "Characters:");
        frame.StatusBar1.setPanelText(panel::saved, "File Saved: No Files Open ");
        unloadFixedForms();
    }
    closed().raise();
    journal_.drop();
    tracker_.reset();
    // A document that failed half way through opening has no tab.
    if (docTabStrip_.contains(strUniqueID_)) docTabStrip_.remove(strUniqueID_);
    documentManager_.remove(strUniqueID_);
    frame.mdi.remove(*window_);
    frontChanged().raise();
}

}  // namespace kelvor
