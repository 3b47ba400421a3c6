#include "platform/text_buffer.h"

#include <gtest/gtest.h>

#include "tests/edit_control_contract.h"

namespace kelvor {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(TextBuffer, EditControlContract, TextBuffer);

struct KeyRow {
    std::string before;
    int caret;
    int keyCode;
    int shift;
    std::string after;
};

TEST(TextBufferKeys, ActAsInAWindow) {
    const FakePlatform platform;
    Form form("keys", "Keys");
    TextBuffer buffer(form, "Text1");
    const KeyRow rows[] = {
        {"ab", 1, 'X', 0, "axb"},
        {"ab", 1, 'X', 1, "aXb"},
        {"ab", 1, 'X', 2, "ab"},
        {"ab", 1, '7', 0, "a7b"},
        {"ab", 1, key_code::enter, 0, "a\r\nb"},
        {"ab", 1, key_code::tab, 0, "a\tb"},
        {"ab", 0, key_code::backspace, 0, "ab"},
        {"äb", 2, key_code::backspace, 0, "b"},
        {"a\r\nb", 3, key_code::backspace, 0, "ab"},
        {"a\r\nb", 1, key_code::deleteKey, 0, "ab"},
        {"a€", 1, key_code::deleteKey, 0, "a"},
        {"ab", 2, key_code::deleteKey, 0, "ab"},
    };
    for (const auto& row : rows) {
        buffer.setText(row.before);
        buffer.setSelStart(row.caret);
        buffer.press(row.keyCode, row.shift);
        EXPECT_EQ(buffer.text(), row.after) << row.keyCode << " in " << row.before;
    }
    buffer.keyDown.connect([](KeyPress& key) { key.keyCode = 0; });
    int released = 0;
    buffer.keyUp.connect([&](KeyPress& key) { released = key.keyCode; });
    buffer.setText("ab");
    buffer.press('X');
    EXPECT_EQ(buffer.text(), "ab");
    EXPECT_EQ(released, 'X');
}

}  // namespace
}  // namespace kelvor
