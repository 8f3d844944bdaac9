#include "Platform/macOS/BundleMetadata.h"
#include "Platform/macOS/DistributedNotificationCenter.h"
#include "Platform/macOS/FoundationText.h"
#include "Platform/macOS/UserDefaultsDomain.h"
#include "Platform/macOS/UserDefaultsPreferences.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <map>

// Does with the Foundation adapters what its arguments say, and prints what came of it. Texts and
// data are hexadecimal, so that they may hold anything.

using namespace tervale;

namespace {

using Arguments = std::vector<std::string>;

std::string bytes(const std::string& digits) {
    std::string result;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        result += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return result;
}

template <typename Bytes>
std::string hexadecimal(const Bytes& bytes) {
    std::string result = "<";
    for (const auto byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(byte));
        result += digits;
    }
    return result + ">";
}

template <typename Bytes>
std::string described(const std::optional<Bytes>& bytes) {
    return bytes ? hexadecimal(*bytes) : "nothing";
}

void say(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

std::optional<std::string> object(const std::string& argument) {
    if (argument == "nothing")
        return std::nullopt;
    return bytes(argument);
}

/// An object of a class that no adapter writes.
id foreignObject(const std::string& kind) {
    if (kind == "number")
        return [NSNumber numberWithInt:7];
    if (kind == "array")
        return [NSArray arrayWithObject:@"{}"];
    if (kind == "data")
        return [NSData dataWithBytes:"{}" length:2];
    return @"{}";
}

void runUntil(const bool& done) {
    NSDate* patience = [NSDate dateWithTimeIntervalSinceNow:20];
    while (!done && [patience timeIntervalSinceNow] > 0) {
        @autoreleasepool {
            [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:patience];
        }
    }
    say(done ? "done" : "gave up");
}

/// Prints what comes under the name "a" until something comes under the name "end".
class Observing {
  public:
    NotificationCenter::Handler printing(const std::string& who) {
        return [who](const auto& object) {
            const char* thread = [NSThread isMainThread] ? "" : " on another thread";
            say(who + " " + described(object) + thread);
        };
    }
    void run() {
        const ObserverToken ending = center->observe("end", [this](const auto&) { ended = true; });
        say("ready");
        runUntil(ended);
    }

    std::unique_ptr<DistributedNotificationCenter> center =
        std::make_unique<DistributedNotificationCenter>();

  private:
    bool ended = false;
};

void observe(const Arguments&) {
    Observing observing;
    const ObserverToken token = observing.center->observe("a", observing.printing("first"));
    const ObserverToken other = observing.center->observe("a", observing.printing("second"));
    observing.run();
}

void observeAndLetGo(const Arguments&) {
    Observing observing;
    const auto owned = std::make_shared<int>();
    ObserverToken token = observing.center->observe(
        "a", [owned, print = observing.printing("let go")](const auto& object) { print(object); });
    const ObserverToken other = observing.center->observe("a", observing.printing("kept"));
    token.reset();
    observing.run();
    say("owned by " + std::to_string(owned.use_count()));
}

void observeOnce(const Arguments&) {
    Observing observing;
    ObserverToken token;
    // What the handler owns is to be there still once it has let itself go.
    const auto owned = std::make_shared<std::string>("owned");
    token = observing.center->observe(
        "a", [&token, owned, print = observing.printing("once")](const auto& object) {
            token.reset();
            print(object);
            say(*owned + " by " + std::to_string(owned.use_count()));
        });
    const ObserverToken other = observing.center->observe("a", observing.printing("kept"));
    observing.run();
    say("then by " + std::to_string(owned.use_count()));
}

void observeBeyondTheCenter(const Arguments&) {
    Observing observing;
    const auto owned = std::make_shared<int>();
    ObserverToken token;
    {
        DistributedNotificationCenter center;
        token = center.observe("a", [owned, print = observing.printing("too late")](
                                        const auto& object) { print(object); });
    }
    say("owned by " + std::to_string(owned.use_count()));
    token.reset();
    const ObserverToken other = observing.center->observe("a", observing.printing("kept"));
    observing.run();
}

void post(const Arguments& arguments) {
    DistributedNotificationCenter center;
    for (std::size_t i = 0; i + 1 < arguments.size(); i += 2)
        center.post(bytes(arguments[i]), object(arguments[i + 1]));
}

} // namespace

/// The session's notification server as the system's own center sees it.
@protocol TervaleNotificationServer
- (oneway void)postNotificationName:(NSString*)name
                             object:(bycopy id)object
                           userInfo:(NSData*)info
                 deliverImmediately:(BOOL)immediately
                                for:(id)client;
@end

@interface TervaleWorker : NSObject {
    volatile BOOL connected;
}
- (BOOL)isConnected;
- (void)serve:(id)nothing;
- (void)post:(id)nothing;
@end

@implementation TervaleWorker

- (BOOL)isConnected {
    return connected;
}

- (void)serve:(id)nothing {
    @autoreleasepool {
        DistributedNotificationCenter().post("unheard", std::nullopt);
        connected = YES;
        [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:20]];
    }
}

- (void)post:(id)nothing {
    @autoreleasepool {
        DistributedNotificationCenter().post("a", "{}");
    }
}

