// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/own_network.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(OwnNetwork, IsThisMachineAndWhatThePublicNetworkCannotHold) {
    for (const char* own : {"localhost", "shop.localhost", "127.0.0.1", "127.255.0.9", "10.1.2.3", "172.16.0.1",
                            "172.31.255.255", "192.168.1.1", "169.254.1.1", "::1", "fd12::1", "fe80::1", "intranet",
                            "nas.local", "my.shop.test", "x.home.arpa"})
        EXPECT_TRUE(isOwnNetwork(own)) << own;
    for (const char* foreign :
         {"", "example.com", "8.8.8.8", "126.255.255.255", "128.0.0.1", "172.15.0.1", "172.32.0.1", "192.169.0.1",
          "11.0.0.1", "2001:db8::1", "::2", "fec0::1", "localhost.example.com", "10.0.0.1.example.com",
          "notlocal.example", "mylocal.net", "::ffff:8.8.8.8"})
        EXPECT_FALSE(isOwnNetwork(foreign)) << foreign;
}

}  // namespace
}  // namespace kelvor
