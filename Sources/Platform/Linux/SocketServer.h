#pragma once

#include "Platform/Linux/FileDescriptor.h"
#include "SMC/IORegistry.h"

#include <QObject>
#include <QSocketNotifier>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tervale {

/// Serves a registry to other processes through a socket, which only this user can connect to. What
/// a client has opened is closed when it hangs up; one that sends rubbish, or does not take its
/// replies, is hung up on. Served from the event loop of the thread that made the object.
class SocketServer final : public QObject {
    Q_OBJECT

  public:
    /// Why there is no server, in one line.
    struct Refused : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// More clients than this wait until others leave.
    static constexpr std::size_t mostClients = 64;

    /// Throws `Refused`: above all where another process serves already. A socket that nobody
    /// serves any more is replaced; any other file is left alone. `registry` outlives the server.
    SocketServer(IORegistry& registry, const std::filesystem::path& path);
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

    IORegistry& registry;
    std::filesystem::path path;
    FileDescriptor socket;
    FileIdentity file;
    std::unique_ptr<QSocketNotifier> arrivals;
    std::vector<std::unique_ptr<Client>> clients;
};

} // namespace tervale