@end

namespace {

/// Whoever connects first to the server has its messages delivered to its thread.
void observeBehindAThread(const Arguments&) {
    TervaleWorker* worker = [[TervaleWorker alloc] init];
    [NSThread detachNewThreadSelector:@selector(serve:) toTarget:worker withObject:nil];
    while (![worker isConnected])
        [NSThread sleepForTimeInterval:0.001];
    observe({});
}

void postFromAThread(const Arguments&) {
    TervaleWorker* worker = [[TervaleWorker alloc] init];
    Observing observing;
    const ObserverToken token = observing.center->observe(
        "a", [&observing, print = observing.printing("first")](const auto& object) {
            print(object);
            observing.center->post("end", std::nullopt);
        });
    [NSThread detachNewThreadSelector:@selector(post:) toTarget:worker withObject:nil];
    observing.run();
}

/// The system's own center refuses to post anything but strings; the server does not.
void postForeign(const Arguments& arguments) {
    DistributedNotificationCenter().post("unheard", std::nullopt);
    id center = [NSDistributedNotificationCenter defaultCenter];
    id<TervaleNotificationServer> server = [center valueForKey:@"_remote"];
    NSData* info = [NSArchiver archivedDataWithRootObject:[NSDictionary dictionary]];
    for (const std::string& kind : arguments)
        [server postNotificationName:@"a"
                              object:foreignObject(kind)
                            userInfo:info
                  deliverImmediately:YES
                                 for:center];
}

void store(const Arguments& arguments) {
    const std::string value = bytes(arguments.at(2));
    const auto* first = reinterpret_cast<const std::byte*>(value.data());
    UserDefaultsPreferences(arguments.at(0))
        .setData(arguments.at(1), Preferences::Data(first, first + value.size()));
}

void storeForeign(const Arguments& arguments) {
    NSUserDefaults* defaults = newUserDefaults(foundationText(arguments.at(0)));
    [defaults setObject:foreignObject(arguments.at(2)) forKey:foundationText(arguments.at(1))];
    [defaults synchronize];
    [defaults release];
}

void load(const Arguments& arguments) {
    const UserDefaultsPreferences preferences(arguments.at(0));
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const auto data = preferences.data(arguments[i]);
        std::optional<std::string> text;
        if (data)
            text.emplace(reinterpret_cast<const char*>(data->data()), data->size());
        say(described(text));
    }
}

void metadata(const Arguments& arguments) {
    say(programHasBundle() ? "bundle" : "no bundle");
    for (const std::string& key : arguments)
        say(described(bundleText(key)));
}

/// What a text is after its way through the system's strings.
void convert(const Arguments& arguments) {
    for (const std::string& text : arguments)
        say(described(standardText(foundationText(bytes(text)))));
}

void convertForeign(const Arguments& arguments) {
    for (const std::string& kind : arguments)
        say(described(standardText(foreignObject(kind))));
    say(described(standardText(nil)));
    const unichar half = 0xD800;
    say(described(standardText([NSString stringWithCharacters:&half length:1])));
}

/// How many objects of all classes there are.
int living() {
    int result = 0;
    for (Class* each = GSDebugAllocationClassList(); *each; ++each)
        result += GSDebugAllocationCount(*each);
    return result;
}

/// Prints how many objects a hundred calls of everything leave behind.
void countLeft(const Arguments& arguments) {
    DistributedNotificationCenter center;
    // Made once, because opening defaults leaves a string of the library's own behind.
    UserDefaultsPreferences preferences(arguments.at(0));
    const auto callEverything = [&] {
        @autoreleasepool {
            const ObserverToken token = center.observe("b", [](const auto&) {});
            center.post("b", "{}");
            center.post("b", "\xFF");
            center.post("b", std::nullopt);
            preferences.setData("key", Preferences::Data(3));
            preferences.data("key");
            preferences.data("absent");
            programHasBundle();
            bundleText("CFBundleVersion");
            standardText(foundationText("\xFF"));
        }
    };
    GSDebugAllocationActive(YES);
    callEverything();
    const int before = living();
    for (int i = 0; i < 100; ++i)
        callEverything();
    say(std::to_string(living() - before));
}

const std::map<std::string, void (*)(const Arguments&)> commands{
    {"observe", &observe},
    {"observe-and-let-go", &observeAndLetGo},
    {"observe-once", &observeOnce},
    {"observe-beyond-the-center", &observeBeyondTheCenter},
    {"observe-behind-a-thread", &observeBehindAThread},
    {"post", &post},
    {"post-from-a-thread", &postFromAThread},
    {"post-foreign", &postForeign},
    {"store", &store},
    {"store-foreign", &storeForeign},
    {"load", &load},
    {"metadata", &metadata},
    {"count-left", &countLeft},
    {"convert", &convert},
    {"convert-foreign", &convertForeign}};

} // namespace

int main(int count, char** arguments) {
    @autoreleasepool {
        const auto command = commands.find(count > 1 ? arguments[1] : "");
        if (command == commands.end())
            return 2;
        command->second(Arguments(arguments + 2, arguments + count));
    }
    return 0;
}
