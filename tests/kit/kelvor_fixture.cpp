// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/kit/kelvor_fixture.h"
#include "tests/kit/messages.h"

#include "controls/text_buffer.h"
#include "core/file_open.h"
#include "files/paths.h"
#include "frame/tool_forms.h"
#include "program/startup.h"
#include "support/report_error.h"
#include "support/settings.h"

namespace kelvor {

KelvorTest::~KelvorTest() {
    platform.verifyNothingOutstanding();
    platform.answerAllMessages(Answer::no);
    setErrorSink(failOnError);
    if (mainForm().isLoaded()) mainForm().unload();
    releaseMainForm();
}

void KelvorTest::start() {
    SaveSetting(application, "User", "LCase", "False");
    ASSERT_TRUE(startKelvor());
    setErrorSink(failOnError);
}

void KelvorTest::startFrame() {
    installErrorReporting();
    installLoadErrorReporting();
    mainForm().load();
}

CDocument& KelvorTest::open(const std::string& name, const std::string& bytes) {
    EXPECT_TRUE(fileOpen(files.write(name, bytes), false));
    return documentManager().currentDocument();
}

EditWindow& KelvorTest::openText(const std::string& name, const std::string& text) {
    EditWindow& window = *windows_.emplace_back(std::make_unique<EditWindow>());
    window.setCaption(name);
    window.load();
    setActiveFormName(window.name());
    mainForm().mdi.show(window);
    window.Text1.setText(text);
    return window;
}

void KelvorTest::type(const std::string& text) {
    dynamic_cast<TextBuffer&>(mainForm().activeForm().Text1).type(text);
}

void KelvorTest::openByDialog(const std::string& name) {
    platform.expectOpen(openTitle, {files.write(name, name)});
    menu("mnuFile_Open").click();
}

std::string KelvorTest::recentMenu() {
    std::string names;
    for (int index = 0; index < 5; ++index) {
        const MenuItem& row = menu("mnuFile_RecentFiles_" + std::to_string(index));
        if (row.visible()) names += fileNamePart(row.caption()) + " ";
    }
    return names;
}

Message KelvorTest::saveQuestion(const std::string& name) {
    return question("The text in [" + name + "] has changed.\r\nDo you want to save the changes?", "Kelvor",
                    MessageButtons::yesNoCancel);
}

void KelvorTest::expectError(int number, const std::string& description) {
    platform.expectMessage(critical("An application error has occurred:\r\n\r\nError number: " +
                                        std::to_string(number) + "\r\nError description: " + description,
                                    "Application Error"));
}

}  // namespace kelvor
