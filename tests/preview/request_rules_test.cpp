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

using Urls = std::initializer_list<std::string>;

void expectRules(const std::string& document, ResourceKind kind, Urls allowed, Urls refused, bool remote = false) {
    for (const auto& urls : {allowed, refused}) {
        for (const std::string& url : urls) {
            RequestRules rules(at(document), "/home/ann", remote);
            EXPECT_EQ(rules.allows(at(url), kind), urls.begin() == allowed.begin())
                << document << " -> " << url << " as " << int(kind);
        }
    }
}

TEST(RequestRules, ALocalPageGetsFilesOfItsOwnFolder) {
    const std::string web = "file:///home/ann/web/";
    const std::string document = web + "shop/index.html";
    expectRules(document, page, {web + "shop/deep/er/next.html"}, {web + "index.html", "data:///x"});
    expectRules(document, readable, {web + "shop/deep/Menu.HTM", "blob:///x"},
                {web + "shop/notes.txt", web + "shop/deep/", web + "shop/../secret.html", web + "shop2/frame.html"});
    expectRules(document, part, {web + "shop/img/a.png", "data:///x"},
                {"file:///etc/passwd", "file://server/home/ann/web/shop/a.png"});
    expectRules(document, exchange, {}, {web + "shop/data.json"});
}

TEST(RequestRules, PartsMayComeFromBesideThePageButNotFromAllOverTheDisk) {
    expectRules("file:///home/ann/web/shop/index.html", part, {"file:///home/ann/web/img/a.png"},
                {"file:///home/ann/private.png"});
    expectRules("file:///home/ann/saved.html", part, {}, {"file:///home/bob/a.png"});
    expectRules("file:///home/bob/web/index.html", part, {"file:///home/bob/a.png"}, {});
    expectRules("file:///srv/www/shop/index.html", part, {"file:///srv/www/a.png"}, {"file:///srv/other/a.png"});
    expectRules("file:///index.html", part, {"file:///etc/a.png"}, {});
    RequestRules homeless(at("file:///srv/www/shop/index.html"), "", false);
    EXPECT_TRUE(homeless.allows(at("file:///srv/www/a.png"), part));
}

TEST(RequestRules, ALocalPageGetsNothingFromTheNetworkUntilTheUserLetsIt) {
    const std::string document = "file:///home/ann/web/index.html";
    const auto expectHeld = [&](ResourceKind kind, Urls waiting, Urls never) {
        expectRules(document, kind, {}, waiting);
        expectRules(document, kind, waiting, never, true);
        const RequestRules rules(at(document), "/home/ann", false);
        for (const std::string& url : waiting) EXPECT_TRUE(rules.waitsForUser(at(url), kind)) << url;
        for (const std::string& url : never) EXPECT_FALSE(rules.waitsForUser(at(url), kind)) << url;
    };
    expectHeld(part, {"https://cdn.example/x"}, {"ftp://cdn.example/x"});
    expectHeld(readable, {"http://cdn.example/x"}, {});
    expectHeld(exchange, {"http://cdn.example/x", "wss://cdn.example/x"}, {"file:///etc/passwd"});
    expectHeld(page, {}, {"https://cdn.example/x"});
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
    expectRules(site + "page.html", page, {site + "page.html"}, {});
    expectRules(site + "page.html", readable, {site + "sub/a.html"},
                {site + "way-out/page.html", site + "loop/a.html"});
}

TEST(RequestRules, APageOfAServerGetsNoLocalFileAndStaysOnItsHost) {
    const std::string local = "file:///home/ann/a.html";
    expectRules("http://site/x", page, {"https://site/x"}, {"http://other/x", local, "chrome://crash/x"});
    expectRules("http://site/x", readable, {"http://other/x"}, {});
    expectRules("http://site/x", exchange, {"wss://site/x"}, {});
    expectRules("http://site/x", part, {"data:///x"}, {local});
    RequestRules redirected(at("http://site/x"), "", false);
    EXPECT_TRUE(redirected.allows(at("https://www.site/x"), page, true));
    EXPECT_TRUE(redirected.allows(at("https://www.site/x"), page));
    EXPECT_FALSE(redirected.allows(at("file:///etc/passwd"), page, true));
}

}  // namespace
}  // namespace kelvor
