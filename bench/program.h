// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "bench/answers.h"
#include "core/file_open.h"
#include "files/places.h"
#include "files/temporary_directory.h"
#include "frame/main_frame.h"
#include "program/startup.h"
#include "qt/qt_platform.h"
#include "support/settings.h"

namespace kelvor::bench {

/// The whole program, started in a directory of its own as on a second day; its dialogs answer themselves.
class Program {
public:
    Program() {
        for (const char* name : {"program/Templates", "settings"}) std::filesystem::create_directories(path(name));
        setenv("XDG_RUNTIME_DIR", path("settings").c_str(), 1);
        setPlatform(&platform_);
        SaveSetting(application, "User", "LCase", "False");
        startKelvor();
    }
    ~Program() {
        mainForm().unload();
        releaseMainForm();
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    std::string path(const std::string& name) const { return directory_ + "/" + name; }

    /// Opens a new file of that text in front.
    void open(const std::string& name, const std::string& text) const {
        std::ofstream(path(name)) << text;
        fileOpen(path(name), false);
        QApplication::processEvents();
    }

    Answers answers;

private:
    const std::string directory_ = temporaryDirectory() + "/bench";
    const ScopedDirectories directories_{path("program"), path("settings")};
    qt::QtPlatform desktop_;
    Platform& usual_ = kelvor::platform();
    Platform platform_{answers,          usual_.screen, usual_.shell,     usual_.clock,
                       usual_.clipboard, usual_.help,   usual_.libraries, usual_.windows};
};

/// Ended by main: the windows can go only while the application object is there.
inline std::unique_ptr<Program> startedProgram;

/// The program, started by the first call.
inline Program& program() {
    if (!startedProgram) startedProgram = std::make_unique<Program>();
    return *startedProgram;
}

}  // namespace kelvor::bench
