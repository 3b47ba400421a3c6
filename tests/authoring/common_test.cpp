#include "authoring/common.h"

#include <filesystem>

#include "core/frame.h"
#include "platform/label.h"
#include "platform/paths.h"
#include "platform/text_buffer.h"
#include "support/settings.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

struct Common : FrameFixture {
    /// The document's text with the selection in square brackets.
    static std::string marked(const EditControl& text) {
        std::string result = text.text();
        const auto start = static_cast<std::size_t>(text.selStart());
        result.insert(start + static_cast<std::size_t>(text.selLength()), "]");
        return result.insert(start, "[");
    }
};

struct ToolForm : Form {
    ToolForm() : Form("toolForm", "Tool") {}
    TextBox txtName{*this, "txtName"};
    TextBox txtColor{*this, "txtColor"};
    Label lblColor{*this, "lblColor"};
    ComboBox cboList{*this, "cboList", ComboBox::Style::editable};
};

TEST_F(Common, InsertsAtTheSelection) {
    struct Row {
        const char* text;
        int start;
        int length;
        std::string open;
        std::optional<std::string_view> close;
        const char* result;
        const char* focused;
    };
    const Row rows[] = {
        {"one two", 4, 3, "<B>", "</B>", "one [<B>two</B>]", "Text1"},
        {"one two", 3, 0, "<B>", "</B>", "one<B></B>[] two", ""},
        {"one two", 0, 0, "", "</B>", "</B>[]one two", ""},
        {"one two", 4, 3, "<BR>", {}, "one [<BR>two]", "Text1"},
        {"one two", 4, 3, "<BR>", "", "one [<BR>two]", "Text1"},
        {"one two", 7, 0, "<BR>", {}, "one two<BR>[]", ""},
        {"a\r\nÜb\r\n", 3, 3, "\xC3\xA9<", ">", "a\r\n[é<Üb>]\r\n", "Text1"},
    };
    EditControl& text = openText("a.htm", "").Text1;
    for (const Row& row : rows) {
        text.setText(row.text);
        text.setSelStart(row.start);
        text.setSelLength(row.length);
        platform.focused.clear();
        insertAtSelection(row.open, row.close);
        EXPECT_EQ(marked(text), row.result);
        EXPECT_EQ(platform.focused, row.focused) << row.result;
    }
}

TEST_F(Common, WrapsAgainAroundTheFirstWrapAndLeavesTheFocusToAnotherForm) {
    EditControl& text = openText("a.htm", "word").Text1;
    text.selectAll();
    setActiveFormName("frmTableWiz");
    insertAtSelection("<B>", "</B>");
    insertAtSelection("<I>", "</I>");
    EXPECT_EQ(marked(text), "[<I><B>word</B></I>]");
    EXPECT_EQ(platform.focused, "");
    text.undo();
    EXPECT_EQ(text.text(), "<B>word</B>");
}

TEST_F(Common, LetsTheErrorRiseWithoutADocument) {
    EXPECT_THROW(insertAtSelection("<BR>"), Error);
    EXPECT_THROW(deliveryTarget(), Error);
}

TEST_F(Common, DeliversToTheFormThatIsNamedOrToTheDocument) {
    ToolForm wizard;
    TextBuffer cell(wizard, "txtCellText");
    EditControl& document = openText("a.htm", "").Text1;
    setDeliveryTarget("frmTableWiz", &cell);
    EXPECT_EQ(&deliveryTarget(), &document);
    setActiveFormName("frmTableWiz");
    EXPECT_EQ(&deliveryTarget(), &cell);
    setDeliveryTarget("frmTableWiz", nullptr);
    EXPECT_EQ(&deliveryTarget(), &document);
}

