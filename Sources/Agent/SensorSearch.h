#pragma once

#include "SMC/SMC.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <variant>
#include <vector>

namespace tervale {

/// Finds every temperature sensor of a controller, for who goes by them for long: one that cannot
/// be read or believed just now is a sensor all the same. A key that could not be asked for is
/// asked for again, less and less often, until the controller has answered for each. Once it has,
/// nothing is asked any more.
class SensorSearch {
  public:
    /// A turn ends with so many keys that could not be asked for; the others have the next one.
    static constexpr int mostFailures = 16;
    /// A key that does not answer is asked for at least every so many turns, once the others are.
    static constexpr int longestPause = 32;

    /// `smc` outlives the object.
    explicit SensorSearch(SMC& smc) : smc(smc) {}

    /// Takes a turn, of which there is one a control tick; the first asks for all keys. Whether
    /// sensors were found.
    bool turn();
    /// Those found so far.
    const std::vector<TemperatureSensor>& sensors() const { return found; }

  private:
    /// A key by its index, or by its name once that is known.
    using Key = std::variant<std::int64_t, std::string>;

    bool count();
    /// Whether the controller has answered for the key.
    bool settle(Key& key);
    bool settleName(const std::string& name);

    SMC& smc;
    std::vector<TemperatureSensor> found;
    bool counted = false;
    /// What the controller has not answered for; of it, first, what has yet to be asked for this
    /// time round.
    std::deque<Key> open;
    std::size_t unasked = 0;
    /// How much was open when this round began.
    std::size_t openBefore = 0;
    int pause = 1;
    int turnsToWait = 0;
};

} // namespace tervale
