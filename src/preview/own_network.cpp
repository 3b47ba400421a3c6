// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/own_network.h"

#include <arpa/inet.h>

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace kelvor {

namespace {

struct Network {
    std::uint32_t base;
    int bits;
};

/// This machine, the three private networks, and what a machine without a server gives itself.
constexpr Network privateNetworks[] = {
    {0x7f000000, 8}, {0x0a000000, 8}, {0xac100000, 12}, {0xc0a80000, 16}, {0xa9fe0000, 16}};

/// Top names that are kept out of the public network.
constexpr std::string_view privateEndings[] = {".localhost", ".local", ".test",     ".internal",
                                               ".lan",       ".home",  ".home.arpa"};

bool isPrivate(const in_addr& address) {
    const std::uint32_t number = ntohl(address.s_addr);
    return std::ranges::any_of(privateNetworks,
                               [&](const Network& one) { return (number ^ one.base) >> (32 - one.bits) == 0; });
}

bool isPrivate(const in6_addr& address) {
    const auto& bytes = address.s6_addr;
    const bool uniqueLocal = (bytes[0] & 0xfe) == 0xfc;
    const bool linkLocal = bytes[0] == 0xfe && (bytes[1] & 0xc0) == 0x80;
    return uniqueLocal || linkLocal || IN6_IS_ADDR_LOOPBACK(&address);
}

}  // namespace

bool isOwnNetwork(const std::string& host) {
    in_addr four{};
    if (inet_pton(AF_INET, host.c_str(), &four) == 1) return isPrivate(four);
    in6_addr six{};
    if (inet_pton(AF_INET6, host.c_str(), &six) == 1) return isPrivate(six);
    if (host.find_first_of(".:") == std::string::npos) return !host.empty();
    return std::ranges::any_of(privateEndings, [&](std::string_view ending) { return host.ends_with(ending); });
}

}  // namespace kelvor
