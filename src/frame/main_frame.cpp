// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/main_frame.h"

#include "base/error.h"
#include "frame/menu_table.h"

namespace kelvor {

namespace {

std::unique_ptr<MDIForm1>& instance() {
    static std::unique_ptr<MDIForm1> frame;
    return frame;
}

const std::vector<StatusBar::Panel> panels = {
    {StatusBar::PanelKind::text, "File Saved:"}, {StatusBar::PanelKind::capsLock, "CAPS"},
    {StatusBar::PanelKind::insert, "INS"},       {StatusBar::PanelKind::numLock, "NUM"},
    {StatusBar::PanelKind::text, "Line:"},       {StatusBar::PanelKind::text, "Character:"},
    {StatusBar::PanelKind::notice, ""},
};

}  // namespace

MDIForm1::MDIForm1() : Form("MDIForm1", "Kelvor", Kind::frame), StatusBar1(*this, "StatusBar1", panels) {
    for (const MenuRow& row : menuTable()) {
        MenuItem* parent = row.parent.empty() ? nullptr : &menu(std::string(row.parent));
        auto item = std::make_unique<MenuItem>(*this, std::string(row.name), parent);
        item->setCaption(std::string(row.caption));
        item->setShortcut(std::string(row.shortcut));
        item->setVisible(!row.isHidden);
        if (row.isPopup) item->makePopup();
        item->setIsName(row.isName);
        item->setEnabled(!row.isDisabled);
        item->setChecked(row.isChecked);
        if (!row.name.empty()) menusByName_.emplace(row.name, item.get());
        menus_.push_back(std::move(item));
    }
    Combo2.setSorted(true);
    Toolbar3.setVisible(false);
    picDisk.setVisible(false);
    lblDisk.setNotice(true);
    Toolbar4.setValue("Source", true);
    // The design's one tab, which the start takes away.
    TabStrip1.add("placeholder", "");
}

MenuItem& MDIForm1::menu(const std::string& name) const {
    const auto found = menusByName_.find(name);
    if (found == menusByName_.end()) throw Error(error_number::elementNotFound, "There is no menu " + name);
    return *found->second;
}

EditWindow& MDIForm1::activeForm() const {
    auto* window = dynamic_cast<EditWindow*>(mdi.activeForm());
    if (!window) throw objectNotSetError();
    return *window;
}

MDIForm1& mainForm() {
    if (!instance()) instance() = std::make_unique<MDIForm1>();
    return *instance();
}

void releaseMainForm() {
    instance().reset();
}

}  // namespace kelvor
