#include "TervaleWindow/Shell/CommandLine.h"

#include <QCommandLineParser>

#include <optional>
#include <string>

namespace tervale {

namespace {

/// Such as "-AppleLanguages"; its value is the next argument.
bool isUserDefault(const QString& argument) {
    return argument.startsWith(QStringLiteral("-Apple")) ||
           argument.startsWith(QStringLiteral("-NS"));
}

QStringList withoutThoseOfMacOS(const QStringList& arguments) {
    QStringList kept;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const bool hasValue =
            i + 1 < arguments.size() && !arguments[i + 1].startsWith(QStringLiteral("--"));
        if (isUserDefault(arguments[i]))
            i += hasValue ? 1 : 0;
        else if (!arguments[i].startsWith(QStringLiteral("-psn_")))
            kept << arguments[i];
    }
    return kept;
}

} // namespace

CommandLine::Request CommandLine::parse(const QStringList& arguments, System system) {
    const QCommandLineOption help(QStringLiteral("help"));
    const QCommandLineOption version(QStringLiteral("version"));
    const QCommandLineOption simulate(QStringLiteral("simulate"));
    const QCommandLineOption socket(QStringLiteral("socket"), {}, QStringLiteral("PATH"));
    const QCommandLineOption pane(QStringLiteral("pane"), {}, QStringLiteral("NAME"));
    QCommandLineParser parser;
    parser.addOptions({help, version, simulate, socket, pane});
    if (!parser.parse(system == System::macOS ? withoutThoseOfMacOS(arguments) : arguments))
        return Refuse{parser.errorText()};
    if (!parser.positionalArguments().isEmpty())
        return Refuse{QStringLiteral("Unexpected argument '%1'.")
                          .arg(parser.positionalArguments().constFirst())};
    if (parser.isSet(help))
        return ShowHelp{};
    if (parser.isSet(version))
        return ShowVersion{};
    std::optional<std::string> path;
    if (parser.isSet(socket))
        path = parser.value(socket).toLocal8Bit().toStdString();
    const auto machine = chooseMachine(parser.isSet(simulate), path);
    if (const auto* fault = std::get_if<MachineChoiceFault>(&machine))
        return Refuse{QString::fromStdString(fault->line)};
    OpenWindow request{std::get<MachineChoice>(machine)};
    if (parser.isSet(pane)) {
        const auto chosen = paneTitled(parser.value(pane));
        if (!chosen)
            return Refuse{QStringLiteral("There is no pane '%1'.").arg(parser.value(pane))};
        request.pane = *chosen;
    }
    return request;
}

QString CommandLine::help() {
    QStringList titles;
    for (const Pane pane : allPanes)
        titles << title(pane);
    return QStringLiteral(
               "Usage: tervale-window [OPTION]...\n"
               "Shows the fans and temperatures of this machine and what drives its fans.\n"
               "\n"
               "  --simulate     run on a simulated Mac with an agent of its own\n"
               "  --socket PATH  show the simulated Mac that serves its controller there\n"
               "  --pane NAME    open with this pane: %1\n"
               "  --help         show this help\n"
               "  --version      show the version\n")
        .arg(titles.join(QStringLiteral(", ")));
}

} // namespace tervale
