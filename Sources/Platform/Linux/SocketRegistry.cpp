#include "Platform/Linux/SocketRegistry.h"

#include "Platform/Linux/ControllerSocket.h"
#include "Platform/RuntimeFolder.h"
#include "SMC/KernelStatus.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <deque>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <utility>

namespace tervale {

using controllerSocket::Operation;
using controllerSocket::Reply;
using controllerSocket::Request;

namespace {

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

/// Nothing for a name that is too long.
std::optional<Request> findRequest(const std::string& className) {
    Request request{.operation = Operation::find};
    if (className.size() > request.structure.size())
        return std::nullopt;
    std::memcpy(request.structure.data(), className.data(), className.size());
    return request;
}

Request openRequest(std::uint32_t type) {
    return {.operation = Operation::open, .number = type};
}

} // namespace

/// One connection to the other process.
class SocketRegistry::Link {
  public:
    /// `requests` come before all others, once `prepare` is called.
    Link(const std::filesystem::path& path, std::chrono::milliseconds patience,
         std::deque<Request> requests = {})
        : socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)),
          patience(patience),
          preparation(std::move(requests)) {
        const auto address = controllerSocket::address(path);
        if (socket && !(address && isPrivateFolder(path.parent_path()) &&
                        ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&*address),
                                  sizeof *address) == 0))
            socket.close();
    }

    bool isLost() const { return !socket; }
    bool isOverdue() const { return socket && overdue; }
    void setPatience(std::chrono::milliseconds time) { patience = time; }

    /// Whether every request of the preparation has succeeded. Who refuses one is left. While an
    /// answer is overdue, this only looks whether it has come.
    bool prepare() {
        while (!preparation.empty()) {
            Structure unused{};
            Reply late;
            const Status status =
                overdue ? receiveOverdue(late) : request(preparation.front(), unused);
            const Status answer = status == 0 ? late.status : status;
            if (answer != 0) {
                if (answer != kernelStatus::timedOut)
                    hangUp();
                return false;
            }
            preparation.pop_front();
        }
        return !isLost();
    }

    Status request(const Request& request, Structure& response) {
        const Instant deadline = std::chrono::steady_clock::now() + patience;
        Reply reply;
        if (overdue)
            if (const Status status = receiveOverdue(reply); status != 0)
                return status;
        if (!socket)
            return kernelStatus::notAttached;
        if (::send(socket.number(), &request, sizeof request, MSG_NOSIGNAL) !=
            static_cast<ssize_t>(sizeof request))
            return hangUp();
        const Status status = receive(reply, deadline);
        overdue = status == kernelStatus::timedOut;
        if (status != 0)
            return status;
        if (reply.status == 0)
            response = reply.structure;
        return reply.status;
    }

  private:
    /// The answer to an earlier request, if it has come.
    Status receiveOverdue(Reply& reply) {
        const Status status = receive(reply, Instant());
        overdue = overdue && status != 0;
        return status;
    }
    Status receive(Reply& reply, Instant deadline) {
        if (!socket)
            return kernelStatus::notAttached;
        if (!waitForInput(socket.number(), deadline))
            return kernelStatus::timedOut;
        // MSG_TRUNC has the length of a packet that is too long.
        const ssize_t length = ::recv(socket.number(), &reply, sizeof reply, MSG_TRUNC);
        return length == static_cast<ssize_t>(sizeof reply) ? 0 : hangUp();
    }
    Status hangUp() {
        socket.close();
        return kernelStatus::notAttached;
    }

    FileDescriptor socket;
    std::chrono::milliseconds patience;
    /// What is still to be asked before anything else.
    std::deque<Request> preparation;
    /// The answer to an earlier request is still to come.
    bool overdue = false;
};

SocketRegistry::SocketRegistry(const std::filesystem::path& socketPath,
                               std::chrono::milliseconds longestWait, std::function<Time()> clock)
    : patience(longestWait),
      now(std::move(clock)) {
    // A bare name has no folder to look at. What cannot be made absolute finds no service.
    std::error_code error;
    path = std::filesystem::absolute(socketPath, error);
}

SocketRegistry::~SocketRegistry() = default;

std::unique_ptr<SocketRegistry::Link> SocketRegistry::find(const std::string& className) const {
    const auto request = findRequest(className);
    if (!request)
        return nullptr;
    auto link = std::make_unique<Link>(path, patience);
    Structure unused{};
    return link->request(*request, unused) == 0 ? std::move(link) : nullptr;
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
        return kernelStatus::badArgument;
    std::unique_ptr<Link> link = std::move(found->second.link);
    if (!link)
        link = find(found->second.className);
    if (!link)
        return kernelStatus::notAttached;
    Structure unused{};
    const Status status = link->request(openRequest(type), unused);
    if (status != 0)
        return status;
    connections.emplace(++lastHandle,
                        OpenConnection{found->second.className, type, std::move(link)});
    connection = lastHandle;
    return status;
}

void SocketRegistry::restore(OpenConnection& connection) {
    const Time time = now();
    const auto request = findRequest(connection.className);
    if (time < connection.nextAttempt || !request)
        return;
    connection.link = std::make_unique<Link>(
        path, patience, std::deque<Request>{*request, openRequest(connection.type)});
    connection.pause = std::clamp(2 * connection.pause, shortestPause, longestPause);
    connection.nextAttempt = time + connection.pause;
}

void SocketRegistry::release(Service service) {
    services.erase(service);
}

IORegistry::Status SocketRegistry::callStruct(Connection connection, std::uint32_t selector,
                                              const Structure& request, Structure& response) {
    const auto found = connections.find(connection);
    if (found == connections.end())
        return kernelStatus::notOpen;
    OpenConnection& opened = found->second;
    if (opened.link->isLost())
        restore(opened);
    // A process that keeps one connection waiting is not waited for on another as well.
    const bool isBusy = std::ranges::any_of(connections, [&](const auto& each) {
        return &each.second != &opened && each.second.link->isOverdue();
    });
    opened.link->setPatience(isBusy ? std::chrono::milliseconds(0) : patience);
    if (!opened.link->prepare())
        return kernelStatus::notAttached;
    opened.pause = {};
    opened.nextAttempt = {};
    return opened.link->request(
        {.operation = Operation::exchange, .number = selector, .structure = request}, response);
}

void SocketRegistry::close(Connection connection) {
    connections.erase(connection);
}

} // namespace tervale
