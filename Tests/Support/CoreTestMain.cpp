#include <QCoreApplication>

#include <gtest/gtest.h>

// Whoever waits for another process needs an event loop.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    const QCoreApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
