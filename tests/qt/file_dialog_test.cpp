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
        QString rows() { return textsOf(*list.model(), list.rootIndex()).join(' '); }
    };
    using Steps = std::function<void(Shown)>;
    static void openAll(Shown shown) {
        shown.press(Qt::Key_A, Qt::ControlModifier);
        shown.press(Qt::Key_Return);
    }

    static QStringList textsOf(const QAbstractItemModel& model, const QModelIndex& root = {}) {
        QStringList texts;
        for (int row = 0; row < model.rowCount(root); ++row) texts += model.index(row, 0, root).data().toString();
        return texts;
    }

    /// What the dialog answers when `steps` use it. One still open after them is closed.
    Paths opening(const Steps& steps) { return use(steps), platform().dialogs.openFiles(request_); }
    std::string saving(const Steps& steps) { return use(steps), platform().dialogs.saveFile(request_).value_or(""); }
    std::string choosingFolder(const Steps& steps) {
        return use(steps), platform().dialogs.folder("", folder_.path()).value_or("");
    }
    /// Lets the next box be answered, and what a screen reader tells of it be kept.
    void answerBox(QMessageBox::StandardButton button) {
        boxTimer_.disconnect();
        QObject::connect(&boxTimer_, &QTimer::timeout, [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            boxTimer_.stop();
            box_ = fromQt(box->findChild<QLabel*>("qt_msgbox_label")->accessibleName());
            box->button(button)->click();
        });
        boxTimer_.start();
    }
    /// What the box tells that comes of `act`, which gets no path.
    template <typename Act>
    std::string toldBy(Act act) {
        answerBox(QMessageBox::Ok);
        EXPECT_TRUE(act().empty());
        return std::exchange(box_, "");
    }

    const ScratchDirectory folder_;
    FileRequest request_{.directory = folder_.path(), .multiple = true, .overwritePrompt = true};
    std::string box_;

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
    EXPECT_EQ(opening(openAll), files);
}

TEST_F(FileDialogs, TakeWhatIsTypedOrTellWhyNotAndStay) {
    Paths files = {folder_.write("a b.htm", "")};
    const auto typing = [this](const QString& text) {
        return opening([&](Shown shown) {
            shown.type(text);
            EXPECT_EQ(shown.dialog.isVisible(), !box_.empty());
        });
    };
    EXPECT_EQ(typing("sub/../a b.htm"), files);
    QString text = "\"a b.htm\" ";
    for (int i = 0; i < 1000; ++i) {
        files.push_back(folder_.write("a page with a name of forty letters " + std::to_string(i), ""));
        text += "\"" + toQt(files.back()) + "\" ";
    }
    EXPECT_EQ(typing(text), files);
    EXPECT_EQ(toldBy([&] { return typing("gone.htm"); }), "File not found: " + folder_ / "gone.htm");
    request_.multiple = false;
    EXPECT_EQ(toldBy([&] { return typing("\"a b.htm\" \"c.htm\""); }), "Only one file can be chosen here.");
}

TEST_F(FileDialogs, SaveUnderTheNameThatIsTypedAndAskOnceBeforeTheyReplace) {
    const std::string there = folder_.write("there.htm", "");
    for (const char* name : {"\"a\" \"b\"", "~x", ".htaccess"})
        EXPECT_EQ(saving([&](Shown shown) { shown.type(name); }), folder_ / name);
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
        answerBox(answer);
        EXPECT_EQ(saving([&](Shown shown) { shown.type("there.htm"); }), answer == QMessageBox::Yes ? there : "");
        EXPECT_EQ(std::exchange(box_, ""), "there.htm already exists.\nDo you want to replace it?");
    }
    EXPECT_EQ(toldBy([&] { return saving([](Shown shown) { shown.type("none/new.htm"); }); }),
              "The folder does not exist: " + folder_ / "none");
    request_.overwritePrompt = false;
    request_.fileName = there;
    EXPECT_EQ(saving([](Shown shown) { shown.enter(); }), there);
}

TEST_F(FileDialogs, EnterTheFolderThatIsTypedOrOpened) {
    for (const char* name : {"before", "sub"}) std::filesystem::create_directory(folder_ / name);
    folder_.write("sub/e.htm", "");
    const auto steps = [](Shown shown) {
        shown.type("new.htm/../sub/");
        EXPECT_EQ(shown.rows() + shown.field.text(), "e.htm");
        shown.press(Qt::Key_Backspace);
        EXPECT_EQ(shown.rows(), "before sub");
        shown.field.setText("new.htm");
        shown.press(Qt::Key_Return);
        shown.field.setFocus();
        shown.enter();
    };
    EXPECT_EQ(saving(steps), folder_ / "sub/new.htm");
    EXPECT_EQ(choosingFolder([](Shown shown) { shown.type("sub"); }), folder_ / "sub");
    EXPECT_EQ(choosingFolder([](Shown shown) { shown.type(""); }), folder_.path());
    const auto refusal = [this](const char* text) {
        return toldBy([&] { return choosingFolder([&](Shown shown) { shown.type(text); }); });
    };
    EXPECT_EQ(refusal("sub/e.htm"), "This is a file, not a folder: " + folder_ / "sub/e.htm");
    EXPECT_EQ(refusal("\"sub\" \".\""), "Only one folder can be chosen here.");
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
        {"./sub/../sub/", "./sub/../sub/ y|./sub/../sub/~|./sub/../sub/e.htm"},
        {"sub/.", "sub/ y|sub/.h|sub/~|sub/e.htm"},
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
    EXPECT_EQ(opening(openAll), Paths{odd});
    request_ = {.directory = folder_.path(), .fileName = odd};
    EXPECT_EQ(saving([](Shown shown) { shown.enter(); }), odd);
    EXPECT_EQ(saving([](Shown shown) { shown.type("new.html"); }), folder_ / "new.html");
}

TEST_F(FileDialogs, ShowTheFilesOfTheirFilterAndKeepWhatIsMarked) {
    request_.filter = "All|*.*|HTML|*.htm";
    request_.filterIndex = 2;
    for (const char* name : {"one.HTM", "two.htm", "three.txt", ".four.htm"}) folder_.write(name, "text");
    const auto steps = [this](Shown shown) {
        EXPECT_EQ(shown.rows(), "one.HTM two.htm");
        shown.press(Qt::Key_End);
        shown.dialog.findChild<QCheckBox*>()->click();
        folder_.write("new.htm", "");
        EXPECT_TRUE(QTest::qWaitFor([&] { return shown.rows() == ".four.htm new.htm one.HTM two.htm"; }));
        shown.press(Qt::Key_Return);
    };
    EXPECT_EQ(opening(steps), Paths{folder_ / "two.htm"});
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
