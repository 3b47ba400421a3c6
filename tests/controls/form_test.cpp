// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/form.h"

#include <gtest/gtest.h>

#include "controls/mdi_area.h"
#include "controls/tab_strip.h"
#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

class Forms : public testing::Test {
protected:
    Forms() {
        for (Form* each : {&first, &second, &frame}) {
            each->queryUnload.connect([this, each](bool&) { order += "?" + each->name(); });
            each->unloaded.connect([this, each] { order += "-" + each->name(); });
            each->activated.connect([this, each] { order += each->name(); });
        }
    }

    FakePlatform platform;
    Form frame{"f", "", Form::Kind::frame};
    Form first{"1", "", Form::Kind::child};
    Form second{"2", "", Form::Kind::child};
    std::string order;
};

TEST_F(Forms, TheFrameAsksAllItsChildrenBeforeTheFirstGoes) {
    // A load procedure that fails is told and leaves its form loaded.
    setLoadErrorSink([&](Form& form, const Error& error) { order += "!" + form.name() + error.description(); });
    frame.onLoad = [] { throw Error(5, "!"); };
    for (Form* each : {&first, &second, &frame}) each->load();
    setLoadErrorSink({});
    Connection refusal = second.queryUnload.connectScoped([](bool& cancel) { cancel = true; });
    EXPECT_FALSE(frame.unload());
    refusal.reset();
    EXPECT_TRUE(frame.unload());
    EXPECT_EQ(order, "!f!?f?1?2?f?1?2-1-2-f");
}

TEST_F(Forms, TheAreaTellsOnlyTheChildThatComesForward) {
    MdiArea area;
    for (Form* child : {&first, &second}) area.show(*child);
    for (int i = 0; i < 2; ++i) area.activate(first);
    area.remove(second);
    EXPECT_EQ(order, "121");
}

TEST_F(Forms, RemovingTabsKeepsANeighbourSelectedWithoutAClick) {
    const char* rows[][3] = {{"2", "2", "3"}, {"3", "3", "2"}, {"2", "1", "2"}, {"1", "3", "1"}};
    for (const auto& [selected, removed, then] : rows) {
        TabStrip tabs(frame, "tabs");
        for (const char* key : {"1", "2", "3"}) tabs.add(key, "");
        tabs.setSelectedItem(selected);
        tabs.clicked.connect([] { ADD_FAILURE() << "a click"; });
        tabs.remove(removed);
        EXPECT_EQ(tabs.selectedItem().key, then) << removed << " of which " << selected << " was selected";
    }
}

}  // namespace
}  // namespace kelvor
