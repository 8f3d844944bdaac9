#include "FirstPaint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <limits>
#include <string>

namespace tervale {

namespace {

double millisecondsSince(long long nanoseconds) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now - std::chrono::nanoseconds(nanoseconds))
        .count();
}

double processorMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Of this process, in MiB, where the system has it: the kernel counts in kB of 1024 bytes.
void tellMemory(const std::string& member, const char* meaning) {
    std::ifstream lines("/proc/self/smaps_rollup");
    double kibibytes = 0;
    for (std::string name; lines >> name;) {
        if (name == member && lines >> kibibytes)
            std::printf(", %.1f MiB %s", kibibytes / 1024, meaning);
        lines.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
}

} // namespace

FirstPaint::FirstPaint(QWidget& window, long long start) : started(start) {
    window.installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject* watched, QEvent* event) {
    // The widgets within are painted after it, before the event loop goes on.
    if (event->type() == QEvent::Paint)
        QTimer::singleShot(0, this, &FirstPaint::tell);
    return QObject::eventFilter(watched, event);
}

void FirstPaint::tell() const {
    std::printf("start to first paint %.0f ms, %.1f ms of processor", millisecondsSince(started),
                processorMilliseconds());
    tellMemory("Rss:", "resident");
    tellMemory("Pss:", "proportional");
    std::puts("");
    std::fflush(stdout);
    // What it takes to end is none of it.
    std::_Exit(EXIT_SUCCESS);
}

} // namespace tervale
