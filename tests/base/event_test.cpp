// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/event.h"

#include <new>
#include <stdexcept>

#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

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
    outer.connect([] { throw std::length_error("too long"); });
    EXPECT_EQ(reportedBy([&] { outer.raise(); }), "13 Type mismatch;7 Out of memory;5 too long;");
    EXPECT_EQ(order, "io");
}

TEST(Events, AHandlerTakenOffMeanwhileIsNotRunAndOneOfAnEndedEventCanBeTakenOff) {
    Connection outliving;
    Connection second;
    int calls = 0;
    Event<> event;
    event.connect([&] { second.reset(); });
    second = event.connectScoped([&] { ++calls; });
    outliving = event.connectScoped([] {});
    event.raise();
    EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace kelvor
