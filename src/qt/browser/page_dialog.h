// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;
class QWidget;

namespace kelvor::qt {

struct PageAnswer {
    bool accepted = false;
    bool silence = false;  ///< the page is to show no more dialogs
};

/// Shows a message or question of a page's script, and lets the user stop all further ones.
/// @param text       of the page; shown as plain text, long ones cut
/// @param canRefuse  whether there is a Cancel beside the OK
/// @param entry      nullptr when no text is asked for; holds the proposal, and the user's text after OK
PageAnswer askForPage(QWidget& view, const QString& text, bool canRefuse, QString* entry);

}  // namespace kelvor::qt
