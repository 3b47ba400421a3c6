#include "tests/kit/frame_fixture.h"

#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "support/report_error.h"

namespace kelvor {

FrameFixture::FrameFixture() {
    installErrorReporting();
    installLoadErrorReporting();
    mainForm().load();
}

FrameFixture::~FrameFixture() {
    mainForm().unload();
    releaseMainForm();
    windows_.clear();
}

EditWindow& FrameFixture::openText(const std::string& name, const std::string& text) {
    EditWindow& window = *windows_.emplace_back(std::make_unique<EditWindow>());
    window.setCaption(name);
    window.load();
    setActiveFormName(window.name());
    mainForm().mdi.show(window);
    window.Text1.setText(text);
    return window;
}

void FrameFixture::expectError(int number, const std::string& description) {
    platform.expectMessage({.text = "An application error has occurred:\r\n\r\nError number: " +
                                    std::to_string(number) + "\r\nError description: " + description,
                            .title = "Application Error",
                            .icon = MessageIcon::critical});
}

}  // namespace kelvor
