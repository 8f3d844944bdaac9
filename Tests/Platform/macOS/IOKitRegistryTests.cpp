#include "Platform/macOS/FakeKernel.h"
#include "Platform/macOS/IOKitRegistry.h"
#include "SMC/ErrorOf.h"
#include "SMC/SMC.h"
#include "SMC/SMCStructure.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tervale;
using tervale::test::errorOf;

namespace {

constexpr auto badArgument = static_cast<IORegistry::Status>(0xE00002C2U);
constexpr auto unsupported = static_cast<IORegistry::Status>(0xE00002C7U);

class IOKitRegistryTest : public testing::Test {
  protected:
    /// Why there is no connection; empty if there is.
    std::string errorOfOpening() {
        return errorOf([this] { const SMC smc(registry); });
    }

    FakeKernel kernel;
    IOKitRegistry registry;
};

/// A description of a key: two bytes of the type "fpe2".
IORegistry::Status describe(const IORegistry::Structure&, IORegistry::Structure& response) {
    SMCStructure answer;
    answer.dataSize = 2;
    answer.dataType = 0x66706532;
    response = answer.toBytes();
    return FakeKernel::success;
}

} // namespace

TEST_F(IOKitRegistryTest, OpensTheControllerAndReleasesItsService) {
    {
        const SMC smc(registry);
        EXPECT_EQ(kernel.sequence, (std::vector<std::string>{"match AppleSMC", "find on port 0",
                                                             "open type 0", "release"}));
        EXPECT_TRUE(kernel.services.empty());
        EXPECT_EQ(kernel.connections.size(), 1U);
    }
    EXPECT_EQ(kernel.sequence.back(), "close");
    EXPECT_EQ(kernel.sequence.size(), 5U);
}

TEST_F(IOKitRegistryTest, FindsNoControllerWhereThereIsNone) {
    kernel.serviceClass = "AnotherService";
    EXPECT_EQ(errorOfOpening(), "AppleSMC not found");
    EXPECT_EQ(kernel.sequence, (std::vector<std::string>{"match AppleSMC", "find on port 0"}));
}

TEST_F(IOKitRegistryTest, FindsNothingWithoutADictionary) {
    kernel.makesDictionaries = false;
    EXPECT_EQ(errorOfOpening(), "AppleSMC not found");
    EXPECT_EQ(kernel.sequence, (std::vector<std::string>{"match AppleSMC"}));
}

TEST_F(IOKitRegistryTest, ReleasesTheServiceThatCannotBeOpened) {
    kernel.openStatus = unsupported;
    EXPECT_EQ(errorOfOpening(), "IOServiceOpen failed: -536870201");
    EXPECT_EQ(kernel.sequence.back(), "release");
    EXPECT_EQ(kernel.sequence.size(), 4U);
}

TEST_F(IOKitRegistryTest, LeavesTheConnectionAsItWasWhenItCannotBeOpened) {
    kernel.openStatus = unsupported;
    const auto service = registry.findService("AppleSMC");
    ASSERT_TRUE(service);
    IORegistry::Connection connection = 7;
    EXPECT_EQ(registry.open(*service, 0, connection), unsupported);
    EXPECT_EQ(connection, 7U);
    registry.release(*service);
}

TEST_F(IOKitRegistryTest, ExchangesEightyBytesUnderSelectorTwo) {
    IORegistry::Structure received{};
    kernel.exchange = [&](const IORegistry::Structure& request, IORegistry::Structure& response) {
        received = request;
        return describe(request, response);
    };
    SMC smc(registry);
    EXPECT_EQ(smc.info("F0Ac"), (SMC::Info{2, "fpe2"}));
    EXPECT_EQ(kernel.sequence.back(), "call 2, 80 bytes in, 80 out");
    SMCStructure request;
    request.key = 0x46304163;
    request.command = 9;
    EXPECT_EQ(received, request.toBytes());
}

TEST_F(IOKitRegistryTest, TellsTheKernelsRefusal) {
    kernel.exchange = [](const auto&, auto&) { return badArgument; };
    SMC smc(registry);
    EXPECT_EQ(errorOf([&] { smc.info("F0Ac"); }), "F0Ac: IOKit error 0xe00002c2");
    EXPECT_EQ(errorOf([&] { smc.key(3); }), std::string(4, '\0') + ": IOKit error 0xe00002c2");
    kernel.exchange = &describe;
    EXPECT_EQ(smc.info("F0Ac").size, 2U);
}

TEST_F(IOKitRegistryTest, TellsTheControllersRefusal) {
    kernel.exchange = [](const IORegistry::Structure&, IORegistry::Structure& response) {
        SMCStructure answer;
        answer.result = 132;
        response = answer.toBytes();
        return FakeKernel::success;
    };
    SMC smc(registry);
    EXPECT_EQ(errorOf([&] { smc.info("Ftst"); }), "Ftst: SMC error 132");
}

TEST_F(IOKitRegistryTest, TakesAShortAnswerForAFailure) {
    kernel.exchange = &describe;
    SMC smc(registry);
    for (std::size_t size = 0; size < 80; ++size) {
        kernel.answerSize = size;
        EXPECT_EQ(errorOf([&] { smc.info("F0Ac"); }), "F0Ac: IOKit error 0xe00002e7") << size;
    }
    kernel.answerSize = 80;
    EXPECT_EQ(smc.info("F0Ac").size, 2U);
}

TEST_F(IOKitRegistryTest, ClosesEachOfItsConnections) {
    {
        const SMC first(registry);
        const SMC second(registry);
        EXPECT_EQ(kernel.connections.size(), 2U);
    }
    EXPECT_EQ(std::count(kernel.sequence.begin(), kernel.sequence.end(), "close"), 2);
    EXPECT_EQ(std::count(kernel.sequence.begin(), kernel.sequence.end(), "release"), 2);
}

TEST_F(IOKitRegistryTest, ReadsAndDrivesAMacsFans) {
    SimulatedMac mac;
    const auto service = mac.findService("AppleSMC");
    IORegistry::Connection connection = 0;
    ASSERT_TRUE(service && mac.open(*service, 0, connection) == FakeKernel::success);
    kernel.exchange = [&](const IORegistry::Structure& request, IORegistry::Structure& response) {
        return mac.callStruct(connection, 2, request, response);
    };
    SMC smc(registry);
    SMC direct(mac);
    EXPECT_EQ(smc.keyCount(), direct.keyCount());
    EXPECT_EQ(smc.fans(), direct.fans());
    EXPECT_EQ(smc.temperatureSensors(), direct.temperatureSensors());
    smc.setSpeed(0, smc.fan(0).max);
    EXPECT_TRUE(direct.fan(0).manual);
    smc.setAuto();
    EXPECT_FALSE(direct.fan(0).manual);
}
