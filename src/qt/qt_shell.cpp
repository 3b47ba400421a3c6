// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/qt_shell.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <cerrno>

#include "base/error.h"
#include "files/file_error.h"
#include "files/paths.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// Where PATH has a file of that name that may not be run; empty when it has none.
QString blockedProgram(const QString& name) {
    for (const QString& directory : qEnvironmentVariable("PATH").split(QDir::listSeparator(), Qt::SkipEmptyParts)) {
        const QFileInfo file(QDir(directory), name);
        if (file.isFile()) return file.filePath();
    }
    return {};
}

/// The path of the program that `word` names.
QString programPath(const std::string& word) {
    const QString name = toQt(word);
    if (!name.contains(QLatin1Char('/'))) {
        QString found = QStandardPaths::findExecutable(name);
        if (!found.isEmpty()) return found;
        if (!blockedProgram(name).isEmpty()) throw Error(error_number::pathAccess, "Path/File access error: " + word);
        throw Error(error_number::fileNotFound, "File not found: " + word);
    }
    const QFileInfo file(name);
    if (!file.exists()) throw Error(error_number::fileNotFound, "File not found: " + word);
    if (!file.isFile() || !file.isExecutable())
        throw Error(error_number::pathAccess, "Path/File access error: " + word);
    return file.absoluteFilePath();
}

/// The address of a target: of an existing file, or of the text as a person types addresses.
QUrl addressOf(const std::string& target) {
    const QString text = toQt(target);
    const QFileInfo file(text);
    if (file.isAbsolute() || file.exists())
        return file.exists() ? QUrl::fromLocalFile(file.absoluteFilePath()) : QUrl();
    return isForeignPath(target) ? QUrl() : QUrl::fromUserInput(text);
}

}  // namespace

bool QtShell::open(const std::string& target) {
    if (target.empty()) return false;
    const QUrl address = addressOf(target);
    return address.isValid() && QDesktopServices::openUrl(address);
}

void QtShell::start(const std::vector<std::string>& words, const std::string& workingDirectory) {
    if (words.empty() || words.front().empty()) throw Error(error_number::fileNotFound, "File not found");
    QProcess program;
    program.setProgram(programPath(words.front()));
    QStringList arguments;
    for (std::size_t i = 1; i < words.size(); ++i) arguments += toQt(words[i]);
    program.setArguments(arguments);
    if (!workingDirectory.empty()) {
        if (!QFileInfo(toQt(workingDirectory)).isDir()) throw fileError(ENOTDIR, workingDirectory);
        program.setWorkingDirectory(toQt(workingDirectory));
    }
    // What the program writes has nowhere to go, and no pipe of ours may fill up.
    program.setStandardOutputFile(QProcess::nullDevice());
    program.setStandardErrorFile(QProcess::nullDevice());
    if (!program.startDetached()) throw Error(error_number::pathAccess, "Path/File access error: " + words.front());
}

}  // namespace kelvor::qt
