#pragma once

#include "Profiles/NotificationCenter.h"

#include <memory>

namespace tervale {

/// The notification center of all programs of a user's session. A notification's string is its
/// object; one whose object is something else counts as one without a string.
///
/// Posted from any thread. Observed and let go on the main thread, whose run loop delivers. With
/// the center all of its observers go.
class DistributedNotificationCenter final : public NotificationCenter {
  public:
    DistributedNotificationCenter();
    ~DistributedNotificationCenter() override;

    void post(const std::string& name, const std::optional<std::string>& object) override;
    [[nodiscard]] ObserverToken observe(const std::string& name, Handler handler) override;

  private:
    struct Registrations;

    std::shared_ptr<Registrations> registrations;
};

} // namespace tervale
