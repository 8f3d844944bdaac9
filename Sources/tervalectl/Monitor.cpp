#include "tervalectl/Monitor.h"

#include "Profiles/DisplayText.h"
#include "Profiles/SensorSampler.h"
#include "SMC/SMC.h"
#include "tervalectl/ControlTick.h"
#include "tervalectl/SpeedText.h"
#include "tervalectl/Table.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace tervale {

namespace {

using namespace std::chrono_literals;

/// The load is that of the time since it was last read, and means nothing over a shorter one.
constexpr auto firstLoad = 200ms;

void wait(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Reads ticks of one machine.
class Source {
  public:
    Source(Backend& backend, const Clock& clock)
        : backend(backend),
          clock(clock),
          smc(backend.registry()),
          sensors(smc.temperatureSensors()),
          sampler(sensors,
                  [this](const TemperatureSensor& sensor) { return smc.temperature(sensor); }) {
        for (std::size_t position = 0; position < temperatureInputCount; ++position)
            everyInput.insert(temperatureInputAt(position));
        backend.processorLoad();
    }

    ControlTick read() {
        const Date now = clock.now();
        ControlTick tick;
        tick.time = now.sinceReference + Date::referenceSinceUnixEpoch;
        tick.minute = clock.minuteOfDay();
        tick.load = backend.processorLoad();
        tick.temperatures = sampler.sample(everyInput, now);
        try {
            tick.fans = smc.fans();
        } catch (const SMCError&) {
            // The line tells that they could not be read by leaving them out.
        }
        return tick;
    }
    bool has(SensorGroup group) const {
        return std::ranges::find(sensors, group, &TemperatureSensor::group) != sensors.end();
    }

  private:
    Backend& backend;
    const Clock& clock;
    SMC smc;
    std::vector<TemperatureSensor> sensors;
    SensorSampler sampler;
    TemperatureInputSet everyInput;
};

/// Prints ticks for eyes. The columns are those of what was there at the beginning.
class Lines {
  public:
    Lines(const Source& source, const ControlTick& first)
        : fanCount(first.fans.size()),
          table(columns(source)) {}

    void printTitles(std::ostream& out) const { table.printTitles(out); }
    void print(std::ostream& out, const ControlTick& tick) const {
        Table::Row row{tick.timeOfDay(), tick.load ? displayText::percent(*tick.load / 100) : "–"};
        for (const TemperatureInput input : inputs) {
            const auto reading = tick.temperatures.at(input);
            row.push_back(reading ? displayText::celsius(*reading) : "–");
        }
        for (std::size_t i = 0; i < fanCount; ++i)
            row.push_back(i < tick.fans.size() ? speedText(tick.fans[i].actual) : "–");
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
            columns.push_back({"Fan " + std::to_string(i + 1), right, 8});
        return Table(std::move(columns));
    }

    std::size_t fanCount;
    std::vector<TemperatureInput> inputs;
    Table table;
};

void printLine(const ControlTick& tick, const std::optional<Lines>& lines, Context& context) {
    if (lines) {
        lines->print(context.out, tick);
    } else {
        JSONWriter json;
        write(json, tick);
        context.out << json.text << '\n';
    }
    context.out.flush();
}

/// Until the next whole interval since the start.
std::chrono::milliseconds untilNext(const QElapsedTimer& start, double interval) {
    const double elapsed = static_cast<double>(start.nsecsElapsed()) / 1e9;
    const double next = (std::floor(elapsed / interval) + 1) * interval;
    return std::chrono::milliseconds(static_cast<std::int64_t>(std::ceil((next - elapsed) * 1000)));
}

} // namespace

ExitStatus perform(const ctl::Monitor& command, Context& context) {
    const auto backend = context.makeBackend();
    Source source(*backend, context.clock);
    if (command.count == 0)
        return ExitStatus::done;
    wait(firstLoad);
    QElapsedTimer start;
    start.start();
    ControlTick tick = source.read();
    std::optional<Lines> lines;
    if (!context.json) {
        lines.emplace(source, tick);
        lines->printTitles(context.out);
    }
    for (std::int64_t printed = 1;; ++printed) {
        printLine(tick, lines, context);
        if (!context.out || printed == command.count)
            return ExitStatus::done;
        wait(untilNext(start, command.interval));
        tick = source.read();
    }
}

} // namespace tervale
