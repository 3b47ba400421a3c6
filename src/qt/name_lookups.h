// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kelvor::qt {

/// From now on this process looks up the names of hosts only while a permit lives. Pages from the disk have the names
/// in their links looked up without asking for anything else, by a road that no request rule and no switch of the web
/// engine reaches; and nothing but that engine looks up names here. Addresses in numbers are none, and stay usable.
void closeNameLookups();

/// Held by each page that may use the network.
class NameLookupPermit {
public:
    NameLookupPermit();
    ~NameLookupPermit();
    NameLookupPermit(const NameLookupPermit&) = delete;
    NameLookupPermit& operator=(const NameLookupPermit&) = delete;
};

}  // namespace kelvor::qt
