#include "tests/kit/kelvor_fixture.h"

#include "controls/text_buffer.h"
#include "core/file_open.h"
#include "program/startup.h"
#include "support/settings.h"

namespace kelvor {

KelvorTest::~KelvorTest() {
    platform.verifyNothingOutstanding();
    platform.answerAllMessages(Answer::no);
    if (mainForm().isLoaded()) mainForm().unload();
    releaseMainForm();
}

void KelvorTest::start() {
    SaveSetting(application, "User", "LCase", "False");
    ASSERT_TRUE(startKelvor());
    // From here on an error of a handler is a failure of the test, not a message box.
    setErrorSink([](const Error& error) { ADD_FAILURE() << error.number() << ": " << error.description(); });
}

CDocument& KelvorTest::open(const std::string& name, const std::string& bytes) {
    EXPECT_TRUE(fileOpen(files.write(name, bytes), false));
    return documentManager().currentDocument();
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

}  // namespace kelvor
