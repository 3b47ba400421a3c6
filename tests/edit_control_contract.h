#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/edit_control.h"
#include "platform/form.h"
#include "platform/text.h"
#include "tests/fake_platform.h"

namespace kelvor {

/// What every edit control does alike; instantiated with each class that is one.
template <typename Surface>
class EditControlContract : public testing::Test {
protected:
    EditControlContract() {
        edit.changed.connect([this] { ++changes; });
        edit.selectionChanged.connect([this] { ++moves; });
    }

    /// Sets the text and its selection: "[" and "]" stand around it, "|" at the caret, else the caret is at the start.
    void put(const std::string& marked) {
        std::string text;
        int start = 0;
        int end = 0;
        for (const char byte : marked) {
            const int here = static_cast<int>(text.size());
            if (byte == '[' || byte == '|') start = end = here;
            if (byte == ']') end = here;
            if (byte != '[' && byte != ']' && byte != '|') text += byte;
        }
        edit.setText(text);
        edit.setSelStart(start);
        edit.setSelLength(end - start);
        changes = moves = 0;
    }

    /// The text with its selection, marked as for put().
    std::string shown() const {
        std::string text = edit.text();
        const auto start = static_cast<std::size_t>(edit.selStart());
        const auto length = static_cast<std::size_t>(edit.selLength());
        if (length == 0) return text.insert(start, "|");
        return text.insert(start + length, "]").insert(start, "[");
    }

    void load(const std::string& bytes) { edit.LoadFile(directory.write("loaded", bytes)); }
    std::string saved() {
        edit.SaveFile(directory.path("saved"));
        return directory.read("saved");
    }

