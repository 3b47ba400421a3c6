// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/common_dialog.h"
#include "controls/directory_list.h"
#include "controls/drive_list.h"
#include "controls/file_list.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/mdi_area.h"
#include "controls/menu_item.h"
#include "controls/picture_box.h"
#include "controls/side_bar.h"
#include "controls/status_bar.h"
#include "controls/tab_strip.h"
#include "frame/edit_window.h"
#include "frame/toolbar_table.h"
#include "text/keyed_collection.h"

namespace kelvor {

/// Numbers of the frame's status panels.
namespace panel {
constexpr int saved = 1;
constexpr int position = 5;
constexpr int characters = 6;
constexpr int notice = 7;  ///< what goes on failing and stops nobody; mostly empty
}  // namespace panel

/// The main frame: its controls and its state. What the commands do stands in the units of their subjects.
class MDIForm1 : public Form {
public:
    MDIForm1();

    PictureBox Picture1{*this, "Picture1"};  ///< the row of the four insert lists
    ComboBox Combo1{*this, "Combo1"};        ///< headings
    ComboBox Combo2{*this, "Combo2"};        ///< font names
    ComboBox Combo3{*this, "Combo3"};        ///< font sizes
    ComboBox Combo4{*this, "Combo4"};        ///< the user's strings
    PictureBox Picture2{*this, "Picture2"};  ///< the row of the document tabs
    TabStrip TabStrip1{*this, "TabStrip1"};
    StatusBar StatusBar1;
    ToolBar Toolbar1{*this, "Toolbar1", mainButtons()};      ///< main
    ToolBar Toolbar2{*this, "Toolbar2", helperButtons()};    ///< helpers
    ToolBar Toolbar3{*this, "Toolbar3", formButtons()};      ///< form elements
    ToolBar Toolbar4{*this, "Toolbar4", viewModeButtons()};  ///< view, in the Document Assistant
    SideBar CoolBar1{*this, "CoolBar1"};                     ///< Quick File
    SideBar CoolBar2{*this, "CoolBar2"};                     ///< Document Assistant
    DriveList Drive1{*this, "Drive1"};
    DirectoryList Dir1{*this, "Dir1"};
    FileList File1{*this, "File1"};
    ComboBox Combo5{*this, "Combo5", ComboBox::Style::editable};  ///< the pattern of File1
    PictureBox picDisk{*this, "picDisk"};                         ///< the bar that tells what has become of a file
    Label lblDisk{*this, "lblDisk"};
    Button cmdDiskReload{*this, "cmdDiskReload", "&Reload"};
    Button cmdDiskCompare{*this, "cmdDiskCompare", "&Compare"};
    Button cmdDiskKeep{*this, "cmdDiskKeep", "&Keep Mine"};
    CommonDialog CommonD1;
    MdiArea mdi;

    /// The menu row of that name; a name that is not there is an error 35601.
    MenuItem& menu(const std::string& name) const;
    /// All menu rows, each parent before its rows.
    const std::vector<std::unique_ptr<MenuItem>>& menus() const { return menus_; }

    /// The document window in front; without one an error 91.
    EditWindow& activeForm() const;

    /// Document windows loaded in this run; never lowered, so that it gives each its number.
    int fileCount = 0;
    /// The number that the next untitled document takes.
    int untitledCount = 1;
    void increaseUntitledCount() { ++untitledCount; }

    /// Paths of the recent files, the oldest first, each its own key.
    KeyedCollection<std::string> recentFiles;

private:
    std::vector<std::unique_ptr<MenuItem>> menus_;
    std::unordered_map<std::string, MenuItem*> menusByName_;
};

/// The one frame, made on first use.
MDIForm1& mainForm();
/// Ends the frame; the next use makes a new one.
void releaseMainForm();

/// Keeps the frame from taking commands while it lives.
class DisabledFrame : DisabledForm {
public:
    DisabledFrame() : DisabledForm(mainForm()) {}
};

}  // namespace kelvor
