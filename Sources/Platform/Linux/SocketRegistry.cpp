#include "Platform/Linux/SocketRegistry.h"

#include "Platform/Linux/ControllerSocket.h"
#include "Platform/RuntimeFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <utility>

namespace tervale {

using controllerSocket::Operation;
using controllerSocket::Reply;
using controllerSocket::Request;

namespace {

// The kernel's codes for the same mishaps.
constexpr auto badArgument = static_cast<IORegistry::Status>(0xe00002c2);
constexpr auto notOpen = static_cast<IORegistry::Status>(0xe00002cd);
constexpr auto timedOut = static_cast<IORegistry::Status>(0xe00002d6);
constexpr auto notAttached = static_cast<IORegistry::Status>(0xe00002d9);

using Instant = std::chrono::steady_clock::time_point;

/// Whether something can be read, or the other side has hung up.
bool waitForInput(int socket, Instant deadline) {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd waiting{socket, POLLIN, 0};
        const int ready =
            ::poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
    }
}

} // namespace

/// One connection to the other process.
class SocketRegistry::Link {
  public:
    Link(const std::filesystem::path& path, std::chrono::milliseconds patience)
        : socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)),
          patience(patience) {
        const auto address = controllerSocket::address(path);
        if (socket && !(address && isPrivateFolder(path.parent_path()) &&
                        ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&*address),
                                  sizeof *address) == 0))
            socket.close();
    }

    bool isLost() const { return !socket; }

    Status open(std::uint32_t type) {
        Structure unused{};
        return request({.operation = Operation::open, .number = type}, unused);
    }

    Status request(const Request& request, Structure& response) {
        const Instant deadline = std::chrono::steady_clock::now() + patience;
        Reply reply;
        if (overdue) {
            if (const Status status = receive(reply, Instant()); status != 0)
                return status;
            overdue = false;
        }
        if (!socket)
            return notAttached;
        if (::send(socket.number(), &request, sizeof request, MSG_NOSIGNAL) !=
            static_cast<ssize_t>(sizeof request))
            return hangUp();
        const Status status = receive(reply, deadline);
        overdue = status == timedOut;
        if (status != 0)
            return status;
        if (reply.status == 0)
            response = reply.structure;
        return reply.status;
    }

  private:
    Status receive(Reply& reply, Instant deadline) {
        if (!socket)
            return notAttached;
        if (!waitForInput(socket.number(), deadline))
            return timedOut;
        // MSG_TRUNC has the length of a packet that is too long.
        const ssize_t length = ::recv(socket.number(), &reply, sizeof reply, MSG_TRUNC);
        return length == static_cast<ssize_t>(sizeof reply) ? 0 : hangUp();
    }
    Status hangUp() {
        socket.close();
        return notAttached;
    }

    FileDescriptor socket;
    std::chrono::milliseconds patience;
    /// The answer to an earlier request is still to come.
    bool overdue = false;
};

SocketRegistry::SocketRegistry(const std::filesystem::path& socketPath,
                               std::chrono::milliseconds longestWait)
    : patience(longestWait) {
    // A bare name has no folder to look at. What cannot be made absolute finds no service.
    std::error_code error;
    path = std::filesystem::absolute(socketPath, error);
}

SocketRegistry::~SocketRegistry() = default;

std::unique_ptr<SocketRegistry::Link> SocketRegistry::find(const std::string& className) const {
    Request request{.operation = Operation::find};
    if (className.size() > request.structure.size())
        return nullptr;
    std::memcpy(request.structure.data(), className.data(), className.size());
    auto link = std::make_unique<Link>(path, patience);
    Structure unused{};
    return link->request(request, unused) == 0 ? std::move(link) : nullptr;
}

std::optional<IORegistry::Service> SocketRegistry::findService(const std::string& className) {
    std::unique_ptr<Link> link = find(className);
    if (!link)
        return std::nullopt;
    services.emplace(++lastHandle, FoundService{className, std::move(link)});
    return lastHandle;
}

IORegistry::Status SocketRegistry::open(Service service, std::uint32_t type,
                                        Connection& connection) {
    const auto found = services.find(service);
    if (found == services.end())
        return badArgument;
    std::unique_ptr<Link> link = std::move(found->second.link);
    if (!link)
        link = find(found->second.className);
    if (!link)
        return notAttached;
    const Status status = link->open(type);
    if (status != 0)
        return status;
    connections.emplace(++lastHandle,
                        OpenConnection{found->second.className, type, std::move(link)});
    connection = lastHandle;
    return status;
}

void SocketRegistry::restore(OpenConnection& connection) {
    // Otherwise every call would wait for an unresponsive server again.
    constexpr int pause = 4;
    if (std::chrono::steady_clock::now() < connection.nextAttempt)
        return;
    std::unique_ptr<Link> link = find(connection.className);
    if (link && link->open(connection.type) == 0)
        connection.link = std::move(link);
    else
        connection.nextAttempt = std::chrono::steady_clock::now() + pause * patience;
}

void SocketRegistry::release(Service service) {
    services.erase(service);
}

IORegistry::Status SocketRegistry::callStruct(Connection connection, std::uint32_t selector,
                                              const Structure& request, Structure& response) {
    const auto found = connections.find(connection);
    if (found == connections.end())
        return notOpen;
    if (found->second.link->isLost())
        restore(found->second);
    return found->second.link->request(
        {.operation = Operation::exchange, .number = selector, .structure = request}, response);
}

void SocketRegistry::close(Connection connection) {
    connections.erase(connection);
}

} // namespace tervale
