// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/report_error.h"

#include <cstdint>
#include <filesystem>
#include <system_error>

#include "base/event.h"
#include "controls/form.h"
#include "files/files.h"
#include "files/paths.h"
#include "files/places.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/services.h"
#include "text/code_points.h"

namespace kelvor {

namespace {

constexpr std::uintmax_t largestLog = std::uintmax_t{4} * 1024 * 1024;
constexpr std::string_view logIsFull = "The log is full. Remove or rename it to have errors logged again.\r\n";

/// `text` without anything that could end its line or steer a terminal: control characters (also those of two
/// bytes, U+0080 to U+009F) and the two line separators of Unicode become blanks.
std::string onOneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto [value, length] = codePointAt(text, at);
        const bool isControl = value < 0x20 || (value >= 0x7F && value <= 0x9F);
        const bool isSeparator = value == 0x2028 || value == 0x2029;
        line += isControl || isSeparator ? " " : text.substr(at, length);
        at += length;
    }
    return line;
}

void appendToLog(const std::string& number, const std::string& description) {
    Clock& clock = platform().clock;
    const std::string line = onOneLine(clock.longDate(clock.now().date) + " " + number + " " + description) + "\r\n";
    const std::string path = errorLogPath();
    std::error_code missing;
    const std::uintmax_t size = std::filesystem::file_size(path, missing);
    const std::uintmax_t before = missing ? 0 : size;
    if (before >= largestLog) return;
    const bool fills = before + line.size() >= largestLog;
    appendToFile(path, fills ? line + std::string(logIsFull) : line);
}

}  // namespace

std::string errorLogPath() {
    return joinPath(programDirectory(), "errorlog.txt");
}

void reportError(const std::string& number, const std::string& description, const std::string& title) {
    platform().screen.setMousePointer(MousePointer::standard);
    // A run that failed leaves no window locked.
    for (Form* form : loadedForms()) form->setEnabled(true);
    beepAndShow({.text = "An application error has occurred:\r\n\r\nError number: " + number +
                         "\r\nError description: " + description,
                 .title = title,
                 .icon = MessageIcon::critical});
    appendToLog(number, description);
}

void reportError(const Error& error, const std::string& title) {
    reportError(std::to_string(error.number()), error.description(), title);
}

void logError(const Error& error) {
    appendToLog(std::to_string(error.number()), error.description());
}

Outcome loggedFailure(const Error& error) {
    logError(error);
    return Outcome::failed(error.cause());
}

std::string currentReason() {
    const Error error = currentError();
    return error.cause().empty() ? error.description() : error.cause();
}

void installErrorReporting() {
    setErrorSink([](const Error& error) { reportError(error); });
}

}  // namespace kelvor
