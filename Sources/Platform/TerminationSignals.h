#pragma once

#include "Platform/FileDescriptor.h"

#include <QSocketNotifier>

#include <chrono>
#include <functional>
#include <memory>

namespace tervale {

/// Turns the signals that ask a process to end (SIGINT, SIGTERM, SIGHUP) into calls of a handler
/// from the event loop. One object a process, made on the main thread.
class TerminationSignals {
  public:
    explicit TerminationSignals(std::function<void()> handler);
    /// The signals end the process again by themselves.
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// For who keeps the event loop waiting: waits so long for a signal whose handler has not been
    /// called. Whether there is one; the event loop still calls the handler.
    bool arriveWithin(std::chrono::milliseconds time) const;

  private:
    FileDescriptor readingEnd;
    FileDescriptor writingEnd;
    std::unique_ptr<QSocketNotifier> arrival;
};

} // namespace tervale
