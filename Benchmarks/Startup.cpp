// Opens the window on the simulated Mac as the program itself does, and tells how long it took from
// the start of the process to the first paint, and how much memory is resident then.
//
// Usage: tervale-startup NANOSECONDS, the time at which the process was started, since 1970.

#include "TervaleWindow/Shell/SystemAppearance.h"
#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

using namespace tervale;

namespace {

double millisecondsSince(long long nanoseconds) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now - std::chrono::nanoseconds(nanoseconds))
        .count();
}

/// The second figure of this file is the number of resident pages, where the system has it.
double residentMegabytes() {
    constexpr double pageBytes = 4096;
    long long all = 0;
    long long resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return static_cast<double>(resident) * pageBytes / 1e6;
}

/// Ends the application right after the first paint of what it watches.
class FirstPaint final : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::fputs("usage: tervale-startup NANOSECONDS\n", stderr);
        return 2;
    }
    const long long started = std::strtoll(arguments[1], nullptr, 10);
    int count = 1;
    QApplication application(count, arguments);
    useSystemAppearance(application);
    TervaleWindowApp app(makeMachine(machineChoice::Simulated{}));
    app.launch(Pane::overview);
    FirstPaint watch;
    app.window().installEventFilter(&watch);
    QApplication::exec();
    std::printf("start to first paint %.0f ms, %.0f MB resident\n", millisecondsSince(started),
                residentMegabytes());
    return 0;
}
