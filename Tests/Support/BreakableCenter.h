#pragma once

#include "Profiles/InProcessNotificationCenter.h"

#include <functional>
#include <vector>

namespace tervale {

/// A notification center that can be gone for a while. What is posted in the meantime is lost.
class BreakableCenter final : public NotificationCenter {
  public:
    void post(const std::string& name, const std::optional<std::string>& object) override {
        if (there)
            center.post(name, object);
    }
    [[nodiscard]] ObserverToken observe(const std::string& name, Handler handler) override {
        return center.observe(name, std::move(handler));
    }
    [[nodiscard]] ObserverToken observeChannel(std::function<void(Channel)> handler) override {
        handlers.push_back(std::move(handler));
        return ObserverToken([this, index = handlers.size() - 1] { handlers[index] = nullptr; });
    }

    void change(Channel channel) {
        there = channel == Channel::back;
        for (std::size_t index = 0; index < handlers.size(); ++index)
            if (const auto handler = handlers[index])
                handler(channel);
    }

  private:
    InProcessNotificationCenter center;
    std::vector<std::function<void(Channel)>> handlers;
    bool there = true;
};

} // namespace tervale
