#include "tervalectl/Monitor.h"

#include "Platform/TerminationSignals.h"
#include "Profiles/Bridge.h"
#include "Profiles/DisplayText.h"
#include "Profiles/SafetyLatch.h"
#include "Profiles/SensorSampler.h"
#include "SMC/SMC.h"
#include "Simulation/SimulatedProcessor.h"
#include "tervalectl/AgentConnection.h"
#include "tervalectl/ChartFile.h"
#include "tervalectl/ChartText.h"
#include "tervalectl/Formatting.h"
#include "tervalectl/MachineReading.h"
#include "tervalectl/StatusJudgement.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace tervale {

namespace {

using namespace std::chrono_literals;

/// The load is that of the time since it was last read, and means nothing over a shorter one.
constexpr auto firstLoad = 200ms;

/// Whether nobody has asked the command to end, after that time.
class Waiting {
  public:
    bool wait(std::chrono::milliseconds time) {
        if (!ended) {
            QTimer timer;
            timer.setTimerType(Qt::PreciseTimer);
            QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
            timer.start(time);
            loop.exec();
        }
        return !ended;
    }
    void end() {
        ended = true;
        loop.quit();
    }

  private:
    QEventLoop loop;
    bool ended = false;
};

/// The controller, what it has, and what remembers its readings.
struct Sensing {
    explicit Sensing(IORegistry& registry)
        : smc(registry),
          sensors(smc.temperatureSensors()),
          sampler(sensors,
                  [this](const TemperatureSensor& sensor) { return smc.temperature(sensor); }) {}
    Sensing(const Sensing&) = delete;
    Sensing& operator=(const Sensing&) = delete;

    SMC smc;
    std::vector<TemperatureSensor> sensors;
    SensorSampler sampler;
};

/// Reads one machine repeatedly, and reopens its controller when it is back.
class Source {
  public:
    Source(const Machine& machine, const Clock& clock) : machine(machine), clock(clock) {
        open();
        load = simulatedProcessor::loadOf(machine.registry, machine.load);
        load();
    }

    MachineReading read() {
        MachineReading reading;
        // Both from the same minute.
        Date now;
        do {
            reading.minute = clock.minuteOfDay();
            now = clock.now();
        } while (reading.minute != clock.minuteOfDay());
        reading.time = now.sinceReference + Date::referenceSinceUnixEpoch;
        reading.load = load();
        try {
            if (!sensing || sensing->sensors.empty())
                open();
            reading.temperatures = sensing->sampler.sample(everyInput, now);
            reading.fans = sensing->smc.fans();
        } catch (const SMCError&) {
            // What could not be read stays absent.
            letGoIfGone();
        }
        return reading;
    }
    bool has(SensorGroup group) const {
        return std::ranges::find(sensing->sensors, group, &TemperatureSensor::group) !=
               sensing->sensors.end();
    }

  private:
    void open() { sensing = std::make_unique<Sensing>(*machine.registry); }
    void letGoIfGone() {
        try {
            if (sensing)
                sensing->smc.keyCount();
        } catch (const SMCError&) {
            sensing.reset();
        }
    }

    static constexpr TemperatureInputSet everyInput = [] {
        TemperatureInputSet inputs;
        for (const TemperatureInput input : allTemperatureInputs)
            inputs.insert(input);
        return inputs;
    }();

    const Machine& machine;
    const Clock& clock;
    std::unique_ptr<Sensing> sensing;
    /// Of the machine that is watched, which need not be this one.
    LoadReading load;
};

/// What the agent says, as it was last heard.
class Overheard {
  public:
    explicit Overheard(const Machine& machine)
        : bridge(*machine.notificationCenter),
          states(bridge.onState([this](const BridgeState& state) { last = state; })),
          channel(bridge.onChannel([this](Channel way) {
              last.reset();
              if (way == Channel::back)
                  bridge.send(command::RequestState{});
          })) {
        bridge.send(command::RequestState{});
    }
    Overheard(const Overheard&) = delete;
    Overheard& operator=(const Overheard&) = delete;

    const std::optional<BridgeState>& state() const { return last; }

  private:
    Bridge bridge;
    std::optional<BridgeState> last;
    ObserverToken states;
    ObserverToken channel;
};

/// Prints readings as a table. The columns are those of the first reading, and one for what the
/// agent's safety latch does.
class Lines {
  public:
    Lines(const Source& source, const MachineReading& first)
        : fanCount(first.fans.size()),
          table(columns(source)) {}

