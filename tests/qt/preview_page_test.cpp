// SPDX-License-Identifier: GPL-3.0-or-later
#include <netdb.h>

#include "tests/qt/preview_fixture.h"

namespace kelvor::qt {
namespace {

/// In milliseconds; long enough for what a loaded page does to arrive, also on a busy machine.
constexpr int settlingTime = 300;

class HostilePage : public Preview {
protected:
    /// Shows a page with a script in which BASE is the listener, `add` puts mark-up into the page and `got`
    /// notes what an attempt has brought, unless it is nothing.
    /// @param script  run once the page is loaded
    /// @return what was noted until it has settled, in the order of the names
    std::string run(const std::string& body, const std::string& script) {
        show("page.html", "<!doctype html><title>begun</title><body><script>const BASE = 'http://" +
                              listener_.address() + "', time = " + std::to_string(settlingTime) + R"js(, noted = [];
            const got = (name, what) => { if (what) noted.push(name) };
            const add = html => document.body.insertAdjacentHTML('beforeend', html);
            addEventListener('load', () => {
                setTimeout(() => { document.title = 'got:' + noted.sort() }, time);)js" +
                              script + "});</script>" + body);
        return titleOnce("got:");
    }
    void SetUp() override {
        Preview::SetUp();
        if (!IsSkipped()) loadRemoteContent();
    }
};

/// Each of these sends something when nothing holds the page. HOST stands for the listener, BASE for its page of the
/// number of the row.
constexpr const char* roads[] = {
    R"html(<img src=BASE/a><video poster=BASE/b><track default src=BASE/c></video><script src=BASE/d></script>
           <svg><filter id=f><feImage href=BASE/e /></filter><rect filter='url(#f)'/></svg>)html",
    R"html(<style>@import 'BASE/a'; @font-face { font-family: f; src: url(BASE/b) }
           body { font-family: f; background: url(BASE/c); cursor: url(BASE/d), auto }</style>text)html",
    R"html(<link rel=stylesheet href=BASE/a><link rel=prefetch href=BASE/b><link rel=preload as=image href=BASE/c>
           <link rel=preconnect href=BASE><link rel=icon href=BASE/d><link rel=manifest href=BASE/e>)html",
    R"html(<iframe src=BASE/a></iframe><object data=BASE/b></object><embed src=BASE/c>
           <iframe srcdoc='<img src=BASE/d>'></iframe><iframe src='data:text/html,<img src=BASE/e>'></iframe>)html",
    "<meta http-equiv=refresh content='0;url=BASE/a'>",
    R"html(<script>fetch('BASE/a', {mode: 'no-cors'}); new EventSource('BASE/b'); new WebSocket('ws://HOST/c');
           navigator.sendBeacon('BASE/d'); location = 'BASE/e'</script>)html",
};