    FakePlatform platform;
    TestDirectory directory;
    Form form{"contract", "Contract"};
    std::unique_ptr<Surface> surface = std::make_unique<Surface>(form, "Text1");
    EditControl& edit = *surface;
    int changes = 0;
    int moves = 0;
};

TYPED_TEST_SUITE_P(EditControlContract);

/// A step on a marked text and what it leaves.
struct StepRow {
    std::string before;
    std::function<void(EditControl&)> step;
    std::string after;
};

TYPED_TEST_P(EditControlContract, SelectsAndReplaces) {
    const std::string nul(1, '\0');
    const std::vector<StepRow> rows = {
        {"", [](auto& control) { control.setSelText(""); }, "|"},
        {"abc|", [](auto& control) { control.setText("xy"); }, "|xy"},
        {"a[bc]d", [](auto& control) { control.setSelText("XYZ"); }, "aXYZ|d"},
        {"a|d", [](auto& control) { control.setSelText("\r\n"); }, "a\r\n|d"},
        {"a[bc]d", [](auto& control) { control.setSelText(""); }, "a|d"},
        {"a[bc]d", [](auto& control) { control.setSelStart(2); }, "ab|cd"},
        {"abc|", [](auto& control) { control.setSelStart(-1); }, "|abc"},
        {"|abc", [](auto& control) { control.setSelStart(99); }, "abc|"},
        {"a|bc", [](auto& control) { control.setSelLength(99); }, "a[bc]"},
        {"a[bc]", [](auto& control) { control.setSelLength(-5); }, "a|bc"},
        {"a|bc", [](auto& control) { control.setSelLength(2147483647); }, "a[bc]"},
        {"a|bc", [](auto& control) { control.selectAll(); }, "[abc]"},
        {"äb", [](auto& control) { control.setSelStart(1); }, "|äb"},
        {"|äb", [](auto& control) { control.setSelLength(1); }, "|äb"},
        {"x|€b", [](auto& control) { control.setSelLength(3); }, "x[€]b"},
        {"a\r\nb", [](auto& control) { control.setSelStart(2); }, "a\r|\nb"},
        {"a\r|\nb", [](auto& control) { control.setSelText("x"); }, "a\rx|\nb"},
        {"a|b", [&](auto& control) { control.setSelText(nul); }, "a" + nul + "|b"},
        {"",
         [](auto& control) {
             control.setText(
                 "a\xFF"
                 "b");
         },
         "|a\xEF\xBF\xBD"
         "b"},
        {"a|", [](auto& control) { control.setSelText("\xE2\x82"); }, "a\xEF\xBF\xBD\xEF\xBF\xBD|"},
        {"", [](auto& control) { control.setText("\xED\xA0\x80\xC3\xA4\xC0\x80"); },
         "|\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xC3\xA4\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& row : rows) {
        this->put(row.before);
        row.step(this->edit);
        EXPECT_EQ(this->shown(), row.after) << "from " << row.before;
    }
}

TYPED_TEST_P(EditControlContract, SelTextIsTheSelection) {
    this->put("one [two\r\n] three");
    EXPECT_EQ(this->edit.selText(), "two\r\n");
    this->edit.setSelLength(0);
    EXPECT_EQ(this->edit.selText(), "");
    EXPECT_EQ(this->edit.textLength(), 15);
}

struct FindRow {
    std::string before;
    std::string pattern;
    std::optional<int> start;
    std::optional<int> end;
    int options;
    int position;
    std::string after;
};

TYPED_TEST_P(EditControlContract, FindsInItsRange) {
    constexpr int word = find_option::wholeWord;
    constexpr int exact = find_option::matchCase;
    const std::vector<FindRow> rows = {
        {"dog cat| cat", "cat", {}, {}, 0, 4, "dog [cat] cat"},
        {"cat [dog cat] cat", "cat", {}, {}, 0, 8, "cat dog [cat] cat"},
        {"cat [dog] cat", "cat", {}, {}, 0, -1, "cat [dog] cat"},
        {"[ca]t", "cat", {}, {}, 0, -1, "[ca]t"},
        {"cat [dog cat] cat", "cat", {}, 10, 0, -1, "cat [dog cat] cat"},
        {"cat cat", "cat", {}, 2, 0, -1, "|cat cat"},
        {"cat cat", "cat", 1, {}, 0, 4, "cat [cat]"},
        {"[cat] dog cat", "cat", 3, {}, 0, 8, "cat dog [cat]"},
        {"cat cat", "cat", 1, 6, 0, -1, "|cat cat"},
        {"cat cat", "cat", 1, 7, 0, 4, "cat [cat]"},
        {"cat cat", "cat", 1, 1000, 0, 4, "cat [cat]"},
        {"cat cat|", "cat", 5, 2, 0, -1, "cat cat|"},
        {"cat cat|", "cat", 4, 4, 0, -1, "cat cat|"},
        {"cat|", "cat", 99, {}, 0, -1, "cat|"},
        {"cat|", "cat", 3, {}, 0, -1, "cat|"},
        {"cat|", "cat", -1, {}, 0, -1, "cat|"},
        {"cat|", "cat", 0, -1, 0, -1, "cat|"},
        {"c[a]t", "", {}, {}, 0, -1, "c[a]t"},
        {"", "cat", {}, {}, 0, -1, "|"},
        {"cats cat", "cat", {}, {}, word, 5, "cats [cat]"},
        {"xcat", "cat", 1, {}, word, -1, "|xcat"},
        {"äcat", "cat", 2, {}, word, -1, "|äcat"},
        {"catx", "cat", 0, 3, word, -1, "|catx"},
        {"x cat.", "cat", 2, 5, word, 2, "x [cat]."},
        {"CAT cat", "cat", {}, {}, exact, 4, "CAT [cat]"},
        {"CAT cat", "cat", {}, {}, 0, 0, "[CAT] cat"},
        {"CAT cats cat", "cat", {}, {}, word + exact, 9, "CAT cats [cat]"},
        {"x ÄPFEL", "äpfel", {}, {}, 0, 2, "x [ÄPFEL]"},
        {"x ÄPFEL", "äpfel", {}, {}, exact, -1, "|x ÄPFEL"},
        {"ЖУК жук", "жук", 1, {}, exact, 7, "ЖУК [жук]"},
        {"x\u212Ax", "k", {}, {}, 0, 1, "x[\u212A]x"},
        {"äb", "ä", 1, {}, 0, 0, "[ä]b"},
        {"aä", "ä", 0, 2, 0, -1, "|aä"},
        {"a\r\nb", "\r\n", {}, {}, 0, 1, "a[\r\n]b"},
    };
    for (const auto& row : rows) {
        this->put(row.before);
        EXPECT_EQ(this->edit.Find(row.pattern, row.start, row.end, row.options), row.position)
            << row.pattern << " in " << row.before;
        EXPECT_EQ(this->shown(), row.after) << row.pattern << " in " << row.before;
    }
}

TYPED_TEST_P(EditControlContract, CountsLinesByAllThreeEnds) {
    this->put("a\r\nb\rc\n\nd");
    EXPECT_EQ(this->edit.lineCount(), 5);
    const int lines[] = {0, 0, 0, 1, 1, 2, 2, 3, 4, 4};
    for (int position = 0; position < 10; ++position) {
        EXPECT_EQ(this->edit.GetLineFromChar(position), lines[position]) << position;
    }
    EXPECT_EQ(this->edit.GetLineFromChar(-1), 0);
    EXPECT_EQ(this->edit.GetLineFromChar(99), 4);
    const int starts[] = {0, 3, 5, 7, 8, 9, 9};
    for (int line = 0; line < 7; ++line) EXPECT_EQ(this->edit.lineIndex(line), starts[line]) << line;
    this->edit.setSelStart(6);
    EXPECT_EQ(this->edit.lineIndex(-1), 5);
    this->put("");
    EXPECT_EQ(this->edit.lineCount(), 1);
    EXPECT_EQ(this->edit.lineIndex(-1), 0);
}

TYPED_TEST_P(EditControlContract, CountsCharactersAndNotBytes) {
    this->put("a\r\nä€\U0001F600");
    EXPECT_EQ(this->edit.characterCount(), 6);
    EXPECT_EQ(this->edit.characterCount(3, 8), 2);
    EXPECT_EQ(this->edit.characterCount(-1, 99), 6);
    EXPECT_EQ(this->edit.characterCount(5, 3), 0);
}

inline std::size_t linesIn(const std::string& text) {
    std::size_t lines = 1;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool pair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        if (text[at] == '\n' || (text[at] == '\r' && !pair)) ++lines;
    }
    return lines;
}

TYPED_TEST_P(EditControlContract, AgreesWithAPlainStringThroughAnyEdits) {
    std::mt19937 random(7);
    const auto below = [&](int bound) { return std::uniform_int_distribution<int>(0, bound)(random); };
    const std::string pieces[] = {"", "a", "\r", "\n", "\r\n", "ä", "€", "<B>x</B>", std::string("\0", 1)};
    std::vector<std::string> states = {""};
    std::optional<EditControl::Batch> batch;
    for (int step = 0; step < 600; ++step) {
        if (step == 200 || step == 400) batch.emplace(this->edit);
        if (step == 300 || step == 500) batch.reset();
        std::string expected = states.back();
        this->edit.setSelStart(below(this->edit.textLength()));
        this->edit.setSelLength(below(4));
        const auto& piece = pieces[below(8)];
        const auto start = static_cast<std::size_t>(this->edit.selStart());
        expected.replace(start, static_cast<std::size_t>(this->edit.selLength()), piece);
        this->edit.setSelText(piece);

        const auto probe = static_cast<std::size_t>(below(static_cast<int>(expected.size())));
        const int at = static_cast<int>(probe);
        ASSERT_EQ(static_cast<std::size_t>(this->edit.characterCount()), characterCount(expected)) << step;
        ASSERT_EQ(static_cast<std::size_t>(this->edit.characterCount(0, at)),
                  characterCount(expected.substr(0, probe)));
        if (probe == 0 || expected[probe - 1] != '\r') {
            ASSERT_EQ(static_cast<std::size_t>(this->edit.GetLineFromChar(at)) + 1, linesIn(expected.substr(0, probe)));
        }
        ASSERT_EQ(static_cast<std::size_t>(this->edit.lineCount()), linesIn(expected)) << step;
        ASSERT_EQ(this->edit.text(), expected) << step;
        if (expected != states.back() && !batch) states.push_back(expected);
        if (expected != states.back() && batch) states.back() = expected;
    }
}

TYPED_TEST_P(EditControlContract, TakesStepsBack) {
    this->load("one");
    this->edit.undo();
    EXPECT_EQ(this->shown(), "|one") << "a loaded text has no step";
    this->edit.setText("two");
    this->edit.setSelStart(3);
    this->edit.setSelText("!");
    {
        const EditControl::Batch batch(this->edit);
        this->edit.setSelStart(0);
        this->edit.setSelText("<");
        this->edit.undo();
        {
            const EditControl::Batch inner(this->edit);
            this->edit.setText("new");
        }
        this->edit.setSelText(">");
    }
    EXPECT_EQ(this->shown(), ">|new");
    { const EditControl::Batch empty(this->edit); }
    const std::string wayBack[] = {"two!", "two", "one", "one"};
    for (const auto& text : wayBack) {
        this->edit.undo();
        EXPECT_EQ(this->edit.text(), text);
    }
    this->put("[on]e");
    this->edit.setSelText("XYZ");
    this->edit.setSelStart(4);
    this->edit.undo();
    EXPECT_EQ(this->shown(), "on|e");
}

TYPED_TEST_P(EditControlContract, LoadingInABatchForgetsItsSteps) {
    this->put("old");
    {
        const EditControl::Batch batch(this->edit);
        this->edit.setSelText("x");
        this->load("loaded");
        this->edit.setSelText("y");
    }
    EXPECT_EQ(this->shown(), "y|loaded");
    this->edit.undo();
    EXPECT_EQ(this->edit.text(), "loaded");
    this->edit.undo();
    EXPECT_EQ(this->edit.text(), "loaded");
}

struct EventRow {
    std::string name;
    std::string before;
    std::function<void(EditControl&)> step;
    int changes;
    int moves;
};

TYPED_TEST_P(EditControlContract, RaisesEachEventOnce) {
    const std::vector<EventRow> rows = {
        {"text", "abc|", [](auto& control) { control.setText("x"); }, 1, 1},
        {"the same text", "|abc", [](auto& control) { control.setText("abc"); }, 1, 0},
        {"selected text", "a[b]c", [](auto& control) { control.setSelText("x"); }, 1, 1},
        {"nothing in place of nothing", "a|c", [](auto& control) { control.setSelText(""); }, 1, 0},
        {"caret", "a|c", [](auto& control) { control.setSelStart(0); }, 0, 1},
        {"caret at its place", "a|c", [](auto& control) { control.setSelStart(1); }, 0, 0},
        {"length", "a|c", [](auto& control) { control.setSelLength(1); }, 0, 1},
        {"all", "a|c", [](auto& control) { control.selectAll(); }, 0, 1},
        {"match", "a|c", [](auto& control) { control.Find("c"); }, 0, 1},
        {"no match", "a|c", [](auto& control) { control.Find("d"); }, 0, 0},
        {"text colour", "a|c", [](auto& control) { control.setSelColor(0xFF); }, 1, 0},
        {"the same text colour", "a|c", [](auto& control) { control.setSelColor(0xFF); }, 1, 0},
        {"background", "a|c", [](auto& control) { control.setBackColor(0xFF); }, 0, 0},
        {"undo", "a[b]c", [](auto& control) { control.undo(); }, 1, 1},
        {"cut", "a[b]c", [](auto& control) { control.cut(); }, 1, 1},
        {"copy", "a[b]c", [](auto& control) { control.copy(); }, 0, 0},
        {"batch", "a[b]c",
         [](auto& control) {
             const EditControl::Batch batch(control);
             for (int i = 0; i < 3; ++i) control.setSelText("x");
             const EditControl::Batch inner(control);
             control.setSelStart(0);
         },
         1, 1},
        {"batch of reads", "a[b]c",
         [](auto& control) {
             const EditControl::Batch batch(control);
             control.selText();
             control.Find("nothing");
         },
         0, 0},
    };
    for (const auto& row : rows) {
        this->put(row.before);
        row.step(this->edit);
        EXPECT_EQ(this->changes, row.changes) << row.name;
        EXPECT_EQ(this->moves, row.moves) << row.name;
    }
}

TYPED_TEST_P(EditControlContract, HandlersSeeTheOutcome) {
    this->put("a[b]c");
    std::vector<std::string> seen;
    this->edit.changed.connect([&] { seen.push_back("changed " + this->shown()); });
    this->edit.selectionChanged.connect([&] { seen.push_back("moved " + this->shown()); });
    this->edit.setSelText("xy");
    {
        const EditControl::Batch batch(this->edit);
        this->edit.setSelText("z");
        EXPECT_EQ(seen.size(), 2u) << "inside a batch events wait";
        EXPECT_EQ(this->edit.Find("a"), 0);
        EXPECT_EQ(this->shown(), "[a]xyzc");
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"changed axy|c", "moved axy|c", "changed [a]xyzc", "moved [a]xyzc"}));
}

