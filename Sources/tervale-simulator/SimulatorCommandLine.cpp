#include "tervale-simulator/SimulatorCommandLine.h"

#include <QCommandLineParser>

#include <limits>

namespace tervale {

namespace {

constexpr qulonglong mostFans = 10;

QCommandLineOption valued(const char* name) {
    return {QString::fromLatin1(name), {}, QStringLiteral("VALUE")};
}

QString scenarioNames() {
    QStringList names;
    for (const Scenario scenario : allScenarios)
        names << QString::fromUtf8(nameOf(scenario));
    return names.join(QStringLiteral(", "));
}

constexpr qsizetype keyLength = 4;

/// What can go wrong with a key, as a user names it.
const std::vector<std::pair<std::string, Fault>> namedFaults{
    {"refused", fault::Refused{}},
    {"unreadable", fault::RefusedValue{}},
    {"dropped-out", fault::DroppedOut{}},
    {"stuck", fault::Stuck{}},
};

std::optional<Fault> faultNamed(const std::string& name) {
    for (const auto& [known, fault] : namedFaults)
        if (known == name)
            return fault;
    return std::nullopt;
}

QString faultNames() {
    QStringList names;
    for (const auto& [name, fault] : namedFaults)
        names << QString::fromStdString(name);
    return names.join(QStringLiteral(", "));
}

/// The options' values, and what is wrong with the first that is wrong.
class Values {
  public:
    Values() {
        parser.addOption(
            QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
        parser.addOption(QCommandLineOption(QStringLiteral("version")));
        for (const char* name : {"seed", "speed", "scenario", "fans", "sensors", "socket", "fault"})
            parser.addOption(valued(name));
    }

    void parse(const QStringList& arguments) {
        if (!parser.parse(arguments))
            refuse(parser.errorText());
        else if (!parser.positionalArguments().isEmpty())
            refuse(QStringLiteral("Unexpected argument '%1'.")
                       .arg(parser.positionalArguments().constFirst()));
    }
    bool has(const char* name) const { return parser.isSet(QString::fromLatin1(name)); }
    QString text(const char* name) const { return parser.value(QString::fromLatin1(name)); }

    /// From 0 to `most`; sign, blanks and fractions are refused.
    template <class Number>
    void takeWhole(const char* name, qulonglong most, Number& number) {
        if (!has(name))
            return;
        bool valid = true;
        for (const QChar character : text(name))
            valid = valid && character >= u'0' && character <= u'9';
        const qulonglong given = valid ? text(name).toULongLong(&valid) : 0;
        if (valid && given <= most)
            number = static_cast<Number>(given);
        else
            refuseValue(name, QStringLiteral("a whole number from 0 to %1").arg(most));
    }
    /// Above 0 up to `most`.
    void takePositive(const char* name, double most, double& number) {
        if (!has(name))
            return;
        bool valid = false;
        const double given = text(name).toDouble(&valid);
        if (valid && given > 0 && given <= most)
            number = given;
        else
            refuseValue(name, QStringLiteral("a number above 0 up to %1").arg(most));
    }
    void takeScenario(const char* name, Scenario& scenario) {
        if (!has(name))
            return;
        if (const auto named = scenarioNamed(text(name).toStdString()))
            scenario = *named;
        else
            refuseValue(name, QStringLiteral("one of %1").arg(scenarioNames()));
    }
    void takeFaults(const char* name, std::vector<SimulatorCommandLine::KeyFault>& faults) {
        for (const QString& value : parser.values(QString::fromLatin1(name))) {
            const qsizetype sign = value.indexOf(u'=');
            const auto fault = faultNamed(value.mid(sign + 1).toStdString());
            if (sign == keyLength && fault)
                faults.push_back({value.left(sign).toStdString(), *fault});
            else
                refuse(QStringLiteral("--%1 takes KEY=FAULT with one of %2, not '%3'.")
                           .arg(QString::fromLatin1(name), faultNames(), value));
        }
    }
    void refuse(const QString& line) {
        if (!refusal)
            refusal = line;
    }

    std::optional<QString> refusal;

  private:
    void refuseValue(const char* name, const QString& wanted) {
        refuse(QStringLiteral("--%1 takes %2, not '%3'.")
                   .arg(QString::fromLatin1(name), wanted, text(name)));
    }

    QCommandLineParser parser;
};

SimulatorCommandLine::Run takeRun(Values& values) {
    SimulatorCommandLine::Run run;
    values.takeWhole("seed", std::numeric_limits<qulonglong>::max(), run.mac.seed);
    values.takeWhole("fans", mostFans, run.mac.fans);
    values.takeWhole("sensors", SensorBank::most, run.mac.sensors);
    values.takePositive("speed", SimulatorCommandLine::greatestSpeed, run.speed);
    values.takeScenario("scenario", run.mac.scenario);
    values.takeFaults("fault", run.faults);
    if (values.has("socket")) {
        run.socket = values.text("socket").toStdString();
        if (run.socket->empty())
            values.refuse(QStringLiteral("--socket takes a path, not ''."));
    }
    return run;
}

} // namespace

SimulatorCommandLine::Request SimulatorCommandLine::parse(const QStringList& arguments) {
    Values values;
    values.parse(arguments);
    if (!values.refusal && values.has("help"))
        return ShowHelp{};
    if (!values.refusal && values.has("version"))
        return ShowVersion{};
    Run run = values.refusal ? Run{} : takeRun(values);
    if (values.refusal)
        return Refuse{*values.refusal};
    return run;
}

QString SimulatorCommandLine::help() {
    const Run usual;
    return QStringLiteral(
               "Usage: tervale-simulator [OPTION]...\n"
               "Simulates a Mac, whose fans tervale-agent drives and windows show.\n"
               "\n"
               "  --scenario NAME  what the Mac does: %1 (%2)\n"
               "  --seed N         the same seed gives the same course of events (%3)\n"
               "  --speed N        seconds that pass on the Mac in one second, up to %4 (%5)\n"
               "  --fans N         how many fans it has, up to %6 (%7)\n"
               "  --sensors N      how many temperature sensors, up to %8 (%9)\n")
               .arg(scenarioNames(), QString::fromUtf8(nameOf(usual.mac.scenario)))
               .arg(usual.mac.seed)
               .arg(greatestSpeed)
               .arg(usual.speed)
               .arg(mostFans)
               .arg(usual.mac.fans)
               .arg(SensorBank::most)
               .arg(usual.mac.sensors) +
           QStringLiteral(
               "  --fault KEY=F    what goes wrong with a key from the start; may be repeated:\n"
               "                   %1\n"
               "  --socket PATH    serve the controller here, where no window looks\n"
               "  -h, --help       show this help\n"
               "  --version        show the version\n")
               .arg(faultNames());
}

} // namespace tervale
