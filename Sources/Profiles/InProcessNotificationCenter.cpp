#include "Profiles/InProcessNotificationCenter.h"

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tervale {

/// Who observes, in the order of registration. Handlers are called without the lock, so that they
/// may post, observe and let go.
struct InProcessNotificationCenter::Registry {
    using Identifier = std::uint64_t;
    struct Observer {
        std::string name;
        std::shared_ptr<const Handler> handler;
    };

    std::mutex mutex;
    std::map<Identifier, Observer> observers;
    Identifier next = 0;

    Identifier add(const std::string& name, Handler handler) {
        const std::lock_guard lock(mutex);
        observers.emplace(next,
                          Observer{name, std::make_shared<const Handler>(std::move(handler))});
        return next++;
    }
    void remove(Identifier identifier) {
        // What the handler owns is destroyed after the lock is released.
        std::shared_ptr<const Handler> removed;
        const std::lock_guard lock(mutex);
        const auto found = observers.find(identifier);
        if (found == observers.end())
            return;
        removed = std::move(found->second.handler);
        observers.erase(found);
    }
    std::vector<Identifier> observing(const std::string& name) {
        const std::lock_guard lock(mutex);
        std::vector<Identifier> identifiers;
        for (const auto& [identifier, observer] : observers)
            if (observer.name == name)
                identifiers.push_back(identifier);
        return identifiers;
    }
    /// Null if it was let go in the meantime.
    std::shared_ptr<const Handler> handler(Identifier identifier) {
        const std::lock_guard lock(mutex);
        const auto found = observers.find(identifier);
        return found == observers.end() ? nullptr : found->second.handler;
    }
};

/// What is to be delivered on one thread, in the order of the posts.
struct InProcessNotificationCenter::MainThread {
    const std::thread::id id = std::this_thread::get_id();
    std::mutex mutex;
    std::deque<std::function<void()>> deliveries;

    void enqueue(std::function<void()> delivery) {
        const std::lock_guard lock(mutex);
        deliveries.push_back(std::move(delivery));
    }
    /// Empty if there is none.
    std::function<void()> next() {
        const std::lock_guard lock(mutex);
        if (deliveries.empty())
            return nullptr;
        std::function<void()> delivery = std::move(deliveries.front());
        deliveries.pop_front();
        return delivery;
    }
    void deliver() {
        while (const auto delivery = next())
            delivery();
    }
};

InProcessNotificationCenter::InProcessNotificationCenter()
    : InProcessNotificationCenter(std::make_shared<MainThread>()) {}

InProcessNotificationCenter::InProcessNotificationCenter(
    const std::shared_ptr<MainThread>& mainThread)
    : dispatch([mainThread](std::function<void()> delivery) {
          mainThread->enqueue(std::move(delivery));
          if (std::this_thread::get_id() == mainThread->id)
              mainThread->deliver();
      }),
      registry(std::make_shared<Registry>()),
      mainThread(mainThread) {}

InProcessNotificationCenter::InProcessNotificationCenter(Dispatch dispatch)
    : dispatch(std::move(dispatch)),
      registry(std::make_shared<Registry>()) {}

InProcessNotificationCenter::~InProcessNotificationCenter() = default;

void InProcessNotificationCenter::deliverPending() {
    // A handler may let go of the center.
    if (const std::shared_ptr<MainThread> thread = mainThread)
        thread->deliver();
}

void InProcessNotificationCenter::post(const std::string& name,
                                       const std::optional<std::string>& object) {
    dispatch(
        [weakRegistry = std::weak_ptr(registry), identifiers = registry->observing(name), object] {
            for (const Registry::Identifier identifier : identifiers) {
                const std::shared_ptr<Registry> living = weakRegistry.lock();
                if (!living)
                    return;
                if (const auto handler = living->handler(identifier))
                    (*handler)(object);
            }
        });
}

ObserverToken InProcessNotificationCenter::observe(const std::string& name, Handler handler) {
    const Registry::Identifier identifier = registry->add(name, std::move(handler));
    return ObserverToken([weakRegistry = std::weak_ptr(registry), identifier] {
        if (const std::shared_ptr<Registry> living = weakRegistry.lock())
            living->remove(identifier);
    });
}

} // namespace tervale
