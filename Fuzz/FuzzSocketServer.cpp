#include "FuzzedBytes.h"
#include "Platform/Linux/SocketServer.h"
#include "PrivateSocket.h"
#include "Simulation/SimulatedMac.h"
#include "Simulation/SimulatedProcessor.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

using namespace tervale;
using controllerSocket::Reply;
using controllerSocket::Request;

namespace {

constexpr auto notOpen = static_cast<IORegistry::Status>(0xe00002cd);

/// What the server should make of a client's packets, formulated a second time.
struct Expected {
    bool searched = false;
    bool found = false;
    bool opened = false;
    bool hungUp = false;

    /// The status that the packet is answered with, where that is settled. Otherwise nothing; the
    /// client may have been hung up on.
    std::optional<IORegistry::Status> answer(const std::string& packet) {
        Request request;
        hungUp = packet.size() != sizeof request;
        if (hungUp)
            return std::nullopt;
        std::memcpy(&request, packet.data(), sizeof request);
        const auto operation = static_cast<unsigned>(static_cast<unsigned char>(packet[0]));
        const bool padded = packet[1] == 0 && packet[2] == 0 && packet[3] == 0;
        hungUp = !padded || operation < 1 || operation > 3 || (operation == 1 && searched) ||
                 (operation == 2 && (!found || opened));
        if (hungUp)
            return std::nullopt;
        if (operation == 1) {
            searched = true;
            const std::string name(packet.data() + 8, ::strnlen(packet.data() + 8, 80));
            found = name == "AppleSMC" || name == simulatedProcessor::serviceClass;
            return found ? IORegistry::Status{0} : static_cast<IORegistry::Status>(0xe00002f0);
        }
        if (operation == 3)
            return opened ? std::nullopt : std::optional(notOpen);
        opened = request.number == 0;
        return opened ? std::optional(IORegistry::Status{0}) : std::nullopt;
    }
};

/// A client that sends what the fuzzer wants, and knows what must come back.
class Client {
  public:
    explicit Client(const PrivateSocket& place) : socket(place.connected()) {}

    bool isThere() const { return static_cast<bool>(socket); }
    void hangUp() { socket.close(); }
    void send(const std::string& packet) {
        precondition(::send(socket.number(), packet.data(), packet.size(), MSG_NOSIGNAL) ==
                         static_cast<ssize_t>(packet.size()),
                     "a client that did no wrong was hung up on");
        const auto status = expected.answer(packet);
        wait();
        Reply reply;
        const ssize_t length = ::recv(socket.number(), &reply, sizeof reply, MSG_TRUNC);
        if (expected.hungUp) {
            precondition(length <= 0, "rubbish was answered");
            socket.close();
            return;
        }
        precondition(length == static_cast<ssize_t>(sizeof reply), "a request got no reply");
        precondition(!status || reply.status == *status, "another answer than to this request");
        precondition(reply.status == 0 || reply.structure == IORegistry::Structure{},
                     "a failure with a response");
    }

  private:
    void wait() const {
        for (int attempts = 0;; ++attempts) {
            QCoreApplication::processEvents();
            pollfd waiting{socket.number(), POLLIN, 0};
            if (::poll(&waiting, 1, attempts < 10 ? 0 : 1) > 0)
                return;
            precondition(attempts < 10'000, "the server is silent");
        }
    }

    FileDescriptor socket;
    Expected expected;
};

std::string somePacket(FuzzedBytes& input) {
    const std::size_t kind = input.below(8);
    if (kind == 7)
        return input.text(120) + '\0';
    std::string packet(sizeof(Request), '\0');
    packet[0] = static_cast<char>(kind < 6 ? 1 + kind % 3 : input.byte());
    if (input.below(16) == 0)
        packet[1 + input.below(3)] = static_cast<char>(input.byte());
    packet[4] = static_cast<char>(input.below(4));
    static constexpr std::array names{"AppleSMC", simulatedProcessor::serviceClass};
    const std::string structure =
        packet[0] == 1 && input.below(4) != 0 ? names[input.below(2)] : input.text(80);
    packet.replace(8, structure.size(), structure);
    return packet;
}

} // namespace

/// Clients that send rubbish, and what looks like requests, between each other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
    static const PrivateSocket place;
    FuzzedBytes input(data, size);
    SimulatedMac mac({.scenario = Scenario::idle, .fans = 1, .sensors = 4, .fillers = 0});
    {
        const SocketServer server(mac, place.path());
        std::vector<Client> clients;
        while (!input.empty()) {
            if (clients.size() < 4 && (clients.empty() || input.below(8) == 0))
                clients.emplace_back(place);
            Client& client = clients[input.below(clients.size())];
            if (!client.isThere())
                client = Client(place);
            else if (input.below(16) == 0)
                client.hangUp();
            else
                client.send(somePacket(input));
        }
        clients.clear();
        for (int attempts = 0; server.clientCount() > 0 && attempts < 1000; ++attempts)
            QCoreApplication::processEvents();
        precondition(server.clientCount() == 0, "a client that is gone is served");
        precondition(mac.openConnections() == 0 && mac.heldServices() == 0, "something stays open");
    }
    precondition(!std::filesystem::exists(place.path()), "the socket is left behind");
    return 0;
}
