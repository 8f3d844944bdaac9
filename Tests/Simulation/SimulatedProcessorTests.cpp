#include "Simulation/SimulatedMac.h"
#include "Simulation/SimulatedProcessor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tervale;

namespace {

class SimulatedProcessorTest : public testing::Test {
  protected:
    LoadReading load() const {
        return simulatedProcessor::loadOf(mac, [] { return std::optional(12.5); });
    }

    std::shared_ptr<SimulatedMac> mac = std::make_shared<SimulatedMac>(
        SimulatedMacOptions{.scenario = Scenario::render, .fillers = 0});
};

} // namespace

TEST_F(SimulatedProcessorTest, TellsTheLoadOfItsMacAsTimePasses) {
    const LoadReading reading = load();
    const double first = mac->load();
    EXPECT_EQ(reading(), first);
    while (mac->load() == first)
        mac->advance(1);
    EXPECT_EQ(reading(), mac->load());
}

TEST_F(SimulatedProcessorTest, IsClosedWithTheReading) {
    {
        const LoadReading reading = load();
        EXPECT_EQ(mac->openConnections(), 1U);
    }
    EXPECT_EQ(mac->openConnections(), 0U);
    EXPECT_EQ(mac->heldServices(), 0U);
}

TEST_F(SimulatedProcessorTest, IsNoneOfTheController) {
    mac->setService(service::Absent{});
    EXPECT_EQ(load()(), mac->load());
    EXPECT_EQ(mac->calls().total, 0U);
    const auto service = mac->findService(simulatedProcessor::serviceClass);
    ASSERT_TRUE(service);
    IORegistry::Connection connection = 0;
    ASSERT_EQ(mac->open(*service, 0, connection), 0);
    IORegistry::Structure response{};
    EXPECT_NE(mac->callStruct(connection, 2, {}, response), 0) << "the controller's own question";
    EXPECT_EQ(mac->callStruct(connection, simulatedProcessor::loadSelector, {}, response), 0);
    EXPECT_EQ(simulatedProcessor::decode(response), mac->load());
}

TEST(SimulatedProcessor, LeavesALoadThatIsNoPercentageUnknown) {
    EXPECT_EQ(simulatedProcessor::decode(simulatedProcessor::encode(0)), 0);
    EXPECT_EQ(simulatedProcessor::decode(simulatedProcessor::encode(100)), 100);
    for (const double odd : {-0.1, 100.1, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(simulatedProcessor::decode(simulatedProcessor::encode(odd)), std::nullopt) << odd;
}
