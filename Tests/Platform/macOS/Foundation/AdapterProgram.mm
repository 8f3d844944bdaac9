// A program on the macOS adapters that does what it is told, line by line, and says what came of
// it. Whatever may hold any byte is written in hexadecimal digits behind an "x".

#include "Platform/macOS/BundleMetadata.h"
#include "Platform/macOS/DistributedNotificationCenter.h"
#include "Platform/macOS/FoundationText.h"
#include "Platform/macOS/UserDefaultsPreferences.h"

#import <Foundation/Foundation.h>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <poll.h>
#include <sstream>
#include <string>
#include <unistd.h>

/// The adapter's receiver of notifications, for those that this implementation of Foundation
/// refuses to post: their object is no string.
@protocol NotificationReceiver
- (id)initWithHandler:(tervale::NotificationCenter::Handler)handler;
- (void)receive:(NSNotification*)notification;
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
    std::cout << line << std::endl;
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
    NotificationCenter::Handler handler(const std::string& name);
    id newReceiver(const std::string& name);
    void receive(const std::string& name, id object);
    void receiveOnThread(const std::string& name, id object);

    std::unique_ptr<DistributedNotificationCenter> center =
        std::make_unique<DistributedNotificationCenter>();
    std::map<std::string, ObserverToken> tokens;
};

NotificationCenter::Handler Program::handler(const std::string& name) {
    return [this, name](const std::optional<std::string>& object) {
        const char* thread = [NSThread isMainThread] ? "" : " on another thread";
        say("received " + name + " " + described(object) + thread);
        if (object == "let go")
            tokens.erase(name);
    };
}

id Program::newReceiver(const std::string& name) {
    return
        [[NSClassFromString(@"TervaleNotificationReceiver") alloc] initWithHandler:handler(name)];
}

void Program::receive(const std::string& name, id object) {
    id receiver = newReceiver(name);
    [receiver receive:[NSNotification notificationWithName:@"any" object:object]];
    [receiver release];
}

void Program::receiveOnThread(const std::string& name, id object) {
    id receiver = newReceiver(name);
    [NSThread detachNewThreadSelector:@selector(receive:)
                             toTarget:receiver
                           withObject:[NSNotification notificationWithName:@"any" object:object]];
    [receiver release];
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
    else if (verb == "receive-number")
        receive(name, [NSNumber numberWithInt:7]);
    else if (verb == "receive-dictionary")
        receive(name, [NSDictionary dictionaryWithObject:@"value" forKey:@"key"]);
    else if (verb == "receive-on-thread")
        receiveOnThread(name, foundationText(bytesOf(argument)));
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
        UserDefaultsPreferences(domain).setData(key, data);
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
    else if (!notify(verb, first, second) && !store(verb, first, second, third))
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
                [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate date]];
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
