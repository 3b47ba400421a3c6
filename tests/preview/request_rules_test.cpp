// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/request_rules.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

constexpr auto page = ResourceKind::page;
constexpr auto part = ResourceKind::part;
constexpr auto readable = ResourceKind::readable;
constexpr auto exchange = ResourceKind::exchange;

/// The address that "scheme://host/path" spells.
PageAddress at(const std::string& url) {
    const auto host = url.find("://") + 3;
    const auto path = url.find('/', host);
    return {.scheme = url.substr(0, host - 3), .host = url.substr(host, path - host), .path = url.substr(path)};
}

struct Row {
    std::string target;
    ResourceKind kind;
    bool isAllowed;
};

void expectRows(const std::string& document, std::initializer_list<Row> rows, bool remoteContent = false) {
    for (const auto& [target, kind, allowed] : rows) {
        RequestRules rules(at(document), "/home/ann", remoteContent);
        EXPECT_EQ(rules.allows(at(target), kind), allowed) << document << " -> " << target << " as " << int(kind);
    }
}

TEST(RequestRules, ALocalPageGetsFilesOfItsOwnFolder) {
    expectRows("file:///home/ann/web/shop/index.html", {{"file:///home/ann/web/shop/deep/er/next.html", page, true},
                                                        {"file:///home/ann/web/shop/deep/Menu.HTM", readable, true},
                                                        {"file:///home/ann/web/shop/notes.txt", readable, false},
                                                        {"file:///home/ann/web/shop/deep/", readable, false},
                                                        {"file:///home/ann/web/shop/img/a.png", part, true},
                                                        {"file:///home/ann/web/shop/data.json", exchange, false},
                                                        {"file:///home/ann/web/index.html", page, false},
                                                        {"file:///home/ann/web/frame.html", readable, false},
                                                        {"file:///home/ann/web/shop/../secret.html", readable, false},
                                                        {"file:///home/ann/web/shop2/frame.html", readable, false},
                                                        {"file:///etc/passwd", part, false},
                                                        {"file://server/home/ann/web/shop/a.png", part, false},
                                                        {"chrome://crash/x", page, false},
                                                        {"data:///x", part, true},
                                                        {"blob:///x", readable, true},
                                                        {"about:///x", readable, true},
                                                        {"data:///x", page, false}});
}

TEST(RequestRules, PartsMayComeFromBesideThePageButNotFromAllOverTheDisk) {
    expectRows("file:///home/ann/web/shop/index.html",
               {{"file:///home/ann/web/img/a.png", part, true}, {"file:///home/ann/private.png", part, false}});
    expectRows("file:///home/ann/saved.html", {{"file:///home/bob/a.png", part, false}});
    expectRows("file:///home/bob/web/index.html", {{"file:///home/bob/a.png", part, true}});
    expectRows("file:///srv/www/shop/index.html",
               {{"file:///srv/www/a.png", part, true}, {"file:///srv/other/a.png", part, false}});
    expectRows("file:///index.html", {{"file:///etc/a.png", part, true}});
    RequestRules homeless(at("file:///srv/www/shop/index.html"), "", false);
    EXPECT_TRUE(homeless.allows(at("file:///srv/www/a.png"), part));
}

TEST(RequestRules, ALocalPageGetsNothingFromTheNetworkUntilTheUserLetsIt) {
    const std::string document = "file:///home/ann/web/index.html";
    for (const auto& [target, kind, afterwards] : {Row{"https://cdn.example/x", part, true},
                                                   {"http://cdn.example/x", readable, true},
                                                   {"http://cdn.example/x", exchange, true},
                                                   {"wss://cdn.example/x", exchange, true},
                                                   {"https://cdn.example/x", page, false},
                                                   {"ftp://cdn.example/x", part, false},
                                                   {"file:///etc/passwd", exchange, false}}) {
        expectRows(document, {{target, kind, false}});
        expectRows(document, {{target, kind, afterwards}}, true);
        const RequestRules rules(at(document), "/home/ann", false);
        EXPECT_EQ(rules.waitsForUser(at(target), kind), afterwards) << target;
    }
}

TEST(RequestRules, LinksOfTheDiskAreFollowedBeforeTheFolderIsCompared) {
    namespace fs = std::filesystem;
    const TestDirectory files;
    fs::create_directories(files.path("site/sub"));
    fs::create_directories(files.path("other"));
    files.write("other/page.html", "");
    fs::create_symlink(files.path("other"), files.path("site/way-out"));
    fs::create_symlink("loop", files.path("site/loop"));
    fs::create_symlink(files.path("other/page.html"), files.path("site/page.html"));
    const std::string site = "file://" + files.path("site/");
    expectRows(site + "page.html", {{site + "page.html", page, true},
                                    {site + "sub/a.html", readable, true},
                                    {site + "way-out/page.html", readable, false},
                                    {site + "loop/a.html", readable, false}});
}

TEST(RequestRules, APageOfAServerGetsNoLocalFileAndStaysOnItsHost) {
    expectRows("http://site/x", {{"https://site/x", page, true},
                                 {"http://other/x", page, false},
                                 {"http://other/x", readable, true},
                                 {"wss://site/x", exchange, true},
                                 {"data:///x", part, true},
                                 {"file:///home/ann/a.png", part, false},
                                 {"file:///home/ann/a.html", page, false},
                                 {"chrome://crash/x", page, false}});
    RequestRules redirected(at("http://site/x"), "", false);
    EXPECT_TRUE(redirected.allows(at("https://www.site/x"), page, true));
    EXPECT_TRUE(redirected.allows(at("https://www.site/x"), page));
    EXPECT_FALSE(redirected.allows(at("file:///etc/passwd"), page, true));
}

}  // namespace
}  // namespace kelvor
