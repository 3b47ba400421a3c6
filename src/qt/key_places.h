// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace kelvor::qt {

/// Gives letters with Ctrl or Alt, and those pressed in a menu, their US meaning by the key's place while the
/// keyboard's layout has no Latin letters: shortcuts, access keys and the keys of the fields. Where the layout cannot
/// be asked for, the letters of another script tell.
class KeyPlaces : public QObject {
    Q_OBJECT

public:
    /// Sees the keys of all windows of the application, whose object must be there.
    explicit KeyPlaces(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kelvor::qt