TEST_F(Common, ShowsAFormForItsContext) {
    ToolForm form;
    showFormForContext(form, ShowMode::floating);
    showFormForContext(form, ShowMode::free);
    EXPECT_EQ(platform.shownModeless, (std::vector<std::string>{"toolForm owned", "toolForm"}));
    EXPECT_EQ(platform.focused, "");
    platform.expectModal([](Form& shown) { EXPECT_TRUE(shown.isLoaded()); });
    showFormForContext(form, ShowMode::modal);
    EXPECT_EQ(platform.focused, "") << "there is no document";
    openText("a.htm", "");
    platform.expectModal([](Form&) { setActiveFormName("frmTableWiz"); });
    showFormForContext(form, ShowMode::modal);
    EXPECT_EQ(platform.focused, "");
    setActiveFormName("editWindow");
    platform.expectModal([](Form& shown) { shown.unload(); });
    showFormForContext(form, ShowMode::modal);
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(Common, UnloadsAFormThatFailsToLoad) {
    const Message loadError{
        .text = "An error occurred while loading the form", .title = "Load error", .icon = MessageIcon::critical};
    for (const ShowMode mode : {ShowMode::modal, ShowMode::floating, ShowMode::free}) {
        ToolForm form;
        form.onLoad = [] { throw Error(53, "File not found"); };
        platform.expectMessage(loadError);
        showFormForContext(form, mode);
        EXPECT_FALSE(form.isLoaded());
        EXPECT_FALSE(formLoadFailed);
    }
    ToolForm loadedBefore;
    loadedBefore.load();
    formLoadFailed = true;
    showFormForContext(loadedBefore, ShowMode::free);
    EXPECT_FALSE(loadedBefore.isLoaded());
    EXPECT_FALSE(formLoadFailed);
    EXPECT_TRUE(platform.shownModeless.empty());
    EXPECT_FALSE(std::filesystem::exists(directory.path("program/errorlog.txt")));
}

TEST_F(Common, CountsDocumentWindows) {
    ToolForm tool;
    tool.load();
    EXPECT_FALSE(hasMdiChild());
    openText("a.htm", "");
    EXPECT_TRUE(hasMdiChild());
    EXPECT_FALSE(hasManyMdiChildren());
    openText("b.htm", "");
    EXPECT_TRUE(hasManyMdiChildren());
}

TEST_F(Common, SelectsAllOfAField) {
    ToolForm form;
    form.txtName.setText("Übung");
    selectAllOf(form.txtName);
    EXPECT_EQ(form.txtName.selLength(), 6);
    form.txtName.type("a");
    EXPECT_EQ(form.txtName.selStart(), 1);
    EXPECT_EQ(form.txtName.selLength(), 0);
    form.cboList.type("cat");
    selectAllOf(form.cboList);
    EXPECT_EQ(form.cboList.selLength(), 3);
    form.cboList.clear();
    EXPECT_EQ(form.cboList.selLength(), 0);
    EditControl& text = openText("a.htm", "a\r\nb").Text1;
    text.setSelStart(2);
    selectAllOf(text);
    EXPECT_EQ(marked(text), "[a\r\nb]");
}

TEST_F(Common, TellsEachChangeOfATextBoxOnce) {
    ToolForm form;
    int changes = 0;
    form.txtName.changed.connect([&] { ++changes; });
    form.txtName.setText("a");
    form.txtName.setText("a");
    form.txtName.type("b");
    form.txtName.setEnabled(false);
    form.txtName.type("c");
    form.txtName.setText("b");
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(textBoxEmpty(form.txtName));
    form.txtName.setText("");
    EXPECT_TRUE(textBoxEmpty(form.txtName));
}

TEST_F(Common, RejectsAnIllegalCharacter) {
    ToolForm form;
    form.txtName.setText("a<b");
    EXPECT_FALSE(rejectIllegalChar(form.txtName, ">"));
    EXPECT_EQ(platform.beeps, 0);
    platform.expectMessage({.text = "You have used the < character.  This is an illegal character, you must remove it "
                                    "before this operation can be completed.",
                            .title = "Illegal Character Found!",
                            .icon = MessageIcon::critical});
    EXPECT_TRUE(rejectIllegalChar(form.txtName, "<"));
    EXPECT_EQ(platform.beeps, 1);
}

TEST_F(Common, RefusesEachCharacterThatNoFileNameMayHave) {
    EXPECT_TRUE(validFileName("näme (1).tpl"));
    for (const char character : std::string("\\/:*?\"<>|")) {
        platform.expectMessage({.text = "A filename cannot contain any of the following characters:\r\n"
                                        "\\ / : * ? \" < > |",
                                .title = "Illegal filename",
                                .icon = MessageIcon::critical});
        EXPECT_FALSE(validFileName(std::string("a") + character));
    }
    EXPECT_EQ(platform.beeps, 9);
}

TEST_F(Common, FillsTheFontAndSizeLists) {
    loadFontList();
    EXPECT_EQ(fontList, (std::vector<std::string>{"Courier", "Times"}));
    ToolForm form;
    fillFontCombo(form.cboList, false);
    EXPECT_EQ(form.cboList.list(), (std::vector<std::string>{"Courier", "Times", "(Font Name)"}));
    EXPECT_EQ(form.cboList.text(), "Courier");
    form.cboList.clear();
    fillSizeCombo(form.cboList, true);
    EXPECT_EQ(form.cboList.list().size(), 15U);
    EXPECT_EQ(form.cboList.list().front(), "-7");
    EXPECT_EQ(form.cboList.list().back(), "+7");
    EXPECT_EQ(form.cboList.text(), "(n/a)");
    form.cboList.clear();
    fillSizeCombo(form.cboList, false);
    EXPECT_EQ(form.cboList.text(), "(Size)");
}

TEST(CommonColors, TurnIntoHexadecimalTextAndBack) {
    const std::pair<const char*, int> values[] = {
        {"", 0},   {"ff", 255},        {"G1", -1}, {"1G", -1}, {" 1", -1}, {"7FFFFFFF", 0x7FFFFFFF}, {"0000000aB", 171},
        {"é", -1}, {"000000000000", 0}};
    for (const auto& [text, value] : values) EXPECT_EQ(hexToLong(text), value) << text;
    for (const auto* text : {"80000000", "100000000", "10000000000000000"})
        EXPECT_THROW(hexToLong(text), Error) << text;

    int color = 0xABCDEF;
    EXPECT_EQ(longToHex(color), "ABCDEF");
    EXPECT_EQ(color, 0xF);
    EXPECT_EQ(colorToHtml(255), "FF0000");
    EXPECT_EQ(colorToHtml(0x00CDEF), "EFCD00");
    for (const int none : {-1, 0x1000000}) EXPECT_THROW(colorToHtml(none), Error);
}

TEST_F(Common, PaintsAColorSample) {
    ToolForm form;
    const std::pair<const char*, int> rows[] = {
        {"#FF8001", 0x0180FF},         {"(n/a)", 0xFFFFFF}, {"", 0xFFFFFF}, {"#ff", 0xFF}, {"#", 0},
        {"#FF8001 and more", 0x0180FF}};
    for (const auto& [text, color] : rows) {
        showColorSample(text, form.txtColor);
        showColorSample(text, form.lblColor);
        EXPECT_EQ(form.txtColor.backColor(), color) << text;
        EXPECT_EQ(form.lblColor.backColor(), color) << text;
    }
    EXPECT_THROW(showColorSample("silver", form.txtColor), Error);
}

TEST(CommonText, ExtractsWhatStandsBetweenTwoTokens) {
    const std::string tag = "<Meta Name=\"É\" Content=\"a\" content=\"b\">";
    EXPECT_EQ(extractBetween("CONTENT=\"", "\"", tag), "a");
    EXPECT_EQ(extractBetween("name=\"é\" ", "=", tag), "Content");
    EXPECT_EQ(extractBetween("none", "\"", tag), "");
    EXPECT_EQ(extractBetween("content=\"b", "", tag), "\">");
    EXPECT_EQ(extractBetween("", " ", tag), "<Meta");
    EXPECT_EQ(extractBetween("a", "b", ""), "");
    EXPECT_THROW(extractBetween("<", "]", tag), Error);
}

TEST_F(Common, ReadsAWholeFile) {
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {"a\nb\r\n", "a\nb\r\n"},
        {"caf\xE9", "café"},
        {"\xEF\xBB\xBF"
         "a",
         "a"},
        {"a\n\x1A"
         "b\rc\r\n\r\nd",
         "a\r\n\x1A"
         "b\r\nc\r\n\r\nd\r\n"},
        {"\x1A\n", "\x1A\r\n"},
        {"a\nb\x1A", "a\nb\x1A"},
        {std::string("\xFF\xFE\x1A\x01\n\0", 6), "\u011A\n"},
    };
    for (const auto& [bytes, text] : rows) EXPECT_EQ(readWholeFile(directory.write("file", bytes)), text);
    EXPECT_EQ(readWholeFile(directory.path("missing")), "error");
    EXPECT_EQ(readWholeFile(directory.program()), "error");
}

