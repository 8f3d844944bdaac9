#include "TervaleWindow/Support/Look.h"

#include <QApplication>
#include <QLocale>

#include <gtest/gtest.h>

#include <clocale>

// The application object must exist before any widget; every window test shares this one.
int main(int argumentCount, char** arguments) {
    // Listing and running the tests must not need a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argumentCount, arguments);
    QApplication application(argumentCount, arguments);
    // As the window's own program does.
    std::setlocale(LC_NUMERIC, "C");
    // People read in the locale of whoever runs the tests, and from the side where it begins, as
    // they would in a translated window. A test that knows what they read chooses one (InLocale).
    QApplication::setLayoutDirection(QLocale().textDirection());
    tervale::wear(tervale::lookUnderTest());
    return RUN_ALL_TESTS();
}
