// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/status_bar.h"

#include <QLabel>
#include <QStatusBar>
#include <algorithm>

#include "qt/binders/binders.h"
#include "qt/convert.h"
#include "qt/key_states.h"
#include "qt/spoken_notice.h"

namespace kelvor::qt {

namespace {

using Panel = StatusBar::Panel;
using Kind = StatusBar::PanelKind;

/// In characters; longer addresses are elided so that they do not widen the window.
constexpr int longestSimpleText = 120;

/// A panel that grows with its text and never shrinks, so that the others stay where they are; empty it takes no room.
class PanelLabel : public QLabel {
public:
    explicit PanelLabel(QWidget* parent) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setContentsMargins(6, 0, 6, 0);
    }

    /// Whether there was another text.
    bool show(const QString& text) {
        setVisible(!text.isEmpty());
        if (text == this->text()) return false;
        setText(text);
        setMinimumWidth(std::max(minimumWidth(), sizeHint().width()));
        return true;
    }
};

bool isOfKey(const Panel& panel) {
    return panel.kind != Kind::text && panel.kind != Kind::notice;
}

/// A notice that appears says so by itself, and nothing of another text in its place.
void showText(PanelLabel& label, const Panel& panel) {
    const bool wasShown = label.isVisible();
    if (label.show(toQt(panel.text)) && wasShown && panel.kind == Kind::notice) sayAgain(label);
}

/// A lock key's panel is dim while the lock is off; the insert panel names the mode that is on.
void showKey(PanelLabel& label, const Panel& panel) {
    const KeyStates& states = keyStates();
    const bool overtype = panel.kind == Kind::insert && states.overtype();
    label.show(overtype ? QStringLiteral("OVR") : toQt(panel.text));
    const bool lit = panel.kind == Kind::capsLock  ? states.capsLock()
                     : panel.kind == Kind::numLock ? states.numLock()
                                                   : true;
    label.setEnabled(lit);
}

void bindPanels(StatusBar& bar, QStatusBar& widget, FormLink& link) {
    std::vector<PanelLabel*> labels;
    for (const Panel& panel : bar.panels()) {
        auto* label = new PanelLabel(&widget);
        // The first panel takes what the others leave.
        widget.addWidget(label, labels.empty() ? 1 : 0);
        if (isOfKey(panel)) label->show(QStringLiteral("OVR"));
        if (panel.kind == Kind::notice) makeNotice(*label);
        labels.push_back(label);
    }
    const auto showAll = [&bar, labels](bool keysOnly) {
        for (std::size_t i = 0; i < labels.size(); ++i) {
            const Panel& panel = bar.panels()[i];
            if (isOfKey(panel)) {
                showKey(*labels[i], panel);
            } else if (!keysOnly) {
                showText(*labels[i], panel);
            }
        }
    };
    link.follow(bar, widget, [showAll](Aspect) { showAll(false); });
    QObject::connect(&keyStates(), &KeyStates::changed, &link, [showAll] { showAll(true); });
}

}  // namespace

void bindStatusBar(StatusBar& bar, QStatusBar& widget, FormLink& link) {
    if (!bar.panels().empty()) return bindPanels(bar, widget, link);
    auto* label = new QLabel(&widget);
    label->setTextFormat(Qt::PlainText);
    widget.addWidget(label, 1);
    link.follow(bar, widget, [&bar, label](Aspect) {
        label->setText(elidedInTheMiddle(toQt(bar.simpleText()), longestSimpleText));
        label->setToolTip(toolTipText(bar.simpleText()));
    });
}

}  // namespace kelvor::qt