TEST_F(Common, FindsFiles) {
    directory.write("one.htm", "");
    EXPECT_TRUE(fileExists(directory.path("one.htm")));
    EXPECT_TRUE(fileExists(directory.path("*.HTM")));
    EXPECT_FALSE(fileExists(directory.path("*.txt")));
    EXPECT_FALSE(fileExists(directory.path("program")));
    EXPECT_FALSE(fileExists(""));
    EXPECT_EQ(getTempDir(), temporaryDirectory() + "/");
}

TEST_F(Common, RunsAProgramWithoutAnInterpreter) {
    const std::string odd = directory.write("my browser; $(x)", "");
    std::filesystem::permissions(odd, std::filesystem::perms(0755));
    runProgram(odd, "/a b/-rf \"c\".htm");
    runProgram("browser  --new \"a b\"c \"\"", "$(x)");
    runProgram("editor");
    EXPECT_EQ(platform.started,
              (std::vector<std::string>{odd + "|/a b/-rf \"c\".htm", "browser|--new|a bc||$(x)", "editor"}));
}

TEST_F(Common, TellsOfAProgramThatIsMissingAndReportsOtherFailures) {
    const auto expectNotFound = [&](const std::string& commandLine) {
        platform.expectMessage({.text = "The executable file required can not be found.\r\n\r\nFile: " + commandLine,
                                .title = "File not found",
                                .icon = MessageIcon::critical});
    };
    platform.startFails = {{"gone", error_number::fileNotFound}, {"locked", error_number::pathAccess}};
    expectNotFound("gone --new /a.htm");
    runProgram("gone --new", "/a.htm");
    expectNotFound("");
    runProgram("");
    EXPECT_EQ(platform.beeps, 2);
    expectError(error_number::pathAccess, "cannot start locked");
    runProgram("locked");
}

