// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/name_lookups.h"

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netdb.h>

#include <atomic>

namespace kelvor::qt {

namespace {

std::atomic<bool> closed = false;
std::atomic<int> permits = 0;

bool looksUpNames() {
    return !closed || permits > 0;
}

/// Whether there is nothing to ask anybody: no host at all, which is this machine, or an address in numbers.
bool isNoName(const char* host, const addrinfo* hints) {
    in6_addr room{};
    return !host || (hints && (hints->ai_flags & AI_NUMERICHOST)) || inet_pton(AF_INET, host, &room) == 1 ||
           inet_pton(AF_INET6, host, &room) == 1;
}

}  // namespace

void closeNameLookups() {
    closed = true;
}

NameLookupPermit::NameLookupPermit() {
    ++permits;
}

NameLookupPermit::~NameLookupPermit() {
    --permits;
}

}  // namespace kelvor::qt

/// Stands before the C library's function of that name for all libraries of the process, the web engine among them,
/// whose threads come here.
extern "C" int getaddrinfo(const char* host, const char* service, const addrinfo* hints, addrinfo** result) {
    using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"));
    const bool goesOn = kelvor::qt::isNoName(host, hints) || kelvor::qt::looksUpNames();
    return goesOn ? next(host, service, hints, result) : EAI_FAIL;
}
