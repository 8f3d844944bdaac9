#pragma once

#include "Profiles/Bridge.h"
#include "Profiles/SensorSampler.h"
#include "SMC/SMC.h"
#include "TervaleWindow/Model/RepeatingTimer.h"
#include "TervaleWindow/Model/Visibility.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tervale {

/// The window's one observable state, and its main loop. Once a second, while the application is
/// visible, it reads the fans and a summary of the temperatures from the controller, and every
/// fifth time all sensors while a pane shows them. Beside that it mirrors what the menu-bar agent
/// publishes. It never changes fan control: the panes send commands, and the agent's answer comes
/// back as state.
///
/// Each field that can change has a signal, sent once for every real change and never otherwise.
/// Everything runs on the main thread.
class Model final : public QObject {
    Q_OBJECT

  public:
    /// A fan as it is shown is the fan as it was read.
    using DisplayFan = Fan;
    /// Degrees Celsius by sensor.
    using Readings = std::unordered_map<TemperatureSensor, double>;

    /// Changes of speed below this many revolutions per minute are not shown.
    static constexpr double speedStep = 25.0;
    /// Changes of temperature below this many degrees are not shown.
    static constexpr double temperatureStep = 1.0;
    /// All sensors are read on every poll whose number is a multiple of this.
    static constexpr std::int64_t sensorsInterval = 5;

    /// The time from one poll to the next, and how much later than that it may come.
    static constexpr std::chrono::seconds pollInterval{1};
    static constexpr std::chrono::milliseconds pollTolerance{200};

    /// What the summary holds: the hottest sensor of every group but `other`, and the average of
    /// the groups whose average is meaningful.
    static const TemperatureInputSet& summaryInputs();

    /// Opens the controller, finds its sensors, asks the agent for its state, polls once and starts
    /// the timer of the polls. A controller that cannot be opened stays absent. The first four
    /// outlive the model.
    Model(IORegistry& registry, Bridge& bridge, const Clock& clock, const Visibility& visibility,
          const TimerFactory& makeTimer = &makeToolkitTimer);
    ~Model() override;

    const std::vector<DisplayFan>& fans() const { return fansShown; }
    /// Degrees Celsius.
    const TemperatureReadings& summary() const { return summaryShown; }
    /// Every sensor that was found at start.
    const std::vector<TemperatureSensor>& sensors() const { return sensorsFound; }
    /// The latest reading of every sensor, kept up only while `sensorsVisible`.
    const Readings& readings() const { return readingsShown; }
    /// True once any state has arrived from the agent, and then for good.
    bool connected() const { return agentAnswered; }
    const Action& selection() const { return agent.selection; }
    const std::optional<Action>& timerAction() const { return agent.timerAction; }
    const std::optional<Date>& timerEnds() const { return agent.timerEnds; }
    const std::optional<std::string>& status() const { return agent.status; }
    bool launchAtLogin() const { return agent.launchAtLogin; }
    const std::vector<Profile>& profiles() const { return agent.profiles; }

    /// Set by the pane that shows all sensors, while it is on screen.
    void setSensorsVisible(bool visible) { sensorsVisible = visible; }
    /// Reads all sensors at once, whatever the poll's turn; nothing without a controller.
    void readAllSensors();
    /// One poll, as the timer makes it.
    void refresh();

    /// An action's name for people: "Max", "50%", a profile's name, "Missing profile", "Automatic".
    QString nameOf(const Action& action) const;

  signals:
    void fansChanged();
    void summaryChanged();
    void readingsChanged();
    void connectedChanged();
    void selectionChanged();
    void timerActionChanged();
    void timerEndsChanged();
    void statusChanged();
    void launchAtLoginChanged();
    void profilesChanged();
    /// A state of the agent changed any of what it publishes; after the signals of the fields.
    void stateChanged();

  private:
    void open(IORegistry& registry);
    void requireMainThread() const;
    std::vector<DisplayFan> readFans();
    void apply(const BridgeState& state);

    const Clock& clock;
    const Visibility& visibility;

    std::vector<DisplayFan> fansShown;
    TemperatureReadings summaryShown;
    std::vector<TemperatureSensor> sensorsFound;
    Readings readingsShown;
    bool agentAnswered = false;
    BridgeState agent;

    bool sensorsVisible = false;
    std::unique_ptr<SMC> smc;
    std::optional<SensorSampler> sampler;
    std::int64_t ticks = 0;
    ObserverToken stateObserver;
    std::shared_ptr<void> timer;
};

/// Whether a list of fans differs from the one shown in a way that is worth showing.
bool moved(const std::vector<Model::DisplayFan>& fans, const std::vector<Model::DisplayFan>& from);
/// Whether two maps differ in their keys, or in a value by `Model::temperatureStep` or more.
bool moved(const Model::Readings& readings, const Model::Readings& from);
bool moved(const TemperatureReadings& readings, const TemperatureReadings& from);

} // namespace tervale
