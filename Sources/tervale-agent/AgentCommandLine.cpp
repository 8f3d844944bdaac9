#include "tervale-agent/AgentCommandLine.h"

#include <QCommandLineParser>

namespace tervale {

namespace {

QString option(const char* name) {
    return QString::fromLatin1(name);
}

void addOptions(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption(QStringList{option("h"), option("help")}));
    for (const char* name : {"version", "simulate", "dry-run"})
        parser.addOption(QCommandLineOption(option(name)));
    for (const char* name : {"socket", "log-level"})
        parser.addOption({option(name), {}, option("VALUE")});
}

AgentCommandLine::Request takeRun(const QCommandLineParser& parser) {
    AgentCommandLine::Run run;
    run.dryRun = parser.isSet(option("dry-run"));
    if (parser.isSet(option("log-level"))) {
        const QString name = parser.value(option("log-level"));
        const auto level = AgentLog::levelNamed(name.toStdString());
        if (!level)
            return AgentCommandLine::Refuse{
                QStringLiteral("--log-level takes one of error, warning, info, debug, not '%1'.")
                    .arg(name)};
        run.logLevel = *level;
    }
    std::optional<std::string> socket;
    if (parser.isSet(option("socket")))
        socket = parser.value(option("socket")).toStdString();
    auto machine = chooseMachine(parser.isSet(option("simulate")), socket);
    if (const auto* fault = std::get_if<MachineChoiceFault>(&machine))
        return AgentCommandLine::Refuse{QString::fromStdString(fault->line)};
    run.machine = std::get<MachineChoice>(std::move(machine));
    return run;
}

} // namespace

AgentCommandLine::Request AgentCommandLine::parse(const QStringList& arguments) {
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        return Refuse{parser.errorText()};
    if (!parser.positionalArguments().isEmpty())
        return Refuse{QStringLiteral("Unexpected argument '%1'.")
                          .arg(parser.positionalArguments().constFirst())};
    if (parser.isSet(option("help")))
        return ShowHelp{};
    if (parser.isSet(option("version")))
        return ShowVersion{};
    return takeRun(parser);
}

QString AgentCommandLine::help() {
    return QStringLiteral(
        "Usage: tervale-agent [OPTION]...\n"
        "Owns the fans: drives them as windows and tervalectl say, and hands them back in the\n"
        "end, however that comes. One agent a user session.\n"
        "\n"
        "  --socket PATH      drive the simulated Mac that serves its controller there\n"
        "  --simulate         drive a simulated Mac within the process\n"
        "  --dry-run          do everything but write to the controller\n"
        "  --log-level LEVEL  what is written to standard error: error, warning, info\n"
        "                     (the usual one) or debug\n"
        "  --help             show this help; so does -h\n"
        "  --version          show the version\n");
}

} // namespace tervale
