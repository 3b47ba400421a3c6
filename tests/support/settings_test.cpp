#include "support/settings.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "platform/text.h"
#include "tests/fake_platform.h"

namespace kelvor {
namespace {

struct Settings : testing::Test {
    ~Settings() override { closeSettings(); }

    TestDirectory directory;
    FakePlatform platform;
};

std::vector<std::string> keysOf(std::string_view section) {
    std::vector<std::string> keys;
    for (const Setting& setting : GetAllSettings(application, section).value_or(std::vector<Setting>()))
        keys.push_back(setting.key);
    return keys;
}

TEST_F(Settings, FindsNamesInAnyCaseAndSurvivesTheEndOfTheRun) {
    SaveSetting(application, "User", "Name", "Ann");
    SaveSetting(application, "UserStrings", "Übung É", "first line\r\nsecond \"line\"");
    SaveSetting(application, "User", "empty", "");
    SaveSetting(application, "User", "odd", std::string_view("a\0b", 3));
    closeSettings();
    EXPECT_EQ(GetSetting("KELVOR", "user", "name"), "Ann");
    EXPECT_EQ(GetSetting(application, "userstrings", "übung é"), "first line\r\nsecond \"line\"");
    EXPECT_EQ(GetSetting(application, "User", "empty", "standard"), "");
    EXPECT_EQ(GetSetting(application, "User", "odd"), std::string("a\0b", 3));
    EXPECT_EQ(GetSetting(application, "User", "Nam", "standard"), "standard");
    EXPECT_EQ(GetSetting("Other", "User", "Name", "standard"), "standard");
}

TEST_F(Settings, GivesNoTableForASectionThatIsMissingOrEmpty) {
    EXPECT_FALSE(GetAllSettings(application, "Links"));
    SaveSetting(application, "Links", "a", "1");
    EXPECT_TRUE(GetAllSettings(application, "links"));
    DeleteSetting(application, "LINKS", "A");
    EXPECT_FALSE(GetAllSettings(application, "Links"));
}

TEST_F(Settings, RefusesToDeleteWhatIsNotThere) {
    try {
        DeleteSetting(application, "Links", "a");
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), error_number::invalidProcedureCall);
    }
}

TEST_F(Settings, KeepsThePlaceOfARewrittenKeyAlsoAfterAVacuum) {
    std::vector<std::string> keys;
    for (int number = 40; number > 0; --number) keys.push_back("Key" + std::to_string(number));
    for (const auto& key : keys) SaveSetting(application, "Browsers", key, "old");
    DeleteSetting(application, "Browsers", "key40");
    SaveSetting(application, "Browsers", "Key40", "again");
    std::rotate(keys.begin(), keys.begin() + 1, keys.end());
    for (const auto& key : keys) SaveSetting(application, "Browsers", toUpper(key), "new");
    EXPECT_EQ(keysOf("Browsers"), keys);
    closeSettings();

    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(directory.path("settings/settings.db").c_str(), &connection), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(connection, "VACUUM", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(connection);
    EXPECT_EQ(keysOf("Browsers"), keys);
    EXPECT_EQ(GetSetting(application, "Browsers", "key7"), "new");
}

/// A store told in the simplest way: pairs in a list.
struct Model {
    struct Entry {
        std::string section;
        Setting setting;
    };
    std::vector<Entry> entries;

    auto find(const std::string& section, const std::string& key) {
        return std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
            return foldCase(entry.section) == foldCase(section) && foldCase(entry.setting.key) == foldCase(key);
        });
    }
    void save(const std::string& section, const std::string& key, const std::string& value) {
        if (const auto found = find(section, key); found != entries.end()) {
            found->setting.value = value;
        } else {
            entries.push_back({section, {key, value}});
        }
    }
    std::string listing(const std::string& section) const {
        std::string text;
        for (const Entry& entry : entries)
            if (foldCase(entry.section) == foldCase(section))
                text += entry.setting.key + "=" + entry.setting.value + "\n";
        return text;
    }
};

std::string storedListing(const std::string& section) {
    std::string text;
    for (const Setting& setting : GetAllSettings(application, section).value_or(std::vector<Setting>()))
        text += setting.key + "=" + setting.value + "\n";
    return text;
}

TEST_F(Settings, BehavesAsAListOfPairsUnderRandomUse) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::vector<std::string> names = {"file 1", "É", "Straße", "ΣΑΣ", "Имя", "a", "ab", "x'y\"z", "%_"};
    const auto pick = [&](std::size_t count) { return random() % count; };
    const auto spell = [&](const std::string& name) {
        const auto way = pick(3);
        return way == 0 ? name : way == 1 ? foldCase(name) : toLower(name);
    };
    Model model;
    for (int step = 0; step < 300; ++step) {
        const std::string section = spell(pick(2) == 0 ? "Üser" : "Links");
        const std::string key = spell(names[pick(names.size())]);
        const auto act = pick(10);
        if (act < 6) {
            const std::string value = std::to_string(pick(3));
            model.save(section, key, value);
            SaveSetting(application, section, key, value);
        } else if (act < 9) {
            const auto found = model.find(section, key);
            EXPECT_EQ(GetSetting(application, section, key, "none"),
                      found == model.entries.end() ? "none" : found->setting.value);
            if (act == 8 && found != model.entries.end()) {
                model.entries.erase(found);
                DeleteSetting(application, section, key);
            }
        } else {
            if (pick(4) == 0) closeSettings();
            ASSERT_EQ(storedListing(section), model.listing(section)) << "step " << step;
        }
    }
    for (const auto* section : {"Üser", "Links"}) EXPECT_EQ(storedListing(section), model.listing(section));
}

TEST(SettingConversion, TakesWholeTextsOnly) {
    EXPECT_EQ(settingNumber("-1"), -1);
    EXPECT_EQ(settingNumber(" 16777215 "), 16777215);
    EXPECT_TRUE(settingBoolean("tRUE"));
    EXPECT_FALSE(settingBoolean("False"));
    EXPECT_TRUE(settingBoolean("-1"));
    EXPECT_FALSE(settingBoolean("0"));
    for (const auto* text : {"", " ", "seven", "7x", "1 2", "99999999999", "--1"}) {
        EXPECT_THROW(settingNumber(text), Error) << text;
        EXPECT_THROW(settingBoolean(text), Error) << text;
    }
}

}  // namespace
}  // namespace kelvor
