#include "preview/request_rules.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/fake_platform.h"

namespace kelvor {
namespace {

constexpr auto page = ResourceKind::page;
constexpr auto part = ResourceKind::part;
constexpr auto readable = ResourceKind::readable;
constexpr auto exchange = ResourceKind::exchange;

PageAddress file(const std::string& path) {
    return {.scheme = "file", .host = "", .path = path};
}
PageAddress web(const std::string& scheme, const std::string& host) {
    return {.scheme = scheme, .host = host, .path = "/x"};
}

struct Row {
    PageAddress target;
    ResourceKind kind = page;
    bool allowed = false;
};

void expectRows(const PageAddress& document, std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        RequestRules rules(document, "/home/ann");
        EXPECT_EQ(rules.allows(row.target, row.kind), row.allowed)
            << document.path << " -> " << row.target.scheme << ":" << row.target.host << row.target.path << " as "
            << static_cast<int>(row.kind);
    }
}

TEST(RequestRules, ALocalPageGetsFilesOfItsOwnFolder) {
    expectRows(file("/home/ann/web/shop/index.html"),
               {{file("/home/ann/web/shop/index.html"), page, true},
                {file("/home/ann/web/shop/next.html"), page, true},
                {file("/home/ann/web/shop/deep/er/next.html"), page, true},
                {file("/home/ann/web/shop/frame.html"), readable, true},
                {file("/home/ann/web/shop/deep/Menu.HTM"), readable, true},
                {file("/home/ann/web/shop/notes.txt"), readable, false},
                {file("/home/ann/web/shop/deep/"), readable, false},
                {file("/home/ann/web/shop/key"), readable, false},
                {file("/home/ann/web/shop/img/a.png"), part, true},
                {file("/home/ann/web/shop/data.json"), exchange, false},
                {file("/home/ann/web/index.html"), page, false},
                {file("/home/ann/web/frame.html"), readable, false},
                {file("/home/ann/web/shop/../secret.html"), readable, false},
                {file("/home/ann/web/shop2/frame.html"), readable, false},
                {file("/etc/passwd"), readable, false},
                {file("/etc/passwd"), part, false},
                {file("/etc/passwd"), page, false},
                {{.scheme = "file", .host = "server", .path = "/home/ann/web/shop/a.png"}, part, false}});
}

TEST(RequestRules, PartsMayComeFromBesideThePageButNotFromAllOverTheDisk) {
    struct Case {
        const char* document;
        const char* target;
        bool allowed;
    };
    for (const Case& row : {
             Case{"/home/ann/web/shop/index.html", "/home/ann/web/style.css", true},
             Case{"/home/ann/web/shop/index.html", "/home/ann/web/img/a.png", true},
             Case{"/home/ann/web/shop/index.html", "/home/ann/private.png", false},
             Case{"/home/ann/mail/saved.html", "/home/ann/pictures/a.png", false},
             Case{"/home/ann/saved.html", "/home/bob/a.png", false},
             Case{"/home/bob/web/index.html", "/home/bob/a.png", true},
             Case{"/srv/www/shop/index.html", "/srv/www/a.png", true},
             Case{"/srv/www/index.html", "/srv/other/a.png", false},
             Case{"/tmp/saved/index.html", "/tmp/other/a.png", false},
             Case{"/index.html", "/etc/a.png", true},
         }) {
        RequestRules rules(file(row.document), "/home/ann");
        EXPECT_EQ(rules.allows(file(row.target), part), row.allowed) << row.document << " -> " << row.target;
    }
    RequestRules homeless(file("/srv/www/shop/index.html"), "");
    EXPECT_TRUE(homeless.allows(file("/srv/www/a.png"), part));
}

TEST(RequestRules, ALocalPageGetsOnlyPartsFromTheNetwork) {
    expectRows(file("/home/ann/web/index.html"), {{web("http", "cdn.example"), part, true},
                                                  {web("https", "cdn.example"), part, true},
                                                  {web("https", "cdn.example"), page, false},
                                                  {web("https", "cdn.example"), readable, false},
                                                  {web("https", "cdn.example"), exchange, false},
                                                  {web("ws", "cdn.example"), exchange, false},
                                                  {web("wss", "cdn.example"), part, false},
                                                  {web("ftp", "cdn.example"), part, false},
                                                  {web("chrome", "crash"), page, false},
                                                  {web("data", ""), part, true},
                                                  {web("blob", ""), readable, true},
                                                  {web("about", ""), readable, true},
                                                  {web("data", ""), page, false}});
}

TEST(RequestRules, APageThatMayHaveReadAFileIsCutOffFromTheNetwork) {
    RequestRules rules(file("/home/ann/web/index.html"), "/home/ann");
    EXPECT_FALSE(rules.allows(file("/etc/passwd"), readable));
    EXPECT_TRUE(rules.allows(web("http", "cdn.example"), part));
    EXPECT_TRUE(rules.allows(file("/home/ann/web/menu.html"), readable));
    EXPECT_FALSE(rules.allows(web("http", "cdn.example"), part));
    EXPECT_TRUE(rules.allows(file("/home/ann/web/next.html"), page));
    EXPECT_FALSE(rules.allows(web("http", "cdn.example"), part));
    EXPECT_TRUE(rules.allows(file("/home/ann/web/a.png"), part));
}

TEST(RequestRules, APartFromBesideThePageCutsItOffToo) {
    RequestRules rules(file("/home/ann/web/shop/index.html"), "/home/ann");
    EXPECT_TRUE(rules.allows(file("/home/ann/web/shop/own.png"), part));
    EXPECT_TRUE(rules.allows(web("http", "cdn.example"), part));
    EXPECT_TRUE(rules.allows(file("/home/ann/web/secret.js"), part));
    EXPECT_FALSE(rules.allows(web("http", "cdn.example"), part));
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
    RequestRules rules(file(files.path("site/page.html")), "");
    EXPECT_TRUE(rules.allows(file(files.path("site/page.html")), page));
    EXPECT_TRUE(rules.allows(file(files.path("site/sub/a.html")), readable));
    EXPECT_FALSE(rules.allows(file(files.path("site/way-out/page.html")), readable));
    EXPECT_FALSE(rules.allows(file(files.path("site/loop/a.html")), readable));
}

TEST(RequestRules, APageOfAServerGetsNoLocalFileAndStaysOnItsHost) {
    expectRows(web("http", "site"), {{web("http", "site"), page, true},
                                     {web("https", "site"), page, true},
                                     {web("http", "other"), page, false},
                                     {web("http", "other"), readable, true},
                                     {web("https", "other"), exchange, true},
                                     {web("wss", "site"), exchange, true},
                                     {web("data", ""), part, true},
                                     {file("/home/ann/a.png"), part, false},
                                     {file("/home/ann/a.html"), page, false},
                                     {file("/home/ann/a.html"), readable, false},
                                     {web("chrome", "crash"), page, false}});
    RequestRules redirected(web("http", "site"), "");
    EXPECT_TRUE(redirected.allows(web("https", "www.site"), page, true));
    EXPECT_TRUE(redirected.allows(web("https", "www.site"), page));
    EXPECT_FALSE(redirected.allows(file("/etc/passwd"), page, true));
}

}  // namespace
}  // namespace kelvor
