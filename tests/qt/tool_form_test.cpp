#include <Qsci/qsciscintillabase.h>

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "platform/button.h"
#include "platform/edit_control.h"
#include "platform/menu_item.h"
#include "platform/qt/binding.h"
#include "platform/text_box.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

class Note : public Form {
public:
    Note() : Form("note", "A note") {
        mnuText.makePopup();
        mnuText_Clear.setCaption("Clear");
    }

    TextBox txtName{*this, "txtName"};
    EditControl& Text1 = addEditControl("Text1");
    Button cmdInsert{*this, "cmdInsert", "&Insert"};
    Button cmdClose{*this, "cmdClose", "&Close"};
    MenuItem mnuText{*this, "mnuText", nullptr};
    MenuItem mnuText_Clear{*this, "mnuText_Clear", &mnuText};
};

/// A dialog with a field, a text and two buttons, as the layouts of tool forms are.
class ToolForms : public QtForms {
protected:
    ToolForms() {
        add(new QLineEdit, "txtName");
        add(new QWidget, "Text1")->setMinimumSize(200, 100);
        add(new QPushButton, "cmdInsert");
        add(new QPushButton, "cmdClose");
        note_.cmdInsert.clicked.connect([this] { clicks_ += 'I'; });
        note_.cmdClose.clicked.connect([this] { clicks_ += 'C'; });
        EXPECT_EQ(bindForm(note_, window_), std::vector<std::string>());
        window_.show();
        window_.activateWindow();
        letEventsRun();
    }
    ~ToolForms() override { unbindForm(note_, window_); }

    QWidget* add(QWidget* widget, const char* name) {
        widget->setObjectName(name);
        window_.layout()->addWidget(widget);
        return widget;
    }
    QWidget& at(const char* name) { return *window_.findChild<QWidget*>(name); }
    QsciScintillaBase& text() { return *window_.findChild<QsciScintillaBase*>(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window_.windowHandle(), key, modifiers);
    }

    Note note_;
    QDialog window_;
    QVBoxLayout& layout_ = *new QVBoxLayout(&window_);
    std::string clicks_;
};

TEST_F(ToolForms, EnterPressesTheDefaultUnlessTheFocusHasAUseForIt) {
    at("txtName").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(clicks_, "") << "no button is the default before one is told to be";
    note_.cmdInsert.setDefault(true);
    press(Qt::Key_Return);
    EXPECT_EQ(clicks_, "I");
    at("cmdClose").setFocus();
    press(Qt::Key_Enter);
    EXPECT_EQ(clicks_, "IC");
    note_.cmdClose.setDefault(true);
    at("txtName").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(clicks_, "ICC");
    note_.Text1.SetFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(clicks_, "ICC");
    EXPECT_EQ(note_.Text1.text(), "\r\n");
}

TEST_F(ToolForms, TabLeavesAnEditControlAndWithCtrlTypes) {
    note_.Text1.SetFocus();
    press(Qt::Key_Tab, Qt::ControlModifier);
    press(Qt::Key_Tab);
    EXPECT_TRUE(at("cmdInsert").hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(text().hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(at("txtName").hasFocus());
    EXPECT_EQ(note_.Text1.text(), "\t");
}

TEST_F(ToolForms, LongLinesAreWrapped) {
    std::string words;
    for (int word = 0; word < 100; ++word) words += "word ";
    note_.Text1.setText(words);
    letEventsRun();
    EXPECT_GT(text().SendScintilla(QsciScintillaBase::SCI_WRAPCOUNT, 0UL), 1);
    EXPECT_EQ(note_.Text1.lineCount(), 1);
}

TEST_F(ToolForms, ADisabledEditControlLooksSoAndTakesNothing) {
    const auto ink = [this] { return text().SendScintilla(QsciScintillaBase::SCI_STYLEGETFORE, 0UL); };
    const auto enabledInk = ink();
    note_.Text1.SetFocus();
    note_.Text1.setEnabled(false);
    EXPECT_NE(ink(), enabledInk);
    press(Qt::Key_A);
    EXPECT_EQ(note_.Text1.text(), "");
    note_.Text1.setEnabled(true);
    EXPECT_EQ(ink(), enabledInk);
    note_.Text1.SetFocus();
    press(Qt::Key_A);
    EXPECT_EQ(note_.Text1.text(), "a");
}

TEST_F(ToolForms, PopupsAloneMakeNoMenuBar) {
    EXPECT_EQ(window_.findChild<QMenuBar*>(), nullptr);
    EXPECT_EQ(layout_.menuBar(), nullptr);
    std::string told;
    note_.mnuText.clicked.connect([&] { told += "opens,"; });
    note_.mnuText_Clear.clicked.connect([&] { told += "row"; });
    auto& menu = *window_.findChild<QMenu*>("mnuText");
    menu.popup({});
    ASSERT_EQ(menu.actions().size(), 1);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().front()).center());
    EXPECT_EQ(told, "opens,row");
}

}  // namespace
}  // namespace kelvor::qt
