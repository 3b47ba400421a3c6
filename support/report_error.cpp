#include "support/report_error.h"

#include <cstdint>
#include <filesystem>

#include "core/frame.h"
#include "platform/event.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"

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
        const auto byte = static_cast<unsigned char>(text[at]);
        const auto next = at + 1 < text.size() ? static_cast<unsigned char>(text[at + 1]) : 0;
        const std::string_view three = text.substr(at, 3);
        std::size_t length = 0;
        if (byte < 0x20 || byte == 0x7F) length = 1;
        if (byte == 0xC2 && next >= 0x80 && next <= 0x9F) length = 2;
        if (three == "\u2028" || three == "\u2029") length = 3;
        line += length > 0 ? ' ' : text[at];
        at += length > 0 ? length : 1;
    }
    return line;
}

void appendToLog(const std::string& number, const std::string& description) {
    const std::string line = onOneLine(platform().clock.longDate() + " " + number + " " + description) + "\r\n";
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
    mainForm().setEnabled(true);
    beepAndShow({.text = "An application error has occurred:\r\n\r\nError number: " + number +
                         "\r\nError description: " + description,
                 .title = title,
                 .icon = MessageIcon::critical});
    appendToLog(number, description);
}

void logError(const std::exception& error) {
    const auto* numbered = dynamic_cast<const Error*>(&error);
    appendToLog(std::to_string(numbered ? numbered->number() : error_number::outOfMemory), error.what());
}

void installErrorReporting() {
    setErrorSink([](const Error& error) { reportError(std::to_string(error.number()), error.description()); });
}

}  // namespace kelvor