TEST_F(Preview, APageFromTheDiskSendsNothingUntilItsUserLetsIt) {
    int number = 0;
    const auto filled = [&](const char* text) {
        const QString base = "http://HOST/" + QString::number(number);
        return toQt(text).replace("BASE", base).replace("HOST", toQt(listener_.address())).toStdString();
    };
    for (const char* road : roads) {
        const std::string title = "page " + std::to_string(++number);
        show("a.html", "<title>" + title + "</title>" + filled(road));
        EXPECT_EQ(titleOnce(title), title);
        const bool isFollowed = std::string(road).find("refresh") != std::string::npos;
        const auto isOffered = [this] { return button("Load remote content") != nullptr; };
        ASSERT_TRUE(isFollowed ? tells("does not follow") && !isOffered() : QTest::qWaitFor(isOffered, 10'000)) << road;
    }
    QTest::qWait(2 * settlingTime);
    EXPECT_EQ(listener_.heard(), Heard());
    const auto looksUp = [](const char* host) {
        addrinfo* found = nullptr;
        if (getaddrinfo(host, "80", nullptr, &found) != 0) return false;
        freeaddrinfo(found);
        return true;
    };
    EXPECT_FALSE(looksUp("localhost")) << "a link has its host looked up";
    for (const char* address : {"127.0.0.1", "::1"}) EXPECT_TRUE(looksUp(address)) << "an address is no name";
    browser_.Navigate("http://[/", 0);
    EXPECT_FALSE(looksUp("localhost")) << "what is no address is no server's page";

    show("a.html", filled("<img src=BASE/picture><iframe src=BASE/frame></iframe>"
                          "<script>fetch('BASE/fetch', {mode: 'no-cors'})</script>"));
    EXPECT_TRUE(tells("Scripts and content from the network are held back."));
    press("Load remote content");
    std::size_t heard = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (heard += listener_.heard().size()) >= 3; }, 10'000));
    EXPECT_TRUE(looksUp("localhost"));
    EXPECT_EQ(button("Load remote content"), nullptr);
    show("a.html", titled("'runs'"));
    EXPECT_EQ(titleOnce("runs"), "runs") << "the choice holds for the document";
}

TEST_F(HostilePage, GetsAtNoOtherTextOnTheDiskAndWritesNothingIntoTheProgramsStreams) {
    files_.write("secret.txt", "secret");
    files_.write("mine.html", "mine");
    testing::internal::CaptureStderr();
    EXPECT_EQ(run(R"html(<script>
            const frames = {frame: 'file:///etc/passwd', listing: '.', text: 'secret.txt', 'own frame': 'mine.html'};
            for (const name in frames)
                document.write(`<iframe src='${frames[name]}' onload="got('${name}',
                    this.contentDocument.body.innerText)"></iframe>`);
            </script>
            <object data=/etc/passwd type=text/plain onload="got('object', this.contentDocument.body.innerText)">
            </object><link rel=stylesheet href=/etc/passwd onload="got('style', true)">
            <iframe sandbox=allow-scripts srcdoc="<script>fetch('file:///etc/passwd').then(r => r.text())
                .then(t => parent.postMessage(t, '*'))</script>"></iframe>)html",
                  R"js(
            console.error('spoken');
            onmessage = e => got('frame without an origin', e.data);
            for (const file of ['file:///etc/passwd', 'secret.txt'])
                fetch(file).then(r => r.text()).then(t => got('fetch', t));)js"),
              "got:own frame");
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("spoken"), std::string::npos);
}

TEST_F(HostilePage, StaysInItsPaneAndOpensWritesAndStartsNothing) {
    // Takes what the desktop would open.
    QTextBrowser desktop;
    for (const char* scheme : {"mailto", "http"}) QDesktopServices::setUrlHandler(scheme, &desktop, "setSource");
    std::vector<std::ptrdiff_t> state;
    for (
        const char* leave :
        {"",  // what stands there before
         "location = BASE", "add(`<form id=f method=post action='${BASE}'><input name=a value=b></form>`); f.submit()",
         "add(`<meta http-equiv=refresh content='0;url=${BASE}'>`)",
         "add(`<a id=a href='#x' ping='${BASE}'>x</a>`); a.click()",
         "add(`<a id=a download href='${BASE}'>x</a>`); a.click()",
         "add(`<a id=a target=_blank href='${BASE}'>x</a>`); a.click(); got('window', open(BASE))",
         R"js(add(`<a id=m href="mailto:a@b.c">x</a><input type=file id=f><a id=d download="x.txt" href="data:,x">x</a>`);
               for (const part of [m, f, d]) part.click();
               got('window', open('page.html'));
               document.documentElement.requestFullscreen().then(() => got('full screen', true));
               navigator.clipboard?.readText().then(() => got('clipboard', true));
               navigator.geolocation.getCurrentPosition(() => got('place', true));
               navigator.mediaDevices.getUserMedia({audio: true}).then(() => got('microphone', true));
               print(); moveTo(0, 0); close();)js"}) {
        EXPECT_EQ(run("", leave), "got:") << leave;
        const auto windows = QApplication::topLevelWidgets();
        const std::vector<std::ptrdiff_t> now{
            std::distance(std::filesystem::recursive_directory_iterator(files_.path("")), {}),
            std::count_if(windows.begin(), windows.end(), std::mem_fn(&QWidget::isVisible))};
        if (state.empty()) state = now;
        EXPECT_EQ(now, state) << leave;
    }
    QTest::qWait(settlingTime);
    EXPECT_EQ(listener_.heard(), Heard());
    EXPECT_EQ(desktop.source(), QUrl());
    for (const char* scheme : {"mailto", "http"}) QDesktopServices::unsetUrlHandler(scheme);
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
