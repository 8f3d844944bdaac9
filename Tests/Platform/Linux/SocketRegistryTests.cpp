#include "Platform/Linux/RawSocket.h"
#include "Platform/Linux/SocketRegistry.h"
#include "SMC/KernelStatus.h"
#include "SMC/SMC.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <sys/stat.h>
#include <thread>

using namespace tervale;
using namespace std::chrono_literals;

namespace {

IORegistry::Structure filledWith(int byte) {
    IORegistry::Structure structure;
    structure.fill(static_cast<std::byte>(byte));
    return structure;
}

/// A socket that a test serves by hand.
class SocketRegistryTest : public testing::Test {
  protected:
    using Answer = std::function<void(RawSocket& client, const Packet& request)>;

    ~SocketRegistryTest() override { stopServing(); }

    void listen() {
        listener = newSocket();
        const auto address = controllerSocket::address(path);
        ASSERT_EQ(::bind(listener.number(), reinterpret_cast<const sockaddr*>(&*address),
                         sizeof *address),
                  0);
        ASSERT_EQ(::listen(listener.number(), 8), 0);
    }
    /// Serves so many clients, each from a thread, until they hang up.
    void serve(const Answer& answer, int clients = 1) {
        listen();
        for (int number = 0; number < clients; ++number)
            servers.emplace_back([this, answer] { serveOne(answer); });
    }
    void serveOne(const Answer& answer) {
        FileDescriptor accepted(::accept(listener.number(), nullptr, nullptr));
        served = accepted.number();
        RawSocket client(std::move(accepted));
        while (client) {
            client.waitForInput();
            const Packet request = client.receive();
            if (request.empty())
                return;
            answer(client, request);
        }
    }
    void stopServing() {
        ::shutdown(listener.number(), SHUT_RDWR);
        for (std::thread& server : servers)
            server.join();
        servers.clear();
        listener.close();
    }
    /// Ends the process on the other side, as far as its clients see.
    void hangUp() {
        ::shutdown(served, SHUT_RDWR);
        stopServing();
        std::filesystem::remove(path);
    }
    /// A connection through the seam, or a failure of the test.
    static IORegistry::Connection open(IORegistry& registry) {
        const auto service = registry.findService("AppleSMC");
        EXPECT_TRUE(service);
        IORegistry::Connection connection = 0;
        if (service) {
            EXPECT_EQ(registry.open(*service, 0, connection), 0);
            registry.release(*service);
        }
        return connection;
    }
    /// Whether a call does, of which those before may have come too early.
    static bool succeedsInTheEnd(IORegistry& registry, IORegistry::Connection connection,
                                 IORegistry::Structure& response) {
        const auto deadline = std::chrono::steady_clock::now() + 120s;
        while (registry.callStruct(connection, 2, {}, response) != 0)
            if (std::chrono::steady_clock::now() > deadline)
                return false;
        return true;
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder.path / "socket";

  private:
    FileDescriptor listener;
    std::vector<std::thread> servers;
    /// The socket of the client.
    std::atomic<int> served = -1;
};

const Packet success = packetOf({0, 0, 0, 0});

} // namespace

TEST_F(SocketRegistryTest, FindsNothingWithoutASocket) {
    SocketRegistry registry(path);
    EXPECT_FALSE(registry.findService("AppleSMC"));
    std::filesystem::create_directory(path);
    EXPECT_FALSE(registry.findService("AppleSMC"));
    EXPECT_FALSE(SocketRegistry("/" + std::string(200, 'x')).findService("AppleSMC"));
}

TEST_F(SocketRegistryTest, FindsNothingWhereNobodyListens) {
    listen();
    stopServing();
    ASSERT_TRUE(std::filesystem::exists(path));
    EXPECT_FALSE(SocketRegistry(path).findService("AppleSMC"));
}

TEST_F(SocketRegistryTest, TrustsNoSocketInAFolderThatOthersCanWriteTo) {
    serve([](RawSocket& client, const Packet&) { client.send(success); });
    ASSERT_EQ(::chmod(folder.path.c_str(), 0777), 0);
    EXPECT_FALSE(SocketRegistry(path).findService("AppleSMC"));
}

TEST_F(SocketRegistryTest, FindsASocketByABareName) {
    serve([](RawSocket& client, const Packet&) { client.send(success); });
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path);
    EXPECT_TRUE(SocketRegistry("socket").findService("AppleSMC"));
    std::filesystem::current_path(before);
}

