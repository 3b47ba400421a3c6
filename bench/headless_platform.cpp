#include "bench/headless_platform.h"

#include <iostream>

#include "platform/text_buffer.h"

namespace kelvor::bench {

Answer HeadlessPlatform::message(const Message& message) {
    std::cerr << message.title << ": " << message.text << '\n';
    return message.buttons == MessageButtons::ok ? Answer::ok : Answer::yes;
}

std::unique_ptr<EditControl> HeadlessPlatform::createEditControl(Form& form, const std::string& name) {
    return std::make_unique<TextBuffer>(form, name);
}

}  // namespace kelvor::bench
