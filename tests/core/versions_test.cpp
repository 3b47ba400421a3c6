// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/versions.h"

#include <filesystem>

#include "core/save_over.h"
#include "files/compressed.h"
#include "files/places.h"
#include "tests/kit/faults.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

constexpr std::time_t dayLength = std::time_t{24} * 60 * 60;
constexpr std::time_t today = 20'000 * dayLength;

/// What is kept of a file, the newest first, a blank behind each.
std::string keptOf(const std::string& path) {
    std::string texts;
    for (const FileVersion& version : versionsOf(path)) texts += readVersion(path, version).value_or("damaged") + " ";
    return texts;
}

class Versions : public StartedTest {
protected:
    static void keep(const std::string& bytes, const VersionLimits& limits = {}, std::time_t now = today) {
        keepVersion(page, bytes, limits, now);
    }
    /// Puts a text into the document and saves it.
    void save(CDocument& document, const std::string& text) {
        document.SourceRTB().setText(text);
        EXPECT_TRUE(document.SaveDoc(""));
        EXPECT_EQ(files.read("page.htm"), text);
    }
    fs::path root() const { return files.path("state/versions"); }
    /// That of the one file with versions.
    fs::path directory() const { return *fs::directory_iterator(root()); }

    static constexpr const char* page = "/site/page.htm";
    ScopedDirectories inForce{files.path("program"), files.path("settings"), files.path("state")};
};

TEST_F(Versions, AreKeptOfWhatEachSaveWritesOverOnceTheyAreSwitchedOn) {
    CDocument& document = open("page.htm", "one");
    const std::string path = document.LongFileName();
    save(document, "two");
    EXPECT_FALSE(fs::exists(root()));
    setKeepsVersions(true);
    for (const char* text : {"three\xC3\xA9", "four", "four", "four", "five"}) save(document, text);
    EXPECT_EQ(keptOf(path), "four three\xC3\xA9 two ") << "the same bytes once";
    // Another program's write is a version too, and so is what stood at another name.
    files.write("page.htm", "\xFF\xFE");
    platform.expectDialog<SaveOver>([](SaveOver& question) { question.cmdOverwrite.click(); });
    save(document, "six");
    EXPECT_EQ(keptOf(path), "\xFF\xFE four three\xC3\xA9 two ");
    const auto other = files.write("other.htm", "old");
    for (const std::string& name : {other, files.path("new.htm")}) EXPECT_TRUE(document.SaveDocAs(name));
    EXPECT_EQ(keptOf(other) + "|" + keptOf(files.path("new.htm")), "old |");
    setKeepsVersions(false);
    EXPECT_TRUE(document.SaveDocAs(other));
    EXPECT_EQ(keptOf(other), "old ") << "what there is stays";
    for (const auto& entry : fs::recursive_directory_iterator(files.path("state")))
        EXPECT_EQ(entry.status().permissions() & (fs::perms::group_all | fs::perms::others_all), fs::perms::none);
}

