// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <random>

#include "controls/edit_control.h"
#include "controls/form.h"
#include "tests/kit/fake_platform.h"
#include "text/code_points.h"

namespace kelvor {

/// A step on a marked text, what it leaves, and how often it raises each event.
struct StepRow {
    std::string before;
    std::function<void(EditControl&)> step;
    std::string after;
    int changes;
    int moves;
};

/// One of the classes of edit controls.
struct EditControlKind {
    const char* name = nullptr;
    std::unique_ptr<EditControl> (*make)(Form&, const std::string&) = nullptr;

    friend void PrintTo(const EditControlKind& kind, std::ostream* out) { *out << kind.name; }
};

template <typename Surface>
std::unique_ptr<EditControl> makeControl(Form& form, const std::string& name) {
    return std::make_unique<Surface>(form, name);
}

/// What every edit control does alike; instantiated with each class that is one.
class EditControlContract : public testing::TestWithParam<EditControlKind> {
protected:
    EditControlContract() {
        edit.changed.connect([this] { ++changes; });
        edit.selectionChanged.connect([this] { ++moves; });
    }

    /// Sets the text and its selection: "[" and "]" stand around it, "|" at the caret, else the caret is at the start.
    void put(std::string text) {
        const auto take = [&text](const char* marks) {
            const auto place = text.find_first_of(marks);
            if (place == std::string::npos) return 0;
            text.erase(place, 1);
            return static_cast<int>(place);
        };
        const int start = take("[|");
        const int end = take("]");
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

    void check(const std::vector<StepRow>& rows) {
        for (const auto& row : rows) {
            SCOPED_TRACE("from " + row.before + " to " + row.after);
            put(row.before);
            row.step(edit);
            EXPECT_EQ(shown(), row.after);
            EXPECT_EQ(std::pair(changes, moves), std::pair(row.changes, row.moves));
        }
    }

    void load(const std::string& bytes) { edit.LoadFile(directory.write("loaded", bytes)); }
    std::string saved() {
        edit.SaveFile(directory.path("saved"));
        return directory.read("saved");
    }

    FakePlatform platform;
    TestDirectory directory;
    Form form{"contract", "Contract"};
    std::unique_ptr<EditControl> surface = GetParam().make(form, "Text1");
    EditControl& edit = *surface;
    int changes = 0;
    int moves = 0;
};

TEST_P(EditControlContract, EachStepLeavesItsTextAndRaisesEachEventOnce) {
    check({
        {"abc|", [](auto& control) { control.setText("xy"); }, "|xy", 1, 1},
        {"|abc", [](auto& control) { control.setText("abc"); }, "|abc", 1, 0},
        {"a[bc]d", [](auto& control) { control.setSelText("XYZ"); }, "aXYZ|d", 1, 1},
        {"a|c", [](auto& control) { control.setSelText(""); }, "a|c", 1, 0},
        {"", [](auto& control) { control.setSelText("\xFF\xE2\x82ä"); }, "\uFFFD\uFFFD\uFFFDä|", 1, 1},
        {"abc|", [](auto& control) { control.setSelStart(-1); }, "|abc", 0, 1},
        {"|abc", [](auto& control) { control.setSelStart(99); }, "abc|", 0, 1},
        {"äb|", [](auto& control) { control.setSelStart(1); }, "|äb", 0, 1},
        {"a[bc]", [](auto& control) { control.setSelLength(-5); }, "a|bc", 0, 1},
        {"a|bc", [](auto& control) { control.setSelLength(2147483647); }, "a[bc]", 0, 1},
        {"|äb", [](auto& control) { control.setSelLength(1); }, "|äb", 0, 0},
        {"a|bc", [](auto& control) { control.selectAll(); }, "[abc]", 0, 1},
        {"a|c", [](auto& control) { control.setSelColor(0xFF); }, "a|c", 1, 0},
        // What the clipboard got from one row stays for the next.
        {"a[b]c", [](auto& control) { control.paste(); }, "a[b]c", 0, 0},
        {"a[b\r\nc]d", [](auto& control) { control.copy(); }, "a[b\r\nc]d", 0, 0},
        {"[a]d", [](auto& control) { control.paste(); }, "b\r\nc|d", 1, 1},
        {"[äö]d", [](auto& control) { control.cut(); }, "|d", 1, 1},
        {"a|d", [](auto& control) { control.cut(), control.copy(); }, "a|d", 0, 0},
        {"d|", [](auto& control) { control.paste(); }, "däö|", 1, 1},
    });
}

TEST_P(EditControlContract, FindsInItsRange) {
    using Place = std::optional<int>;
    constexpr SearchOptions word = {.wholeWord = true};
    constexpr SearchOptions wordAndCase = {.wholeWord = true, .matchCase = true};
    const auto find = [](const char* pattern, Place start = {}, Place end = {}, SearchOptions options = {}) {
        return [=](EditControl& control) { control.Find(pattern, start, end, options); };
    };
    check({
        {"dog cat| cat", find("cat"), "dog [cat] cat", 0, 1},
        {"cat [dog cat] cat", find("cat"), "cat dog [cat] cat", 0, 1},
        {"cat [dog ca]t", find("cat"), "cat [dog ca]t", 0, 0},
        {"cat [dog cat] cat", find("cat", {}, 10), "cat [dog cat] cat", 0, 0},
        {"[cat] dog cat", find("cat", 3), "cat dog [cat]", 0, 1},
        {"cat cat", find("cat", 1, 6), "|cat cat", 0, 0},
        {"cat|", find("cat", 99), "cat|", 0, 0},
        {"äcat", find("cat", 2, {}, word), "|äcat", 0, 0},
        {"CAT cats cat", find("cat", {}, {}, wordAndCase), "CAT cats [cat]", 0, 1},
        {"äb", find("ä", 1), "[ä]b", 0, 1},
        {"aä", find("ä", 0, 2), "|aä", 0, 0},
    });
    EXPECT_EQ(edit.Find("ä"), 1);
    EXPECT_EQ(edit.Find("a"), -1);
}

TEST_P(EditControlContract, CountsWithinTheText) {
    put("a\r\nä\rb|");
    EXPECT_EQ((std::vector{edit.GetLineFromChar(-1), edit.GetLineFromChar(99)}), (std::vector{0, 2}));
    EXPECT_EQ((std::vector{edit.lineIndex(-1), edit.lineIndex(99)}), (std::vector{6, 7}));
    EXPECT_EQ((std::vector{edit.characterCount(-1, 99), edit.characterCount(5, 3)}), (std::vector{6, 0}));
}

TEST_P(EditControlContract, AgreesWithAPlainStringThroughAnyEditsAndBack) {
    std::mt19937 random(7);
    const auto below = [&](int bound) { return std::uniform_int_distribution<int>(0, bound)(random); };
    const auto charactersIn = [](const std::string& text) { return static_cast<int>(characterCount(text)); };
    const auto linesIn = [](const std::string& text) {
        int lines = 1;
        for (std::size_t at = 0; at < text.size(); ++at)
            if (text[at] == '\n' || (text[at] == '\r' && text[at + 1] != '\n')) ++lines;
        return lines;
    };
    const std::string pieces[] = {"", "a", "\r", "\n", "\r\n", "ä", "€", "<B>x</B>", std::string("\0", 1)};
    std::string expected;
    // What has changed since it was last asked for makes the old text the new one.
    std::string followed;
    const auto follow = [&] {
        const ChangedRange change = edit.takeChange();
        followed.replace(static_cast<std::size_t>(change.start), static_cast<std::size_t>(change.removed),
                         edit.textPart(change.start, change.inserted));
        return followed;
    };
    std::optional<EditControl::Batch> batch;
    constexpr int steps = 600;
    for (int step = 0; step < steps; ++step) {
        SCOPED_TRACE(step);
        if (step == 200 || step == 400) batch.emplace(edit);
        if (step == 300 || step == 500) batch.reset();
        edit.setSelStart(below(edit.textLength()));
        edit.setSelLength(below(4));
        const auto start = static_cast<std::size_t>(edit.selStart());
        const auto length = static_cast<std::size_t>(edit.selLength());
        ASSERT_EQ(edit.selText(), expected.substr(start, length));
        const auto& piece = pieces[below(8)];
        expected.replace(start, length, piece);
        edit.setSelText(piece);

        if (below(2) == 0) {
            ASSERT_EQ(follow(), expected);
        }
        const int at = below(edit.textLength());
        const auto before = expected.substr(0, static_cast<std::size_t>(at));
        ASSERT_EQ(edit.text(), expected);
        ASSERT_EQ(edit.characterCount(), charactersIn(expected));
        ASSERT_EQ(edit.characterCount(0, at), charactersIn(before));
        ASSERT_EQ(edit.lineCount(), linesIn(expected));
        if (before.ends_with('\r')) continue;
        ASSERT_EQ(edit.GetLineFromChar(at) + 1, linesIn(before));
        ASSERT_EQ(edit.lineIndex(linesIn(before) - 1), static_cast<int>(before.find_last_of("\r\n") + 1));
    }
    for (const auto& [go, text] : {std::pair{&EditControl::undo, std::string()}, {&EditControl::redo, expected}}) {
        for (int step = 0; step < steps; ++step) {
            (edit.*go)();
            if (step % 3 == 0) {
                ASSERT_EQ(follow(), edit.text());
            }
        }
        EXPECT_EQ(edit.text(), text);
        EXPECT_EQ(follow(), text);
        EXPECT_EQ(edit.characterCount(), charactersIn(text));
    }
}

TEST_P(EditControlContract, TakesStepsBackAndAgain) {
    const auto expectSteps = [&](void (EditControl::*go)(), std::initializer_list<const char*> outcomes) {
        for (const char* outcome : outcomes) {
            std::invoke(go, edit);
            EXPECT_EQ(shown(), outcome);
        }
    };
    edit.setText("two");
    edit.setSelStart(3);
    edit.setSelText("!");
    {
        const EditControl::Batch batch(edit);
        edit.setSelStart(0);
        edit.setSelText("<");
        expectSteps(&EditControl::undo, {"<|two!"});
        {
            const EditControl::Batch inner(edit);
            edit.setText("new");
        }
        edit.setSelText(">");
        expectSteps(&EditControl::redo, {">|new"});
    }
    expectSteps(&EditControl::undo, {"|two!", "two|", "|", "|"});

    put("[on]e");
    edit.setSelText("XYZ");
    edit.setSelStart(4);
    edit.setSelText("!");
    expectSteps(&EditControl::undo, {"XYZe|", "on|e"});
    expectSteps(&EditControl::redo, {"XYZ|e", "XYZe!|", "XYZe!|"});
    expectSteps(&EditControl::undo, {"XYZe|"});
    EXPECT_EQ(changes, 7);
    edit.setSelText("?");
    expectSteps(&EditControl::redo, {"XYZe?|"});
    {
        const EditControl::Batch batch(edit);
        edit.setSelText("x");
        load("loaded");
        edit.setSelText("y");
    }
    EXPECT_EQ(shown(), "y|loaded");
    // A load forgets all steps of both ways.
    expectSteps(&EditControl::undo, {"|loaded"});
    load("loaded");
    expectSteps(&EditControl::redo, {"|loaded"});
}

TEST_P(EditControlContract, HandlersSeeTheOutcomeAndMayWriteAgain) {
    put("a[b]c");
    std::string seen;
    edit.changed.connect([&] { seen += "changed " + shown() + " "; });
    edit.selectionChanged.connect([&] { seen += "moved " + shown() + " "; });
    edit.setSelText("xy");
    {
        const EditControl::Batch batch(edit);
        for (int i = 0; i < 2; ++i) {
            const EditControl::Batch inner(edit);
            edit.setSelText("z");
        }
        EXPECT_EQ(edit.Find("a"), 0);
    }
    { const EditControl::Batch reading(edit); }
    EXPECT_EQ(seen, "changed axy|c moved axy|c changed [a]xyzzc moved [a]xyzzc ");
    bool once = true;
    edit.changed.connect([&] {
        if (std::exchange(once, false)) edit.setText("abc!");
    });
    edit.setText("abc");
    EXPECT_EQ(shown(), "|abc!");
}

TEST_P(EditControlContract, FilesComeBackByteForByte) {
    using namespace std::string_literals;
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte) allBytes += static_cast<char>(byte);
    const struct {
        std::string bytes;
        std::string text;
        Encoding encoding = Encoding::utf8;
        std::string lineEnd;
    } rows[] = {
        {"\xEF\xBB\xBF\xC3\xA4", "ä", Encoding::utf8WithMark, "\r\n"},
        {"a\nb\r\nc\rd\ne", "a\nb\r\nc\rd\ne", Encoding::utf8, "\n"},
        {"a\rb\rc\n", "a\rb\rc\n", Encoding::utf8, "\r"},
        {"\xFF\xFEx\0\r\0\n\0\xE4\0"s, "x\r\nä", Encoding::utf16LittleEndian, "\r\n"},
        {allBytes, decode(allBytes).text, Encoding::windows1252, "\n"},
        {std::string(1'000'000, 'x') + "\xE4", std::string(1'000'000, 'x') + "ä", Encoding::windows1252, "\r\n"},
    };
    for (const auto& row : rows) {
        load(row.bytes);
        EXPECT_EQ(edit.text(), row.text);
        EXPECT_EQ(edit.characterCount(), static_cast<int>(characterCount(row.text)));
        EXPECT_EQ(edit.encoding(), row.encoding) << row.text;
        EXPECT_EQ(edit.lineEnd(), row.lineEnd) << row.text;
        EXPECT_EQ(saved(), row.bytes) << row.text;
        platform.clipboardText = "1\r\n2\r3\n";
        edit.paste();
        EXPECT_EQ(edit.text(), "1" + row.lineEnd + "2" + row.lineEnd + "3" + row.lineEnd + row.text);
        edit.undo();
        EXPECT_EQ(edit.text(), row.text);
    }
}

TEST_P(EditControlContract, ALoadIsAChangeAndAFailedLoadOrSaveIsNone) {
    put("abc|");
    load("\xE4\n");
    EXPECT_THROW(edit.LoadFile(directory.path("missing")), Error);
    EXPECT_EQ(shown() + edit.lineEnd(), "|ä\n\n");
    EXPECT_EQ(std::pair(changes, moves), std::pair(1, 1));
    EXPECT_EQ(saved(), "\xE4\n");
    edit.setSelText("Ж");
    EXPECT_FALSE(edit.canBeSaved());
    EXPECT_THROW(saved(), Error);
    EXPECT_EQ(directory.read("saved"), "\xE4\n");
}

TEST_P(EditControlContract, AReloadIsOneStepThatLeavesTheCaretWithItsText) {
    const auto reload = [this](const char* bytes) {
        return [this, bytes](EditControl& control) { control.ReloadFile(directory.write("reloaded", bytes)); };
    };
    check({
        {"one |two", reload("one two"), "one |two", 1, 0},
        {"one |two", reload("ONE! two"), "ONE! |two", 1, 1},
        {"one |two", reload("one TWO\n"), "one |TWO\n", 1, 0},
        {"one t|wo", reload("1"), "1|", 1, 1},
        {"ä|b",
         reload("\xE4"
                "b"),
         "ä|b", 1, 0},
    });
    EXPECT_EQ(edit.encoding(), Encoding::windows1252);
    put("one |two");
    reload("1 2 3")(edit);
    const auto stamp = edit.fileStamp();
    EXPECT_EQ(stamp->hash, hashOf("1 2 3"));
    EXPECT_THROW(edit.ReloadFile(directory.path("missing")), Error);
    EXPECT_EQ(std::pair(edit.text(), edit.fileStamp()->hash), std::pair(std::string("1 2 3"), stamp->hash));
    edit.undo();
    EXPECT_EQ(edit.text(), "one two");

    // A text that is begun anew has not changed yet, and one whose load fails goes on as it was.
    edit.takeChange();
    edit.setSelText("x");
    EXPECT_THROW(edit.LoadFile(directory.path("missing")), Error);
    EXPECT_EQ(edit.takeChange().inserted, 1);
    edit.setSelText("y");
    load("loaded");
    EXPECT_TRUE(edit.takeChange().isEmpty());
}

TEST_P(EditControlContract, AnotherTextIsAChangeWithNoWayBack) {
    put("abc|");
    for (const char* text : {"\xC3\xA4 b", "", "c"}) {
        changes = 0;
        edit.startText(text);
        edit.undo();
        EXPECT_EQ(shown(), std::string("|") + text);
        EXPECT_EQ(changes, 1);
    }
    edit.setSelText("d");
    edit.undo();
    EXPECT_EQ(edit.text(), "c");
}

TEST_P(EditControlContract, OnlyTheProgramWritesWhereTheUserMayNot) {
    put("a[b]c");
    edit.setSelText("d");
    edit.setSelText("e");
    edit.undo();
    put("a[b]c");
    edit.setReadOnly(true);
    platform.clipboardText = "new";
    for (const auto act : {&EditControl::cut, &EditControl::paste, &EditControl::undo, &EditControl::redo})
        (edit.*act)();
    EXPECT_EQ(shown() + platform.clipboardText, "a[b]cnew");
    EXPECT_EQ(changes, 0);
    edit.copy();
    EXPECT_EQ(platform.clipboardText, "b");
    edit.setSelText("X");
    EXPECT_EQ(shown(), "aX|c");
    edit.startText("other");
    edit.paste();
    EXPECT_EQ(shown(), "|other");
    EXPECT_THROW(edit.LoadFile(directory.path("missing")), Error);
    edit.paste();
    EXPECT_EQ(shown(), "|other");
    edit.setReadOnly(false);
    edit.paste();
    EXPECT_EQ(shown(), "b|other");
}

}  // namespace kelvor
