#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/combo_box.h"
#include "platform/edit_control.h"
#include "platform/form.h"
#include "platform/keyed_collection.h"
#include "platform/text_box.h"

namespace kelvor {

/// The name of the form into which inserted text goes; "editWindow" means the active document.
inline std::string activeFormName;
/// Set when a form's load procedure failed; showFormForContext reads and clears it.
inline bool formLoadFailed = false;
/// True while a program applies colours to edit controls: such a change is no edit.
inline bool colorsChanging = false;
/// The directory last used in any file dialog, without a separator at its end.
inline std::string lastDir;
/// Edit colours with red in the low byte; -1 when none was ever chosen.
inline int editorBackColor = -1;
inline int editorForeColor = -1;
/// The screen's font names, filled once at start by loadFontList().
inline std::vector<std::string> fontList;
/// The user's own strings, each under its label.
inline KeyedCollection<std::string> userStrings;

/// What some lists show for "none".
inline constexpr std::string_view notAvailable = "(n/a)";
/// The row of fillSizeCombo that is no size.
inline constexpr int noSizeRow = 7;
/// The name of the form that a document's window is.
inline constexpr std::string_view documentForm = "editWindow";

/// The text of the document in front; without one an error 91.
EditControl& activeText();

// Text into documents

/// Wraps the selection of the active document in `openText` and `closeText`, or puts `openText` before it when there is
/// no closing text. What was put in is selected with the old selection in it, and the document has the focus when
/// `activeFormName` is "editWindow". Without a selection the texts go in, the caret stands behind them, and the
/// focus stays where it is.
void insertAtSelection(std::string_view openText, std::optional<std::string_view> closeText = {});
/// The same in any control, but for the focus, which stays where it is.
/// @return whether there was a selection
bool insertAround(EditControl& control, std::string_view openText, std::optional<std::string_view> closeText = {});
void replaceSelectionText(EditControl& control, std::string_view text);
void setActiveFormName(const std::string& name);

/// Makes `control` the place for the text of other tools while `activeFormName` is `formName`; nullptr takes it away.
void setDeliveryTarget(const std::string& formName, EditControl* control);
/// Where a tool delivers its text: the control registered by the form that `activeFormName` names, otherwise the active
/// document's. Without a document error 91.
EditControl& deliveryTarget();
/// Whether tools deliver into the table wizard's cell.
bool deliversToTableWizard();

// Forms

enum class ShowMode {
    modal = 1,     ///< returns when the form is closed; a document then has the focus again
    floating = 2,  ///< modeless above the frame
    free = 3,      ///< modeless with no owner
};

/// Loads a tool form and shows it; a form whose load failed is unloaded instead, and `formLoadFailed` is cleared.
/// The caller clears that flag before.
void showFormForContext(Form& form, ShowMode mode);
/// Clears `formLoadFailed`, and then showFormForContext.
void openToolForm(Form& form, ShowMode mode);
/// What a failed load procedure does: sets `formLoadFailed` and says so.
void reportLoadError(const std::string& cause);
/// Sends every load procedure's failure to reportLoadError. Called once at start.
void installLoadErrorReporting();

/// Whether a document window is loaded, and whether there are two or more.
bool hasMdiChild();
/// Gives the keyboard to the document in front, if there is one: the last act of many a tool form.
void focusDocument();
bool hasManyMdiChildren();

// Fields

void selectAllOf(TextField& field);
void selectAllOf(EditControl& control);
bool textBoxEmpty(const TextBox& textBox);
/// Whether the text has `character`; the user has been told then.
bool rejectIllegalChar(const TextBox& textBox, const std::string& character);

/// Fills a list with the screen's fonts and, behind them, "(n/a)" or "(Font Name)"; shows its first row.
void fillFontCombo(ComboBox& combo, bool useNa);
/// Fills a list with the sizes -7 to +7 and, in their middle, "(n/a)" or "(Size)", which it shows.
void fillSizeCombo(ComboBox& combo, bool useNa);
/// Appends all fonts of the screen but the first one to `fontList`.
void loadFontList();

// Colours, with red in the low byte

/// The value of hexadecimal digits in either case: 0 for no digits, -1 when there is another character. A value of
/// more than 31 bits is an error 6.
int hexToLong(std::string_view text);
/// Six hexadecimal digits of a 24-bit value; more than 24 bits are an error 5. `value` is used up: the last
/// digit's value stays in it.
std::string longToHex(int& value);
/// "RRGGBB".
std::string colorToHtml(int value);
/// The colour of a text "#RRGGBB"; white for "" and "(n/a)". A group that is no hexadecimal number is an error 5.
int sampleColor(std::string_view text);

/// Paints a control in the colour of sampleColor.
template <typename Sample>
void showColorSample(std::string_view text, Sample& control) {
    control.setBackColor(sampleColor(text));
}

// Text

/// What stands between the first `startToken` and the `endToken` that follows it, both found without regard to case;
/// "" without the first. All that follows when `endToken` is "". An `endToken` that is not there is an error 5.
std::string extractBetween(std::string_view startToken, std::string_view endToken, std::string_view text);

// Files and programs

/// Whether a listing of `path` names something; see listingFinds. An error is reported and counts as no.
bool fileExists(const std::string& path);
/// Whether a name is free of the characters that no file name may have; the user has been told otherwise.
bool validFileName(std::string_view name);
/// What readWholeFile gives for a file that cannot be read.
constexpr std::string_view unreadableText = "error";
/// A file's text, UTF-8, as asReadWhole gives it; unreadableText when it cannot be read.
std::string readWholeFile(const std::string& path);
/// The text of a file; one with an end-of-file mark (character 26) before its last character gets CR LF behind each of
/// its lines, the last one too.
std::string asReadWhole(std::string text);
/// The temporary directory of this process, with a separator at its end.
std::string getTempDir();
/// The directory that the user picks; "" when cancelled.
std::string browseForFolder(const std::string& title);

/// Opens a file or an address with what the desktop has for it.
void openInDefaultBrowser(const std::string& target);
/// Starts a program and does not wait for it. A program that is not there is told with its command line.
/// @param program   an executable file's name as it stands, or a command line, in which double quotes hold a word
///                  together
/// @param argument  one more word, whatever characters it has
void runProgram(const std::string& program, const std::optional<std::string>& argument = {});

/// The words of a command line: one when the whole text names an executable file, otherwise split at blanks, with
/// double quotes holding a word together.
std::vector<std::string> commandWords(const std::string& program);

/// Whether links are written relative to the document.
bool useRelativePaths();

// Messages

/// @param cause  why, as Message::cause
void reportOpenError(const std::string& file, const std::string& cause = {});
void reportFileMissing(const std::string& file);
/// @param cause  why, as Message::cause
void reportSaveError(const std::string& file, const std::string& cause = {});

}  // namespace kelvor
