// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/preferences.h"

#include <sqlite3.h>

#include "authoring/insert_lists.h"
#include "core/virtual_directories.h"
#include "editing/editor_colors.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "frame/tool_forms.h"
#include "preview/preview.h"
#include "support/user_settings.h"
#include "tests/kit/kelvor_fixture.h"
#include "tests/kit/messages.h"
#include "workbench/add_browser.h"
#include "workbench/add_string.h"

namespace kelvor {
namespace {

enum Page { strings = 1, browsers, mappings };

/// What is entered in a small form, and what the user is told and which field has the keyboard then.
struct Entry {
    std::string label;
    std::string text;
    std::optional<Message> told = {};
    std::string focus = {};
};

const Message missing =
    exclamation("You must enter text in both text boxes proir to applying.", "Missing mandatory data");

Message inUse(const std::string& what) {
    return exclamation("The " + what + " is already in use, please change the name to something unique.",
                       "Name must be unique");
}

Button& addButton(AddString& form) {
    return form.cmdApply;
}
Button& addButton(AddBrowser& form) {
    return form.cmdAddList;
}

/// A text for each of some rows, one behind the other.
template <typename Rows, typename TextOf>
std::string texts(const Rows& rows, TextOf textOf) {
    std::string all;
    for (const auto& row : rows) all += textOf(row);
    return all;
}

class Options : public StartedTest {
protected:
    /// Takes the user's steps in a dialog, which then closes.
    template <typename Dialog>
    void inDialog(const std::function<void()>& open, const std::function<void(Dialog&)>& steps) {
        platform.expectModal([&](Form& form) {
            EXPECT_EQ(activeFormName, form.name());
            steps(dynamic_cast<Dialog&>(form));
            form.unload();
        });
        open();
        EXPECT_EQ(activeFormName, "editWindow");
    }
    void inOptions(const std::function<void(Preferences&)>& steps) {
        inDialog<Preferences>([this] { menu("mnuFile_Pref").click(); }, steps);
    }
    template <typename Dialog>
    void enterAll(const std::function<void()>& open, const std::vector<Entry>& entries) {
        inDialog<Dialog>(open, [&](Dialog& form) {
            for (const Entry& entry : entries) {
                if (entry.told) platform.expectMessage(*entry.told);
                form.Text1.setText(entry.label);
                form.Text2.setText(entry.text);
                addButton(form).click();
                EXPECT_TRUE(entry.focus.empty() || platform.focused == entry.focus) << platform.focused;
            }
        });
    }
    /// By the popup of a list, of which `row` deletes.
    void remove(ReportView& list, MenuItem& row, const std::string& question) {
        platform.expectPopup([&](MenuItem&) { row.click(); });
        platform.expectMessage(deletion(question), Answer::yes);
        list.mouseDown.raise({MousePress::right});
    }
    static std::string labels(const ReportView& list) {
        return texts(list.rows(), [](const auto& row) { return row.cells[0] + " "; });
    }
    static std::string ticks(const CheckList& list) {
        return texts(list.rows(), [](const auto& row) { return row.ticked ? "1" : "0"; });
    }
    static std::string stored(const UserList& list) {
        return texts(list.all().value_or(std::vector<Setting>()),
                     [](const Setting& entry) { return entry.key + "=" + entry.value + " "; });
    }
    static std::string comboRows() {
        return texts(mainForm().Combo4.list(), [](const std::string& row) { return row + " "; });
    }
    static std::string previewRows() {
        return texts(mainForm().menus(), [](const auto& row) {
            return row->name().find("_altb_") != std::string::npos && row->visible() ? row->caption() + " " : "";
        });
    }
    /// Notes the keys of all writes from now on; the one of `refused` fails.
    void watchWrites(const std::string& refused) {
        run("CREATE TABLE written (key); CREATE TRIGGER watch BEFORE INSERT ON setting BEGIN INSERT INTO written "
            "VALUES (new.key); SELECT RAISE(ABORT, 'refused') WHERE new.key = '" +
            refused + "'; END");
    }
    std::string written() { return run("SELECT key FROM written ORDER BY rowid"); }

private:
    /// Runs statements on the settings' file from outside; the first column of what they give.
    std::string run(const std::string& statements) {
        sqlite3* connection = nullptr;
        EXPECT_EQ(sqlite3_open(files.path("settings/settings.db").c_str(), &connection), SQLITE_OK);
        std::string texts;
        const auto note = [](void* to, int, char** columns, char**) {
            *static_cast<std::string*>(to) += std::string(columns[0]) + " ";
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(connection, statements.c_str(), note, &texts, nullptr), SQLITE_OK);
        sqlite3_close(connection);
        return texts;
    }
};

constexpr const char* writes[] = {"LCase",          "Slash",     "newFile",           "relPath",    "prefillAuthor",
                                  "prefillProgram", "QuickFile", "DocumentAssistant", "ScriptLang", "EnforceVDirs",
                                  "Name",           "InitDir",   "BGColor",           "ForeColor",  "DFilter"};

/// Apply where a write is refused: the last one is refused nowhere.
class OptionsApply : public Options, public testing::WithParamInterface<std::size_t> {};

TEST_P(OptionsApply, WritesInItsOrderAndGoesOnInMemoryWhereAWriteIsRefused) {
    const bool fails = GetParam() < std::size(writes);
    std::string before;
    for (std::size_t i = 0; i < std::min(GetParam(), std::size(writes)); ++i) before += std::string(writes[i]) + " ";
    open("front.htm", "x");
    type("y");
    CDocument& document = open("a.htm", "x");
    menu("mnuWindow_NextWindow").click();
    vdirManager().VirtualDirectories().Add("/srv/", "http://s/", "/srv/");
    inOptions([&](Preferences& form) {
        EXPECT_EQ(ticks(form.List1), "00110111");
        EXPECT_EQ(form.optSL.selected(), 0);
        EXPECT_EQ(form.lblInitDir.caption(), files.program());
        form.List1.click(0);
        form.optSL[1].click();
        form.txtUserName.type("Ann");
        for (const auto& answer : {std::optional(files.path("settings")), std::optional<std::string>()}) {
            platform.expectFolder("Select your preferred startup directory.", answer);
            form.lblInitDir.doubleClick();
        }
        form.cboDFilter.choose(7);
        platform.expectColor(std::nullopt);
        form.cmdBGColor.click();
        platform.expectColor(0x112233);
        form.cmdTextColor.click();
        watchWrites(fails ? writes[GetParam()] : "");
        if (fails)
            platform.expectMessage(critical("Settings cannot be stored; changes last until Kelvor ends.\r\n\r\nFile: " +
                                                files.path("settings/settings.db") + "\r\nReason: refused",
                                            "Settings"));
        form.cmdApply.click();
    });
    EXPECT_EQ(written(), before);
    std::string values;
    for (const char* key : writes) values += UserSetting(key).text() + " ";
    EXPECT_EQ(values,
              "True False True True False True True True VBS 0 Ann " + files.path("settings") + " -1 1122867 7 ");
    EXPECT_EQ(files.read("program/VDirs.txt"), "/srv/|http://s/\n");
    EXPECT_EQ(lastDir + " " + mainForm().Dir1.path(), files.path("settings") + " " + files.path("settings"));
    EXPECT_EQ(panelText(panel::saved) + panelText(panel::characters), "File Saved: NoCharacters: 2 ");
    EXPECT_TRUE(editorBackColor == -1 && document.SourceRTB().selColor() == 0x112233 && document.IsSaved());
}

INSTANTIATE_TEST_SUITE_P(EachWrite, OptionsApply, testing::Range(std::size_t(0), std::size(writes) + 1));

TEST_F(Options, AnApplyThatCannotWriteTheMappingsGoesOnAndOneWithoutMemoryEnds) {
    vdirManager().VirtualDirectories().Add("/srv/", "http://s/", "/srv/");
    vdirManager().setVDirFilePath(files.path("none/VDirs.txt"));
    inOptions([&](Preferences& form) {
        form.txtUserName.type("Ann");
        platform.expectMessage(critical("Unable to write to VDirs.txt.  Please consult the online help.",
                                        "File write failed", "The folder does not exist."));
        form.cmdApply.click();
        EXPECT_EQ(user::authorName.text(), "Ann");
        form.txtUserName.type("Eve");
        sqlite3_hard_heap_limit64(1);
        EXPECT_EQ(reportedBy([&] { form.cmdApply.click(); }), "7 Out of memory;");
        sqlite3_hard_heap_limit64(0);
        EXPECT_EQ(user::authorName.text(), "Ann");
    });
}

TEST_F(Options, NonsenseInTheStoreLeavesASettingAsItIsOrIsTold) {
    for (const char* key : {"newFile", "relPath", "DocumentAssistant", "ScriptLang"})
        SaveSetting(application, "User", key, "true");
    user::editorBackColor.store("blue");
    for (const auto& [filter, error] :
         {std::pair{"x", "13 Type mismatch: \"x\";"}, {"8", "5 The list has no row 8;"}}) {
        user::fileFilter.store(filter);
        EXPECT_EQ(reportedBy([&] {
                      inOptions([&](Preferences& form) {
                          EXPECT_EQ(ticks(form.List1), "00000110");
                          EXPECT_EQ(form.optSL.selected(), -1);
                          form.cmdApply.click();
                      });
                  }),
                  error);
        EXPECT_EQ(user::fileFilter.text() + user::editorBackColor.text() + user::scriptLanguage.text(), "0-1true");
        for (const char* key : {"newFile", "relPath", "DocumentAssistant"})
            SaveSetting(application, "User", key, "true");
    }
    user::mappedAddresses.store("x");
    platform.expectMessage(critical("An error occurred while loading the form", "Load error"));
    menu("mnuFile_Pref").click();
    EXPECT_FALSE(toolForm<Preferences>().isLoaded());
}

TEST_F(Options, TheSampleShowsBothStoredColoursOrNone) {
    for (const auto& [back, text, shown] : {std::tuple{-1, 255, "-1 -1"}, {255, -1, "255 -1"}, {1, 2, "1 2"}}) {
        editorBackColor = back;
        editorForeColor = text;
        inOptions([&, shown = shown](Preferences& form) {
            const Label& sample = form.lblBGColorExample;
            EXPECT_EQ(std::to_string(sample.backColor()) + " " + std::to_string(sample.foreColor()), shown);
        });
    }
}

TEST_F(Options, UserStringsAreAddedChangedAndDeleted) {
    for (const char* label : {"b", "a"}) {
        addUserString(label, label);
        user::strings.store(label, label);
    }
    inOptions([&](Preferences& form) {
        form.SSTab1.choose(strings);
        EXPECT_EQ(labels(form.ListView1) + platform.focused, "a b ListView1");
        enterAll<AddString>([&] { form.cmdAddString.click(); }, {{"", "", missing, "Text1"},
                                                                 {"c", "", missing, "Text2"},
                                                                 {"0", "<HR>\r\nme", {}, "Text1"},
                                                                 {"A", "twice", inUse("user string name A")}});
        EXPECT_EQ(labels(form.ListView1) + "| " + comboRows(), "0 a b A | (User Strings) b a 0 ");
        EXPECT_EQ(stored(user::strings), "b=b a=a 0=<HR>\r\nme ");
        form.ListView1.setSelectedRow(2);
        // The changed one goes first, and once, and from the frame's list the row of its number.
        enterAll<AddString>(
            [&] { form.ListView1.pressReturn(); },
            {{"a", "new", inUse("user string name a")}, {"a", "new", inUse("user string name a")}, {"z", "Z"}});
        EXPECT_EQ(labels(form.ListView1) + "| " + comboRows(), "0 a a a A z | (User Strings) b a z ");
        EXPECT_EQ(stored(user::strings), "a=twice 0=<HR>\r\nme z=Z ");
        form.ListView1.setSelectedRow(1);
        platform.expectMessage(deletion("Delete [a] user string?"), Answer::no);
        form.cmdDelete.click();
        for (const char* label : {"a", "a", "a", "A", "z", "0"})
            remove(form.ListView1, form.mnuPref_rClick_Delete, "Delete [" + std::string(label) + "] user string?");
        form.ListView1.mouseDown.raise({MousePress::right});
        EXPECT_EQ(disabledIn(form), "cmdEdit cmdDelete ");
        EXPECT_EQ(stored(user::strings) + comboRows() + std::to_string(userStrings.Count()), "(User Strings) b 0");
    });
}

TEST_F(Options, BrowsersAreFifteenAndReachThePreviewMenu) {
    const Message limit = information(
        "You have reached the 15-browser limit.\r\nYou will have to delete an existing browser prior to setting up a "
        "new one.",
        "Kelvor");
    inOptions([&](Preferences& form) {
        const auto add = [&] { form.cmdAddb.click(); };
        form.SSTab1.choose(browsers);
        EXPECT_EQ(disabledIn(form), "cmdEditb cmdDelb ");
        inDialog<AddBrowser>(add, [&](AddBrowser& dialog) {
            for (const std::vector<std::string>& paths : {std::vector<std::string>{"/bin/b"}, {}}) {
                platform.expectOpen("Locate browser executable", paths, 2,
                                    "All Files (*.*)|*.*|Executable Files (*.exe)|*.exe");
                dialog.Text2.doubleClick();
                EXPECT_EQ(dialog.Text2.text(), "/bin/b");
            }
        });
        std::vector<Entry> entries = {
            {"", "", missing, "Text1"}, {"o", "", missing, "Text2"}, {"o", "x"}, {"O", "y", inUse("browser name O")}};
        for (char label = 'n'; label > 'b'; --label) entries.push_back({{label}, "x"});
        enterAll<AddBrowser>(add, entries);
        EXPECT_EQ(previewRows(), "o n m l k j i h g f e d c ");
        for (const char* label : {"o", "O"})
            enterAll<AddBrowser>([&] { form.ListView2.doubleClick(12); }, {{label, "new"}});
        EXPECT_EQ(previewRows() + user::browsers.value("o"), "n m l k j i h g f e d c O new");
        enterAll<AddBrowser>(add, {{"b", "x"}, {"a", "x", limit}});
        EXPECT_EQ(disabledIn(form), "cmdAddb ");
        form.cmdAddb.setEnabled(true);
        for (const int page : {0, +browsers}) form.SSTab1.choose(page);
        EXPECT_EQ(disabledIn(form), "cmdAddb ");
        remove(form.ListView2, form.mnuPref2_del, "Delete [a] browser?");
        EXPECT_EQ(disabledIn(form) + previewRows(), "n m l k j i h g f e d c O b ");
    });
}

TEST_F(Options, MappingsAreInForceAtOnceAndWrittenByApply) {
    CDocument& document = open("a.htm", "x");
    const std::string page = document.LongFileName();
    const std::string root = files.path("");
    struct Row {
        Button Preferences::*button;
        std::string directory, address, listed, url;
        bool isTaken = false;
    };
    const auto add = &Preferences::cmdAddVDir;
    const auto edit = &Preferences::cmdEditVDir;
    inOptions([&](Preferences& form) {
        form.SSTab1.choose(mappings);
        EXPECT_EQ(disabledIn(form), "cmdEditVDir cmdDelVDir ");
        form.chkVirtual.click();
        EXPECT_TRUE(vdirManager().EnforceVDirs() && user::mappedAddresses.text() == "1");
        for (const Row& row : {Row{add, "", "", "", page},
                               {add, root, "", "", page},
                               {add, root, "http://a", root + " ", "http://a/a.htm"},
                               {add, root.substr(0, root.size() - 1), "b", root + " ", "http://a/a.htm", true},
                               {add, "/srv", "s/", root + " /srv/ ", "http://a/a.htm"},
                               // Only the next act maps the document anew, though it adds nothing.
                               {edit, "/srv", "c", root + " /srv/ ", "http://a/a.htm", true},
                               {add, "/x", "", root + " /srv/ ", page},
                               {edit, root, "http://d/", root + " /srv/ ", "http://d/a.htm"}}) {
            platform.expectFolder("Select the file system directory for this virtual directory mapping.",
                                  row.directory);
            if (!row.directory.empty())
                platform.expectInput("Enter the URL for this virtual directory mapping.", "Kelvor", row.address);
            if (row.isTaken)
                platform.expectMessage(exclamation("You already have a mapping listed for " +
                                                       joinPath(row.directory, "") +
                                                       ".\r\nThis duplicate mapping will be ignored.",
                                                   "Duplicate Mapping"));
            (form.*row.button).click();
            EXPECT_EQ(labels(form.lstVDir) + document.URLForDocument(), row.listed + row.url);
        }
        EXPECT_EQ(files.read("program/VDirs.txt"), "");
        form.cmdApply.click();
        EXPECT_EQ(files.read("program/VDirs.txt"), "/srv/|s/\n" + root + "|http://d/\n");
        for (const Answer answer : {Answer::cancel, Answer::yes, Answer::yes}) {
            platform.expectMessage(question("Are you sure that you want to delete this virtual directory mapping?",
                                            "Delete Confirmation", MessageButtons::yesNoCancel),
                                   answer);
            form.cmdDelVDir.click();
        }
        EXPECT_EQ(disabledIn(form) + document.URLForDocument(), "cmdEditVDir cmdDelVDir " + page);
    });
}

TEST_F(Options, HelpIsChosenFromASubject) {
    inOptions([&](Preferences& form) {
        for (const auto& row : form.mnuPref_help) {
            platform.expectPopup([&](MenuItem&) { row->click(); });
            form.Command1.click();
        }
    });
    EXPECT_EQ(texts(platform.helpPages, [](const auto& page) { return page.substr(page.rfind('/')); }),
              "/7.html/8.html/9.html/10.html/60.html/11.html/12.html/13.html/16.html/17.html/65.html/18.html/19.html"
              "/67.html");
}

}  // namespace
}  // namespace kelvor
