#pragma once

#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <QDBusConnection>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace tervale {

/// A session of the test's own: a message bus, a runtime folder, a configuration folder.
class PrivateBus {
  public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    QString address() const { return busAddress; }
    /// Ends the bus, and starts another one at the same address.
    void stop() { daemon.reset(); }
    void start();
    /// Starts it so that nobody finds it before `first` has used a connection to it.
    void start(const std::function<void(const QDBusConnection&)>& first);
    /// To the bus.
    void send(int signal) const { daemon->send(signal); }
    /// The file of its socket.
    std::filesystem::path busSocket() const { return folder.path / "bus.socket"; }
    /// A connection of its own to the bus.
    QDBusConnection connect();
    /// Returns once the bus has done what it was told through the connection.
    static void settle(const QDBusConnection& connection);
    /// For programs of this session.
    QProcessEnvironment environment() const;
    std::filesystem::path runtimeFolder() const { return folder.path / "run"; }
    std::filesystem::path socket() const {
        return runtimeFolder() / "tervale" / "controller.socket";
    }

    /// `dbus-monitor`, ready to print the notifications on the bus.
    std::unique_ptr<ChildProcess> monitor() const;
    /// Has `gdbus` emit the signal, with arguments in its notation.
    bool emitWithTool(const QStringList& arguments) const;

  private:
    void serve(const QString& address);
    QDBusConnection connectTo(const QString& address);

    TemporaryFolder folder;
    QString busAddress;
    std::optional<ChildProcess> daemon;
    QStringList connections;
};

} // namespace tervale
