#include "frame/tool_forms.h"
#include "files/whole_file.h"
#include "html/colors.h"
#include "support/fields.h"
#include "support/messages.h"
#include "support/programs.h"
#include "text/text_search.h"

#include <filesystem>

#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

struct Common : FrameTest {
    void expectCritical(const std::string& title, const std::string& text) {
        platform.expectMessage({.text = text, .title = title, .icon = MessageIcon::critical});
    }

    Form form{"toolForm", "Tool"};
};

TEST_F(Common, ShowsAFormForItsContext) {
    showFormForContext(form, ShowMode::floating);
    showFormForContext(form, ShowMode::free);
    EXPECT_EQ(platform.shownModeless, (std::vector<std::string>{"toolForm owned", "toolForm"}));
    const auto focusAfter = [this](const std::function<void()>& steps) {
        platform.expectModal([&](Form& shown) {
            EXPECT_TRUE(shown.isLoaded());
            steps();
        });
        showFormForContext(form, ShowMode::modal);
        return platform.focused;
    };
    EXPECT_EQ(focusAfter([] {}), "") << "there is no document";
    openText("a.htm", "");
    EXPECT_FALSE(hasManyMdiChildren());
    EXPECT_EQ(focusAfter([] { setActiveFormName("frmTableWiz"); }), "");
    setActiveFormName("editWindow");
    EXPECT_EQ(focusAfter([this] { form.unload(); }), "Text1");
    openText("b.htm", "");
    EXPECT_TRUE(hasManyMdiChildren());
}

TEST_F(Common, UnloadsAFormThatFailsToLoad) {
    form.onLoad = [] { throw Error(53, "File not found: a.lst", "File not found."); };
    platform.expectMessage({.text = "An error occurred while loading the form",
                            .cause = "File not found.",
                            .title = "Load error",
                            .icon = MessageIcon::critical});
    showFormForContext(form, ShowMode::modal);
    EXPECT_FALSE(form.isLoaded() || formLoadFailed);
    form.onLoad = {};
    form.load();
    formLoadFailed = true;
    showFormForContext(form, ShowMode::free);
    EXPECT_FALSE(form.isLoaded() || formLoadFailed);
    EXPECT_TRUE(platform.shownModeless.empty());
    EXPECT_FALSE(std::filesystem::exists(files.path("program/errorlog.txt")));
}

TEST_F(Common, RefusesEachCharacterThatNoFileNameMayHave) {
    EXPECT_TRUE(validFileName("näme (1).tpl"));
    platform.answerAllMessages(Answer::ok);
    for (const char character : std::string("\\/:*?\"<>|")) EXPECT_FALSE(validFileName(std::string("a") + character));
    EXPECT_EQ(platform.beeps, 9);
}

TEST(CommonColors, TurnIntoHexadecimalTextAndBack) {
    for (const auto& [text, value] :
         {std::pair{"", 0}, {"fF", 255}, {"1G", -1}, {"é", -1}, {"7FFFFFFF", 0x7FFFFFFF}, {"000000000000", 0}})
        EXPECT_EQ(hexToLong(text), value) << text;
    for (const auto* text : {"80000000", "10000000000000000"}) EXPECT_THROW(hexToLong(text), Error) << text;
    int color = 0xABCDEF;
    EXPECT_EQ(longToHex(color), "ABCDEF");
    EXPECT_EQ(color, 0xF);
    EXPECT_EQ(colorToHtml(0x00CDEF), "EFCD00");
    for (const int none : {-1, 0x1000000}) EXPECT_THROW(colorToHtml(none), Error) << none;
    for (const auto& [text, sample] :
         {std::pair{"#FF8001 and more", 0x0180FF}, {"#ff", 0xFF}, {"#", 0}, {"", 0xFFFFFF}, {"(n/a)", 0xFFFFFF}})
        EXPECT_EQ(sampleColor(text), sample) << text;
    EXPECT_THROW(sampleColor("silver"), Error);
}

TEST(CommonText, ExtractsWhatStandsBetweenTwoTokens) {
    EXPECT_EQ(extractBetween("name=\"é\" CONTENT=\"", "\"", "<Meta Name=\"É\" Content=\"a\" b>"), "a");
    EXPECT_EQ(extractBetween("none", "]", "a"), "");
    EXPECT_EQ(extractBetween("", "", "a]"), "a]");
    EXPECT_THROW(extractBetween("a", "[", "a]"), Error);
}

TEST_F(Common, ReadsAWholeFileAndEndsItsLinesBehindAnEndOfFileMark) {
    for (const auto& [bytes, text] : {
             std::pair{"caf\xE9\n", "café\n"},
             {"a\n\x1A\rc\r\n\r\nd", "a\r\n\x1A\r\nc\r\n\r\nd\r\n"},
             {"\x1A\n", "\x1A\r\n"},
             {"a\nb\x1A", "a\nb\x1A"},
         })
        EXPECT_EQ(readWholeFile(files.write("file", bytes)), text);
    EXPECT_EQ(readWholeFile(files.path("missing")), "error");
}

TEST_F(Common, RunsAProgramWithoutAnInterpreter) {
    const std::string odd = files.write("my browser; $(x)", "");
    std::filesystem::permissions(odd, std::filesystem::perms(0755));
    runProgram(odd, "/a b/-rf \"c\".htm");
    runProgram("browser  --new \"a b\"c \"\"", "$(x)");
    EXPECT_EQ(platform.started, (std::vector<std::string>{odd + "|/a b/-rf \"c\".htm", "browser|--new|a bc||$(x)"}));

    platform.startFails = {{"gone", error_number::fileNotFound}, {"locked", error_number::pathAccess}};
    const std::string notFound = "The executable file required can not be found.\r\n\r\nFile: ";
    expectCritical("File not found", notFound + "gone --new /a.htm");
    runProgram("gone --new", "/a.htm");
    expectCritical("File not found", notFound);
    runProgram("");
    expectError(error_number::pathAccess, "cannot start locked");
    runProgram("locked");
}

}  // namespace
}  // namespace kelvor
