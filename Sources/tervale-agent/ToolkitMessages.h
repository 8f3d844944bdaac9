#pragma once

#include "Profiles/Clock.h"
#include "tervale-agent/AgentLog.h"

#include <QtGlobal>

namespace tervale {

/// While it lives, what the toolkit has to tell goes to a log of the agent's form. The toolkit
/// itself would wait for whoever reads standard error. One at a time.
class ToolkitMessages {
  public:
    /// Nobody else writes to `log`, which outlives the object.
    explicit ToolkitMessages(AgentLog& log);
    ~ToolkitMessages();
    ToolkitMessages(const ToolkitMessages&) = delete;
    ToolkitMessages& operator=(const ToolkitMessages&) = delete;

  private:
    /// From any of the toolkit's threads.
    static void receive(QtMsgType type, const QMessageLogContext& context, const QString& message);
    void write(QtMsgType type, const QString& message);

    AgentLog& log;
    SystemClock clock;
    QtMessageHandler before;
};

} // namespace tervale