TEST_F(SocketRegistryTest, FindsNothingAtAnEmptyPath) {
    EXPECT_FALSE(SocketRegistry("").findService("AppleSMC"));
}

TEST_F(SocketRegistryTest, CarriesEveryByteOfAnExchange) {
    std::vector<Packet> requests;
    serve([&](RawSocket& client, const Packet& request) {
        requests.push_back(request);
        client.send(request[0] == 3 ? packetOf({0, 0, 0, 0}, 0xB7) : success);
    });
    {
        SocketRegistry registry(path);
        const auto service = registry.findService("AppleSMC");
        ASSERT_TRUE(service);
        IORegistry::Connection connection = 0;
        ASSERT_EQ(registry.open(*service, 0x01020304, connection), 0);
        registry.release(*service);
        IORegistry::Structure response{};
        EXPECT_EQ(registry.callStruct(connection, 2, filledWith(0xA5), response), 0);
        EXPECT_EQ(response, filledWith(0xB7));
        registry.close(connection);
    }
    stopServing();
    EXPECT_EQ(requests,
              (std::vector<Packet>{findRequest("AppleSMC"), packetOf({2, 0, 0, 0, 4, 3, 2, 1}),
                                   packetOf({3, 0, 0, 0, 2, 0, 0, 0}, 0xA5)}));
}

TEST_F(SocketRegistryTest, FindsNoServiceThatTheOtherSideLacks) {
    serve([](RawSocket& client, const Packet&) { client.send(packetOf({0xf0, 2, 0, 0xe0})); });
    EXPECT_FALSE(SocketRegistry(path).findService("AppleSMC"));
    EXPECT_FALSE(SocketRegistry(path).findService(std::string(81, 'x')));
}

TEST_F(SocketRegistryTest, TellsTheStatusOfAFailedCallAndLeavesTheResponse) {
    serve([](RawSocket& client, const Packet& request) {
        client.send(request[0] == 3 ? packetOf({0xc2, 2, 0, 0xe0}, 0xB7) : success);
    });
    SocketRegistry registry(path);
    const auto connection = open(registry);
    IORegistry::Structure response{};
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response),
              static_cast<IORegistry::Status>(0xe00002c2));
    EXPECT_EQ(response, filledWith(0));
}

TEST_F(SocketRegistryTest, FailsOnHandlesThatAreNotOpen) {
    serve([](RawSocket& client, const Packet&) { client.send(success); });
    SocketRegistry registry(path);
    const auto connection = open(registry);
    registry.close(connection);
    IORegistry::Structure response{};
    EXPECT_NE(registry.callStruct(connection, 2, {}, response), 0);
    IORegistry::Connection another = 0;
    EXPECT_NE(registry.open(99, 0, another), 0);
    registry.close(connection);
    registry.release(99);
}

TEST_F(SocketRegistryTest, FailsOnceTheOtherSideHasGone) {
    serve([](RawSocket& client, const Packet& request) {
        if (request[0] == 3)
            client = RawSocket(FileDescriptor());
        else
            client.send(success);
    });
    SocketRegistry registry(path, 2s);
    const auto connection = open(registry);
    IORegistry::Structure response{};
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::notAttached);
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::notAttached);
}

TEST_F(SocketRegistryTest, HangsUpOnRepliesOfAnotherLength) {
    serve([](RawSocket& client, const Packet& request) {
        client.send(request[0] == 3 ? Packet(85) : success);
    });
    SocketRegistry registry(path, 2s);
    const auto connection = open(registry);
    IORegistry::Structure response{};
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::notAttached);
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::notAttached);
}

TEST_F(SocketRegistryTest, StopsWaitingForASilentSideAndGoesOnWhenItAnswersAfterAll) {
    std::atomic<int> exchanges = 0;
    std::atomic<bool> mayAnswer = false;
    serve([&](RawSocket& client, const Packet& request) {
        if (request[0] == 3 && ++exchanges == 1)
            mayAnswer.wait(false);
        client.send(packetOf({0, 0, 0, 0}, static_cast<std::uint8_t>(exchanges)));
    });
    SocketRegistry registry(path, 2s);
    const auto connection = open(registry);
    IORegistry::Structure response{};
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::timedOut);

    // Only the first call has waited.
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::timedOut);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
    EXPECT_EQ(exchanges, 1);

    mayAnswer = true;
    mayAnswer.notify_all();
    ASSERT_TRUE(succeedsInTheEnd(registry, connection, response));
    // The late answer was the first exchange's; this one is the second's.
    EXPECT_EQ(response, filledWith(2));
}

