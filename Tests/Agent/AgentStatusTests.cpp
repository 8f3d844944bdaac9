#include "Agent/AgentStatus.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tervale {
namespace {

using Writing = AgentStatus::Writing;
using Ending = AgentStatus::Ending;
using Refusal = FanPermission::Refusal;

const std::string dryRun = "Dry run: nothing is written to the controller.";

TEST(AgentStatus, IsNoneWhileThereIsNothingToTell) {
    EXPECT_EQ(AgentStatus(Writing::done).text({}), std::nullopt);
    EXPECT_EQ(AgentStatus(Writing::pretended).text({}), dryRun);
}

TEST(AgentStatus, TellsWhatMattersMost) {
    const AgentStatus status(Writing::done);
    AgentNews news{.error = "F0md: SMC error 133", .tooHot = true, .notice = "Hello."};
    EXPECT_EQ(status.text(news),
              "F0md: SMC error 133. It is too hot: the fans should run at Max until every CPU and "
              "GPU sensor is below 85 °C.");
    news.error.reset();
    EXPECT_TRUE(status.text(news)->starts_with("Too hot: Max until"));
    news.error = "F0md: SMC error 133";
    news.tooHot = false;
    EXPECT_EQ(status.text(news), "F0md: SMC error 133");
    news.error.reset();
    EXPECT_EQ(status.text(news), "Hello.");
    news.unreached = "AppleSMC not found";
    EXPECT_EQ(status.text(news), "The controller is out of reach. AppleSMC not found");
}

TEST(AgentStatus, ClaimsFullSpeedInTheHeatOnlyWhereNothingKeepsTheFansFromIt) {
    const std::vector<AgentNews> failures{{.unreached = "AppleSMC not found", .tooHot = true},
                                          {.error = "F0md: IOKit error 0xe00002c1", .tooHot = true},
                                          {.refusal = Refusal::unguarded, .tooHot = true},
                                          {.refusal = Refusal::blind, .tooHot = true}};
    for (const Writing writing : {Writing::done, Writing::pretended})
        for (const AgentNews& news : failures) {
            const std::string text = AgentStatus(writing).text(news).value_or("");
            AgentNews cool = news;
            cool.tooHot = false;
            const std::string failure = text.substr(0, text.find(" It is too hot: "));
            EXPECT_TRUE(
                AgentStatus(writing).text(cool)->starts_with(failure.substr(0, failure.size() - 1)))
                << text;
            EXPECT_NE(text.find("It is too hot: the fans "), std::string::npos) << text;
            EXPECT_FALSE(text.starts_with("Too hot: ")) << text;
        }
}

TEST(AgentStatus, SaysInPlainWordsThatARightIsMissing) {
    const AgentStatus status(Writing::done);
    EXPECT_EQ(status.text({.unreached = "IOServiceOpen failed: -536870207"}),
              "This agent may not open the controller. IOServiceOpen failed: -536870207");
    EXPECT_EQ(status.text({.error = "F0md: IOKit error 0xe00002c1"}),
              "This agent may not write to the controller. F0md: IOKit error 0xe00002c1");
}

TEST(AgentStatus, AlwaysSaysThatItIsADryRunAndClaimsNothingOfTheFans) {
    const AgentStatus status(Writing::pretended);
    const std::vector<AgentNews> all{
        {.unreached = "AppleSMC not found"}, {.tooHot = true},
        {.error = "F0Ac: failed"},           {.refusal = Refusal::blind},
        {.refusal = Refusal::unguarded},     {.notice = "Hello."},
        {.notStored = "disk full"}};
    for (const AgentNews& news : all) {
        const std::string text = status.text(news).value_or("");
        EXPECT_NE(text.find(dryRun), std::string::npos) << text;
        EXPECT_EQ(text.find("fans are"), std::string::npos) << text;
        EXPECT_EQ(text.find("Too hot: Max"), std::string::npos) << text;
    }
    for (const Ending ending : {Ending::handedBack, Ending::unreached}) {
        const std::string text = status.farewell(ending);
        EXPECT_TRUE(text.starts_with("The agent has ended.")) << text;
        EXPECT_TRUE(text.ends_with(dryRun)) << text;
        EXPECT_EQ(text.find("automatic"), std::string::npos) << text;
    }
}

TEST(AgentStatus, SaysHowTheFansWereLeft) {
    const AgentStatus status(Writing::done);
    EXPECT_EQ(status.farewell(Ending::handedBack), "The agent has ended. The fans are automatic.");
    EXPECT_EQ(status.farewell(Ending::failed),
              "The agent has ended. The fans could not be handed back.");
    EXPECT_EQ(status.farewell(Ending::unreached),
              "The agent has ended. It never reached a controller.");
}

} // namespace
} // namespace tervale
