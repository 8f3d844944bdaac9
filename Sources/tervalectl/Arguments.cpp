#include "tervalectl/Arguments.h"

#include "tervalectl/CommandTable.h"

#include <QFile>

#include <utility>

namespace tervale::ctl {

namespace {

QString optionName(std::string_view name) {
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace

Failure misuse(std::string line) {
    return {ExitStatus::wrongUsage, std::move(line)};
}

Failure missing(std::string_view command, std::string_view argument) {
    return misuse(std::string(command) + ": " + std::string(argument) + " is missing.");
}

Arguments::Arguments(const QStringList& line) {
    for (const Option& option : allOptions()) {
        QStringList names{optionName(option.name)};
        if (!option.letter.empty())
            names << optionName(option.letter);
        parser.addOption(QCommandLineOption(names, {}, optionName(option.value)));
    }
    if (!parser.parse(line))
        throw misuse(parser.errorText().toStdString());
    positional = parser.positionalArguments();
}

bool Arguments::has(std::string_view option) const {
    return parser.isSet(optionName(option));
}

std::string Arguments::value(std::string_view option) const {
    return parser.value(optionName(option)).toStdString();
}

std::string Arguments::path(std::string_view option) const {
    return QFile::encodeName(parser.value(optionName(option))).toStdString();
}

std::string Arguments::takePath() {
    return QFile::encodeName(positional.takeFirst()).toStdString();
}

std::string Arguments::takeAll() {
    return std::exchange(positional, {}).join(QLatin1Char(' ')).toStdString();
}

} // namespace tervale::ctl