TEST_F(Common, AsksTheDesktop) {
    openInDefaultBrowser("/a.htm");
    EXPECT_EQ(platform.opened, std::vector<std::string>{"/a.htm"});
    platform.expectFolder("Pick one", "/home");
    EXPECT_EQ(browseForFolder("Pick one"), "/home");
    platform.expectFolder("Pick one", {});
    EXPECT_EQ(browseForFolder("Pick one"), "");
}

TEST_F(Common, WritesRelativePathsUnlessTheSettingIsAnythingElse) {
    EXPECT_TRUE(useRelativePaths());
    for (const auto* text : {"False", "true", ""}) {
        SaveSetting(application, "User", "relPath", text);
        EXPECT_FALSE(useRelativePaths()) << text;
    }
}

TEST_F(Common, SaysWhatHappenedToAFile) {
    platform.expectMessage({.text = "An error occurred while opening /a.htm\r\nMake sure that the file is not already "
                                    "locked by another application.",
                            .title = "File open error",
                            .icon = MessageIcon::critical});
    reportOpenError("/a.htm");
    platform.expectMessage(
        {.text = "The file /a.htm does not exist", .title = "File not found", .icon = MessageIcon::exclamation});
    reportFileMissing("/a.htm");
    platform.expectMessage({.text = "An error occured while saving the file [/a.htm].",
                            .title = "File Save Error",
                            .icon = MessageIcon::critical});
    reportSaveError("/a.htm");
    EXPECT_EQ(platform.beeps, 3);
}

}  // namespace
}  // namespace kelvor
