#include "Platform/macOS/DistributedNotificationCenter.h"

#include "Platform/macOS/FoundationText.h"

#include <cstdint>
#include <map>
#include <utility>

using tervale::NotificationCenter;

/// Receives the notifications of one registration. Lives, and is retired, on the main thread.
@interface TervaleNotificationReceiver : NSObject {
    // Not every runtime constructs members that are no objects of its own.
    NotificationCenter::Handler* handler;
    BOOL retired;
}
- (id)initWithHandler:(NotificationCenter::Handler)observing;
/// No call of the handler begins any more; one that runs may finish.
- (void)retire;
- (void)receive:(NSNotification*)notification;
- (void)deliver:(NSNotification*)notification;
@end

@implementation TervaleNotificationReceiver

- (id)initWithHandler:(NotificationCenter::Handler)observing {
    self = [super init];
    if (self)
        handler = new NotificationCenter::Handler(std::move(observing));
    return self;
}

- (void)dealloc {
    delete handler;
    [super dealloc];
}

- (void)retire {
    retired = YES;
}

- (void)receive:(NSNotification*)notification {
    if ([NSThread isMainThread])
        [self deliver:notification];
    else
        [self performSelectorOnMainThread:@selector(deliver:)
                               withObject:notification
                            waitUntilDone:NO];
}

- (void)deliver:(NSNotification*)notification {
    if (retired)
        return;
    @autoreleasepool {
        // The handler may let itself go; what it owns then goes once it has returned.
        [[self retain] autorelease];
        (*handler)(tervale::standardText([notification object]));
    }
}

@end

namespace tervale {

namespace {

/// Receives as long as it lives.
class Registration {
  public:
    Registration(const std::string& name, NotificationCenter::Handler handler)
        : receiver([[TervaleNotificationReceiver alloc] initWithHandler:std::move(handler)]) {
        [[NSDistributedNotificationCenter defaultCenter]
                   addObserver:receiver
                      selector:@selector(receive:)
                          name:foundationText(name)
                        object:nil
            suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    }
    ~Registration() {
        [receiver retire];
        [[NSDistributedNotificationCenter defaultCenter] removeObserver:receiver];
        [receiver release];
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

  private:
    TervaleNotificationReceiver* receiver;
};

} // namespace

struct DistributedNotificationCenter::Registrations {
    using Identifier = std::uint64_t;

    std::map<Identifier, Registration> living;
    Identifier next = 0;
};

DistributedNotificationCenter::DistributedNotificationCenter()
    : registrations(std::make_shared<Registrations>()) {}

DistributedNotificationCenter::~DistributedNotificationCenter() {
    @autoreleasepool {
        registrations.reset();
    }
}

void DistributedNotificationCenter::post(const std::string& name,
                                         const std::optional<std::string>& object) {
    @autoreleasepool {
        [[NSDistributedNotificationCenter defaultCenter]
            postNotificationName:foundationText(name)
                          object:object ? foundationText(*object) : nil
                        userInfo:nil
              deliverImmediately:YES];
    }
}

ObserverToken DistributedNotificationCenter::observe(const std::string& name, Handler handler) {
    @autoreleasepool {
        const Registrations::Identifier identifier = registrations->next++;
        registrations->living.try_emplace(identifier, name, std::move(handler));
        return ObserverToken([weakRegistrations = std::weak_ptr(registrations), identifier] {
            @autoreleasepool {
                // What the handler owns is destroyed once the map is in order again.
                if (const auto strong = weakRegistrations.lock())
                    strong->living.extract(identifier);
            }
        });
    }
}

} // namespace tervale
