// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/outcome.h"
#include "controls/tab_strip.h"
#include "core/journal.h"
#include "core/virtual_directories.h"
#include "editing/edit_commands.h"
#include "editing/htmlkeys.h"
#include "editing/rich_text_box.h"
#include "files/content_hash.h"
#include "files/file_stamp.h"
#include "frame/edit_window.h"

namespace kelvor {

class CDocument;
struct LeftJournal;

/// What a document asks of the collection that owns it.
class DocumentOwner {
public:
    virtual ~DocumentOwner() = default;
    /// Shows the caret of a document in the frame's status bar, unless it has a selection.
    virtual bool UpdateLineStats(CDocument& document) = 0;
    /// Shows the length of a document's text in the frame's status bar.
    virtual bool UpdateChars(CDocument& document) = 0;
    virtual void add(std::shared_ptr<CDocument> document) = 0;
    /// Releases the document of that key; nothing when there is none.
    virtual void remove(const std::string& key) = 0;
    virtual std::size_t count() const = 0;
};

/// What a document works with.
struct DocumentSurroundings {
    DocumentOwner& manager;
    TabStrip& tabs;
    CVirtualDirManager& vdirManager;
    int untitledCount = 0;  ///< the number of its name while it has no file
};

/// One open file: its window, its names and whether it is saved.
class CDocument : public MappedFile, public std::enable_shared_from_this<CDocument> {
public:
    /// Makes and loads the window, which gives the document its number.
    explicit CDocument(const DocumentSurroundings& surroundings);
    ~CDocument() override;
    CDocument(const CDocument&) = delete;
    CDocument& operator=(const CDocument&) = delete;

    /// Takes a file's text, and a tab and a place among the open documents.
    /// @param isUntitled  the text only: the document gets the next untitled name
    /// @return failed when the file cannot be read; the document is then to be closed
    Outcome OpenDoc(const std::string& path, bool isUntitled);
    /// The same with the text that was left in a journal: changed, not saved, and kept on in that journal.
    /// @param journal  taken over when it succeeds
    Outcome OpenLeft(LeftJournal& journal);
    /// Writes the text over the file, in the encoding that it came in. A character that the encoding lacks brings up
    /// the question whether to save as UTF-8; the document's own file that holds what the document has not seen,
    /// whether to overwrite it.
    /// @param path  "" for the document's own
    /// @return failed when it was not; text and saved state are as before
    Outcome SaveDoc(const std::string& path);
    /// SaveDoc, after which the document has a file of its own.
    Outcome SaveDocAs(const std::string& path);
    /// Whether the last SaveDoc failed by the user's own No, or has told its failure: there is nothing more to tell.
    bool saveDeclined() const { return saveDeclined_; }
    /// Tells in the frame's status bar whether the document is saved.
    void showSavedState() const;
    /// What has become of the file since it was read, saved or accepted last; the same without a file.
    DiskState lookAtDisk();
    /// Takes in what the file holds by now, as one step that can be undone.
    /// @return failed when it cannot be read; then nothing has changed
    Outcome ReloadDoc();
    /// The text is what the file on the disk holds, and counts as saved.
    void documentIsAsOnDisk();
    /// The text is another than the file's, though nobody has typed.
    void documentIsNotAsOnDisk();
    /// Unloads the window, which asks first when the text is not saved.
    bool CloseDoc();
    /// Brings source or preview to the top, with the keyboard; preview only of a saved file.
    bool ChangeMode(int mode);
    /// Gives the keyboard to what the window shows: the source, or the page in preview.
    void SetDocFocus() { window_->focusPane(); }

    const std::string& ShortFileName() const { return shortFileName_; }
    const std::string& LongFileName() const override { return longFileName_; }
    bool IsSaved() const { return isSaved_; }
    bool IsUntitled() const { return isUntitled_; }
    int UniqueDocID() const { return uniqueDocID_; }
    /// "TABID" and the number: the key of the document and of its tab.
    const std::string& StrUniqueID() const { return strUniqueID_; }
    int ViewMode() const { return viewMode_; }
    /// Clears the number and gives 0.
    int UntitledCount() { return untitledCount_ = 0; }
    const std::string& URLForDocument() const { return urlForDocument_; }
    void setURLForDocument(const std::string& url) override { urlForDocument_ = url; }

    EditWindow& SourceForm() const { return *window_; }
    EditControl& SourceRTB() const { return window_->Text1; }
    WebBrowser& PreviewWB() const { return window_->WebBrowser1; }
    CRichTextBox& objKVRichTextBox() const { return *tracker_; }
    /// What keeps the text until it is saved. Whoever brings the text to what its file holds starts it anew.
    Journal& journal() { return journal_; }

    /// Raised for a right press in the text, to show the popup menu.
    static Event<>& rightPressed();
    /// Raised when a document closes, whichever it is.
    static Event<>& closed();
    /// Raised when another document may be in front, or another state of its file known.
    static Event<>& frontChanged();
    /// Raised for the clipboard and undo chords: what Edit_Action is to do.
    static Event<EditAction>& editChord();

private:
    void connectWindow();
    void editWindow_Load();
    void editWindow_Activate();
    void editWindow_QueryUnload(bool& cancel);
    void editWindow_Unload();
    void showPosition();
    void Text1_Change();
    void Text1_SelChange();
    void Text1_KeyDown(KeyPress& key);
    template <typename Load>
    Outcome begin(const std::string& path, const Load& load);
    void applyFileName(const std::string& name);
    bool saveBeforeClosing();
    std::optional<Outcome> writeText(const std::string& path, const std::optional<ContentHash>& expected = {});
    Outcome writeOwnFile();
    Outcome saveElsewhere(const std::string& path);

    DocumentOwner& documentManager_;
    TabStrip& docTabStrip_;
    CVirtualDirManager& vdirManager_;
    std::unique_ptr<EditWindow> window_;
    Journal journal_;
    htmlkeys keys_;
    std::unique_ptr<CRichTextBox> tracker_;
    std::string shortFileName_;
    std::string longFileName_;
    std::string urlForDocument_;
    std::string strUniqueID_;
    int uniqueDocID_ = 0;
    int untitledCount_;
    int viewMode_ = view_mode::source;
    bool isSaved_ = true;
    bool isUntitled_ = true;
    bool saveDeclined_ = false;
};

}  // namespace kelvor