TYPED_TEST_P(EditControlContract, AHandlerMayWriteAgain) {
    bool once = true;
    this->edit.changed.connect([&] {
        if (std::exchange(once, false)) this->edit.setText(this->edit.text() + "!");
    });
    this->edit.setText("abc");
    EXPECT_EQ(this->shown(), "|abc!");
    EXPECT_EQ(this->changes, 2);
}

TYPED_TEST_P(EditControlContract, TheClipboardHasPlainText) {
    const std::vector<StepRow> rows = {
        {"a[b\r\nc]d", [](auto& control) { control.copy(); }, "a[b\r\nc]d"},
        {"a|d", [](auto& control) { control.paste(); }, "ab\r\nc|d"},
        {"a|d", [](auto& control) { control.cut(); }, "a|d"},
        {"a|d", [](auto& control) { control.copy(); }, "a|d"},
        {"[ad]", [](auto& control) { control.paste(); }, "b\r\nc|"},
        {"[äö]d", [](auto& control) { control.cut(); }, "|d"},
        {"d|", [](auto& control) { control.paste(); }, "däö|"},
    };
    for (const auto& row : rows) {
        this->put(row.before);
        row.step(this->edit);
        EXPECT_EQ(this->shown(), row.after) << "from " << row.before;
    }
    this->platform.clipboardText.clear();
    this->put("a[b]c");
    this->edit.paste();
    EXPECT_EQ(this->shown(), "a[b]c");
    EXPECT_EQ(this->changes, 0);
}

