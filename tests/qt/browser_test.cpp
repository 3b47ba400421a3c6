#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <csignal>
#include <filesystem>

#include "tests/qt/browser_fixture.h"

namespace kelvor::qt {
namespace {

/// A red square, 8 by 8.
std::string redPicture() {
    return R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8"><rect width="8" height="8" fill="red"/></svg>)";
}

/// What a script of the page makes its title, once all is loaded.
std::string titled(const std::string& expression) {
    return "<script>onload = () => { document.title = " + expression + "; }</script>";
}

TEST_F(Preview, AsRootWithoutASandboxNothingIsLoadedAndTheReasonIsTold) {
    if (geteuid() != 0) GTEST_SKIP() << "only root has no sandbox";
    if (engineIsLoaded()) GTEST_SKIP() << "another test of this process has loaded the engine";
    qunsetenv(sandboxVariable);
    show("a.html", "<P>hello");
    EXPECT_TRUE(notice().contains("runs as root")) << notice().toStdString();
    EXPECT_FALSE(engineIsLoaded());
}

TEST_F(Preview, TheEngineComesWithTheFirstPageAndItsFlagsStayAmongThemselves) {
    if (engineIsLoaded()) GTEST_SKIP() << "another test of this process has loaded the engine";
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu");
    letEventsRun();
    EXPECT_FALSE(engineIsLoaded());
    show("a.html", titled("'shown'"));
    EXPECT_TRUE(engineIsLoaded());
    EXPECT_EQ(titleOnce("shown"), "shown");
    EXPECT_EQ(qgetenv("QTWEBENGINE_CHROMIUM_FLAGS"), "--disable-gpu");
}

TEST_F(Preview, ALocalPageShowsWithItsStyleSheetAndPictureWhateverItsName) {
    files_.write("p#1%41.svg", redPicture());
    files_.write("s.css", "body { margin: 0; background: rgb(0, 0, 255) }");
    std::filesystem::create_directory(files_.path("sub"));
    for (const char* name :
         {"a#b%41 c.html", "what?x=1.html", "\xC3\xA9t\xC3\xA9.html", "bad\xFF.html", "100%.html", "sub/b;c&d.html"}) {
        const std::string up = std::string(name).starts_with("sub/") ? "../" : "";
        std::string page = "<link rel=stylesheet href='" + up + "s.css'>";
        page += "<img id=i width=100 height=100 src='" + up + "p%231%2541.svg'>";
        show(name, page + titled("'size ' + i.naturalWidth"));
        EXPECT_EQ(titleOnce("size"), "size 8") << name;
        const auto seen = [&](int x, int y) { return window_.grab().toImage().pixelColor(x, y); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return seen(50, 50) == Qt::red && seen(300, 200) == Qt::blue; }, 5000))
            << name;
    }
}

TEST_F(Preview, EachShowingReadsTheFilesAnewAndKnowsNothingOfTheOneBefore) {
    const std::string page = "<link rel=stylesheet href='http://" + listener_.address() + "/s.css'>" +
                             titled(
                                 "'seen ' + getComputedStyle(document.body).zIndex + ' ' + "
                                 "localStorage.length + ' ' + history.length + window.name;"
                                 "localStorage.x = 1; window.name = 'x'");
    for (const char* version : {"1", "2"}) {
        listener_.serve("/s.css", "text/css", "body { position: relative; z-index: " + std::string(version) + " }");
        show("a.html", page);
        EXPECT_EQ(titleOnce(("seen " + std::string(version)).c_str()), "seen " + std::string(version) + " 0 1");
    }
}

TEST_F(Preview, APageOfAServerShowsAndGetsNoLocalFile) {
    const std::string local = "file://" + files_.write("secret.svg", redPicture());
    listener_.serve("/s.css", "text/css", "body { z-index: 7 }");
    listener_.serve("/old", "", "Location: /page");
    listener_.serve("/page", "text/html",
                    "<link rel=stylesheet href=/s.css><img id=i src='" + local + "'><iframe src='" + local +
                        "'></iframe><script>onload = async () => { let got = 'no';"
                        "try { got = await (await fetch('" +
                        local +
                        "')).text() } catch (e) {}"
                        "document.title = 'end ' + getComputedStyle(document.body).zIndex + i.naturalWidth + got }"
                        "</script>");
    navigate("http://" + listener_.address() + "/old");
    EXPECT_EQ(titleOnce("end"), "end 70no");
}

TEST_F(Preview, LinksLeadOnWithinTheFolderOnly) {
    files_.write("next.html", titled("'reached'"));
    const auto click = [&](const std::string& target) {
        show("sub/a.html", "<a id=l href='" + target +
                               "'>x</a><script>onload = () => { document.title = 'here';"
                               "l.click() }</script>");
    };
    std::filesystem::create_directory(files_.path("sub"));
    files_.write("sub/next.html", titled("'reached'"));
    click("next.html");
    EXPECT_EQ(titleOnce("reached"), "reached");
    for (const std::string& target :
         {std::string("../next.html"), "http://" + listener_.address() + "/x", std::string("file:///etc/passwd")}) {
        click(target);
        EXPECT_TRUE(QTest::qWaitFor([&] { return notice().contains("does not follow"); }, 5000)) << target;
        QTest::qWait(200);
        EXPECT_TRUE(notice().contains("does not follow")) << target;
        EXPECT_EQ(title(), "here") << target;
    }
    EXPECT_EQ(listener_.heard(), std::vector<std::string>());
}

TEST_F(Preview, AnEndlessScriptStopsNeitherTheEditorNorTheNextPage) {
    show("a.html", "<script>document.title = 'going'; setTimeout(() => { for (;;); }, 50)</script>");
    EXPECT_EQ(titleOnce("going"), "going");
    QElapsedTimer clock;
    qint64 longest = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] { longest = std::max(longest, clock.restart()); });
    clock.start();
    beat.start(10);
    QTest::qWait(1500);
    EXPECT_LT(longest, 200);
    show("b.html", titled("'reached'"));
    EXPECT_EQ(titleOnce("reached"), "reached");
}

TEST_F(Preview, AKilledPageIsToldAndReloads) {
    show("a.html", titled("'alive'"));
    EXPECT_EQ(titleOnce("alive"), "alive");
    const auto process = found("QWebEnginePage")->property("renderProcessPid").toLongLong();
    ASSERT_GT(process, 1);
    files_.write("a.html", titled("'again'"));
    kill(static_cast<pid_t>(process), SIGKILL);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reload().isVisible(); }, 10'000));
    EXPECT_TRUE(notice().contains("process has ended")) << notice().toStdString();
    QTest::mouseClick(&reload(), Qt::LeftButton);
    EXPECT_EQ(titleOnce("again"), "again");
    EXPECT_FALSE(reload().isVisible());
}

TEST_F(Preview, AFailedLoadShowsTheEnginesOwnPage) {
    navigate(files_.path("missing.html"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return title().contains("missing.html"); }, 10'000)) << title().toStdString();
}

}  // namespace
}  // namespace kelvor::qt
