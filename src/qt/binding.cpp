// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/binding.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <QToolBar>
#include <QTreeView>
#include <set>

#include "base/error.h"
#include "controls/button.h"
#include "controls/check_box.h"
#include "controls/check_list.h"
#include "controls/combo_box.h"
#include "controls/directory_list.h"
#include "controls/drive_list.h"
#include "controls/edit_control.h"
#include "controls/file_list.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/menu_item.h"
#include "controls/month_view.h"
#include "controls/option_group.h"
#include "controls/picture_box.h"
#include "controls/progress_bar.h"
#include "controls/report_view.h"
#include "controls/scroll_bar.h"
#include "controls/side_bar.h"
#include "controls/status_bar.h"
#include "controls/tab_control.h"
#include "controls/tab_strip.h"
#include "controls/text_box.h"
#include "controls/tool_bar.h"
#include "controls/up_down.h"
#include "controls/web_browser.h"
#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// What a binder makes of a control and the widget of its name, which may be missing (nullptr).
struct Outcome {
    bool ofThisKind = false;
    /// The widget's class that the control asks for, when it is not given.
    const char* wanted = nullptr;
};

template <typename Model, typename Widget, void (*bind)(Model&, Widget&, FormLink&)>
Outcome tryBind(Control& control, QWidget* found, FormLink& link) {
    auto* model = dynamic_cast<Model*>(&control);
    if (!model) return {};
    auto* widget = qobject_cast<Widget*>(found);
    if (!widget) return {.ofThisKind = true, .wanted = Widget::staticMetaObject.className()};
    bind(*model, *widget, link);
    return {.ofThisKind = true};
}

using Binder = Outcome (*)(Control&, QWidget*, FormLink&);

/// One row for each kind of control.
constexpr Binder binders[] = {
    tryBind<Button, QPushButton, bindButton>,
    tryBind<CheckBox, QCheckBox, bindCheckBox>,
    tryBind<CheckList, QListView, bindCheckList>,
    tryBind<ComboBox, QComboBox, bindComboBox>,
    tryBind<DirectoryList, QListView, bindDirectoryList>,
    tryBind<DriveList, QComboBox, bindDriveList>,
    tryBind<EditControl, QWidget, bindEditControl>,
    tryBind<FileList, QListView, bindFileList>,
    tryBind<Frame, QGroupBox, bindFrame>,
    tryBind<Grid, QTableView, bindGrid>,
    tryBind<Label, QLabel, bindLabel>,
    tryBind<ListView, QListView, bindListView>,
    tryBind<ListBox, QListView, bindListBox>,
    tryBind<MonthView, QCalendarWidget, bindMonthView>,
    tryBind<OptionButton, QRadioButton, bindOptionButton>,
    tryBind<PictureBox, QWidget, bindPictureBox>,
    tryBind<ProgressBar, QProgressBar, bindProgressBar>,
    tryBind<ReportView, QTreeView, bindReportView>,
    tryBind<ScrollBar, QScrollBar, bindScrollBar>,
    tryBind<SideBar, QWidget, bindSideBar>,
    tryBind<StatusBar, QStatusBar, bindStatusBar>,
    tryBind<TabControl, QTabWidget, bindTabControl>,
    tryBind<TabStrip, QTabBar, bindTabStrip>,
    tryBind<TextBox, QLineEdit, bindTextBox>,
    tryBind<ToolBar, QToolBar, bindToolBar>,
    tryBind<UpDown, QWidget, bindUpDown>,
    tryBind<WebBrowser, QWidget, bindWebBrowser>,
};

std::string classOf(const QWidget& widget) {
    return widget.metaObject()->className();
}

/// Binds a control by the row of its kind.
/// @return the problem, or ""
std::string bindControl(Control& control, QWidget* widget, FormLink& link) {
    const std::string where = link.form().name() + ": " + control.name();
    try {
        for (const Binder binder : binders) {
            const Outcome outcome = binder(control, widget, link);
            if (!outcome.ofThisKind) continue;
            if (!outcome.wanted) return {};
            if (!widget) return where + " is missing in the layout; wanted is a " + outcome.wanted;
            return where + " should be a " + outcome.wanted + " and is a " + classOf(*widget);
        }
    } catch (const Error& error) {
        return where + " " + error.description();
    }
    return where + " is of a kind that no widget follows";
}

template <typename... Classes>
bool isOneOf(const QWidget& widget) {
    return (qobject_cast<const Classes*>(&widget) || ...);
}

/// Whether the user can do something with the widget.
bool takesInput(const QWidget& widget) {
    return isOneOf<QAbstractButton, QAbstractItemView, QAbstractSlider, QAbstractSpinBox, QCalendarWidget, QComboBox,
                   QDialogButtonBox, QLineEdit, QPlainTextEdit, QTabBar, QTabWidget, QTextEdit>(widget);
}

/// Whether the widgets inside it are its own business.
bool isClosed(const QWidget& widget) {
    const bool scrolls = isOneOf<QAbstractScrollArea>(widget) && !isOneOf<QScrollArea>(widget);
    if (isOneOf<QTabWidget>(widget)) return false;
    return scrolls || takesInput(widget) || isOneOf<QMenuBar, QStatusBar, QToolBar>(widget);
}

/// Finds the input widgets whose names are not among `names`. Parts that the library makes itself have
/// no names, or such as begin with "qt_".
void findLeftovers(const QWidget& parent, const std::string& form, const std::set<std::string>& names,
                   std::vector<std::string>& problems) {
    for (const QObject* child : parent.children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (!widget || widget->isWindow()) continue;
        const std::string name = fromQt(widget->objectName());
        const bool known = name.empty() || name.starts_with("qt_") || names.contains(name);
        if (!known && takesInput(*widget)) {
            std::string problem = form;
            problem.append(": ").append(name).append(", a ").append(classOf(*widget));
            problems.push_back(problem.append(", belongs to no control"));
        }
        if (!isClosed(*widget)) findLeftovers(*widget, form, names, problems);
    }
}

}  // namespace

std::vector<std::string> bindForm(Form& form, QWidget& window) {
    auto& link = *new FormLink(form, window);
    std::vector<std::string> problems;
    std::set<std::string> names;
    for (Control* control : form.controls()) {
        if (dynamic_cast<MenuItem*>(control)) continue;
        names.insert(control->name());
        const std::string problem = bindControl(*control, window.findChild<QWidget*>(toQt(control->name())), link);
        if (!problem.empty()) problems.push_back(problem);
    }
    findLeftovers(window, form.name(), names, problems);
    bindMenus(link);
    return problems;
}

void unbindForm(Form& form, QWidget& window) {
    form.follow({});
    for (Control* control : form.controls()) control->follow({});
    delete FormLink::of(window);
}

}  // namespace kelvor::qt
