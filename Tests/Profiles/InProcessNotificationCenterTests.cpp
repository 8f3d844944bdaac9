#include "Profiles/InProcessNotificationCenter.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace tervale {

namespace {

using Object = std::optional<std::string>;

const std::thread::id mainThread = std::this_thread::get_id();

/// Keeps deliveries until they are asked for, as a main thread's queue does.
struct Queue {
    std::vector<std::function<void()>> deliveries;

    InProcessNotificationCenter::Dispatch dispatch() {
        return
            [this](std::function<void()> delivery) { deliveries.push_back(std::move(delivery)); };
    }
    void run() {
        for (const auto& delivery : std::exchange(deliveries, {}))
            delivery();
    }
};

} // namespace

TEST(InProcessNotificationCenter, DeliversToEveryObserverOfTheName) {
    InProcessNotificationCenter center;
    std::vector<std::string> received;
    const ObserverToken first =
        center.observe("a", [&](const Object& object) { received.push_back("1" + *object); });
    const ObserverToken second =
        center.observe("a", [&](const Object& object) { received.push_back("2" + *object); });
    const ObserverToken other =
        center.observe("b", [&](const Object& object) { received.push_back("3" + *object); });
    center.post("a", "x");
    EXPECT_EQ(received, (std::vector<std::string>{"1x", "2x"}));
}

TEST(InProcessNotificationCenter, DeliversTheAbsenceOfAString) {
    InProcessNotificationCenter center;
    std::vector<Object> received;
    const ObserverToken token =
        center.observe("a", [&](const Object& object) { received.push_back(object); });
    center.post("a", std::nullopt);
    center.post("a", "");
    EXPECT_EQ(received, (std::vector<Object>{std::nullopt, ""}));
}

TEST(InProcessNotificationCenter, DeliversNothingAfterTheTokenIsLetGo) {
    InProcessNotificationCenter center;
    int count = 0;
    {
        const ObserverToken token = center.observe("a", [&](const Object&) { ++count; });
        center.post("a", "x");
    }
    center.post("a", "x");
    EXPECT_EQ(count, 1);
}

TEST(InProcessNotificationCenter, LetsAHandlerLetGoOfItself) {
    InProcessNotificationCenter center;
    int count = 0;
    ObserverToken token;
    token = center.observe("a", [&, kept = std::string("kept")](const Object&) {
        token.reset();
        // The handler itself is still there.
        count += static_cast<int>(kept.size());
    });
    center.post("a", "x");
    center.post("a", "x");
    EXPECT_EQ(count, 4);
}

TEST(InProcessNotificationCenter, LetsAHandlerLetGoOfALaterOne) {
    InProcessNotificationCenter center;
    int count = 0;
    ObserverToken second;
    const ObserverToken first = center.observe("a", [&](const Object&) { second.reset(); });
    second = center.observe("a", [&](const Object&) { ++count; });
    center.post("a", "x");
    EXPECT_EQ(count, 0);
}

TEST(InProcessNotificationCenter, LetsAHandlerPostAndObserve) {
    InProcessNotificationCenter center;
    std::vector<std::string> received;
    ObserverToken added;
    const ObserverToken token = center.observe("a", [&](const Object& object) {
        received.push_back(*object);
        if (*object != "first")
            return;
        added = center.observe("a",
                               [&](const Object& later) { received.push_back("added " + *later); });
        center.post("a", "second");
    });
    center.post("a", "first");
    EXPECT_EQ(received, (std::vector<std::string>{"first", "second", "added second"}));
}

TEST(InProcessNotificationCenter, LetsATokenOutliveIt) {
    ObserverToken token;
    {
        InProcessNotificationCenter center;
        token = center.observe("a", [](const Object&) {});
    }
    token.reset();
}

TEST(InProcessNotificationCenter, DeliversOnTheMainThreadWhatAnotherOnePosts) {
    InProcessNotificationCenter center;
    std::vector<std::string> received;
    const ObserverToken token = center.observe("a", [&](const Object& object) {
        EXPECT_EQ(std::this_thread::get_id(), mainThread);
        received.push_back(*object);
    });
    std::thread([&] { center.post("a", "x"); }).join();
    EXPECT_TRUE(received.empty());
    center.deliverPending();
    EXPECT_EQ(received, std::vector<std::string>{"x"});
    std::thread([&] { center.post("a", "y"); }).join();
    center.post("a", "z");
    EXPECT_EQ(received, (std::vector<std::string>{"x", "y", "z"}));
    center.deliverPending();
    EXPECT_EQ(received.size(), 3U);
}

TEST(InProcessNotificationCenter, LeavesTheDeliveryToItsDispatch) {
    Queue queue;
    InProcessNotificationCenter center(queue.dispatch());
    int count = 0;
    const ObserverToken token = center.observe("a", [&](const Object&) { ++count; });
    std::thread poster([&] { center.post("a", "x"); });
    poster.join();
    EXPECT_EQ(count, 0);
    queue.run();
    EXPECT_EQ(count, 1);
}

TEST(InProcessNotificationCenter, DropsAQueuedDeliveryWhenTheTokenIsLetGo) {
    Queue queue;
    InProcessNotificationCenter center(queue.dispatch());
    int count = 0;
    ObserverToken token = center.observe("a", [&](const Object&) { ++count; });
    center.post("a", "x");
    token.reset();
    queue.run();
    EXPECT_EQ(count, 0);
}

TEST(InProcessNotificationCenter, DropsAQueuedDeliveryWhenItIsGone) {
    Queue queue;
    int count = 0;
    ObserverToken token;
    {
        InProcessNotificationCenter center(queue.dispatch());
        token = center.observe("a", [&](const Object&) { ++count; });
        center.post("a", "x");
    }
    queue.run();
    EXPECT_EQ(count, 0);
}

TEST(ObserverToken, UnregistersOnceHoweverItMoves) {
    int count = 0;
    {
        ObserverToken first([&] { ++count; });
        ObserverToken second(std::move(first));
        ObserverToken third;
        third = std::move(second);
        EXPECT_EQ(count, 0);
        third.reset();
        EXPECT_EQ(count, 1);
        third = ObserverToken([&] { count += 10; });
        third = ObserverToken();
        EXPECT_EQ(count, 11);
    }
    EXPECT_EQ(count, 11);
}

} // namespace tervale
