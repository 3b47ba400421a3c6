// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor {

/// Takes what the units share back to what it was before the start, each by its owner: the managers end, every form
/// but the frame unloads, the settings are closed. The frame's end, which a start may follow.
void resetSharedState();

}  // namespace kelvor
