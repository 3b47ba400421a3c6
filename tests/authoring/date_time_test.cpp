#include "authoring/date_time.h"

#include "platform/edit_control.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

using DateAndTime = FrameFixture;

TEST_F(DateAndTime, OffersTheChosenDayInAllFormsAndInsertsOne) {
    EditControl& text = openText("a.htm", "on x.").Text1;
    text.setSelStart(3);
    text.setSelLength(1);
    platform.expectModal([](Form& form) {
        auto& dialog = dynamic_cast<DateTimeDialog&>(form);
        EXPECT_EQ(dialog.MonthView1.value(), (Date{2026, 11, 21}));
        EXPECT_EQ(dialog.lstDates.rows().at(1), "11/21/2026");
        EXPECT_EQ(dialog.lstDates.selectedRow(), 0);
        dialog.MonthView1.setValue({905, 3, 7});
        EXPECT_EQ(dialog.lstDates.rows(),
                  (std::vector<std::string>{"short 905-3-7", "03/07/0905", "05/03/07", "0905/03/07", "medium 905-3-7",
                                            "long 905-3-7", "month3 07, 0905", "weekday0, 07 month3, 0905",
                                            "07 month3, 0905", "time 9", "09:05:07"}));
        EXPECT_EQ(dialog.lstDates.selectedRow(), 0);
        dialog.lstDates.doubleClick(10);
        EXPECT_FALSE(dialog.isLoaded());
    });
    mnuInsert_Date_Click();
    EXPECT_EQ(text.text(), "on 09:05:07.");
    EXPECT_EQ(platform.focused, "Text1");
}

}  // namespace
}  // namespace kelvor
