#include "authoring/common.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/frame.h"
#include "platform/event.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/temporary_directory.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/text_search.h"
#include "support/desktop_tools.h"
#include "support/report_error.h"
#include "support/settings.h"

namespace kelvor {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

struct Delivery {
    std::string formName;
    EditControl* control = nullptr;
};

Delivery& delivery() {
    static Delivery target;
    return target;
}

int loadedChildren() {
    const auto& forms = loadedForms();
    return static_cast<int>(
        std::count_if(forms.begin(), forms.end(), [](const Form* form) { return form->kind() == Form::Kind::child; }));
}

Answer showCritical(const std::string& title, const std::string& text, const std::string& cause = {}) {
    return beepAndShow({.text = text, .cause = cause, .title = title, .icon = MessageIcon::critical});
}

/// The words of a command line; double quotes hold blanks together and are left out.
std::vector<std::string> wordsOf(const std::string& commandLine) {
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (const char character : commandLine) {
        if (character == '"') quoted = !quoted;
        const bool parts = character == ' ' && !quoted;
        if (!parts && !inWord) words.emplace_back();
        inWord = !parts;
        if (!parts && character != '"') words.back() += character;
    }
    return words;
}

}  // namespace

void insertAtSelection(std::string_view openText, std::optional<std::string_view> closeText) {
    EditControl& text = activeText();
    if (insertAround(text, openText, closeText) && activeFormName == documentForm) focusDocument();
}

bool insertAround(EditControl& control, std::string_view openText, std::optional<std::string_view> closeText) {
    const int selStart = control.selStart();
    const int selLength = control.selLength();
    const std::string inserted = std::string(openText) + control.selText() + std::string(closeText.value_or(""));
    control.setSelText(inserted);
    if (selLength == 0) return false;
    control.setSelStart(selStart);
    control.setSelLength(static_cast<int>(inserted.size()));
    return true;
}

void replaceSelectionText(EditControl& control, std::string_view text) {
    control.setSelText(text);
}

void setActiveFormName(const std::string& name) {
    activeFormName = name;
}

void setDeliveryTarget(const std::string& formName, EditControl* control) {
    delivery() = {formName, control};
}

EditControl& activeText() {
    return mainForm().activeForm().Text1;
}

EditControl& deliveryTarget() {
    const Delivery& target = delivery();
    if (target.control && target.formName == activeFormName) return *target.control;
    return mainForm().activeForm().Text1;
}

bool deliversToTableWizard() {
    return activeFormName == "frmTableWiz";
}

void showFormForContext(Form& form, ShowMode mode) {
    // A form that unloads while it is shown lives until this call is over.
    const EventScope scope;
    if (!formLoadFailed) form.load();
    if (std::exchange(formLoadFailed, false)) {
        form.unload();
        return;
    }
    if (mode != ShowMode::modal) return platform().windows.showModeless(form, mode == ShowMode::floating);
    platform().windows.showModal(form);
    if (activeFormName == documentForm) focusDocument();
}

void openToolForm(Form& form, ShowMode mode) {
    formLoadFailed = false;
    showFormForContext(form, mode);
}

void reportLoadError(const std::string& cause) {
    formLoadFailed = true;
    platform().dialogs.message({.text = "An error occurred while loading the form",
                                .cause = cause,
                                .title = "Load error",
                                .icon = MessageIcon::critical});
}

void installLoadErrorReporting() {
    setLoadErrorSink([](Form&, const Error& error) { reportLoadError(error.cause()); });
}

bool hasMdiChild() {
    return loadedChildren() >= 1;
}

void focusDocument() {
    if (!hasMdiChild()) return;
    mainForm().activeForm().activate();
    mainForm().activeForm().focusPane();
}

bool hasManyMdiChildren() {
    return loadedChildren() >= 2;
}

void selectAllOf(TextField& field) {
    field.setSelStart(0);
    field.setSelLength(static_cast<int>(field.text().size()));
}

void selectAllOf(EditControl& control) {
    control.setSelStart(0);
    control.setSelLength(control.textLength());
}

bool textBoxEmpty(const TextBox& textBox) {
    return textBox.text().empty();
}

bool rejectIllegalChar(const TextBox& textBox, const std::string& character) {
    if (textBox.text().find(character) == std::string::npos) return false;
    showCritical("Illegal Character Found!",
                 "You have used the " + character +
                     " character.  This is an illegal character, you must remove it before this operation can be "
                     "completed.");
    return true;
}

void fillFontCombo(ComboBox& combo, bool useNa) {
    for (const std::string& font : fontList) combo.addItem(font);
    combo.addItem(useNa ? std::string(notAvailable) : "(Font Name)");
    combo.setListIndex(0);
}

void fillSizeCombo(ComboBox& combo, bool useNa) {
    constexpr int largest = 7;
    for (int size = -largest; size < 0; ++size) combo.addItem(std::to_string(size));
    combo.addItem(useNa ? std::string(notAvailable) : "(Size)");
    for (int size = 1; size <= largest; ++size) combo.addItem("+" + std::to_string(size));
    combo.setListIndex(noSizeRow);
}

