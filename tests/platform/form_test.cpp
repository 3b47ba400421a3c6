#include "platform/form.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/button.h"
#include "platform/combo_box.h"
#include "platform/mdi_area.h"
#include "platform/menu_item.h"
#include "platform/tab_strip.h"
#include "tests/fake_platform.h"

namespace kelvor {
namespace {

/// Errors that reached the sink, as "number description".
std::vector<std::string> recordErrors(const std::function<void()>& steps) {
    std::vector<std::string> errors;
    setErrorSink(
        [&](const Error& error) { errors.push_back(std::to_string(error.number()) + " " + error.description()); });
    steps();
    setErrorSink({});
    return errors;
}

TEST(Events, AFailingHandlerStopsNeitherTheOthersNorItsCaller) {
    Event<> inner;
    Event<> outer;
    std::string order;
    inner.connect([] { throw Error(13, "Type mismatch"); });
    inner.connect([&] { order += "i"; });
    outer.connect([&] {
        inner.raise();
        order += "o";
        throw std::bad_alloc();
    });
    const auto errors = recordErrors([&] { outer.raise(); });
    EXPECT_EQ(order, "io");
    EXPECT_EQ(errors, (std::vector<std::string>{"13 Type mismatch", "7 Out of memory"}));
}

TEST(Events, AHandlerTakenOffMeanwhileIsNotRun) {
    Event<> event;
    int calls = 0;
    Connection second;
    event.connect([&] { second.reset(); });
    second = event.connectScoped([&] { ++calls; });
    event.raise();
    EXPECT_EQ(calls, 0);
}

TEST(Events, AConnectionMayOutliveItsEvent) {
    Connection connection;
    {
        Event<> event;
        connection = event.connectScoped([] {});
    }
    connection.reset();
}

class Dialog : public Form {
public:
    explicit Dialog(bool& ended) : Form("dialog", "Dialog"), ended_(ended) {
        cmdClose.clicked.connect([this] {
            unload();
            // The object outlives the handler that unloads it.
            setCaption("still here");
        });
    }
    ~Dialog() override { ended_ = true; }

