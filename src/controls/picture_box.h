// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control.h"

namespace kelvor {

/// A container whose only say here is whether it is seen.
class PictureBox : public Control {
public:
    using Control::Control;
};

}  // namespace kelvor
