#pragma once

#include "Platform/FileDescriptor.h"

#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tervale {

/// The name of the Unix socket in the first entry of a D-Bus address; one without a file begins
/// with a zero byte. Nothing for other ways to a bus.
std::optional<std::string> busSocket(std::string_view address);

/// Asks whether somebody answers at the socket of a bus, without having anyone wait: to connect to
/// a bus takes until it answers, and one that is halted never does. Main thread, whose event loop
/// it needs.
class BusProbe {
  public:
    static constexpr std::chrono::milliseconds patience{1000};

    /// `told` is called once, from the event loop, unless the object is gone before.
    BusProbe(const std::string& socketName, std::function<void(bool answers)> told);

  private:
    void receive();
    void tell(bool answers);

    std::function<void(bool)> handler;
    FileDescriptor socket;
    std::unique_ptr<QSocketNotifier> arrival;
    QTimer limit;
};

} // namespace tervale
