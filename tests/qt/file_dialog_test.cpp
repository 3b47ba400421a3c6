// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/platform.h"
#include "tests/kit/scratch_directory.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

using Paths = std::vector<std::string>;

/// A dialog over a folder of its own, used by keys.
class FileDialogs : public QtForms {
protected:
    struct Shown {
        QDialog& dialog;
        QLineEdit& field = *dialog.findChild<QLineEdit*>("fileNameEdit");
        QTreeView& list = *dialog.findChild<QTreeView*>("treeView");

        void type(const QString& text) {
            field.setFocus();
            field.selectAll();
            field.insert(text);
            emit field.textEdited(text);
            enter();
        }
        void enter() {
            QTest::keyClick(&field, Qt::Key_Return);
            letEventsRun();
        }
        void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            list.setFocus();
            QTest::keyClick(&list, key, modifiers);
            letEventsRun();
        }
        void openAll() {
            press(Qt::Key_A, Qt::ControlModifier);
            press(Qt::Key_Return);
        }
        QString rows() { return textsOf(*list.model(), list.rootIndex()).join(' '); }
    };
    using Steps = std::function<void(Shown)>;

    static QStringList textsOf(const QAbstractItemModel& model, const QModelIndex& root = {}) {
        QStringList texts;
        for (int row = 0; row < model.rowCount(root); ++row) texts += model.index(row, 0, root).data().toString();
        return texts;
    }

    /// What the dialog answers when `steps` use it. One still open after them is closed.
    Paths opening(const Steps& steps) {
        use(steps);
        return platform().dialogs.openFiles(request_);
    }
    std::string saving(const Steps& steps) {
        use(steps);
        return platform().dialogs.saveFile(request_).value_or("");
    }
    std::string choosingFolder(const Steps& steps) {
        use(steps);
        return platform().dialogs.folder("", folder_.path()).value_or("");
    }
    /// Lets the next box be answered, and what a screen reader tells of it be kept.
    void answerBox(QMessageBox::StandardButton button) {
        box_.clear();
        boxTimer_.disconnect();
        QObject::connect(&boxTimer_, &QTimer::timeout, [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            boxTimer_.stop();
            ++boxes_;
            box_ = box->findChild<QLabel*>("qt_msgbox_label")->accessibleName();
            box->button(button)->click();
        });
        boxTimer_.start();
    }

    const ScratchDirectory folder_;
    FileRequest request_{.directory = folder_.path(), .multiple = true, .overwritePrompt = true};
    QString box_;
    int boxes_ = 0;

private:
    void use(const Steps& steps) {
        onDialog<QDialog>([steps](QDialog& dialog) {
            steps({dialog});
            if (dialog.isVisible()) dialog.reject();
        });
    }

    QTimer boxTimer_;
};

TEST_F(FileDialogs, ThreeThousandMarkedFilesAreAllOfThemInTheListsOrder) {
    Paths files;
    std::filesystem::create_directory(folder_ / "a folder");
    for (int i = 10000; i < 13000; ++i) files.push_back(folder_.write("page \"" + std::to_string(i) + "\".html", ""));
    EXPECT_EQ(opening([](Shown shown) { shown.openAll(); }), files);
}

TEST_F(FileDialogs, TakeWhatIsTypedOrTellWhyNot) {
    const std::string a = folder_.write("a b.htm", "");
    const std::string quoted = folder_.write("c\"d.htm", "");
    std::filesystem::create_directory(folder_ / "sub");
    const std::string below = folder_.write("sub/e.htm", "");
    const struct {
        std::string text;
        Paths paths;
        std::string told;
    } rows[] = {
        {"a b.htm", {a}, ""},
        {a, {a}, ""},
        {below, {below}, ""},
        {"c\"d.htm", {quoted}, ""},
        {"\"c\"\"d.htm\" \"" + below + "\" \"a b.htm\"", {quoted, below, a}, ""},
        {"sub/../a b.htm", {a}, ""},
        {"gone.htm", {}, "File not found: " + folder_ / "gone.htm"},
        {"\"gone\" \"a b.htm\" \"sub\"",
         {},
         "File not found: " + (folder_ / "gone") + "\nThis is a folder, not a file: " + (folder_ / "sub")},
    };
    for (const auto& row : rows) {
        if (!row.told.empty()) answerBox(QMessageBox::Ok);
        bool stays = false;
        EXPECT_EQ(opening([&](Shown shown) {
                      shown.type(toQt(row.text));
                      stays = shown.dialog.isVisible();
                  }),
                  row.paths)
            << row.text;
        EXPECT_EQ(stays, row.paths.empty()) << row.text;
        EXPECT_EQ(fromQt(box_), row.told) << row.text;
    }
    request_.multiple = false;
    answerBox(QMessageBox::Ok);
    EXPECT_EQ(opening([](Shown shown) { shown.type("\"a b.htm\" \"c\"\"d.htm\""); }), Paths());
    EXPECT_EQ(box_, "Only one file can be chosen here.");
}

TEST_F(FileDialogs, TakeAThousandTypedNames) {
    Paths files;
    QString text;
    for (int i = 0; i < 1000; ++i) {
        files.push_back(folder_.write("a page with a name of forty letters " + std::to_string(i), ""));
        text += "\"" + toQt(files.back()) + "\" ";
    }
    EXPECT_GT(text.size(), 0x7FFF);
    EXPECT_EQ(opening([&](Shown shown) { shown.type(text); }), files);
}

