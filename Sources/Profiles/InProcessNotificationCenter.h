#pragma once

#include "Profiles/NotificationCenter.h"

#include <functional>
#include <memory>

namespace tervale {

/// A notification center within one process, for the simulation and for tests.
class InProcessNotificationCenter final : public NotificationCenter {
  public:
    /// Runs a delivery on the main thread, now or later. Called from the thread that posts.
    using Dispatch = std::function<void(std::function<void()> delivery)>;

    /// Delivers within `post`.
    InProcessNotificationCenter();
    explicit InProcessNotificationCenter(Dispatch dispatch);
    ~InProcessNotificationCenter() override;

    void post(const std::string& name, const std::optional<std::string>& object) override;
    [[nodiscard]] ObserverToken observe(const std::string& name, Handler handler) override;

  private:
    struct Registry;

    Dispatch dispatch;
    std::shared_ptr<Registry> registry;
};

} // namespace tervale