    void printTitles(std::ostream& out) const { table.printTitles(out); }
    void print(std::ostream& out, const MachineReading& reading,
               const std::optional<BridgeState>& state) const {
        Table::Row row{reading.timeOfDay(),
                       reading.load ? displayText::percent(*reading.load / 100) : "–"};
        for (const TemperatureInput input : inputs) {
            const auto celsius = reading.temperatures.at(input);
            row.push_back(celsius ? displayText::celsius(*celsius) : "–");
        }
        for (std::size_t i = 0; i < fanCount; ++i)
            row.push_back(i < reading.fans.size() ? speedText(reading.fans[i].actual) : "–");
        row.push_back(state && tellsSafety(*state) ? "engaged" : "");
        table.print(out, row);
    }

  private:
    Table columns(const Source& source) {
        constexpr auto right = Table::Alignment::right;
        std::vector<Table::Column> columns{{"TIME", right, 8}, {"LOAD", right, 4}};
        for (const SensorGroup group : SensorGroup::allCases) {
            if (!source.has(group))
                continue;
            inputs.push_back(TemperatureInput::headline(group));
            columns.push_back({inputs.back().title(), right, 6});
        }
        for (std::size_t i = 0; i < fanCount; ++i)
            columns.push_back({displayText::fan(static_cast<std::int64_t>(i)), right, 8});
        columns.push_back({"SAFETY"});
        return Table(std::move(columns));
    }

    std::size_t fanCount;
    std::vector<TemperatureInput> inputs;
    Table table;
};

void printLine(const MachineReading& reading, const std::optional<BridgeState>& state,
               const std::optional<Lines>& lines, Context& context) {
    if (lines) {
        lines->print(context.out, reading, state);
    } else {
        JSONWriter json;
        json.object([&] {
            writeMembers(json, reading);
            if (state)
                writeOverrides(json, *state);
        });
        printJSON(context.out, json.text);
    }
    context.out.flush();
}

/// The chart of what is read, which is written when the command ends, or drawn over and over in a
/// terminal.
class Picture {
  public:
    Picture(std::string file, Context& context) : file(std::move(file)), context(context) {}

    bool isText() const { return chartKind(file) == ChartKind::text; }
    /// `state` is what the agent last said, if it has.
    void add(const MachineReading& reading, const std::optional<BridgeState>& state) {
        ChartSample sample = sampleOf(reading);
        sample.target = targetOf(reading.fans);
        // Without an agent, what its latch would do with these readings.
        const bool engaged = latch.update(std::max(sample.cpu, sample.gpu));
        sample.safety = state ? tellsSafety(*state) : engaged;
        chart.add(sample);
        if (isText() && context.textStyle.live)
            draw();
    }
    void end() {
        if (!isText() || !context.textStyle.live)
            writeChart(chart, file, context);
    }

  private:
    void draw() {
        if (lines > 0)
            context.out << "\x1b[" << lines << "A\x1b[J";
        const std::string text = chartText(chart, context.textStyle);
        lines = std::ranges::count(text, '\n');
        context.out << text << std::flush;
    }

    std::string file;
    Context& context;
    Chart chart{"Monitor"};
    SafetyLatch latch;
    /// How many of the terminal's lines hold the last drawing.
    std::ptrdiff_t lines = 0;
};

/// Until the next whole interval since the start.
std::chrono::milliseconds untilNext(const QElapsedTimer& start, double interval) {
    const double elapsed = static_cast<double>(start.nsecsElapsed()) / 1e9;
    const double next = (std::floor(elapsed / interval) + 1) * interval;
    return std::chrono::milliseconds(static_cast<std::int64_t>(std::ceil((next - elapsed) * 1000)));
}

} // namespace

ExitStatus perform(const ctl::Monitor& command, Context& context) {
    // Rather than after hours of readings, when it is too late.
    if (command.chart)
        requireChartFile(*command.chart, context);
    const Machine machine = context.makeMachine();
    Source source(machine, context.clock);
    const Overheard agent(machine);
    if (command.count == 0)
        return ExitStatus::done;
    Waiting waiting;
    std::optional<Picture> picture;
    std::optional<TerminationSignals> interruption;
    if (command.chart) {
        picture.emplace(*command.chart, context);
        // Whoever interrupts it wants the picture.
        interruption.emplace([&waiting] { waiting.end(); });
    }
    const bool printed = !picture || !picture->isText();
    waiting.wait(firstLoad);
    QElapsedTimer start;
    start.start();
    MachineReading reading = source.read();
    std::optional<Lines> lines;
    if (!context.json && printed) {
        lines.emplace(source, reading);
        lines->printTitles(context.out);
    }
    for (std::int64_t count = 1;; ++count) {
        if (picture)
            picture->add(reading, agent.state());
        if (printed)
            printLine(reading, agent.state(), lines, context);
        if (!context.out || count == command.count ||
            !waiting.wait(untilNext(start, command.interval)))
            break;
        reading = source.read();
    }
    if (picture)
        picture->end();
    return ExitStatus::done;
}

} // namespace tervale
