#pragma once

#include "Profiles/Clock.h"
#include "Profiles/Preferences.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// Preferences that read back what they wrote. A value that did not arrive is kept in memory and
/// written again, until it arrives or another one takes its place. Main thread.
class CheckedPreferences final : public Preferences {
  public:
    /// How long until another attempt, in seconds.
    static constexpr double interval = 10;

    /// Both outlive the object.
    CheckedPreferences(Preferences& stored, const Clock& clock) : stored(stored), clock(clock) {}

    std::optional<Data> data(const std::string& key) const override { return stored.data(key); }
    bool contains(const std::string& key) const override { return stored.contains(key); }
    /// Writes nothing where the same is stored already.
    std::optional<std::string> setData(const std::string& key, const Data& data) override;
    bool keepCopy(const std::string& key, const std::string& copy) override;
    std::vector<std::string> keys(const std::string& prefix) const override;
    void remove(const std::string& key) override;

    /// Writes again what did not arrive, if it is time to.
    void retry();
    /// Writes this no more.
    void forget(const std::string& key);
    bool isWaiting(const std::string& key) const { return waiting.contains(key); }
    /// Why something is not stored; nothing while everything is.
    const std::optional<std::string>& failure() const { return lastFailure; }

  private:
    std::optional<std::string> write(const std::string& key, const Data& data);
    void settle();

    Preferences& stored;
    const Clock& clock;
    std::map<std::string, Data> waiting;
    std::optional<std::string> lastFailure;
    Date nextAttempt;
};

} // namespace tervale
