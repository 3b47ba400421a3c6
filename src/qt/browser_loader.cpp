// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/browser_loader.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>

#include "qt/browser/browser_module.h"
#include "qt/name_lookups.h"

namespace kelvor::qt {

namespace {

constexpr const char* sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

/// Why the engine would end the program here; "" when it can run.
QString obstacle() {
    if (geteuid() != 0 || qEnvironmentVariableIsSet(sandboxVariable)) return {};
    return QStringLiteral(
        "The preview is off because Kelvor runs as root, where a web page cannot be shut up in a sandbox.\n"
        "Start Kelvor as an ordinary user to see pages here.");
}

/// The module's file; "" when it was not installed.
QString moduleFile() {
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* place : {"kelvor_browser.so", "../lib/kelvor/modules/kelvor_browser.so"})
        if (program.exists(QLatin1String(place))) return program.filePath(QLatin1String(place));
    return {};
}

BrowserModule* module = nullptr;

}  // namespace

QString browserVersion() {
    return module ? module->engineVersion() : QString();
}

BrowserFound loadBrowser() {
    if (module) return {.module = module};
    const QString file = moduleFile();
    if (file.isEmpty()) return {.problem = QStringLiteral("The preview browser is not installed.")};
    if (const QString reason = obstacle(); !reason.isEmpty()) return {.problem = reason};
    QPluginLoader loader(file);
    module = qobject_cast<BrowserModule*>(loader.instance());
    closeNameLookups();
    if (module) return {.module = module};
    return {.problem = QStringLiteral("The preview browser cannot be loaded.\n%1").arg(loader.errorString())};
}

}  // namespace kelvor::qt
