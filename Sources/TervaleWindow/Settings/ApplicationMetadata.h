#pragma once

#include <optional>
#include <string>
#include <variant>

namespace tervale {

/// What the running application says of itself under keys such as "CFBundleVersion".
class ApplicationMetadata {
  public:
    /// A value of another type than text.
    struct NotText {
        bool operator==(const NotText&) const = default;
    };
    using Value = std::variant<std::string, NotText>;

    virtual ~ApplicationMetadata() = default;

    /// Nothing for a key that it does not hold.
    virtual std::optional<Value> value(const std::string& key) const = 0;
};

} // namespace tervale