TEST_F(Versions, GoTheOldestFirstBeyondEachLimit) {
    const std::tuple<const char*, VersionLimits, std::vector<std::time_t>, const char*> rows[] = {
        // The days are those of the versions "0", "1", ..., from today.
        {"number", {.count = 3}, {-4, -3, -2, -1, 0}, "4 3 2 "},
        {"bytes", {.bytes = 2 * compressed("x").size()}, {-2, -1, 0}, "2 1 "},
        {"the newest stays", {.count = 0, .bytes = 1}, {-1, 0}, "1 "},
        {"age", {}, {-92, -91, -90, -1, 0}, "4 3 2 1 "},
        {"one save with a clock ahead", {}, {-2, -1, 9000, 0, 1}, "4 3 2 1 0 "},
        {"many with a clock ahead", {}, {-2, -1, 0, 9000, 9001, 9002}, "5 4 3 "},
        {"a clock set back", {}, {-1, 0, -9000, -20'001, -8999}, "4 3 2 1 0 "},
    };
    for (const auto& [what, limits, days, left] : rows) {
        for (std::size_t number = 0; number < days.size(); ++number)
            keep(std::to_string(number), limits, today + days[number] * dayLength);
        EXPECT_EQ(keptOf(page), left) << what;
        fs::remove_all(root());
    }
}

TEST_F(Versions, AreOfFilesUpTo16MegabytesAndOfOnePathWhateverItsBytesAndItsHash) {
    setKeepsVersions(true);
    fs::create_directory(files.path("folder"));
    files.write("most", std::string(std::size_t{16} << 20, 'x'));
    files.write("more", std::string((std::size_t{16} << 20) + 1, 'x'));
    for (const auto& [name, count] : {std::pair("most", 1U), {"more", 0U}, {"folder", 0U}, {"missing", 0U}}) {
        keepVersion(files.path(name));
        EXPECT_EQ(versionsOf(files.path(name)).size(), count) << name;
    }
    fs::remove_all(root());
    const std::string odd = "/bad\xFF\xE9\n \".htm";
    keepVersion(odd, "odd", {}, today);
    EXPECT_EQ(keptOf(odd) + keptOf("/bad"), "odd ");
    // As if another path had the same hash.
    std::ofstream(directory() / "path") << "/another";
    EXPECT_EQ(keptOf(odd), "");
    for (const char* bytes : {"second", "third"}) keepVersion(odd, bytes, {}, today);
    EXPECT_EQ(keptOf(odd), "third second ");
}

TEST_F(Versions, AreGivenWholeOrNotAtAllAndWhatIsNoneIsLeftAlone) {
    for (const char* bytes : {"one", "two", "three"}) keep(bytes);
    const auto versions = versionsOf(page);
    fs::resize_file(directory() / versions[0].id, 9);
    fs::copy_file(directory() / versions[2].id, directory() / versions[1].id, fs::copy_options::overwrite_existing);
    const std::string zeros(32, '0');
    for (const std::string& name : {"000000009-1-1-" + zeros.substr(1), "9-1-1-" + zeros, std::string("-1"), zeros})
        std::ofstream(directory() / name) << "x";
    fs::create_directory(directory() / ("000000010-1-1-" + zeros));
    keep("four");
    EXPECT_EQ(keptOf(page), "four damaged damaged one ");
}

/// Each call in turn fails, or is the last one of the process.
TEST_F(Versions, AreKeptWholeWhereverACallFailsOrIsTheLast) {
    for (const bool kill : {false, true}) {
        int hits = 0;
        for (int at = 1;; ++at) {
            Saboteur saboteur{.at = at, .code = ENOSPC, .kill = kill, .mostBytes = 10};
            const std::string bytes = std::to_string(kill) + "-" + std::to_string(at);
            bool failed = false;
            const bool killed = isKilledIn(saboteur, [&] { failed = !errorOf([&] { keep(bytes); }).empty(); });
            const std::string kept = keptOf(page);
            EXPECT_EQ(kept.find("damaged"), std::string::npos) << bytes;
            EXPECT_TRUE(failed || killed || kept.starts_with(bytes + " ")) << bytes;
            keep("next " + bytes);
            EXPECT_TRUE(keptOf(page).starts_with("next " + bytes + " ")) << bytes;
            EXPECT_FALSE(fs::exists(directory() / "unfinished")) << bytes;
            if (!killed && saboteur.firstHit.empty()) break;
            if (failed || killed) ++hits;
        }
        EXPECT_GT(hits, 10);
    }
}

TEST_F(Versions, ThatCannotBeKeptStopNoSave) {
    setKeepsVersions(true);
    CDocument& document = open("page.htm", "old");
    for (const auto& [code, words] : {std::pair(ENOSPC, "The disk is full."), {EROFS, "The disk is read-only."}}) {
        const auto scope = failing(&SystemCalls::rename, code);
        save(document, words);
        EXPECT_EQ(panelText(panel::notice), std::string("No version was kept: ") + words);
    }
    EXPECT_NE(files.read("program/errorlog.txt").find("The disk is full"), std::string::npos);
    // Something else stands where the versions are to be, and goes.
    fs::remove_all(root());
    std::ofstream(root()) << "a file";
    save(document, "one");
    fs::remove(root());
    save(document, "two");
    EXPECT_EQ(keptOf(document.LongFileName()) + panelText(panel::notice), "one ");
}

}  // namespace
}  // namespace kelvor
