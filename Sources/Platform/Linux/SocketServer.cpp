#include "Platform/Linux/SocketServer.h"

#include "Platform/Linux/ControllerSocket.h"
#include "Platform/RuntimeFolder.h"
#include "SMC/KernelStatus.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tervale {

using controllerSocket::Operation;
using controllerSocket::Reply;
using controllerSocket::Request;

namespace {

/// How often whoever waits is thought of.
constexpr std::chrono::milliseconds lookInterval{500};

constexpr auto socketType = SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK;

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

SocketServer::Refused refusedAt(const std::filesystem::path& path, const std::string& reason) {
    return SocketServer::Refused("Cannot serve on '" + path.string() + "': " + reason + ".");
}

SocketServer::Refused systemRefusal(const std::filesystem::path& path) {
    return refusedAt(path, std::strerror(errno));
}

/// Makes way for a new socket, or throws.
void removeStale(const std::filesystem::path& path, const sockaddr_un& address) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0)
        return;
    if (!S_ISSOCK(status.st_mode))
        throw refusedAt(path, "there is a file in its place");
    const FileDescriptor probe(::socket(AF_UNIX, socketType, 0));
    const bool connected = ::connect(probe.number(), generic(address), sizeof address) == 0;
    // Nobody listens, which is the only proof that nobody serves: a busy server says EAGAIN.
    if (connected || errno != ECONNREFUSED)
        throw refusedAt(path, "another process serves there");
    if (::unlink(path.c_str()) != 0)
        throw systemRefusal(path);
}

/// Whether a client waits to be accepted.
bool isAwaited(int socket) {
    pollfd waiting{socket, POLLIN, 0};
    return ::poll(&waiting, 1, 0) > 0;
}

std::string className(const IORegistry::Structure& structure) {
    const char* text = reinterpret_cast<const char*>(structure.data());
    return {text, ::strnlen(text, structure.size())};
}

} // namespace

