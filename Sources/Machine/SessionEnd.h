#pragma once

#include "Platform/Platform.h"
#include "Profiles/NotificationCenter.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace tervale {

/// Finds that the user's session is over: the system says so, or the way to the other programs has
/// been gone for long. One that is back in time ends nothing. Main thread.
class SessionEnd {
  public:
    using WatchMaker = std::function<std::unique_ptr<SessionWatch>(std::function<void()> over)>;

    static constexpr std::chrono::milliseconds usualPatience{60000};
    /// How often the system is asked while the others are out of reach.
    static constexpr std::chrono::milliseconds lookInterval{1000};

    /// `center` outlives the object; `handler` is called once at most.
    SessionEnd(NotificationCenter& center, std::function<void()> handler,
               std::chrono::milliseconds patience = usualPatience,
               const WatchMaker& makeWatch = &makeSessionWatch);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;

  private:
    void follow(Channel state);
    void end();

    std::function<void()> handler;
    QTimer timer;
    QTimer looking;
    ObserverToken channel;
    /// Null where the system does not tell.
    std::unique_ptr<SessionWatch> watch;
};

} // namespace tervale
