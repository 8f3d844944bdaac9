#include "tervalectl/Words.h"

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

Words::Words(const QStringList& arguments) {
    for (const OptionDescription& option : allOptions())
        parser.addOption(QCommandLineOption(optionName(option.name), {}, optionName(option.value)));
    if (!parser.parse(arguments))
        throw misuse(parser.errorText().toStdString());
    words = parser.positionalArguments();
}

bool Words::has(std::string_view option) const {
    return parser.isSet(optionName(option));
}

std::string Words::text(std::string_view option) const {
    return parser.value(optionName(option)).toStdString();
}

std::string Words::path(std::string_view option) const {
    return QFile::encodeName(parser.value(optionName(option))).toStdString();
}

std::string Words::takePath() {
    return QFile::encodeName(words.takeFirst()).toStdString();
}

std::string Words::takeAll() {
    return std::exchange(words, {}).join(QLatin1Char(' ')).toStdString();
}

} // namespace tervale::ctl
