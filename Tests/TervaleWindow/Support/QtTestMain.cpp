#include <QApplication>

#include <gtest/gtest.h>

// The application object must exist before any widget; every window test shares this one.
int main(int argumentCount, char** arguments) {
    // Listing and running the tests must not need a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argumentCount, arguments);
    QApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