    Button cmdClose{*this, "cmdClose", "&Close"};

private:
    bool& ended_;
};

class Forms : public testing::Test {
protected:
    FakePlatform platform;
};

TEST_F(Forms, AFormThatUnloadsItselfLivesToTheEndOfTheEvent) {
    bool ended = false;
    auto dialog = std::make_shared<Dialog>(ended);
    Dialog* raw = dialog.get();
    raw->unloaded.connect([&dialog] { retire(std::exchange(dialog, nullptr)); });
    raw->load();
    ASSERT_EQ(loadedForms().size(), 1U);
    raw->cmdClose.click();
    EXPECT_TRUE(ended);
    EXPECT_TRUE(loadedForms().empty());
}

TEST_F(Forms, ARefusedUnloadChangesNothing) {
    bool ended = false;
    Dialog dialog(ended);
    dialog.load();
    Connection refusal = dialog.queryUnload.connectScoped([](bool& cancel) { cancel = true; });
    EXPECT_FALSE(dialog.unload());
    EXPECT_TRUE(dialog.isLoaded());
    refusal.reset();
    EXPECT_TRUE(dialog.unload());
}

TEST_F(Forms, ALoadFailureReachesItsOwnSink) {
    bool ended = false;
    Dialog dialog(ended);
    int told = 0;
    setLoadErrorSink([&](Form& form, const Error& error) {
        EXPECT_EQ(&form, &dialog);
        told = error.number();
    });
    struct Case {
        std::function<void()> onLoad;
        int number;
    };
    const Case cases[] = {
        {[] { throw Error(53, "File not found"); }, 53},
        {[] { throw std::bad_alloc(); }, error_number::outOfMemory},
        {[] { throw std::length_error("too long"); }, error_number::invalidProcedureCall},
    };
    for (const auto& [onLoad, number] : cases) {
        dialog.onLoad = onLoad;
        dialog.load();
        EXPECT_EQ(told, number);
        EXPECT_TRUE(dialog.isLoaded());
        dialog.unload();
    }
    setLoadErrorSink({});
}

TEST_F(Forms, TheFrameAsksAllItsChildrenBeforeTheFirstGoes) {
    std::string order;
    Form frame("frame", "", Form::Kind::frame);
    Form first("child", "", Form::Kind::child);
    Form second("child", "", Form::Kind::child);
    bool keepSecond = true;
    const auto record = [&](Form& form, const std::string& name) {
        form.queryUnload.connect([&order, name](bool&) { order += "?" + name; });
        form.unloaded.connect([&order, name] { order += "-" + name; });
    };
    record(frame, "f");
    record(first, "1");
    record(second, "2");
    second.queryUnload.connect([&](bool& cancel) { cancel = keepSecond; });
    first.load();
    second.load();
    frame.load();
    EXPECT_EQ(loadedForms().front(), &frame);
    EXPECT_FALSE(frame.unload());
    EXPECT_EQ(order, "?f?1?2");
    keepSecond = false;
    order.clear();
    EXPECT_TRUE(frame.unload());
    EXPECT_EQ(order, "?f?1?2-1-2-f");
}

TEST_F(Forms, TheAreaBringsTheLastUsedChildForward) {
    MdiArea area;
    Form a("a", "", Form::Kind::child);
    Form b("b", "", Form::Kind::child);
    Form c("c", "", Form::Kind::child);
    std::string order;
    for (Form* form : {&a, &b, &c}) {
        form->activated.connect([&order, form] { order += form->name(); });
        area.show(*form);
    }
    area.activate(a);
    area.activate(a);
    area.remove(a);
    area.remove(b);
    EXPECT_EQ(order, "abcac") << "an activation is raised once, and removing one behind raises none";
    EXPECT_EQ(area.activeForm(), &c);
    area.remove(c);
    EXPECT_EQ(area.activeForm(), nullptr);
    area.activateNext();
}

TEST_F(Forms, RemovingTabsKeepsANeighbourSelectedWithoutAClick) {
    struct Case {
        const char* selected;
        const char* removed;
        const char* then;
    };
    for (const Case& row : {Case{"2", "2", "3"}, {"3", "3", "2"}, {"3", "1", "3"}, {"1", "3", "1"}}) {
        Form form("form", "");
        TabStrip tabs(form, "tabs");
        for (const char* key : {"1", "2", "3"}) tabs.add(key, "");
        tabs.setSelectedItem(row.selected);
        int clicks = 0;
        tabs.clicked.connect([&] { ++clicks; });
        tabs.remove(row.removed);
        EXPECT_EQ(tabs.selectedItem().key, row.then) << row.selected << row.removed;
        EXPECT_EQ(clicks, 0);
    }
}

TEST_F(Forms, AListRaisesEachChoiceOnceAndSortsWhenAsked) {
    Form form("form", "");
    ComboBox list(form, "list", ComboBox::Style::editable);
    int clicks = 0;
    int changes = 0;
    list.clicked.connect([&] { ++clicks; });
    list.changed.connect([&] { ++changes; });
    list.setSorted(true);
    for (const char* item : {"banana", "(none)", "Apple", "cherry"}) list.addItem(item);
    EXPECT_EQ(list.list(), (std::vector<std::string>{"(none)", "Apple", "banana", "cherry"}));
    list.setListIndex(1);
    list.setListIndex(1);
    EXPECT_EQ(clicks, 1);
    list.choose(1);
    EXPECT_EQ(clicks, 2) << "the user may choose the same row again";
    list.type("cherry");
    list.type("cherry");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(list.listIndex(), 3);
    list.insertItem(0, "first");
    EXPECT_EQ(list.listIndex(), 4);
    list.removeItem(4);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_THROW(list.setListIndex(9), Error);
}

TEST_F(Forms, AMenuRowIsReachedOnlyThroughOpenDoors) {
    struct Case {
        bool barVisible;
        bool barEnabled;
        bool rowVisible;
        bool rowEnabled;
        int clicks;
    };
    for (const Case& row : {Case{true, true, true, true, 1},
                            {false, true, true, true, 0},
                            {true, false, true, true, 0},
                            {true, true, false, true, 0},
                            {true, true, true, false, 0}}) {
        Form form("form", "");
        MenuItem top(form, "top", nullptr);
        MenuItem bar(form, "bar", &top);
        MenuItem item(form, "item", &bar);
        bar.setVisible(row.barVisible);
        bar.setEnabled(row.barEnabled);
        item.setVisible(row.rowVisible);
        item.setEnabled(row.rowEnabled);
        int clicks = 0;
        item.clicked.connect([&] { ++clicks; });
        item.click();
        EXPECT_EQ(clicks, row.clicks);
    }
}

}  // namespace
}  // namespace kelvor
