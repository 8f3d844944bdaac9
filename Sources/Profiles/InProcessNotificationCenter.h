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

    /// The thread that makes the object is its main thread. What that thread posts is delivered
    /// within `post`; what another one posts waits for `deliverPending`, or for the next post of
    /// the main thread.
    InProcessNotificationCenter();
    explicit InProcessNotificationCenter(Dispatch dispatch);
    ~InProcessNotificationCenter() override;

    void post(const std::string& name, const std::optional<std::string>& object) override;
    /// Delivers what other threads have posted, unless a `dispatch` does. Main thread.
    void deliverPending();
    [[nodiscard]] ObserverToken observe(const std::string& name, Handler handler) override;

  private:
    struct Registry;
    struct MainThread;

    explicit InProcessNotificationCenter(const std::shared_ptr<MainThread>& mainThread);

    Dispatch dispatch;
    std::shared_ptr<Registry> registry;
    /// Null with a `dispatch`.
    std::shared_ptr<MainThread> mainThread;
};

} // namespace tervale
