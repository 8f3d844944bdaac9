#include "Platform/Linux/RawSocket.h"
#include "Platform/Linux/SocketRegistry.h"
#include "Platform/Linux/SocketServer.h"
#include "SMC/SMC.h"
#include "SMC/ScriptedRegistry.h"
#include "Simulation/SimulatedMac.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <random>
#include <sys/stat.h>
#include <thread>

using namespace tervale;

namespace {

class SocketServerTest : public testing::Test {
  protected:
    RawSocket client() const { return RawSocket::connectedTo(path); }
    /// Sends the packet and waits for what comes back: a reply, or nothing when hung up on.
    static Packet answerTo(const RawSocket& client, const Packet& packet) {
        client.send(packet);
        EXPECT_TRUE(eventually([&] { return client.hasInput(); }));
        return client.receive();
    }
    static void openController(const RawSocket& client) {
        EXPECT_EQ(answerTo(client, findRequest("AppleSMC")), packetOf({0, 0, 0, 0}));
        EXPECT_EQ(answerTo(client, packetOf({2, 0, 0, 0, 0, 0, 0, 0})), packetOf({0, 0, 0, 0}));
    }
    std::string refusal() {
        try {
            const SocketServer server(registry, path);
            return "";
        } catch (const SocketServer::Refused& refused) {
            return refused.what();
        }
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder.path / "socket";
    test::ScriptedRegistry registry;
};

const Packet exchange = packetOf({3, 0, 0, 0, 2, 0, 0, 0});

} // namespace

TEST_F(SocketServerTest, MakesASocketForTheUserAloneAndRemovesIt) {
    const mode_t before = ::umask(0);
    {
        const SocketServer server(registry, path);
        struct stat status {};
        ASSERT_EQ(::lstat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode, S_IFSOCK | 0600U);
    }
    EXPECT_FALSE(std::filesystem::exists(path));
    ::umask(before);
}

TEST_F(SocketServerTest, ReplacesASocketThatNobodyServes) {
    {
        const FileDescriptor left = newSocket();
        const auto address = controllerSocket::address(path);
        ASSERT_EQ(
            ::bind(left.number(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address),
            0);
    }
    ASSERT_TRUE(std::filesystem::exists(path));
    const SocketServer server(registry, path);
    openController(client());
}

TEST_F(SocketServerTest, LeavesASocketThatIsServed) {
    const SocketServer server(registry, path);
    EXPECT_EQ(refusal(), "Cannot serve on '" + path.string() + "': another process serves there.");
    EXPECT_TRUE(std::filesystem::exists(path));
    openController(client());
}

TEST_F(SocketServerTest, LeavesFilesOfOtherKinds) {
    std::ofstream(path) << "precious";
    EXPECT_EQ(refusal(), "Cannot serve on '" + path.string() + "': there is a file in its place.");
    EXPECT_EQ(std::filesystem::file_size(path), 8U);
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_NE(refusal(), "");
}

TEST_F(SocketServerTest, RefusesPlacesWhereNoSocketCanBe) {
    path = folder.path / "absent" / "socket";
    // The system says why, in the user's language.
    EXPECT_EQ(refusal(), "Cannot serve on '" + path.string() + "': " + std::strerror(ENOENT) + ".");
    path = folder.path / std::string(200, 'x');
    EXPECT_EQ(refusal(), "Cannot serve on '" + path.string() + "': the path is too long.");
}

TEST_F(SocketServerTest, LeavesTheSocketThatHasTakenItsPlace) {
    auto server = std::make_unique<SocketServer>(registry, path);
    std::filesystem::remove(path);
    const SocketServer successor(registry, path);
    server.reset();
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(SocketServerTest, CarriesEveryByteOfAnExchange) {
    const SocketServer server(registry, path);
    registry.setFloat("F0Ac", 1200);
    const RawSocket window = client();
    openController(window);
    Packet request = exchange;
    const Packet key{'c', 'A', '0', 'F'};
    std::copy(key.begin(), key.end(), request.begin() + 8);
    request[8 + 42] = 9;
    const Packet reply = answerTo(window, request);
    ASSERT_EQ(reply.size(), 84U);
    EXPECT_EQ(Packet(reply.begin(), reply.begin() + 4), Packet(4));
    EXPECT_EQ(Packet(reply.begin() + 4 + 28, reply.begin() + 4 + 36),
              (Packet{4, 0, 0, 0, ' ', 't', 'l', 'f'}));
    ASSERT_EQ(registry.log.size(), 1U);
    EXPECT_EQ(registry.log[0].connection, test::ScriptedRegistry::connection);
    EXPECT_EQ(registry.log[0].selector, 2U);
    EXPECT_TRUE(std::equal(
        request.begin() + 8, request.end(), registry.log[0].request.begin(),
        [](std::uint8_t sent, std::byte received) { return std::byte{sent} == received; }));
}

TEST_F(SocketServerTest, ClosesWhatAClientHasOpenedWhenItHangsUp) {
    const SocketServer server(registry, path);
    {
        const RawSocket window = client();
        openController(window);
        EXPECT_EQ(registry.closes, 0);
    }
    ASSERT_TRUE(eventually([&] { return server.clientCount() == 0; }));
    EXPECT_EQ(registry.opens, 1);
    EXPECT_EQ(registry.closes, 1);
    EXPECT_EQ(registry.releases, 1);
}

TEST_F(SocketServerTest, TellsWhatTheRegistryRefuses) {
    const SocketServer server(registry, path);
    EXPECT_EQ(answerTo(client(), exchange), packetOf({0xcd, 2, 0, 0xe0}));
    registry.openStatus = -536870201;
    const RawSocket window = client();
    answerTo(window, findRequest("AppleSMC"));
    EXPECT_EQ(answerTo(window, packetOf({2, 0, 0, 0, 0, 0, 0, 0})), packetOf({0xc7, 2, 0, 0xe0}));
    registry.serviceExists = false;
    EXPECT_EQ(answerTo(client(), findRequest("AppleSMC")), packetOf({0xf0, 2, 0, 0xe0}));
}

TEST_F(SocketServerTest, HangsUpOnRubbishAndServesTheOthers) {
    const SocketServer server(registry, path);
    const RawSocket window = client();
    openController(window);
    const std::vector<Packet> rubbish{
        {0},
        Packet(87),
        Packet(89, 3),
        Packet(5000, 1),
        packetOf({0, 0, 0, 0, 0, 0, 0, 0}),
        packetOf({4, 0, 0, 0, 0, 0, 0, 0}),
        packetOf({255, 255, 255, 255, 255, 255, 255, 255}, 255),
        packetOf({3, 0, 1, 0, 2, 0, 0, 0}),
        packetOf({2, 0, 0, 0, 0, 0, 0, 0}),
    };
    for (const Packet& packet : rubbish) {
        EXPECT_EQ(answerTo(client(), packet), Packet()) << packet.size();
        EXPECT_EQ(answerTo(window, exchange).size(), 84U);
    }
    EXPECT_EQ(server.clientCount(), 1U);
    EXPECT_EQ(answerTo(window, findRequest("AppleSMC")), Packet()) << "a second search";
}

TEST_F(SocketServerTest, HangsUpOnWhoTakesNoReplies) {
    const SocketServer server(registry, path);
    const RawSocket window = client();
    openController(window);
    const RawSocket greedy = client();
    ASSERT_TRUE(eventually([&] { return server.clientCount() == 2; }));
    ASSERT_TRUE(eventually([&] {
        for (int i = 0; i < 100; ++i)
            greedy.send(exchange);
        return server.clientCount() == 1;
    }));
    EXPECT_EQ(answerTo(window, exchange).size(), 84U);
}

TEST_F(SocketServerTest, LetsClientsWaitWhenThereAreMany) {
    const SocketServer server(registry, path);
    std::vector<RawSocket> clients;
    for (std::size_t i = 0; i < SocketServer::mostClients; ++i)
        clients.push_back(client());
    ASSERT_TRUE(eventually([&] { return server.clientCount() == SocketServer::mostClients; }));
    const RawSocket late = client();
    late.send(findRequest("AppleSMC"));
    EXPECT_EQ(answerTo(clients[7], exchange).size(), 84U);
    EXPECT_FALSE(late.hasInput());
    clients.pop_back();
    EXPECT_TRUE(eventually([&] { return late.hasInput(); }));
}

TEST_F(SocketServerTest, LetsTheSilentGiveWayToTheNew) {
    SocketServer::TimePoint now{};
    const SocketServer server(registry, path, [&] { return now; });
    const RawSocket window = client();
    openController(window);
    std::vector<RawSocket> silent;
    for (std::size_t i = 1; i < SocketServer::mostClients; ++i)
        silent.push_back(client());
    ASSERT_TRUE(eventually([&] { return server.clientCount() == SocketServer::mostClients; }));
    now += SocketServer::longestSilence - std::chrono::milliseconds(1);
    EXPECT_EQ(answerTo(window, exchange).size(), 84U);
    const RawSocket late = client();
    late.send(findRequest("AppleSMC"));
    EXPECT_EQ(answerTo(window, exchange).size(), 84U);
    EXPECT_FALSE(late.hasInput()) << "nobody was silent for long";
    now += std::chrono::milliseconds(1);
    ASSERT_TRUE(eventually([&] { return late.hasInput(); }));
    openController(client());
    EXPECT_EQ(answerTo(window, exchange).size(), 84U) << "who is served stays";
    EXPECT_GE(server.clientCount(), SocketServer::mostClients - 2) << "one for each newcomer";
}

TEST_F(SocketServerTest, KeepsSilentClientsWhileThereIsRoom) {
    SocketServer::TimePoint now{};
    const SocketServer server(registry, path, [&] { return now; });
    const RawSocket window = client();
    openController(window);
    now += 100 * SocketServer::longestSilence;
    openController(client());
    EXPECT_EQ(answerTo(window, exchange).size(), 84U);
}

TEST_F(SocketServerTest, SurvivesAnythingThatASimulatedMacIsAsked) {
    SimulatedMac mac;
    const SocketServer server(mac, path);
    const RawSocket window = client();
    openController(window);
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same requests every time
    const std::vector<std::string> keys{"F0Tg", "F0Md", "F1Tg", "Ftst", "FNum", "#KEY", "Tp01"};
    const std::vector<std::uint8_t> commands{5, 6, 8, 9};
    for (int i = 0; i < 3000; ++i) {
        Packet request = exchange;
        for (std::size_t byte = 8; byte < request.size(); ++byte)
            request[byte] = static_cast<std::uint8_t>(random());
        const std::string& key = keys[random() % keys.size()];
        std::copy(key.rbegin(), key.rend(), request.begin() + 8);
        request[8 + 42] = commands[random() % commands.size()];
        if (i % 2 == 0)
            request[8 + 28] = static_cast<std::uint8_t>(random() % 5);
        if (i % 2 == 0)
            std::fill(request.begin() + 8 + 29, request.begin() + 8 + 32, std::uint8_t{0});
        ASSERT_EQ(answerTo(window, request).size(), 84U);
    }
    mac.advance(1);
}

TEST_F(SocketServerTest, LendsAMacToSeveralClientsAtOnce) {
    SimulatedMac mac;
    const SocketServer server(mac, path);
    std::atomic<int> done = 0;
    const auto look = [&] {
        SocketRegistry socket(path, std::chrono::seconds(60));
        SMC smc(socket);
        for (int i = 0; i < 50; ++i)
            done += static_cast<int>(smc.fans().size());
    };
    std::thread first(look);
    std::thread second(look);
    EXPECT_TRUE(eventually([&] { return done == 200; }));
    first.join();
    second.join();
    EXPECT_TRUE(eventually([&] { return mac.openConnections() == 0; }));
    EXPECT_EQ(mac.heldServices(), 0U);
}
