// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/settings.h"

#include <filesystem>

#include "base/error.h"
#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

struct Settings : testing::Test {
    ~Settings() override { closeSettings(); }

    TestDirectory directory;
    FakePlatform platform;
};

TEST_F(Settings, FindsNamesInAnyCaseAndSurvivesTheEndOfTheRun) {
    SaveSetting(application, "Üser", "ÜBUNG É", "first line\r\nsecond \"line\"");
    SaveSetting(application, "Üser", "x'y\"z", "");
    SaveSetting(application, "Üser", "%_", std::string_view("a\0b", 3));
    for (const auto* spelling : {"ΣΑΣ", "Σας"}) SaveSetting("KELVOR", "üser", spelling, spelling);
    closeSettings();
    EXPECT_EQ(GetSetting("kelvor", "ÜSER", "übung é"), "first line\r\nsecond \"line\"");
    EXPECT_EQ(GetSetting(application, "Üser", "X'Y\"Z", "standard"), "");
    EXPECT_EQ(GetSetting(application, "Üser", "%_"), std::string("a\0b", 3));
    EXPECT_EQ(GetSetting(application, "Üser", "σασ"), "Σας");
    for (const auto& [program, section, key] :
         {std::tuple{application, "Üser", "ΣΑ"}, {application, "Üse", "ΣΑΣ"}, {"Other", "Üser", "ΣΑΣ"}})
        EXPECT_EQ(GetSetting(program, section, key, "standard"), "standard");
}

TEST_F(Settings, DeletesWhatIsThereAndGivesNoTableForAnEmptySection) {
    SaveSetting(application, "Links", "a", "1");
    EXPECT_TRUE(GetAllSettings(application, "links"));
    DeleteSetting(application, "LINKS", "A");
    EXPECT_FALSE(GetAllSettings(application, "Links"));
    EXPECT_THROW(DeleteSetting(application, "Links", "a"), Error);
}

TEST_F(Settings, KeepsThePlaceAndTheSpellingOfARewrittenKeyAlsoAfterAVacuum) {
    for (const auto* key : {"Key3", "Key2", "Key1"}) SaveSetting(application, "Browsers", key, "old");
    DeleteSetting(application, "Browsers", "key3");
    SaveSetting(application, "Browsers", "Key3", "again");
    SaveSetting(application, "Browsers", "KEY2", "new");
    closeSettings();
    // The copy is a vacuumed one.
    std::filesystem::rename(directory.path("settings/settings.db.good"), directory.path("settings/settings.db"));
    std::string listed;
    const auto table = GetAllSettings(application, "Browsers").value();
    for (const Setting& row : table) listed += row.key + "=" + row.value + " ";
    EXPECT_EQ(listed, "Key2=new Key1=old Key3=again ");
}

TEST(SettingConversion, TakesWholeTextsOnly) {
    EXPECT_EQ(settingNumber(" -1 "), -1);
    for (const auto* text : {"tRUE", "-1"}) EXPECT_TRUE(settingBoolean(text)) << text;
    for (const auto* text : {"False", "0"}) EXPECT_FALSE(settingBoolean(text)) << text;
    for (const auto* text : {"", " ", "seven", "7x", "1 2", "99999999999", "--1"}) {
        EXPECT_THROW(settingNumber(text), Error) << text;
        EXPECT_THROW(settingBoolean(text), Error) << text;
    }
}

}  // namespace
}  // namespace kelvor