struct FileRow {
    std::string name;
    std::string bytes;
    std::string text;
    Encoding encoding;
    std::string lineEnd;
};

TYPED_TEST_P(EditControlContract, FilesComeBackByteForByte) {
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte) allBytes += static_cast<char>(byte);
    const std::string wide(
        "\xFF\xFE"
        "a\0\r\0\n\0\xE4\0",
        10);
    const std::string wideSwapped("\xFE\xFF\0a\0\n\x20\xAC", 8);
    const std::vector<FileRow> rows = {
        {"empty", "", "", Encoding::utf8, "\r\n"},
        {"mixed ends", "a\nb\r\nc\rd\ne", "a\nb\r\nc\rd\ne", Encoding::utf8, "\n"},
        {"old ends", "a\rb\rc\n", "a\rb\rc\n", Encoding::utf8, "\r"},
        {"even ends", "a\r\nb\n", "a\r\nb\n", Encoding::utf8, "\r\n"},
        {"mark", "\xEF\xBB\xBF\xC3\xA4", "ä", Encoding::utf8WithMark, "\r\n"},
        {"mark alone", "\xEF\xBB\xBF", "", Encoding::utf8WithMark, "\r\n"},
        {"nul", std::string("a\0b\0", 4), std::string("a\0b\0", 4), Encoding::utf8, "\r\n"},
        {"16 bits", wide, "a\r\nä", Encoding::utf16LittleEndian, "\r\n"},
        {"16 bits swapped", wideSwapped, "a\n€", Encoding::utf16BigEndian, "\n"},
        {"one byte", "\xE4\x80\x81\xFF", "ä€\xC2\x81ÿ", Encoding::windows1252, "\r\n"},
    };
    for (const auto& row : rows) {
        this->load(row.bytes);
        EXPECT_EQ(this->edit.text(), row.text) << row.name;
        EXPECT_EQ(this->edit.encoding(), row.encoding) << row.name;
        EXPECT_EQ(this->edit.lineEnd(), row.lineEnd) << row.name;
        EXPECT_EQ(this->saved(), row.bytes) << row.name;
    }
    this->load(allBytes);
    EXPECT_EQ(this->edit.characterCount(), 256);
    EXPECT_EQ(this->saved(), allBytes);
    this->edit.setSelText("<");
    EXPECT_EQ(this->saved(), "<" + allBytes);
}

