#include "platform/qt/name_lookups.h"

#include <dlfcn.h>
#include <netdb.h>

#include <atomic>

namespace kelvor::qt {

namespace {

std::atomic<bool> closed = false;
std::atomic<int> permits = 0;

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

namespace {

bool looksUpNames() {
    return !closed || permits > 0;
}

}  // namespace

}  // namespace kelvor::qt

/// Stands before the C library's function of that name for all libraries of the process, the web engine among them,
/// whose threads come here.
extern "C" int getaddrinfo(const char* host, const char* service, const addrinfo* hints, addrinfo** result) {
    using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return kelvor::qt::looksUpNames() ? next(host, service, hints, result) : EAI_FAIL;
}
