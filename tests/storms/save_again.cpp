// SPDX-License-Identifier: GPL-3.0-or-later
// save_again FILE: starts the editor without a window, opens FILE, and goes on for ever: types an x at its begin and
// saves it. A line says "saving" and how many have been typed, another one "saved".

#include <chrono>
#include <functional>
#include <iostream>

#include "bench/quiet_platform.h"
#include "core/document.h"
#include "core/document_manager.h"
#include "core/file_open.h"
#include "core/file_save.h"
#include "core/journal.h"
#include "program/startup.h"

namespace kelvor {

namespace {

class NoWindow : private QuietPlatform {
    Answer message(const Message& message) override {
        if (message.icon == MessageIcon::critical) std::cerr << message.text << ' ' << message.cause << '\n';
        return QuietPlatform::message(message);
    }
    void setIdleWork(std::function<bool()> /*work*/) override {}
};

int saveAgain(const std::string& path) {
    const NoWindow platform;
    if (!startKelvor() || !fileOpen(path, false)) return 1;
    CDocument& document = documentManager().currentDocument();
    for (int count = 1;; ++count) {
        document.SourceRTB().setSelStart(0);
        document.SourceRTB().setSelText("x");
        while (workOnJournals(std::chrono::steady_clock::now())) continue;
        std::cout << "saving " << count << std::endl;
        fileSave(document);
        if (!document.IsSaved()) return 1;
        std::cout << "saved " << count << std::endl;
    }
}

}  // namespace

}  // namespace kelvor

int main(int argumentCount, char** arguments) {
    return argumentCount == 2 ? kelvor::saveAgain(arguments[1]) : 2;
}
