// A window of the same toolkit and size with nothing in it: the floor under what the program's own
// costs.
//
// Usage: tervale-bare-window NANOSECONDS, the time at which the process was started, since 1970.

#include "FirstPaint.h"

#include <QApplication>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

using namespace tervale;

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::fputs("usage: tervale-bare-window NANOSECONDS\n", stderr);
        return 2;
    }
    const long long started = std::strtoll(arguments[1], nullptr, 10);
    int count = 1;
    const QApplication application(count, arguments);
    QWidget window;
    window.resize(980, 680);
    window.show();
    const FirstPaint watch(window, started);
    return QApplication::exec();
}
