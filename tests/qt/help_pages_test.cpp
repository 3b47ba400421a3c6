// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/help_pages.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "files/files.h"
#include "frame/menu_table.h"
#include "qt/help_window.h"
#include "tests/qt/all_forms.h"
#include "tests/qt/form_fixture.h"

namespace kelvor::qt {
namespace {

using Names = std::set<std::string>;

/// A caption as a page spells it: without the mark of its access key, and without what follows its words.
std::string spelled(QString caption) {
    caption.replace("&&", "\n").remove('&').replace("\n", "&");
    while (caption.endsWith(':') || caption.endsWith('.')) caption.chop(1);
    return caption.simplified().toStdString();
}

/// What a page has between two marks, or behind the first to a quotation mark; with no entities any more.
Names namesIn(const QString& page, const char* pattern) {
    Names names;
    for (auto match = QRegularExpression(pattern).globalMatch(page); match.hasNext();) {
        QTextDocumentFragment text = QTextDocumentFragment::fromHtml(match.next().captured(1));
        names.insert(spelled(text.toPlainText()));
    }
    return names;
}

class HelpPages : public QtForms {
protected:
    HelpPages() {
        for (const auto& file : std::filesystem::directory_iterator(KELVOR_HELP))
            pages_[file.path().filename()] = toQt(readFile(file.path()));
    }

    /// The captions of a window as it stands when it is made.
    static Names captionsOf(const QWidget& window) {
        Names captions;
        const auto add = [&](const QString& text) { captions.insert(spelled(text)); };
        add(window.windowTitle());
        for (const auto* part : window.findChildren<const QWidget*>()) {
            if (const auto* button = qobject_cast<const QAbstractButton*>(part)) {
                add(button->text());
                add(button->toolTip());
            }
            if (const auto* label = qobject_cast<const QLabel*>(part)) add(label->text());
            if (const auto* frame = qobject_cast<const QGroupBox*>(part)) add(frame->title());
            if (const auto* tabs = qobject_cast<const QTabBar*>(part))
                for (int tab = 0; tab < tabs->count(); ++tab) add(tabs->tabText(tab));
            if (const auto* header = qobject_cast<const QHeaderView*>(part); header && header->model())
                for (int column = 0; column < header->count(); ++column)
                    add(header->model()->headerData(column, header->orientation()).toString());
        }
        for (const auto* action : window.findChildren<const QAction*>()) add(action->text());
        return captions;
    }

    std::map<std::string, QString> pages_;
};

TEST_F(HelpPages, EachCallerHasOneAndTheHomePageLeadsToEach) {
    for (const HelpPage& row : helpPages)
        EXPECT_TRUE(pages_.contains(std::string(row.page))) << row.where << " " << row.page;
    const Names fromHome = namesIn(pages_["index.html"], "<A HREF=\"([^\"]*)\"");
    for (const auto& [name, text] : pages_) {
        EXPECT_TRUE(name == "index.html" || fromHome.contains(name)) << name;
        for (const std::string& link : namesIn(text, "<A HREF=\"([^\"#]*)"))
            EXPECT_TRUE(pages_.contains(link)) << name << " leads to " << link;
    }
}

TEST_F(HelpPages, TheCaptionsThatTheyNameAreThoseOfTheWindows) {
    // Those that a part has only while it is used.
    const Names whileUsed = {"Cancel",
                             "Find Next",
                             "Edit Link",
                             "Save changes",
                             "More Windows",
                             "Checkbox group name",
                             "Checkbox value",
                             "Checkbox description",
                             "Files of type",
                             "Radio button value",
                             "Show hidden files",
                             "Radio button description",
                             "Radio button group name"};
    Names all = whileUsed;
    std::map<std::string, Names> ofPage;
    const auto add = [&](const Names& captions) { all.insert(captions.begin(), captions.end()); };
    AllForms::forEach([&](Form&& form) {
        platform_.windows().create(form);
        const Names captions = captionsOf(*platform_.windows().widgetOf(form));
        platform_.windows().destroy(form);
        for (const HelpPage& row : helpPages)
            // The pages of the options tell of the small dialogs over them too.
            if (row.where == form.name() && row.where != "preferences")
                ofPage[std::string(row.page)].insert(captions.begin(), captions.end());
        add(captions);
    });
    add(captionsOf(HelpWindow()));
    for (const MenuRow& row : menuTable()) all.insert(spelled(toQt(row.caption)));
    for (const auto& [name, text] : pages_) {
        for (const std::string& caption : namesIn(text, "<B>([^<]*)</B>"))
            EXPECT_TRUE(all.contains(caption)) << name << ": " << caption;
        if (!ofPage.contains(name)) continue;
        for (const std::string& caption : namesIn(text, "<DT><B>([^<]*)</B>"))
            EXPECT_TRUE(ofPage[name].contains(caption) || whileUsed.contains(caption)) << name << " has no " << caption;
    }
}

}  // namespace
}  // namespace kelvor::qt
