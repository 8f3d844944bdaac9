#include "Platform/macOS/UserDefaultsPreferences.h"

#include "Platform/macOS/FoundationText.h"
#include "Platform/macOS/UserDefaultsDomain.h"

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

void UserDefaultsPreferences::setData(const std::string& key, const Data& data) {
    @autoreleasepool {
        [defaults->store setObject:[NSData dataWithBytes:data.data() length:data.size()]
                            forKey:foundationText(key)];
        // A program that ends at once must not take the value with it.
        [defaults->store synchronize];
    }
}

} // namespace tervale
