#pragma once

#include "Platform/FileDescriptor.h"
#include "SMC/IORegistry.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tervale {

/// Serves a registry to other processes through a socket, which only this user can connect to. What
/// a client has opened is closed when it hangs up; one that sends rubbish, or does not take its
/// replies, is hung up on. When there are as many as can be, one that has been silent for long
/// gives way to a new one. Served from the event loop of the thread that made the object.
class SocketServer final : public QObject {
    Q_OBJECT

  public:
    /// Why there is no server, in one line.
    struct Refused : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    using TimePoint = std::chrono::steady_clock::time_point;
    using Now = std::function<TimePoint()>;

    /// More clients than this wait until others leave or give way.
    static constexpr std::size_t mostClients = 64;
    /// A client that asked for nothing this long gives way. Windows ask every second.
    static constexpr std::chrono::seconds longestSilence{10};

    /// Throws `Refused`: above all where another process serves already. A socket that nobody
    /// serves any more is replaced; any other file is left alone. `registry` outlives the server.
    SocketServer(IORegistry& registry, const std::filesystem::path& path,
                 Now now = &std::chrono::steady_clock::now);
    ~SocketServer() override;

    std::size_t clientCount() const { return clients.size(); }

  private:
    class Client;
    /// Which file it is, whatever its name.
    struct FileIdentity {
        dev_t device = 0;
        ino_t number = 0;
        bool operator==(const FileIdentity&) const = default;
    };

    static FileIdentity identityOf(const std::filesystem::path& path);

    void listen();
    void acceptClients();
    void remove(const Client* client);
    /// Hangs up on the client that has been silent longest, if that is long enough.
    bool makeRoom();

    IORegistry& registry;
    std::filesystem::path path;
    Now now;
    FileDescriptor socket;
    FileIdentity file;
    std::unique_ptr<QSocketNotifier> arrivals;
    std::vector<std::unique_ptr<Client>> clients;
    /// Looks for room again while there are arrivals and none.
    QTimer anotherLook;
};

} // namespace tervale