TEST_F(FileDialogs, SaveUnderTheNameThatIsTypedAndAskOnceBeforeTheyReplace) {
    const std::string there = folder_.write("there.htm", "");
    for (const char* name : {"a\"b.htm", "\"a\" \"b\"", "\"a.htm\"", "~x", " .htaccess"})
        EXPECT_EQ(saving([&](Shown shown) { shown.type(name); }), folder_ / (name[0] == ' ' ? name + 1 : name));
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
        answerBox(answer);
        EXPECT_EQ(saving([&](Shown shown) { shown.type("there.htm"); }), answer == QMessageBox::Yes ? there : "");
        EXPECT_EQ(box_, "there.htm already exists.\nDo you want to replace it?");
    }
    EXPECT_EQ(boxes_, 2);
    answerBox(QMessageBox::Ok);
    EXPECT_EQ(saving([&](Shown shown) { shown.type("none/new.htm"); }), "");
    EXPECT_EQ(fromQt(box_), "The folder does not exist: " + folder_ / "none");
    request_.overwritePrompt = false;
    request_.fileName = there;
    EXPECT_EQ(saving([](Shown shown) { shown.enter(); }), there);
}

TEST_F(FileDialogs, EnterTheFolderThatIsTypedOrOpened) {
    for (const char* name : {"before", "sub"}) std::filesystem::create_directory(folder_ / name);
    folder_.write("sub/e.htm", "");
    EXPECT_EQ(saving([](Shown shown) {
                  shown.type("new.htm/../sub/");
                  EXPECT_EQ(shown.rows(), "e.htm");
                  EXPECT_EQ(shown.field.text(), "");
                  shown.press(Qt::Key_Backspace);
                  EXPECT_EQ(shown.rows(), "before sub");
                  shown.field.setText("new.htm");
                  shown.press(Qt::Key_Return);
                  shown.field.setFocus();
                  shown.enter();
              }),
              folder_ / "sub/new.htm");
    EXPECT_EQ(choosingFolder([](Shown shown) { shown.type("sub"); }), folder_ / "sub");
    EXPECT_EQ(choosingFolder([](Shown shown) { shown.type(""); }), folder_.path());
    const struct {
        QString text;
        std::string told;
    } refused[] = {
        {"none", "The folder does not exist: " + folder_ / "none"},
        {"sub/e.htm", "This is a file, not a folder: " + folder_ / "sub/e.htm"},
        {"\"sub\" \".\"", "Only one folder can be chosen here."},
    };
    for (const auto& [text, told] : refused) {
        answerBox(QMessageBox::Ok);
        EXPECT_EQ(choosingFolder([text = text](Shown shown) { shown.type(text); }), "");
        EXPECT_EQ(fromQt(box_), told);
    }
}

TEST_F(FileDialogs, OfferWhatGoesOnAsTheTextDoes) {
    std::filesystem::create_directory(folder_ / "sub");
    for (const char* name : {"~", " y", "e.htm", ".h"}) folder_.write(std::string("sub/") + name, "");
    for (const char* name : {"~", "a.htm"}) folder_.write(name, "");
    const struct {
        QString text;
        QString offers;
    } rows[] = {
        {"s", "sub|a.htm"},
        {"sub/", "sub/ y|sub/~|sub/e.htm"},
        {"./sub/../sub/", "./sub/../sub/ y|./sub/../sub/~|./sub/../sub/e.htm"},
        {"sub/.", "sub/ y|sub/.h|sub/~|sub/e.htm"},
        {toQt(folder_ / "sub/e"), toQt(folder_ / "sub/ y" + "|" + folder_ / "sub/~" + "|" + folder_ / "sub/e.htm")},
        {"\"", ""},
    };
    opening([&rows](Shown shown) {
        for (const auto& [text, offers] : rows) {
            emit shown.field.textEdited(text);
            EXPECT_EQ(textsOf(*shown.field.completer()->model()).join('|'), offers);
        }
    });
}

TEST_F(FileDialogs, GiveANameThatIsNoUtf8ByItsBytes) {
    const std::string odd = folder_.write("bad\xff\xe9.html", "");
    EXPECT_EQ(opening([](Shown shown) { shown.openAll(); }), Paths{odd});
    request_ = {.directory = folder_.path(), .fileName = odd};
    EXPECT_EQ(saving([](Shown shown) { shown.enter(); }), odd);
    EXPECT_EQ(saving([](Shown shown) { shown.type("new.html"); }), folder_ / "new.html");
}

TEST_F(FileDialogs, ShowTheFilesOfTheirFilterAndKeepWhatIsMarked) {
    request_.filter = "All|*.*|HTML|*.htm";
    request_.filterIndex = 2;
    for (const char* name : {"one.HTM", "two.htm", "three.txt", ".four.htm"}) folder_.write(name, "text");
    EXPECT_EQ(opening([this](Shown shown) {
                  EXPECT_EQ(shown.rows(), "one.HTM two.htm");
                  shown.press(Qt::Key_End);
                  shown.dialog.findChild<QCheckBox*>()->click();
                  EXPECT_EQ(shown.rows(), ".four.htm one.HTM two.htm");
                  folder_.write("new.htm", "");
                  EXPECT_TRUE(QTest::qWaitFor([&] { return shown.rows() == ".four.htm new.htm one.HTM two.htm"; }));
                  shown.press(Qt::Key_Return);
              }),
              Paths{folder_ / "two.htm"});
}

TEST_F(FileDialogs, OfAColourStartWhereTheyAreTold) {
    onDialog<QColorDialog>([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "A title");
        dialog.accept();
    });
    EXPECT_EQ(platform().dialogs.color("A title", 0x332211), 0x332211);
}

}  // namespace
}  // namespace kelvor::qt