/// One connection, and what it has opened.
class SocketServer::Client {
  public:
    Client(SocketServer& server, FileDescriptor accepted)
        : server(server),
          registry(server.registry),
          socket(std::move(accepted)),
          input(socket.number(), QSocketNotifier::Read),
          lastRequest(server.now()) {
        QObject::connect(&input, &QSocketNotifier::activated, &input, [this] { serve(); });
    }
    ~Client() {
        if (connection)
            registry.close(*connection);
        if (service)
            registry.release(*service);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// Who has opened nothing goes first.
    auto precedence() const { return std::pair(connection.has_value(), lastRequest); }
    bool isSilent() const { return server.now() - lastRequest >= longestSilence; }

  private:
    /// One request a turn of the event loop, so that no client keeps the others waiting. The last
    /// thing that happens here is that the client may be destroyed.
    void serve() {
        Request request;
        const ssize_t length = ::recv(socket.number(), &request, sizeof request, MSG_TRUNC);
        if (length < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        lastRequest = server.now();
        const auto reply =
            length == static_cast<ssize_t>(sizeof request) ? answer(request) : std::nullopt;
        // A client without room for a reply has sent on without reading any.
        if (!reply || ::send(socket.number(), &*reply, sizeof *reply, MSG_NOSIGNAL) !=
                          static_cast<ssize_t>(sizeof *reply))
            server.remove(this);
    }
    /// Empty if the packet is not a request.
    std::optional<Reply> answer(const Request& request) {
        if (request.unused != decltype(request.unused){})
            return std::nullopt;
        switch (request.operation) {
        case Operation::find:
            return find(request);
        case Operation::open:
            return open(request);
        case Operation::exchange:
            return exchange(request);
        }
        return std::nullopt;
    }
    std::optional<Reply> find(const Request& request) {
        if (searched)
            return std::nullopt;
        searched = true;
        service = registry.findService(className(request.structure));
        return Reply{service ? 0 : kernelStatus::notFound, {}};
    }
    std::optional<Reply> open(const Request& request) {
        if (!service || connection)
            return std::nullopt;
        IORegistry::Connection opened = 0;
        const IORegistry::Status status = registry.open(*service, request.number, opened);
        if (status == 0)
            connection = opened;
        return Reply{status, {}};
    }
    Reply exchange(const Request& request) {
        Reply reply;
        if (!connection)
            return {kernelStatus::notOpen, {}};
        reply.status =
            registry.callStruct(*connection, request.number, request.structure, reply.structure);
        return reply;
    }

    SocketServer& server;
    IORegistry& registry;
    FileDescriptor socket;
    QSocketNotifier input;
    TimePoint lastRequest;
    bool searched = false;
    std::optional<IORegistry::Service> service;
    std::optional<IORegistry::Connection> connection;
};

SocketServer::SocketServer(IORegistry& served, const std::filesystem::path& socketPath, Now clock)
    : registry(served),
      path(std::filesystem::absolute(socketPath)),
      now(std::move(clock)),
      socket(::socket(AF_UNIX, socketType, 0)) {
    if (!socket)
        throw systemRefusal(path);
    listen();
    file = identityOf(path);
    arrivals = std::make_unique<QSocketNotifier>(socket.number(), QSocketNotifier::Read);
    connect(arrivals.get(), &QSocketNotifier::activated, this, &SocketServer::acceptClients);
    anotherLook.setSingleShot(true);
    anotherLook.setInterval(lookInterval);
    connect(&anotherLook, &QTimer::timeout, this, &SocketServer::acceptClients);
}

SocketServer::~SocketServer() {
    if (identityOf(path) == file)
        ::unlink(path.c_str());
}

SocketServer::FileIdentity SocketServer::identityOf(const std::filesystem::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

void SocketServer::listen() {
    const auto address = controllerSocket::address(path);
    if (!address)
        throw refusedAt(path, "the path is too long");
    // Of several that start at once, one replaces what it finds and the others then find it.
    const FileDescriptor folder(
        ::open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder || ::flock(folder.number(), LOCK_EX) != 0)
        throw systemRefusal(path);
    // Clients do not look where somebody else could have put a socket.
    if (!isPrivateFolder(path.parent_path()))
        throw refusedAt(path, "its folder is not this user's alone to write to");
    removeStale(path, *address);
    // The socket's own mode becomes that of its file, less what the mask takes away.
    if (::fchmod(socket.number(), S_IRUSR | S_IWUSR) != 0 ||
        ::bind(socket.number(), generic(*address), sizeof *address) != 0 ||
        ::listen(socket.number(), static_cast<int>(mostClients)) != 0)
        throw systemRefusal(path);
}

void SocketServer::acceptClients() {
    // Nobody is hung up on unless somebody waits.
    while (clients.size() < mostClients || (isAwaited(socket.number()) && makeRoom())) {
        FileDescriptor accepted(
            ::accept4(socket.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!accepted) {
            // Without descriptors to spare, the loop would be called again at once and for ever.
            arrivals->setEnabled(errno == EAGAIN || errno == EINTR || errno == ECONNABORTED);
            return;
        }
        clients.push_back(std::make_unique<Client>(*this, std::move(accepted)));
    }
    // Whoever waits would have the loop called again at once and for ever.
    const bool awaited = isAwaited(socket.number());
    arrivals->setEnabled(!awaited);
    if (awaited)
        anotherLook.start();
}

bool SocketServer::makeRoom() {
    std::vector<const Client*> silent;
    for (const auto& client : clients)
        if (client->isSilent())
            silent.push_back(client.get());
    if (silent.empty())
        return false;
    remove(*std::ranges::min_element(silent, {}, &Client::precedence));
    return true;
}

void SocketServer::remove(const Client* client) {
    std::erase_if(clients, [client](const auto& each) { return each.get() == client; });
    arrivals->setEnabled(true);
}

} // namespace tervale
