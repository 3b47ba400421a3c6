// SPDX-License-Identifier: GPL-3.0-or-later
#include <QButtonGroup>
#include <QRadioButton>
#include <QSignalBlocker>
#include <vector>

#include "controls/option_group.h"
#include "qt/binders/binders.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// The buttons of one option group, which the arrow keys go through. The group's own choice is never kept: each
/// button shows what its control says.
class Options : public QButtonGroup {
public:
    using QButtonGroup::QButtonGroup;

    void add(const OptionButton& option, QRadioButton& widget) {
        addButton(&widget);
        pairs_.push_back({&option, &widget});
    }

    void show() {
        // An exclusive group does not let go of its one checked button.
        setExclusive(false);
        for (const auto& [option, widget] : pairs_) {
            const QSignalBlocker blocker(widget);
            widget->setChecked(option->value());
        }
        setExclusive(true);
    }

private:
    struct Pair {
        const OptionButton* option;
        QRadioButton* widget;
    };
    std::vector<Pair> pairs_;
};

/// The group of "name_0", "name_1" and so on; made with the first of them.
Options& optionsOf(const OptionButton& option, FormLink& link) {
    const QString name = toQt(option.name()).section(QLatin1Char('_'), 0, -2);
    for (QObject* child : link.children())
        if (auto* options = dynamic_cast<Options*>(child); options && options->objectName() == name) return *options;
    auto* options = new Options(&link);
    options->setObjectName(name);
    return *options;
}

}  // namespace

void bindOptionButton(OptionButton& option, QRadioButton& widget, FormLink& link) {
    widget.setText(toQt(option.caption()));
    Options& options = optionsOf(option, link);
    options.add(option, widget);
    link.follow(option, widget, [&options](Aspect) { options.show(); });
    QObject::connect(&widget, &QRadioButton::toggled, &link, [&option, &link, &options](bool on) {
        if (on) link.perform([&option] { option.click(); }, [&options] { options.show(); });
    });
}

}  // namespace kelvor::qt
