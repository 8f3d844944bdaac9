#pragma once

#include <QKeyEvent>

#include <utility>

namespace tervale {

/// A run of key presses, each within a second of the one before.
class KeyBurst {
  public:
    /// Whether the press, which is a part of the run from now on, begins another one.
    bool beginsWith(const QKeyEvent& press) {
        return press.timestamp() > std::exchange(last, press.timestamp()) + longestPause;
    }

  private:
    static constexpr quint64 longestPause = 1000;
    /// In milliseconds, as events count them.
    quint64 last = 0;
};

} // namespace tervale
