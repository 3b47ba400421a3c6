// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kelvor {

/// A path as it stands in an address: "/", letters, digits and -._~ as they are, each other byte as "%" and two
/// digits. Paths need not be text.
std::string percentEncoded(std::string_view path);

}  // namespace kelvor
