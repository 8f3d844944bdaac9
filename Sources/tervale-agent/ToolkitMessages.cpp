#include "tervale-agent/ToolkitMessages.h"

#include <QString>

#include <chrono>
#include <mutex>

namespace tervale {

namespace {

using Level = AgentLog::Level;

std::mutex mutex;
/// Whose turn it is; the toolkit's handler is a plain function.
ToolkitMessages* current = nullptr;

Level levelOf(QtMsgType type) {
    switch (type) {
    case QtDebugMsg:
        return Level::debug;
    case QtInfoMsg:
        return Level::info;
    case QtWarningMsg:
        return Level::warning;
    case QtCriticalMsg:
    case QtFatalMsg:
        break;
    }
    return Level::error;
}

} // namespace

ToolkitMessages::ToolkitMessages(AgentLog& agentLog) : log(agentLog) {
    const std::lock_guard lock(mutex);
    current = this;
    before = qInstallMessageHandler(&ToolkitMessages::receive);
}

ToolkitMessages::~ToolkitMessages() {
    const std::lock_guard lock(mutex);
    qInstallMessageHandler(before);
    current = nullptr;
}

void ToolkitMessages::receive(QtMsgType type, const QMessageLogContext& /*context*/,
                              const QString& message) {
    const std::lock_guard lock(mutex);
    if (current)
        current->write(type, message);
}

void ToolkitMessages::write(QtMsgType type, const QString& message) {
    log.write(levelOf(type), message.toStdString(), clock.steady());
    // The toolkit ends the process right after this.
    if (type == QtFatalMsg)
        log.drain(LineWriter::lastPatience);
}

} // namespace tervale
