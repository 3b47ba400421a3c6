#include <gtest/gtest.h>

#include <QApplication>

/// The tests open windows; unless told otherwise these show nowhere.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    Q_INIT_RESOURCE(icons);
    return RUN_ALL_TESTS();
}
