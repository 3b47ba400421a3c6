#include "tests/kit/kelvor_fixture.h"

#include "controls/text_buffer.h"
#include "core/file_open.h"
#include "frame/tool_forms.h"
#include "program/startup.h"
#include "support/report_error.h"
#include "support/settings.h"

namespace kelvor {

namespace {

/// From here on an error of a handler is no message box.
void failOnErrors() {
    setErrorSink([](const Error& error) { ADD_FAILURE() << error.number() << ": " << error.description(); });
}

}  // namespace

KelvorTest::~KelvorTest() {
    platform.verifyNothingOutstanding();
    platform.answerAllMessages(Answer::no);
    failOnErrors();
    if (mainForm().isLoaded()) mainForm().unload();
    releaseMainForm();
}

void KelvorTest::start() {
    SaveSetting(application, "User", "LCase", "False");
    ASSERT_TRUE(startKelvor());
    failOnErrors();
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

Message KelvorTest::saveQuestion(const std::string& name) {
    return {.text = "The text in [" + name + "] has changed.\r\nDo you want to save the changes?",
            .title = "Kelvor",
            .icon = MessageIcon::question,
            .buttons = MessageButtons::yesNoCancel};
}

void KelvorTest::expectError(int number, const std::string& description) {
    platform.expectMessage({.text = "An application error has occurred:\r\n\r\nError number: " +
                                    std::to_string(number) + "\r\nError description: " + description,
                            .title = "Application Error",
                            .icon = MessageIcon::critical});
}

}  // namespace kelvor
