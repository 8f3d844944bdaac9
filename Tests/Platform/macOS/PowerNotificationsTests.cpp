#include "Platform/macOS/FakeKernel.h"
#include "Platform/macOS/PowerNotifications.h"

#include <gtest/gtest.h>

#include <IOKit/IOMessage.h>
#include <IOKit/pwr_mgt/IOPMLib.h>
#include <bit>
#include <string>
#include <vector>

using namespace tervale;

struct FakeNotificationPort {
    dispatch_queue_t queue = nullptr;
};

namespace {

/// The system's power management: whom it tells, and what it is answered.
struct FakePower {
    bool takesAnyone = true;
    void* reference = nullptr;
    IOServiceInterestCallback callback = nullptr;
    io_object_t notifier = IO_OBJECT_NULL;
    io_connect_t root = IO_OBJECT_NULL;
    FakeNotificationPort* port = nullptr;
    std::vector<std::string> events;

    void tell(std::uint32_t message, std::intptr_t notification) const {
        callback(reference, root, message, std::bit_cast<void*>(notification));
    }
};

FakePower* power = nullptr;

class PowerNotificationsTest : public testing::Test {
  protected:
    PowerNotificationsTest() { power = &fake; }
    ~PowerNotificationsTest() override {
        EXPECT_EQ(fake.port, nullptr) << "the port was not destroyed";
        EXPECT_EQ(fake.notifier, IO_OBJECT_NULL) << "it was not deregistered";
        power = nullptr;
    }

    SleepHandlers handlers() {
        return {[this] { fake.events.emplace_back("before"); },
                [this] { fake.events.emplace_back("after"); }};
    }

    FakeKernel kernel;
    FakePower fake;
};

} // namespace

io_connect_t IORegisterForSystemPower(void* reference, IONotificationPortRef* port,
                                      IOServiceInterestCallback callback, io_object_t* notifier) {
    if (!power->takesAnyone)
        return IO_OBJECT_NULL;
    power->reference = reference;
    power->callback = callback;
    *port = power->port = new FakeNotificationPort;
    *notifier = power->notifier = FakeKernel::current().newHandle();
    power->root = FakeKernel::current().newHandle();
    FakeKernel::current().connections.insert(power->root);
    return power->root;
}

kern_return_t IODeregisterForSystemPower(io_object_t* notifier) {
    EXPECT_EQ(*notifier, power->notifier);
    power->notifier = IO_OBJECT_NULL;
    return KERN_SUCCESS;
}

kern_return_t IOAllowPowerChange(io_connect_t kernelPort, std::intptr_t notification) {
    EXPECT_EQ(kernelPort, power->root);
    power->events.push_back("allow " + std::to_string(notification));
    return KERN_SUCCESS;
}

dispatch_queue_t dispatch_get_main_queue() {
    static int queue = 0;
    return reinterpret_cast<dispatch_queue_t>(&queue);
}

void IONotificationPortSetDispatchQueue(IONotificationPortRef port, dispatch_queue_t queue) {
    port->queue = queue;
}

void IONotificationPortDestroy(IONotificationPortRef port) {
    EXPECT_EQ(port, power->port);
    EXPECT_EQ(port->queue, dispatch_get_main_queue());
    delete port;
    power->port = nullptr;
}

TEST_F(PowerNotificationsTest, HasTheMachineWaitUntilTheHandlerHasRun) {
    const auto watch = powerNotifications(handlers());
    ASSERT_NE(watch, nullptr);
    fake.tell(kIOMessageCanSystemSleep, 6);
    fake.tell(kIOMessageSystemWillSleep, 7);
    fake.tell(0xE0000320, 0);
    fake.tell(kIOMessageSystemHasPoweredOn, 0);
    EXPECT_EQ(fake.events, (std::vector<std::string>{"allow 6", "before", "allow 7", "after"}));
}

TEST_F(PowerNotificationsTest, IsNothingWhereTheSystemTakesNoOneOn) {
    fake.takesAnyone = false;
    EXPECT_EQ(powerNotifications(handlers()), nullptr);
}
