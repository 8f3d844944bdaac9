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
    // As the window's own program does. What people read is compared as the C locale writes it,
    // unless a test chooses another, whatever the locale of whoever runs it.
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale::c());
    tervale::wear(tervale::lookUnderTest());
    return RUN_ALL_TESTS();
}
