#include "TervaleWindow/Model/Model.h"

#include "Base/Precondition.h"
#include "Profiles/DisplayText.h"

#include <QThread>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tervale {

namespace {

/// What can be shown, be it a temperature or a speed. A reading beyond, or NaN, is a failed one.
constexpr ClosedRange showable{-1e9, 1e9};

bool isShowable(const Fan& fan) {
    return showable.contains(fan.actual) && showable.contains(fan.target) &&
           showable.contains(fan.min) && showable.contains(fan.max);
}

bool movedBy(double step, double value, double from) {
    return std::abs(value - from) >= step;
}

/// Writes `value` only if it differs, and tells whether it did.
template <class Value>
bool replace(Value& field, const Value& value) {
    if (field == value)
        return false;
    field = value;
    return true;
}

} // namespace

const TemperatureInputSet& Model::summaryInputs() {
    static const TemperatureInputSet inputs = [] {
        TemperatureInputSet set;
        for (const SensorGroup group : SensorGroup::allCases) {
            if (group != SensorGroup::other)
                set.insert(TemperatureInput::hottestOf(group));
            if (TemperatureInput::averaged(group))
                set.insert(TemperatureInput::averageOf(group));
        }
        return set;
    }();
    return inputs;
}

Model::Model(IORegistry& registry, Bridge& bridge, const Clock& clock, const Visibility& visibility,
             const TimerFactory& makeTimer)
    : clock(clock),
      visibility(visibility) {
    open(registry);
    stateObserver = bridge.onState([this](const BridgeState& state) { apply(state); });
    bridge.send(command::RequestState{});
    refresh();
    timer = makeTimer(pollInterval, pollTolerance, [this] { refresh(); });
}

Model::~Model() = default;

void Model::open(IORegistry& registry) {
    try {
        smc = std::make_unique<SMC>(registry);
        sensorsFound = smc->temperatureSensors();
    } catch (const SMCError&) {
        return;
    }
    sampler.emplace(sensorsFound, [this](const TemperatureSensor& sensor) -> std::optional<double> {
        try {
            const double value = smc->read(sensor.key);
            return showable.contains(value) ? std::optional(value) : std::nullopt;
        } catch (const SMCError&) {
            return std::nullopt;
        }
    });
}

void Model::refresh() {
    requireMainThread();
    if (!visibility.visible())
        return;
    if (auto fans = readFans(); moved(fans, fansShown)) {
        fansShown = std::move(fans);
        emit fansChanged();
    }
    const TemperatureReadings summary =
        sampler ? sampler->sample(summaryInputs(), clock.now()) : TemperatureReadings();
    if (moved(summary, summaryShown)) {
        summaryShown = summary;
        emit summaryChanged();
    }
    if (sensorsVisible && smc && ticks % sensorsInterval == 0) {
        if (auto readings = smc->temperatures(sensorsFound); moved(readings, readingsShown)) {
            readingsShown = std::move(readings);
            emit readingsChanged();
        }
    }
    precondition(ticks < std::numeric_limits<std::int64_t>::max(), "the polls ran out of numbers");
    ++ticks;
}

std::vector<Model::DisplayFan> Model::readFans() {
    if (!smc)
        return {};
    try {
        std::vector<DisplayFan> read = smc->fans();
        if (std::all_of(read.begin(), read.end(), isShowable))
            return read;
    } catch (const SMCError&) {
        return {};
    }
    return {};
}

void Model::readAllSensors() {
    if (smc && replace(readingsShown, smc->temperatures(sensorsFound)))
        emit readingsChanged();
}

void Model::requireMainThread() const {
    precondition(QThread::currentThread() == thread(), "the model is used on another thread");
}

void Model::apply(const BridgeState& state) {
    requireMainThread();
    // Observers look at several fields together, so all are written before the first is told.
    const bool connects = replace(agentAnswered, true);
    const bool selects = replace(agent.selection, state.selection);
    const bool timerActs = replace(agent.timerAction, state.timerAction);
    const bool timerMoves = replace(agent.timerEnds, state.timerEnds);
    const bool tells = replace(agent.status, state.status);
    const bool launches = replace(agent.launchAtLogin, state.launchAtLogin);
    const bool profiles = replace(agent.profiles, state.profiles);
    if (connects)
        emit connectedChanged();
    if (selects)
        emit selectionChanged();
    if (timerActs)
        emit timerActionChanged();
    if (timerMoves)
        emit timerEndsChanged();
    if (tells)
        emit statusChanged();
    if (launches)
        emit launchAtLoginChanged();
    if (profiles)
        emit profilesChanged();
    if (connects || selects || timerActs || timerMoves || tells || launches || profiles)
        emit stateChanged();
}

QString Model::nameOf(const Action& action) const {
    return QString::fromStdString(displayText::nameOf(action, agent.profiles));
}

bool moved(const std::vector<Model::DisplayFan>& fans, const std::vector<Model::DisplayFan>& from) {
    return !std::equal(fans.begin(), fans.end(), from.begin(), from.end(),
                       [](const Model::DisplayFan& fan, const Model::DisplayFan& old) {
                           return !movedBy(Model::speedStep, fan.actual, old.actual) &&
                                  !movedBy(Model::speedStep, fan.target, old.target) &&
                                  fan.manual == old.manual;
                       });
}

bool moved(const Model::Readings& readings, const Model::Readings& from) {
    return readings.size() != from.size() ||
           std::any_of(readings.begin(), readings.end(), [&from](const auto& reading) {
               const auto old = from.find(reading.first);
               return old == from.end() ||
                      movedBy(Model::temperatureStep, reading.second, old->second);
           });
}

bool moved(const TemperatureReadings& readings, const TemperatureReadings& from) {
    for (const TemperatureInput input : allTemperatureInputs) {
        const auto value = readings.at(input);
        const auto old = from.at(input);
        if (value.has_value() != old.has_value() ||
            (value && movedBy(Model::temperatureStep, *value, *old)))
            return true;
    }
    return false;
}

} // namespace tervale
