#pragma once

#include "Profiles/Bridge.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace tervale::test {

/// Makes valid and less likely values of every type, the same ones for the same seed.
class RandomValues {
  public:
    explicit RandomValues(std::uint64_t seed) : engine(seed) {}

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine() % limit); }
    bool coin() { return below(2) == 0; }

    /// Any finite double, by its bits.
    double number() {
        for (;;) {
            const double value = std::bit_cast<double>(std::uint64_t{engine()});
            if (std::isfinite(value))
                return value;
        }
    }
    double fraction() { return static_cast<double>(below(1001)) / 1000; }
    std::int64_t integer() { return std::bit_cast<std::int64_t>(std::uint64_t{engine()}); }

    std::string text() {
        static const std::vector<std::string> pieces{"a",
                                                     "Z",
                                                     " ",
                                                     "/",
                                                     "\\",
                                                     "\"",
                                                     "\n",
                                                     "\t",
                                                     "\x01",
                                                     "\x7F",
                                                     std::string(1, '\0'),
                                                     "\xC3\xA9",
                                                     "\xE2\x80\xA8",
                                                     "\xEF\xBF\xBF",
                                                     "\xF0\x9F\x8C\x80",
                                                     "{",
                                                     "]",
                                                     ","};
        std::string text;
        for (std::size_t count = below(9); count > 0; --count)
            text += pieces[below(pieces.size())];
        return text;
    }
    UUID id() {
        UUID id;
        for (std::uint8_t& byte : id.bytes)
            byte = static_cast<std::uint8_t>(engine());
        return id;
    }
    TemperatureInput input() { return {SensorGroup::allCases[below(6)], coin()}; }
    CurvePoint point() {
        return coin() ? CurvePoint{static_cast<double>(below(121)), fraction()}
                      : CurvePoint{number(), number()};
    }
    Curve curve() {
        return {list(9, [this] { return point(); })};
    }
    Action action() {
        switch (below(3)) {
        case 0:
            return action::Automatic{};
        case 1:
            return action::Fixed{coin() ? fraction() : number()};
        default:
            return action::Profile{id()};
        }
    }
    Window window() {
        return {coin() ? integer() : static_cast<std::int64_t>(below(1440)), integer(), action()};
    }
    ProfileKind kind() {
        switch (below(3)) {
        case 0:
            return kind::Temperature{input(), curve()};
        case 1:
            return kind::Load{curve()};
        default:
            return kind::Schedule{list(4, [this] { return window(); })};
        }
    }
    Profile profile() { return {id(), text(), kind()}; }
    std::vector<Profile> profiles() {
        return list(4, [this] { return profile(); });
    }
    BridgeCommand command() {
        switch (below(7)) {
        case 0:
            return command::Select{action()};
        case 1:
            return command::StartTimer{action(), number()};
        case 2:
            return command::SaveProfiles{profiles()};
        case 3:
            return command::SetLaunchAtLogin{coin()};
        case 4:
            return command::CancelTimer{};
        case 5:
            return command::CheckForUpdates{};
        default:
            return command::RequestState{};
        }
    }
    BridgeState state() {
        BridgeState state{action(), {}, {}, {}, coin(), profiles()};
        if (coin())
            state.timerAction = action();
        if (coin())
            state.timerEnds = Date{number()};
        if (coin())
            state.status = text();
        return state;
    }

  private:
    /// Fewer than `limit` of them.
    template <class Function>
    std::vector<std::invoke_result_t<Function>> list(std::size_t limit, Function make) {
        std::vector<std::invoke_result_t<Function>> values;
        for (std::size_t count = below(limit); count > 0; --count)
            values.push_back(make());
        return values;
    }

    std::mt19937_64 engine;
};

} // namespace tervale::test
