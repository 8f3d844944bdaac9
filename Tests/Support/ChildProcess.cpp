#include "Support/ChildProcess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <sys/prctl.h>

namespace tervale {

namespace {
constexpr int patience = 120'000;
}

bool eventually(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(patience);
    // What no event tells of, such as a file that appears, is looked at now and then.
    QTimer look;
    look.start(std::chrono::milliseconds(10));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

ChildProcess::ChildProcess(const QString& program, const QStringList& arguments,
                           const QProcessEnvironment& environment) {
    process.setProcessEnvironment(environment);
    // A test that is ended from outside takes its processes with it.
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    process.waitForStarted(patience);
}

ChildProcess::~ChildProcess() {
    process.kill();
    process.waitForFinished(patience);
}

const QByteArray& ChildProcess::output() {
    return outputSoFar += process.readAllStandardOutput();
}

const QByteArray& ChildProcess::errors() {
    return errorsSoFar += process.readAllStandardError();
}

bool ChildProcess::says(const QByteArray& text) {
    return eventually([&] { return output().contains(text); });
}

void ChildProcess::send(int signal) const {
    if (runs())
        ::kill(static_cast<pid_t>(id()), signal);
}

bool ChildProcess::ends() {
    return eventually([this] { return process.state() == QProcess::NotRunning; });
}

int ChildProcess::status() const {
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace tervale
