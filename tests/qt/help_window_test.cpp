// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/help_window.h"

#include "qt/help_contents.h"
#include "tests/kit/scratch_directory.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

class Help : public QtForms {
protected:
    Help() {
        root_.write(
            "index.html",
            "<H1>Home</H1><UL><LI>First<UL><LI><A HREF=\"1.html\">One</A></LI><LI><A HREF=\"2.html#end\">Two</A>"
            "</LI></UL></LI><LI><A HREF=\"gone.html\">Gone</A></LI></UL>");
        root_.write("1.html", "<TITLE>Page 1</TITLE>word<A HREF=\"2.html\">to 2</A> and a Word");
        root_.write("2.html",
                    "<A HREF=\"../x.html\">out</A><A HREF=\"file:///etc/passwd\">far</A><IMG SRC=\"1.html\">");
        window_.showPage(address("1.html"));
        window_.show();
        letEventsRun();
    }

    QUrl address(const char* name) const { return QUrl::fromLocalFile(toQt(root_ / name)); }
    std::string shown() const { return fromQt(window_.browser().source().fileName()); }
    void click(const char* link) { emit window_.browser().anchorClicked(QUrl(link)); }

    const ScratchDirectory root_;
    HelpWindow window_;
    HelpContents& contents_ = *window_.findChild<HelpContents*>();
};

TEST_F(Help, TheContentsAreTheListsOfTheHomePageAndFollowThePage) {
    ASSERT_EQ(contents_.topLevelItemCount(), 2);
    QTreeWidgetItem& group = *contents_.topLevelItem(0);
    ASSERT_EQ(group.childCount(), 2);
    EXPECT_EQ(contents_.currentItem(), group.child(0));
    QTest::keyClick(&window_, Qt::Key_F6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(shown(), "2.html");
    QTest::keyClick(&window_, Qt::Key_F6);
    EXPECT_TRUE(window_.browser().hasFocus());
    window_.browser().backward();
    EXPECT_EQ(contents_.currentItem(), group.child(0));
    EXPECT_EQ(window_.windowTitle(), "Page 1 - Kelvor Help");
    contents_.setCurrentItem(contents_.topLevelItem(1));
    EXPECT_TRUE(window_.browser().toPlainText().contains("gone.html"));
}

TEST_F(Help, LinksLeadToPagesBesideThePageAndNowhereElse) {
    for (const char* link : {"2.html", "../x.html", "file:///etc/passwd", "javascript:x", "2.html"}) {
        click(link);
        EXPECT_EQ(shown(), "2.html") << link;
    }
}

TEST_F(Help, ThePageIsSearchedRoundAndRound) {
    auto& field = *window_.findChild<QLineEdit*>();
    const auto found = [this] { return window_.browser().textCursor().selectionStart(); };
    QTest::keyClick(&window_, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(field.hasFocus());
    QTest::keyClicks(&field, "word");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(found(), 0);
    QTest::keyClick(&window_, Qt::Key_F3);
    const int second = found();
    EXPECT_GT(second, 0);
    QTest::keyClick(&window_, Qt::Key_F3);
    EXPECT_EQ(found(), 0);
    QTest::keyClick(&window_, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(found(), second);
}

TEST_F(Help, LinksTakeTheColourOfANewPalette) {
    QPalette palette;
    palette.setColor(QPalette::Link, Qt::red);
    QApplication::setPalette(palette);
    letEventsRun();
    QTextCursor link = window_.browser().document()->find("to 2");
    EXPECT_EQ(link.charFormat().foreground().color(), QColor(Qt::red));
    QApplication::setPalette({});
}

}  // namespace
}  // namespace kelvor::qt
