#include "FuzzedBytes.h"
#include "Platform/Linux/SocketRegistry.h"
#include "PrivateSocket.h"

#include <array>
#include <cstring>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

using namespace tervale;
using controllerSocket::Operation;
using controllerSocket::Reply;
using controllerSocket::Request;

namespace {

/// Whom a client connects to: it answers each request with what the fuzzer wants.
class RubbishServer {
  public:
    /// What became of the latest request.
    struct Answer {
        std::size_t number = 0;
        Operation operation = Operation::find;
        /// Nothing for what is no reply.
        std::optional<Reply> reply;
    };

    RubbishServer(const PrivateSocket& place, FuzzedBytes bytes)
        : input(bytes),
          listener(place.listening()) {
        std::array<int, 2> ends{};
        precondition(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0,
                     "the fuzzer has no sockets");
        here = FileDescriptor(ends[0]);
        there = FileDescriptor(ends[1]);
        thread = std::thread([this] { serve(); });
    }
    ~RubbishServer() {
        here.close();
        thread.join();
    }
    RubbishServer(const RubbishServer&) = delete;
    RubbishServer& operator=(const RubbishServer&) = delete;

    Answer latest() {
        const std::lock_guard lock(mutex);
        return answer;
    }

  private:
    struct Link {
        FileDescriptor socket;
        bool found = false;
    };

    void serve() {
        std::vector<Link> links;
        for (;;) {
            std::vector<pollfd> waiting{{there.number(), POLLIN, 0},
                                        {listener.number(), POLLIN, 0}};
            for (const Link& link : links)
                waiting.push_back({link.socket.number(), POLLIN, 0});
            ::poll(waiting.data(), waiting.size(), -1);
            if (waiting[0].revents != 0)
                return;
            for (std::size_t i = links.size(); i-- > 0;)
                if (waiting[i + 2].revents != 0 && !answers(links[i]))
                    links.erase(links.begin() + static_cast<std::ptrdiff_t>(i));
            if (waiting[1].revents != 0)
                links.push_back({FileDescriptor(::accept(listener.number(), nullptr, nullptr))});
        }
    }
    /// False if the link is over.
    bool answers(Link& link) {
        Request request;
        const ssize_t length =
            ::recv(link.socket.number(), &request, sizeof request, MSG_TRUNC | MSG_DONTWAIT);
        if (length <= 0)
            return false;
        precondition(length == static_cast<ssize_t>(sizeof request), "no request");
        precondition(request.unused == decltype(request.unused){}, "no request");
        precondition((request.operation == Operation::find) == !link.found,
                     "a link begins with finding, and finds once");
        link.found = true;
        return reply(link, request.operation);
    }
    bool reply(const Link& link, Operation operation) {
        Reply reply;
        const std::size_t kind = input.below(16);
        reply.status = input.below(4) == 0 ? static_cast<IORegistry::Status>(input.word()) : 0;
        for (std::byte& each : reply.structure)
            each = static_cast<std::byte>(kind < 8 ? 0 : input.byte());
        const bool isReply = kind < 14;
        {
            const std::lock_guard lock(mutex);
            answer = {answer.number + 1, operation, isReply ? std::optional(reply) : std::nullopt};
        }
        if (kind == 15)
            return false;
        std::array<std::byte, 200> rubbish{};
        std::memcpy(rubbish.data(), &reply, sizeof reply);
        std::size_t length = isReply ? sizeof reply : 1 + input.below(rubbish.size());
        if (!isReply && length == sizeof reply)
            --length;
        return ::send(link.socket.number(), rubbish.data(), length, MSG_NOSIGNAL) > 0;
    }

    FuzzedBytes input;
    FileDescriptor listener;
    FileDescriptor here;
    FileDescriptor there;
    std::mutex mutex;
    Answer answer;
    std::thread thread;
};

/// Calls, and what must come of them by what the server said.
class Caller {
  public:
    Caller(RubbishServer& server, const PrivateSocket& place)
        : server(server),
          registry(place.path(), std::chrono::seconds(20)) {}

    void find() {
        const auto before = server.latest();
        const auto service = registry.findService("AppleSMC");
        precondition(service.has_value() == succeeded(before, Operation::find), "found wrongly");
        if (service)
            services.push_back(*service);
    }
    void open(std::size_t index) {
        if (services.empty())
            return;
        const IORegistry::Service service = services[index % services.size()];
        const auto before = server.latest();
        IORegistry::Connection connection = 0;
        const bool opened = registry.open(service, 0, connection) == 0;
        precondition(opened == succeeded(before, Operation::open), "opened wrongly");
        if (opened)
            connections.push_back(connection);
    }
    void call(std::size_t index, const IORegistry::Structure& request) {
        if (connections.empty())
            return;
        const auto before = server.latest();
        IORegistry::Structure response{};
        response.fill(std::byte{0xAB});
        const IORegistry::Structure untouched = response;
        const IORegistry::Status status =
            registry.callStruct(connections[index % connections.size()], 2, request, response);
        const auto answer = server.latest();
        const bool isAnswer = answer.number != before.number &&
                              answer.operation == Operation::exchange && answer.reply;
        precondition(!isAnswer || status == answer.reply->status, "another status was told");
        precondition(isAnswer || status != 0, "a call without an answer succeeded");
        precondition(response == (status == 0 ? answer.reply->structure : untouched),
                     "another response than was sent");
    }
    void release() {
        if (services.empty())
            return;
        registry.release(services.back());
        services.pop_back();
    }
    void close() {
        if (connections.empty())
            return;
        registry.close(connections.back());
        IORegistry::Structure response{};
        precondition(registry.callStruct(connections.back(), 2, {}, response) != 0,
                     "a call on what is closed succeeded");
        connections.pop_back();
    }

  private:
    /// Whether the last request since then was this one, and went well.
    bool succeeded(const RubbishServer::Answer& before, Operation operation) const {
        const auto answer = server.latest();
        return answer.number != before.number && answer.operation == operation && answer.reply &&
               answer.reply->status == 0;
    }

    RubbishServer& server;
    SocketRegistry registry;
    std::vector<IORegistry::Service> services;
    std::vector<IORegistry::Connection> connections;
};

} // namespace

/// The client of a simulated Mac whose answers are rubbish. Half of the bytes are what it asks,
/// half what it is answered.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const PrivateSocket place;
    FuzzedBytes input(data, size / 2);
    RubbishServer server(place, FuzzedBytes(data + size / 2, size - size / 2));
    Caller caller(server, place);
    while (!input.empty()) {
        const std::size_t index = input.byte();
        switch (input.below(8)) {
        case 0:
            caller.find();
            break;
        case 1:
            caller.open(index);
            break;
        case 2:
            caller.release();
            break;
        case 3:
            caller.close();
            break;
        default: {
            IORegistry::Structure request{};
            request[42] = static_cast<std::byte>(index);
            caller.call(index, request);
        }
        }
    }
    return 0;
}
