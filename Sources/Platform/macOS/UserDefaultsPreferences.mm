#include "Platform/macOS/UserDefaultsPreferences.h"

#include "Platform/macOS/FoundationText.h"
#include "Platform/macOS/UserDefaultsDomain.h"

#include <algorithm>

namespace tervale {

struct UserDefaultsPreferences::Defaults {
    NSUserDefaults* store;

    explicit Defaults(const std::string& domain) : store(newUserDefaults(foundationText(domain))) {}
    ~Defaults() {
        @autoreleasepool {
            [store release];
        }
    }
    Defaults(const Defaults&) = delete;
    Defaults& operator=(const Defaults&) = delete;
};

UserDefaultsPreferences::UserDefaultsPreferences(const std::string& domain) {
    @autoreleasepool {
        defaults = std::make_unique<Defaults>(domain);
    }
}

UserDefaultsPreferences::~UserDefaultsPreferences() = default;

std::optional<Preferences::Data> UserDefaultsPreferences::data(const std::string& key) const {
    @autoreleasepool {
        id value = [defaults->store objectForKey:foundationText(key)];
        if (![value isKindOfClass:[NSData class]])
            return std::nullopt;
        NSData* blob = value;
        const auto* first = static_cast<const std::byte*>([blob bytes]);
        return Data(first, first + [blob length]);
    }
}

bool UserDefaultsPreferences::contains(const std::string& key) const {
    @autoreleasepool {
        return [defaults->store objectForKey:foundationText(key)] != nil;
    }
}

std::optional<std::string> UserDefaultsPreferences::setData(const std::string& key,
                                                            const Data& data) {
    @autoreleasepool {
        [defaults->store setObject:[NSData dataWithBytes:data.data() length:data.size()]
                            forKey:foundationText(key)];
        // A program that ends at once must not take the value with it.
        if (![defaults->store synchronize])
            return "The system did not take it.";
        return std::nullopt;
    }
}

bool UserDefaultsPreferences::keepCopy(const std::string& key, const std::string& copy) {
    @autoreleasepool {
        id value = [defaults->store objectForKey:foundationText(key)];
        if (value == nil || contains(copy))
            return false;
        [defaults->store setObject:value forKey:foundationText(copy)];
        return [defaults->store synchronize];
    }
}

std::vector<std::string> UserDefaultsPreferences::keys(const std::string& prefix) const {
    @autoreleasepool {
        std::vector<std::string> found;
        NSArray* names = [[defaults->store dictionaryRepresentation] allKeys];
        for (NSUInteger index = 0; index < [names count]; ++index) {
            const auto name = standardText([names objectAtIndex:index]);
            if (name && name->starts_with(prefix))
                found.push_back(*name);
        }
        std::sort(found.begin(), found.end());
        return found;
    }
}

void UserDefaultsPreferences::remove(const std::string& key) {
    @autoreleasepool {
        [defaults->store removeObjectForKey:foundationText(key)];
        [defaults->store synchronize];
    }
}

} // namespace tervale