TEST_F(SocketRegistryTest, GoesOnSoonAfterAnotherServesTheSocket) {
    const auto succeed = [](RawSocket& client, const Packet&) { client.send(success); };
    serve(succeed);
    SocketRegistry::Time now = std::chrono::steady_clock::now();
    SocketRegistry registry(path, SocketRegistry::defaultPatience, [&] { return now; });
    const auto connection = open(registry);
    IORegistry::Structure response{};
    const auto call = [&] { return registry.callStruct(connection, 2, {}, response); };
    ASSERT_EQ(call(), 0);
    // Each time it is away for longer, and afterwards the pauses are short again.
    const std::array pauses{100ms, 200ms, 400ms, 800ms, 1000ms, 1000ms};
    for (std::size_t missed = 0; missed < pauses.size(); ++missed) {
        SCOPED_TRACE(missed);
        hangUp();
        EXPECT_EQ(call(), kernelStatus::notAttached) << "that it is gone shows";
        EXPECT_EQ(call(), kernelStatus::notAttached) << "and it is looked for at once";
        for (std::size_t i = 0; i < missed; ++i) {
            now += pauses.at(i);
            EXPECT_EQ(call(), kernelStatus::notAttached);
        }
        serve(succeed);
        now += pauses.at(missed) - 1ms;
        EXPECT_EQ(call(), kernelStatus::notAttached) << "not before its time";
        now += 1ms;
        EXPECT_EQ(call(), 0);
    }
}

TEST_F(SocketRegistryTest, WaitsOnceForAnotherThatDoesNotAnswerAtFirst) {
    serve([](RawSocket& client, const Packet&) { client.send(success); });
    SocketRegistry registry(path, 2s);
    const auto connection = open(registry);
    hangUp();
    std::atomic<bool> mayAnswer = false;
    std::atomic<int> requests = 0;
    serve([&](RawSocket& client, const Packet&) {
        ++requests;
        mayAnswer.wait(false);
        client.send(success);
    });
    IORegistry::Structure response{};
    const auto began = std::chrono::steady_clock::now();
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::notAttached);
    EXPECT_LT(std::chrono::steady_clock::now() - began, 10s);
    EXPECT_EQ(requests, 1);
    mayAnswer = true;
    mayAnswer.notify_all();
    ASSERT_TRUE(succeedsInTheEnd(registry, connection, response));
    EXPECT_EQ(requests, 3) << "one to find, one to open, one to exchange";
}

TEST_F(SocketRegistryTest, WaitsForASilentSideOnOneOfItsConnectionsOnly) {
    std::atomic<bool> mayAnswer = false;
    serve(
        [&](RawSocket& client, const Packet& request) {
            if (request[0] == 3)
                mayAnswer.wait(false);
            client.send(success);
        },
        2);
    SocketRegistry registry(path, 4s);
    const auto first = open(registry);
    const auto second = open(registry);
    IORegistry::Structure response{};
    EXPECT_EQ(registry.callStruct(first, 2, {}, response), kernelStatus::timedOut);
    const auto began = std::chrono::steady_clock::now();
    EXPECT_EQ(registry.callStruct(second, 2, {}, response), kernelStatus::timedOut);
    EXPECT_LT(std::chrono::steady_clock::now() - began, 3s);
    mayAnswer = true;
    mayAnswer.notify_all();
    for (const auto connection : {first, second})
        EXPECT_TRUE(succeedsInTheEnd(registry, connection, response));
}

TEST_F(SocketRegistryTest, LeavesAnotherThatLacksTheService) {
    serve([](RawSocket& client, const Packet&) { client.send(success); });
    SocketRegistry registry(path, 2s);
    const auto connection = open(registry);
    hangUp();
    serve([](RawSocket& client, const Packet&) { client.send(packetOf({0xf0, 2, 0, 0xe0})); });
    IORegistry::Structure response{};
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::notAttached);
    EXPECT_EQ(registry.callStruct(connection, 2, {}, response), kernelStatus::notAttached);
}

TEST_F(SocketRegistryTest, GivesEveryServiceAConnectionOfItsOwn) {
    serve([](RawSocket& client, const Packet&) { client.send(success); });
    SocketRegistry registry(path, 2s);
    ASSERT_TRUE(registry.findService("AppleSMC"));
    // The test serves one client only.
    EXPECT_FALSE(registry.findService("AppleSMC"));
}
