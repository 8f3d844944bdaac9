#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace tervale {

/// Keeps a registration alive; letting it go unregisters. Outliving the center is harmless.
class ObserverToken {
  public:
    ObserverToken() = default;
    explicit ObserverToken(std::function<void()> unregister) : unregister(std::move(unregister)) {}
    ~ObserverToken() { reset(); }
    ObserverToken(ObserverToken&& other) noexcept
        : unregister(std::exchange(other.unregister, nullptr)) {}
    ObserverToken& operator=(ObserverToken&& other) noexcept {
        if (this != &other) {
            reset();
            unregister = std::exchange(other.unregister, nullptr);
        }
        return *this;
    }

    void reset() {
        if (const auto action = std::exchange(unregister, nullptr))
            action();
    }

  private:
    std::function<void()> unregister;
};

/// What has become of the way to the other programs.
enum class Channel { gone, back };

/// The machine-wide channel between the window and the menu-bar agent: a name, and at most one
/// string. Nothing is acknowledged or repeated, and what nobody observes is lost.
class NotificationCenter {
  public:
    using Handler = std::function<void(const std::optional<std::string>& object)>;

    virtual ~NotificationCenter() = default;

    /// Delivered at once, also to a suspended receiver. From any thread.
    virtual void post(const std::string& name, const std::optional<std::string>& object) = 0;
    /// Calls the handler on the main thread for every notification of that name, from any sender;
    /// without a string when the notification carries none.
    [[nodiscard]] virtual ObserverToken observe(const std::string& name, Handler handler) = 0;
    /// Calls the handler on the main thread when the other programs cannot be reached any more, and
    /// when they can be again; what was posted in between is lost. Never where that cannot happen.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): whoever overrides it keeps it
    [[nodiscard]] virtual ObserverToken observeChannel(std::function<void(Channel)>) { return {}; }
};

} // namespace tervale
