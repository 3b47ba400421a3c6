#include "platform/tool_bar.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include "platform/text_box.h"
#include "tests/qt/binding_fixture.h"

namespace kelvor::qt {
namespace {

using Kind = ToolBar::ButtonKind;

class Bar : public Binding {
protected:
    Bar() {
        bar_.buttonClicked.connect([this](std::string_view key) { clicked_.emplace_back(key); });
        bar_.entryChosen.connect([this](std::string_view entry) { clicked_.push_back("entry " + std::string(entry)); });
        bar_.mouseDown.connect([this](const MousePress& press) { presses_.push_back(press); });
        make<TextBox>("txtField");
        field_.setFocus();
        bind();
        window_.activateWindow();
        letEventsRun();
    }

    QToolButton& face(const char* key) {
        return *qobject_cast<QToolButton*>(widget_.widgetForAction(widget_.findChild<QAction*>(key)));
    }
    /// Presses in the middle of a button, on its picture.
    void press(const char* key, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&face(key), button, {}, {8, 8});
        letEventsRun();
    }

    ToolBar& bar_ = make<ToolBar>(
        "Toolbar1", std::vector<ToolBar::Button>{
                        {"New", "New File"},
                        {"Tags", "Tags", Kind::toggle},
                        {"", "", Kind::separator},
                        {"color", "Quick Color", Kind::dropDown, {{"fcolor", "<FONT COLOR="}, {"b", "a&b"}}},
                    });
    QToolBar& widget_ = add<QToolBar>("Toolbar1");
    QLineEdit& field_ = add<QLineEdit>("txtField");
    std::vector<std::string> clicked_;
    std::vector<MousePress> presses_;
};

TEST_F(Bar, APressIsTheModelsAndTakesNoFocus) {
    press("New");
    press("color");
    EXPECT_EQ(clicked_, (std::vector<std::string>{"New", "color"}));
    EXPECT_TRUE(field_.hasFocus());
}

TEST_F(Bar, AToggleButtonIsDownWhenItsModelSaysSo) {
    press("Tags");
    EXPECT_EQ(clicked_, std::vector<std::string>{"Tags"});
    EXPECT_FALSE(face("Tags").isChecked());
    bar_.setValue("Tags", true);
    EXPECT_TRUE(face("Tags").isChecked());
    press("Tags");
    EXPECT_TRUE(face("Tags").isChecked());
    bar_.buttonClicked.connect([this](std::string_view) { bar_.setValue("Tags", false); });
    press("Tags");
    EXPECT_FALSE(face("Tags").isChecked());
}

TEST_F(Bar, DisabledAndHiddenFollowForTheButtonAndForTheBar) {
    bar_.setButtonEnabled("New", false);
    press("New");
    EXPECT_FALSE(face("New").isEnabled());
    EXPECT_TRUE(face("Tags").isEnabled());
    bar_.setButtonEnabled("New", true);
    bar_.setEnabled(false);
    press("New");
    EXPECT_TRUE(clicked_.empty());
    bar_.setEnabled(true);
    press("New");
    EXPECT_EQ(clicked_.size(), 1U);
    bar_.setVisible(false);
    EXPECT_FALSE(widget_.isVisible());
    bar_.setVisible(true);
    EXPECT_TRUE(widget_.isVisible());
}

TEST_F(Bar, ADropDownButtonListsItsEntries) {
    EXPECT_EQ(face("color").popupMode(), QToolButton::MenuButtonPopup);
    const auto rows = face("color").menu()->actions();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0]->text(), "<FONT COLOR=");
    EXPECT_EQ(rows[1]->text(), "a&&b");
    rows[0]->trigger();
    bar_.setButtonEnabled("color", false);
    rows[1]->trigger();
    EXPECT_EQ(clicked_, std::vector<std::string>{"entry fcolor"});
}

TEST_F(Bar, MousePressesAreToldOnButtonsDisabledOnesAndBetween) {
    bar_.setButtonEnabled("New", false);
    press("New", Qt::RightButton);
    ASSERT_EQ(presses_.size(), 1U);
    EXPECT_EQ(presses_[0].button, MousePress::right);
    EXPECT_EQ(presses_[0].x, face("New").x() + 8);
    press("Tags", Qt::RightButton);
    QTest::mouseClick(&widget_, Qt::RightButton, Qt::ControlModifier, {widget_.width() - 2, 3});
    letEventsRun();
    ASSERT_EQ(presses_.size(), 3U);
    EXPECT_EQ(presses_[2].shift, 2);
    press("Tags");
    EXPECT_EQ(presses_.back().button, MousePress::left);
    EXPECT_EQ(clicked_, std::vector<std::string>{"Tags"});
}

TEST_F(Bar, ItsFormMayBeUnboundByThePress) {
    bar_.buttonClicked.connect([this](std::string_view) { unbindForm(form_, window_); });
    press("Tags");
    bar_.setButtonEnabled("New", false);
    EXPECT_TRUE(face("New").isEnabled());
    EXPECT_EQ(clicked_.size(), 1U);
}

}  // namespace
}  // namespace kelvor::qt
