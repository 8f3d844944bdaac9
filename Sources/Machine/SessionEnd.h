#pragma once

#include "Profiles/NotificationCenter.h"

#include <QTimer>

#include <chrono>
#include <functional>

namespace tervale {

/// Finds that the user's session is over: the way to the other programs has been gone for long. One
/// that is back in time ends nothing. Main thread.
class SessionEnd {
  public:
    static constexpr std::chrono::milliseconds usualPatience{60000};

    /// `center` outlives the object; `handler` is called once for every end.
    SessionEnd(NotificationCenter& center, std::function<void()> handler,
               std::chrono::milliseconds patience = usualPatience);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;

  private:
    QTimer timer;
    ObserverToken channel;
};

} // namespace tervale
