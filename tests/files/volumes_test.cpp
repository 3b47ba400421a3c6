// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/volumes.h"

#include <gtest/gtest.h>

namespace kelvor {
namespace {

TEST(Volumes, AreTheMountPointsThatPeopleUse) {
    const char* mountInfo =
        "22 1 8:1 / / rw,relatime - ext4 /dev/sda1 rw\n"
        "23 22 0:21 / /proc rw,nosuid - proc proc rw\n"
        "25 22 8:2 / /usr rw shared:3 - ext4 /dev/sda2 rw\n"
        "27 22 7:0 / /var ro - squashfs /dev/loop0 ro\n"
        "28 22 0:40 / /home rw - nfs4 server:/home rw\n"
        "29 22 8:3 / /not\\040there rw - vfat /dev/sdb1 rw\n"
        "junk\n";
    EXPECT_EQ(volumesIn(mountInfo), (std::vector<std::string>{"/", "/home", "/usr"}));
    const std::vector<std::string> volumes = {"/", "/home", "/home/media"};
    EXPECT_EQ(volumeOf("/home/me/x", volumes), "/home");
    EXPECT_EQ(volumeOf("/home/media", volumes), "/home/media");
    EXPECT_EQ(volumeOf("/homer", volumes), "/");
    EXPECT_EQ(volumeOf("C:\\web", volumes), "");
}

}  // namespace
}  // namespace kelvor
