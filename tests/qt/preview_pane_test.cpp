// SPDX-License-Identifier: GPL-3.0-or-later
#include <csignal>

#include "tests/qt/preview_fixture.h"

namespace kelvor::qt {
namespace {

/// A red square, 8 by 8.
constexpr const char* redPicture =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8"><rect width="8" height="8" fill="red"/></svg>)";

TEST_F(Preview, ALocalPageShowsWithItsStyleSheetAndPictureWhateverItsName) {
    files_.write("p#1%41.svg", redPicture);
    files_.write("s.css", "body { margin: 0; background: rgb(0, 0, 255) }");
    for (const char* name : {"a#b%41 c.html", "what?x=1.html", "\xC3\xA9t\xC3\xA9.html", "bad\xFF.html", "100%.html"}) {
        const std::string title = "title " + std::to_string(std::hash<std::string>()(name));
        show(name, "<title>" + title +
                       "</title><link rel=stylesheet href=s.css>"
                       "<img width=100 height=100 src='p%231%2541.svg'>");
        EXPECT_EQ(titleOnce(title), title) << name;
        EXPECT_EQ(button("Load remote content"), nullptr) << "nothing waits";
        const auto seen = [&](int x, int y) { return window_.grab().toImage().pixelColor(x, y); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return seen(50, 50) == Qt::red && seen(300, 200) == Qt::blue; })) << name;
    }
}

TEST_F(Preview, EachShowingReadsTheFilesAnewAndKnowsNothingOfTheOneBefore) {
    const std::string page = "<link rel=stylesheet href='http://" + listener_.address() + "/s.css'>" +
                             titled(
                                 "'seen ' + getComputedStyle(document.body).zIndex + ' ' + localStorage.length + ' ' "
                                 "+ history.length + window.name; localStorage.x = 1; window.name = 'x'");
    loadRemoteContent();
    for (const std::string version : {"1", "2"}) {
        listener_.serve("/s.css", "text/css", "body { position: relative; z-index: " + version + " }");
        show("a.html", page);
        EXPECT_EQ(titleOnce("seen " + version), "seen " + version + " 0 1");
    }
}

