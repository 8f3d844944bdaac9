// A program on the macOS adapters that does what it is told, line by line, and says what came of
// it. Whatever may hold any byte is written in hexadecimal digits behind an "x".

#include "Platform/macOS/BundleMetadata.h"
#include "Platform/macOS/DistributedNotificationCenter.h"
#include "Platform/macOS/FoundationText.h"
#include "Platform/macOS/TolerantTimer.h"
#include "Platform/macOS/UserDefaultsPreferences.h"

#import <Foundation/Foundation.h>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <poll.h>
#include <sstream>
#include <string>
#include <unistd.h>

/// The server of notifications. Unlike the center of this implementation of Foundation, it takes
/// also those whose object is no string.
@protocol NotificationServer
- (oneway void)postNotificationName:(NSString*)name
                             object:(bycopy id)object
                           userInfo:(NSData*)information
                 deliverImmediately:(BOOL)immediately
                                for:(id)center;
@end

/// A thread that is the first to reach the server, which then delivers to its run loop.
@interface FirstThread : NSObject
- (void)start;
- (void)serve:(id)nothing;
@end

@implementation FirstThread

- (void)start {
    NSConditionLock* lock = [[NSConditionLock alloc] initWithCondition:0];
    [NSThread detachNewThreadSelector:@selector(serve:) toTarget:self withObject:lock];
    [lock lockWhenCondition:1];
    [lock unlock];
    [lock release];
}

- (void)serve:(id)lock {
    @autoreleasepool {
        tervale::DistributedNotificationCenter().post("unheard", std::nullopt);
        [lock lock];
        [lock unlockWithCondition:1];
        [[NSRunLoop currentRunLoop] runUntilDate:[NSDate distantFuture]];
    }
}

@end

using namespace tervale;

namespace {

template <typename Bytes>
std::string hexadecimal(const Bytes& bytes) {
    std::string digits = "x";
    for (const auto byte : bytes) {
        char pair[3];
        std::snprintf(pair, sizeof pair, "%02x", static_cast<unsigned char>(byte));
        digits += pair;
    }
    return digits;
}

std::string bytesOf(const std::string& digits) {
    std::string bytes;
    for (std::size_t position = 1; position + 1 < digits.size(); position += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(position, 2), nullptr, 16));
    return bytes;
}

void say(const std::string& line) {
    std::cout << line << '\n' << std::flush;
}

std::string described(const std::optional<std::string>& text) {
    return text ? hexadecimal(*text) : "nothing";
}

class Program {
  public:
    /// False for what it does not know.
    bool perform(const std::string& line);

  private:
    bool notify(const std::string& verb, const std::string& name, const std::string& argument);
    bool store(const std::string& verb, const std::string& domain, const std::string& key,
               const std::string& value);
    bool time(const std::string& verb, const std::string& interval, const std::string& tolerance);
    NotificationCenter::Handler handler(const std::string& name);
    void countLeft();

    std::unique_ptr<DistributedNotificationCenter> center =
        std::make_unique<DistributedNotificationCenter>();
    std::map<std::string, ObserverToken> tokens;
    std::shared_ptr<void> timer;
    /// Every handler owns it too.
    std::shared_ptr<int> owned = std::make_shared<int>();
};

/// Past the center, which refuses it.
void postForeign(const std::string& name, id object) {
    // Has the center reach the server.
    DistributedNotificationCenter().post("unheard", std::nullopt);
    id center = [NSDistributedNotificationCenter defaultCenter];
    id<NotificationServer> server = [center valueForKey:@"_remote"];
    [server postNotificationName:foundationText(name)
                          object:object
                        userInfo:[NSArchiver archivedDataWithRootObject:[NSDictionary dictionary]]
              deliverImmediately:YES
                             for:center];
}

/// How many objects of all classes there are.
int living() {
    int count = 0;
    for (Class* each = GSDebugAllocationClassList(); *each; ++each)
        count += GSDebugAllocationCount(*each);
    return count;
}

NotificationCenter::Handler Program::handler(const std::string& name) {
    return [this, name, held = owned](const std::optional<std::string>& object) {
        const char* thread = [NSThread isMainThread] ? "" : " on another thread";
        say("received " + name + " " + described(object) + thread);
        if (object == "let go")
            tokens.erase(name);
    };
}

/// Lets what is due happen. This implementation of Foundation runs the common modes by themselves.
void serveRunLoop() {
    for (NSString *mode in
         [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSRunLoopCommonModes, nil])
        [[NSRunLoop currentRunLoop] runMode:mode beforeDate:[NSDate date]];
}

