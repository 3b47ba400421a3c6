// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "qt/form_link.h"

class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QStatusBar;
class QTabBar;
class QTabWidget;
class QTableView;
class QToolBar;
class QTreeView;
class QWidget;

namespace kelvor {
class Button;
class CheckBox;
class CheckList;
class ComboBox;
class DirectoryList;
class DriveList;
class EditControl;
class FileList;
class Frame;
class Grid;
class Label;
class ListBox;
class ListView;
class MonthView;
class OptionButton;
class PictureBox;
class ProgressBar;
class ReportView;
class ScrollBar;
class SideBar;
class StatusBar;
class TabControl;
class TabStrip;
class TextBox;
class ToolBar;
class UpDown;
class WebBrowser;
}  // namespace kelvor

namespace kelvor::qt {

void bindButton(Button& button, QPushButton& widget, FormLink& link);
void bindCheckBox(CheckBox& box, QCheckBox& widget, FormLink& link);
void bindCheckList(CheckList& list, QListView& widget, FormLink& link);
void bindComboBox(ComboBox& box, QComboBox& widget, FormLink& link);
void bindDirectoryList(DirectoryList& list, QListView& widget, FormLink& link);
void bindDriveList(DriveList& drives, QComboBox& widget, FormLink& link);
/// Puts the control's own widget into `place`, which it fills.
void bindEditControl(EditControl& edit, QWidget& place, FormLink& link);
void bindFileList(FileList& files, QListView& widget, FormLink& link);
void bindFrame(Frame& frame, QGroupBox& widget, FormLink& link);
void bindGrid(Grid& grid, QTableView& widget, FormLink& link);
void bindLabel(Label& label, QLabel& widget, FormLink& link);
void bindListBox(ListBox& list, QListView& widget, FormLink& link);
void bindListView(ListView& list, QListView& widget, FormLink& link);
void bindMonthView(MonthView& view, QCalendarWidget& widget, FormLink& link);
void bindOptionButton(OptionButton& option, QRadioButton& widget, FormLink& link);
void bindPictureBox(PictureBox& box, QWidget& widget, FormLink& link);
void bindProgressBar(ProgressBar& bar, QProgressBar& widget, FormLink& link);
void bindReportView(ReportView& list, QTreeView& widget, FormLink& link);
void bindScrollBar(ScrollBar& bar, QScrollBar& widget, FormLink& link);
/// Puts a header with the widget's window title above what the layout has in it. The widget stands in a QSplitter.
void bindSideBar(SideBar& bar, QWidget& widget, FormLink& link);
/// Makes the panels, which the layout does not have.
void bindStatusBar(StatusBar& bar, QStatusBar& widget, FormLink& link);
/// Throws Error 35601 when the layout has not one page for each tab.
void bindTabControl(TabControl& tabs, QTabWidget& widget, FormLink& link);
void bindTabStrip(TabStrip& strip, QTabBar& widget, FormLink& link);
void bindTextBox(TextBox& box, QLineEdit& widget, FormLink& link);
/// Makes the buttons, which the layout does not have.
void bindToolBar(ToolBar& bar, QToolBar& widget, FormLink& link);
/// Puts two arrows into `place`, which stands beside the field. The field is found by its name.
void bindUpDown(UpDown& upDown, QWidget& place, FormLink& link);
void bindWebBrowser(WebBrowser& browser, QWidget& place, FormLink& link);

/// Makes the menu bar, or nothing when the form has no menus. Each menu is a QMenu with the name of its control.
void bindMenus(FormLink& link);

}  // namespace kelvor::qt