TYPED_TEST_P(EditControlContract, ALoadIsAChangeAndAFailedOneIsNone) {
    this->put("abc|");
    this->load("x\ny\n");
    EXPECT_EQ(this->shown(), "|x\ny\n");
    EXPECT_EQ(this->changes, 1);
    EXPECT_EQ(this->moves, 1);
    try {
        this->edit.LoadFile(this->directory.path("missing"));
        ADD_FAILURE() << "a missing file was loaded";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), error_number::fileNotFound);
    }
    EXPECT_EQ(this->shown(), "|x\ny\n");
    EXPECT_EQ(this->edit.lineEnd(), "\n");
    EXPECT_EQ(this->changes, 1);
}

TYPED_TEST_P(EditControlContract, ATextThatItsEncodingLacksIsNotWritten) {
    this->load("\xE4");
    EXPECT_EQ(this->saved(), "\xE4");
    this->edit.setSelText("Ж");
    EXPECT_FALSE(this->edit.canBeSaved());
    try {
        this->saved();
        ADD_FAILURE() << "it was written";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), error_number::invalidProcedureCall);
    }
    EXPECT_EQ(this->directory.read("saved"), "\xE4");
    this->edit.setEncoding(Encoding::utf8);
    EXPECT_TRUE(this->edit.canBeSaved());
    EXPECT_EQ(this->saved(), "Жä");
}

REGISTER_TYPED_TEST_SUITE_P(EditControlContract, SelectsAndReplaces, SelTextIsTheSelection, FindsInItsRange,
                            CountsLinesByAllThreeEnds, CountsCharactersAndNotBytes,
                            AgreesWithAPlainStringThroughAnyEdits, TakesStepsBack, LoadingInABatchForgetsItsSteps,
                            RaisesEachEventOnce, HandlersSeeTheOutcome, AHandlerMayWriteAgain, TheClipboardHasPlainText,
                            FilesComeBackByteForByte, ALoadIsAChangeAndAFailedOneIsNone,
                            ATextThatItsEncodingLacksIsNotWritten);

}  // namespace kelvor
