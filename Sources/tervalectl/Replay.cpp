#include "tervalectl/Replay.h"

#include "Base/Overloaded.h"
#include "JSON/JSON.h"
#include "Profiles/Controller.h"
#include "Profiles/DisplayText.h"
#include "tervalectl/ChartFile.h"
#include "tervalectl/Files.h"
#include "tervalectl/Formatting.h"
#include "tervalectl/MachineReading.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <optional>

namespace tervale {

namespace {

/// What one control tick came to.
struct Outcome {
    double time = 0;
    Needs needs;
    Target target;
    bool safety = false;
};

std::vector<std::string> titles(const TemperatureInputSet& inputs) {
    std::vector<std::string> titles;
    for (const TemperatureInput input : allTemperatureInputs) {
        if (inputs.contains(input))
            titles.push_back(input.title());
    }
    std::ranges::sort(titles);
    return titles;
}

void write(JSONWriter& json, const Outcome& outcome) {
    json.object([&] {
        json.member("time", outcome.time);
        json.member("needs", titles(outcome.needs.temperatures));
        json.member("needsLoad", outcome.needs.load);
        if (const auto* speed = std::get_if<target::Speed>(&outcome.target))
            json.member("target", speed->fraction);
        else
            json.member("target", std::string("automatic"));
        json.member("safety", outcome.safety);
    });
}

/// Runs one selection through ticks, as the agent would.
class DryRun {
  public:
    DryRun(const Action& selection, std::vector<Profile> profiles)
        : selection(selection),
          profiles(std::move(profiles)) {}

    Outcome advance(const MachineReading& reading) {
        const int minute = static_cast<int>(reading.minute);
        const Needs needs = Controller::needs(selection, profiles, minute);
        const Target target =
            controller.target(selection, profiles, {reading.temperatures, reading.load, minute});
        const auto* speed = std::get_if<target::Speed>(&target);
        if (speed && !std::isfinite(speed->fraction))
            throw refusal("The speed comes to no number.");
        return {reading.time, needs, target, controller.safetyEngaged()};
    }
    /// The reading that drives the fans, for a table; a dash if none does.
    std::string reading(const MachineReading& reading) const {
        const auto resolved =
            Controller::resolve(selection, profiles, static_cast<int>(reading.minute), 0);
        using Resolved = Controller::Resolved;
        return std::visit(
            overloaded{
                [](const Resolved::Automatic&) -> std::string { return "–"; },
                [](const Resolved::Fixed&) -> std::string { return "–"; },
                [&](const Resolved::Temperature& temperature) {
                    return temperature.input.title() + ' ' +
                           number(reading.temperatures.at(temperature.input), " °C");
                },
                [&](const Resolved::Load&) { return "Load " + number(reading.load, "%"); },
            },
            resolved.value);
    }

    /// The temperature that drives the fans, if one does.
    std::optional<TemperatureInput> input(const MachineReading& reading) const {
        const auto resolved =
            Controller::resolve(selection, profiles, static_cast<int>(reading.minute), 0);
        const auto* temperature = std::get_if<Controller::Resolved::Temperature>(&resolved.value);
        return temperature ? std::optional(temperature->input) : std::nullopt;
    }

    /// Of the trace, from 1.
    std::int64_t line = 0;

  private:
    /// Any number can stand in a file.
    static std::string number(std::optional<double> value, const char* unit) {
        if (!value || std::abs(*value) > 1e9)
            return "–";
        return std::to_string(std::lround(*value)) + unit;
    }

    Action selection;
    std::vector<Profile> profiles;
    Controller controller;
};

const Table& table() {
    static const Table table({{"TIME", Table::Alignment::right, 8},
                              {"READING", Table::Alignment::left, 22},
                              {"TARGET", Table::Alignment::right, 9},
                              {"FANS", Table::Alignment::left, barLength},
                              {"SAFETY"}});
    return table;
}

void print(const Outcome& outcome, const MachineReading& reading, const DryRun& run,
           Context& context) {
    if (context.json) {
        JSONWriter json;
        write(json, outcome);
        printJSON(context.out, json.text);
        return;
    }
    const auto* speed = std::get_if<target::Speed>(&outcome.target);
    table().print(context.out,
                  {reading.timeOfDay(), run.reading(reading),
                   speed ? displayText::percent(speed->fraction) : "automatic",
                   speed ? barText(speed->fraction) : "", outcome.safety ? "engaged" : ""});
}

MachineReading readingIn(const std::string& line) {
    auto decoded = decode<MachineReading>(line);
    if (const auto* error = std::get_if<DecodingError>(&decoded))
        throw refusal(error->text());
    return std::get<MachineReading>(std::move(decoded));
}

ChartSample sampleOf(const MachineReading& reading, const Outcome& outcome, const DryRun& run) {
    ChartSample sample = sampleOf(reading);
    sample.input = run.input(reading);
    if (sample.input)
        sample.driving = reading.temperatures.at(*sample.input);
    if (!outcome.needs.load)
        sample.load.reset();
    if (const auto* speed = std::get_if<target::Speed>(&outcome.target))
        sample.target = speed->fraction;
    // What the fans did was another profile's doing.
    sample.speed.reset();
    sample.safety = outcome.safety;
    return sample;
}

void replay(std::istream& trace, DryRun& run, Chart* chart, bool printed, Context& context) {
    while (context.out) {
        ++run.line;
        const auto line = files::readLine(trace);
        if (!line)
            return;
        if (line->find_first_not_of(" \t\r") == std::string::npos)
            continue;
        const MachineReading reading = readingIn(*line);
        const Outcome outcome = run.advance(reading);
        if (chart)
            chart->add(sampleOf(reading, outcome, run));
        if (printed)
            print(outcome, reading, run, context);
    }
}

} // namespace

ExitStatus perform(const ctl::Replay& command, Context& context) {
    std::vector<Profile> profiles = files::readProfiles(command.profiles, context);
    const Action selection = resolve(command.selection, profiles);
    std::optional<Chart> chart;
    if (command.chart)
        chart.emplace(displayText::nameOf(selection, profiles) + ", dry run");
    const bool printed = !command.chart || chartKind(*command.chart) != ChartKind::text;
    DryRun run(selection, std::move(profiles));
    std::ifstream file;
    std::istream& trace = files::open(command.trace, file, context);
    if (!context.json && printed)
        table().printTitles(context.out);
    try {
        replay(trace, run, chart ? &*chart : nullptr, printed, context);
    } catch (const Failure& failure) {
        throw refusal(files::nameOf(command.trace) + ", line " + std::to_string(run.line) + ": " +
                      failure.line);
    }
    if (chart)
        writeChart(*chart, *command.chart, context);
    return ExitStatus::done;
}

} // namespace tervale
