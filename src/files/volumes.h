// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor {

/// The mount points that a person uses, "/" first, then by name: file systems on disks, sticks and servers,
/// without those that the kernel or a container keeps for itself.
std::vector<std::string> mountedVolumes();

/// The same from the text of a mountinfo file of the kernel.
std::vector<std::string> volumesIn(std::string_view mountInfo);

/// The one of `volumes` that holds `path`: the longest that the path begins with; "" when there is none.
std::string volumeOf(std::string_view path, const std::vector<std::string>& volumes);

}  // namespace kelvor
