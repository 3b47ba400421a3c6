// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelvor {

/// Whether a host is this machine or stands in a private network, going by its address or name alone: nothing is
/// looked up, so a name counts only when the public network cannot have it.
/// @param host  lower case, an IPv6 address without its brackets
bool isOwnNetwork(const std::string& host);

}  // namespace kelvor