void loadFontList() {
    const auto fonts = platform().screen.fonts();
    if (!fonts.empty()) fontList.insert(fontList.end(), fonts.begin() + 1, fonts.end());
}

int hexToLong(std::string_view text) {
    constexpr long long largest = std::numeric_limits<int>::max();
    long long value = 0;
    long long power = 1;
    for (auto character = text.rbegin(); character != text.rend(); ++character) {
        const char upper =
            *character >= 'a' && *character <= 'f' ? static_cast<char>(*character - 'a' + 'A') : *character;
        const auto digit = hexDigits.find(upper);
        if (digit == std::string_view::npos) return -1;
        value += static_cast<long long>(digit) * power;
        if (value > largest) throw Error(error_number::overflow, "Overflow");
        power = std::min(power * 16, largest + 1);
    }
    return static_cast<int>(value);
}

std::string longToHex(int& value) {
    if (value < 0 || value > 0xFFFFFF)
        throw Error(error_number::invalidProcedureCall, "Not a colour: " + std::to_string(value));
    std::string digits;
    for (int power = 0x100000; power > 1; power /= 16) {
        digits += hexDigits[static_cast<std::size_t>(value / power)];
        value %= power;
    }
    return digits + hexDigits[static_cast<std::size_t>(value)];
}

std::string colorToHtml(int value) {
    const std::string blueGreenRed = longToHex(value);
    return blueGreenRed.substr(4, 2) + blueGreenRed.substr(2, 2) + blueGreenRed.substr(0, 2);
}

int sampleColor(std::string_view text) {
    constexpr int white = 0xFFFFFF;
    if (text.empty() || text == notAvailable) return white;
    int color = 0;
    for (const std::size_t position : {5U, 3U, 1U}) {
        const int part = hexToLong(position < text.size() ? text.substr(position, 2) : std::string_view());
        if (part < 0) throw Error(error_number::invalidProcedureCall, "Not a colour: " + std::string(text));
        color = color * 256 + part;
    }
    return color;
}

std::string extractBetween(std::string_view startToken, std::string_view endToken, std::string_view text) {
    // An empty token stands at the very start.
    const auto start = startToken.empty() ? TextMatch{} : TextSearch(startToken, 0).find(text);
    if (!start) return {};
    const std::string_view tail = text.substr(start->position + start->length);
    if (endToken.empty()) return std::string(tail);
    const auto end = TextSearch(endToken, 0).find(tail);
    if (!end) throw Error(error_number::invalidProcedureCall, "\"" + std::string(endToken) + "\" was not found");
    return std::string(tail.substr(0, end->position));
}

bool fileExists(const std::string& path) {
    bool found = false;
    guarded([&] { found = listingFinds(path); });
    return found;
}

bool validFileName(std::string_view name) {
    if (name.find_first_of("\\/:*?\"<>|") == std::string_view::npos) return true;
    showCritical("Illegal filename",
                 "A filename cannot contain any of the following characters:\r\n\\ / : * ? \" < > |");
    return false;
}

std::string asReadWhole(std::string text) {
    constexpr char endOfFileMark = 26;
    const std::size_t mark = text.find(endOfFileMark);
    return mark == std::string::npos || mark + 1 == text.size() ? std::move(text) : withLineEnds(text);
}

std::string readWholeFile(const std::string& path) {
    try {
        return asReadWhole(decode(readFile(path)).text);
    } catch (const std::exception&) {
        return std::string(unreadableText);
    }
}

std::string getTempDir() {
    return joinPath(temporaryDirectory(), "");
}

std::string browseForFolder(const std::string& title) {
    return platform().dialogs.folder(title, lastDir).value_or("");
}

void openInDefaultBrowser(const std::string& target) {
    try {
        if (platform().shell.open(target)) return;
        reportError(std::to_string(error_number::fileNotFound), "This desktop has no program that opens " + target);
    } catch (const Error& error) {
        reportError(error);
    }
}

std::vector<std::string> commandWords(const std::string& program) {
    return isExecutableFile(program) ? std::vector{program} : wordsOf(program);
}

void runProgram(const std::string& program, const std::optional<std::string>& argument) {
    auto words = commandWords(program);
    try {
        if (words.empty()) throw Error(error_number::fileNotFound, "No program is named");
        if (argument) words.push_back(*argument);
        platform().shell.start(words, {});
    } catch (const Error& error) {
        if (error.number() == error_number::fileNotFound) {
            showCritical("File not found", "The executable file required can not be found.\r\n\r\nFile: " + program +
                                               (argument ? " " + *argument : ""));
        } else {
            reportError(error);
        }
    }
}

bool useRelativePaths() {
    return GetSetting(application, "User", "relPath", "True") == "True";
}

void reportOpenError(const std::string& file, const std::string& cause) {
    showCritical("File open error",
                 "An error occurred while opening " + file +
                     "\r\nMake sure that the file is not already locked by another application.",
                 cause);
}

void reportFileMissing(const std::string& file) {
    beepAndShow(
        {.text = "The file " + file + " does not exist", .title = "File not found", .icon = MessageIcon::exclamation});
}

void reportSaveError(const std::string& file, const std::string& cause) {
    showCritical("File Save Error", "An error occured while saving the file [" + file + "].", cause);
}

}  // namespace kelvor