/// Says how many objects a hundred rounds of everything leave behind.
void Program::countLeft() {
    // Made once, because opening defaults leaves a string of the library's own behind.
    UserDefaultsPreferences preferences("counted");
    const auto round = [&] {
        @autoreleasepool {
            const ObserverToken token = center->observe("counted", [](const auto&) {});
            center->post("uncounted", "\xFF");
            center->post("uncounted", std::nullopt);
            tolerantTimer(std::chrono::hours(1), std::chrono::hours(1), [] {});
            // Forgets the timer.
            serveRunLoop();
            preferences.setData("key", Preferences::Data(3));
            preferences.data("key");
            preferences.data("absent");
            programHasBundle();
            bundleText("CFBundleVersion");
            standardText(foundationText("text"));
        }
    };
    GSDebugAllocationActive(YES);
    round();
    const int before = living();
    for (int i = 0; i < 100; ++i)
        round();
    // The library's own caches may grow by a few.
    say(living() - before < 50 ? "little left" : "much left");
}

bool Program::notify(const std::string& verb, const std::string& name,
                     const std::string& argument) {
    if (verb == "observe")
        tokens[name] = center->observe(name, handler(name));
    else if (verb == "let-go")
        tokens.erase(name);
    else if (verb == "forget-center")
        center.reset();
    else if (verb == "post")
        center->post(name, argument.empty() ? std::nullopt : std::optional(bytesOf(argument)));
    else if (verb == "post-number")
        postForeign(name, [NSNumber numberWithInt:7]);
    else if (verb == "post-list")
        postForeign(name, [NSArray arrayWithObject:@"{}"]);
    else if (verb == "post-data")
        postForeign(name, [NSData dataWithBytes:"{}" length:2]);
    else if (verb == "connect-on-thread")
        [[[[FirstThread alloc] init] autorelease] start];
    else if (verb == "suspend")
        [[NSDistributedNotificationCenter defaultCenter] setSuspended:YES];
    else if (verb == "count-owners")
        say(std::to_string(owned.use_count()));
    else if (verb == "count-left")
        countLeft();
    else
        return false;
    return true;
}

bool Program::store(const std::string& verb, const std::string& domain, const std::string& key,
                    const std::string& value) {
    if (verb == "load") {
        const auto data = UserDefaultsPreferences(domain).data(key);
        say("loaded " + (data ? hexadecimal(*data) : std::string("nothing")));
    } else if (verb == "save") {
        Preferences::Data data;
        for (const char byte : bytesOf(value))
            data.push_back(static_cast<std::byte>(byte));
        const auto why = UserDefaultsPreferences(domain).setData(key, data);
        if (why)
            say(*why);
    } else if (verb == "copy") {
        say(UserDefaultsPreferences(domain).keepCopy(key, value) ? "copied" : "not copied");
    } else if (verb == "remove") {
        UserDefaultsPreferences(domain).remove(key);
    } else if (verb == "keys") {
        std::string found = "keys";
        for (const std::string& each : UserDefaultsPreferences(domain).keys(key))
            found += ' ' + each;
        say(found);
    } else {
        return false;
    }
    return true;
}

bool Program::time(const std::string& verb, const std::string& interval,
                   const std::string& tolerance) {
    using Milliseconds = std::chrono::milliseconds;
    if (verb == "start-timer") {
        timer = tolerantTimer(Milliseconds(std::stoi(interval)), Milliseconds(std::stoi(tolerance)),
                              [tick = handler("tick")] { tick(std::nullopt); });
        say("late by up to " + std::to_string(std::lround(latestTimerTolerance() * 1000)));
    } else if (verb == "stop-timer") {
        timer.reset();
    } else {
        return false;
    }
    return true;
}

bool Program::perform(const std::string& line) {
    std::istringstream words(line);
    std::string verb, first, second, third;
    words >> verb >> first >> second >> third;
    if (verb == "bundle")
        say(programHasBundle() ? "bundle" : "no bundle");
    else if (verb == "bundle-text")
        say("text " + described(bundleText(first)));
    else if (!notify(verb, first, second) && !store(verb, first, second, third) &&
             !time(verb, first, second))
        return false;
    say("done " + verb);
    return true;
}

/// Whether there is a line to read; waits for one as long as a notification may wait.
bool hasInput() {
    if (std::cin.rdbuf()->in_avail() > 0)
        return true;
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return ::poll(&input, 1, 5) > 0;
}

} // namespace

int main() {
    std::ios::sync_with_stdio(false);
    @autoreleasepool {
        Program program;
        say("ready");
        while (true) {
            @autoreleasepool {
                serveRunLoop();
                std::string line;
                if (!hasInput())
                    continue;
                if (!std::getline(std::cin, line))
                    return 0;
                if (!program.perform(line))
                    return 2;
            }
        }
    }
}
