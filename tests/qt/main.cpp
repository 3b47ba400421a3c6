// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "qt/application.h"

/// The tests open windows; unless told otherwise these show nowhere.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const kelvor::qt::Application application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
