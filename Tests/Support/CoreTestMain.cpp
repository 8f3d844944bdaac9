#include <QCoreApplication>

#include <gtest/gtest.h>

#include <clocale>

// Whoever waits for another process needs an event loop.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    const QCoreApplication application(argumentCount, arguments);
    // As the programs do: the toolkit takes over the user's locale.
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