TEST_F(Preview, LinksLeadOnWithinTheFolderOnly) {
    loadRemoteContent();
    std::filesystem::create_directory(files_.path("sub"));
    for (const char* page : {"next.html", "sub/next.html"}) files_.write(page, titled("'reached'"));
    for (const auto& target : Heard{"next.html", "../next.html", "http://" + listener_.address() + "/x"}) {
        show("sub/a.html", "<a id=l href='" + target + "'>x</a>" + titled("'here'; l.click()"));
        const bool isFollowed = target == "next.html";
        EXPECT_NE(tells("does not follow", isFollowed ? 0 : 10'000), isFollowed) << target;
        EXPECT_EQ(titleOnce(isFollowed ? "reached" : "here"), isFollowed ? "reached" : "here") << target;
    }
    EXPECT_EQ(listener_.heard(), Heard());
}

TEST_F(Preview, AKilledPageIsToldAndReloadsAndAClosedOneGivesItsProcessFree) {
    const auto process = [this] { return ofEngine("QWebEnginePage", "renderProcessPid").toInt(); };
    show("a.html", "<title>alive</title>");
    EXPECT_EQ(titleOnce("alive"), "alive");
    files_.write("a.html", "<title>again</title>");
    ASSERT_GT(process(), 1);
    kill(process(), SIGKILL);
    EXPECT_TRUE(tells("process has ended"));
    press("Reload");
    EXPECT_EQ(titleOnce("again"), "again");
    const int last = process();
    ASSERT_GT(last, 1);
    browser_.Close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return kill(last, 0) != 0; }, 10'000));
}

TEST_F(Preview, AMappedAddressIsSentAsTheServerKnowsItAndTellsWhenItIsNone) {
    const std::string base = "http://" + listener_.address();
    listener_.serve("/a%20b%231%3F%2541.html", "text/html", "<title>mapped</title>");
    browser_.Navigate(files_.write("x.html", "<title>file</title>"), 0, "localhost/x.html");
    EXPECT_TRUE(tells("The mapping gives no address"));
    EXPECT_EQ(titleOnce("file"), "file");
    browser_.Navigate(base + "/a b#1?%41.html", 0, base + "/a%20b%231%3F%2541.html");
    EXPECT_EQ(titleOnce("mapped"), "mapped");
    EXPECT_FALSE(tellsNow("The mapping gives no address"));
}

TEST_F(Preview, ALoginIsAskedInThePaneAndKept) {
    listener_.refuse("/p", "401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"shop\"", "Basic YW5uOnNlY3JldA==");
    listener_.serve("/p", "text/html", "<title>inside</title>");
    const auto logIn = [this](const char* password, const LoopbackListener& server) {
        EXPECT_TRUE(tells((server.address() + " asks for a name and a password.\nIt says: shop").c_str()));
        const QList<QLineEdit*> fields = window_.findChildren<QLineEdit*>();
        ASSERT_EQ(fields.size(), 2);
        EXPECT_TRUE(fields[1]->text().isEmpty() && fields[1]->echoMode() == QLineEdit::Password);
        fields[0]->setText("ann");
        fields[1]->setText(password);
        QTest::keyClick(fields[1], Qt::Key_Return);
    };
    showServed("/p");
    EXPECT_TRUE(tells("asks for a name"));
    EXPECT_EQ(listener_.heard(), Heard{"GET /p HTTP/1.1"}) << "no empty name and password";
    logIn("wrong", listener_);
    EXPECT_TRUE(tells("were not taken"));
    logIn("secret", listener_);
    EXPECT_EQ(titleOnce("inside"), "inside");
    browser_.Close();
    showServed("/p");
    EXPECT_EQ(titleOnce("inside"), "inside");

    LoopbackListener second;
    second.refuse("/", "401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"shop\"", "Basic YW5uOnNlY29uZA==");
    second.serve("/", "text/html", "<title>second</title>");
    browser_.Navigate("http://" + second.address() + "/", 0);
    logIn("second", second);
    EXPECT_EQ(titleOnce("second"), "second");
    listener_.serve("/p", "http://" + second.address() + "/", "");
    showServed("/p");
    EXPECT_EQ(titleOnce("second"), "second") << "each server has its own login, the realm's name alone says nothing";
}

TEST_F(Preview, ASilentADeadAndADownloadingServerAreTold) {
    listener_.keepSilent();
    showServed("/silent");
    ASSERT_TRUE(QTest::qWaitFor([&] { return listener_.isSilent(); }, 10'000));
    EXPECT_TRUE(tells("Loading http://127.0.0.1"));
    EXPECT_NE(button("Stop"), nullptr);
    browser_.Close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return listener_.isGivenUp(); }, 10'000)) << "the source is back";
    EXPECT_FALSE(tellsNow("Loading"));
    listener_.serve("/d", "application/zip", "PK");
    showServed("/d");
    EXPECT_TRUE(tells("takes no downloads: http://127.0.0.1"));
    showServed("/missing");
    EXPECT_TRUE(tells("answered with the error 404"));
    browser_.Navigate("http://127.0.0.1:1/", 0);
    EXPECT_TRUE(tells("http://127.0.0.1:1/ cannot be loaded."));
    EXPECT_NE(button("Reload"), nullptr);
    browser_.Navigate(files_.path("gone.html"), 0);
    EXPECT_TRUE(tells("gone.html cannot be loaded."));
}

TEST_F(Preview, AStoppedPageIsToldAndReloadsUnlessPartOfItShows) {
    LoopbackListener silent;
    silent.keepSilent();
    listener_.keepSilent();
    showServed("/late");
    press("Stop");
    EXPECT_TRUE(tells("/late was not loaded."));
    EXPECT_EQ(window_.focusWidget(), button("Reload")) << "the button that was pressed is gone";
    listener_.serve("/late", "text/html", "<title>part</title><img src='http://" + silent.address() + "/'>");
    press("Reload");
    EXPECT_EQ(titleOnce("part"), "part");
    press("Stop");
    EXPECT_TRUE(QTest::qWaitFor([&] { return silent.isSilent() && silent.isGivenUp(); }, 10'000));
    EXPECT_FALSE(tells("was not loaded", 500));
}

TEST_F(Preview, ACertificateThatNobodyVouchesForIsNamedAndCanBeTakenForTheRun) {
    QFile pem(KELVOR_QT_TESTS "/workshop.pem");
    ASSERT_TRUE(pem.open(QIODevice::ReadOnly));
    const QByteArray keyAndCertificate = pem.readAll();
    auto server = std::make_unique<QSslServer>();
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(keyAndCertificate));
    configuration.setPrivateKey(QSslKey(keyAndCertificate, QSsl::Ec));
    server->setSslConfiguration(configuration);
    LoopbackListener secure(std::move(server));
    secure.serve("/", "text/html", "<title>secured</title>");
    const std::string page = "https://" + secure.address() + "/";
    browser_.Navigate(page, 0);
    EXPECT_TRUE(tells("The certificate of 127.0.0.1 cannot be trusted"));
    EXPECT_TRUE(tells("issued to \"Workshop\" by \"Workshop\""));
    press("Go on for this site, this run");
    EXPECT_EQ(titleOnce("secured"), "secured");
    browser_.Close();
    browser_.Navigate(page, 0);
    EXPECT_EQ(titleOnce("secured"), "secured");
}

}  // namespace
}  // namespace kelvor::qt
