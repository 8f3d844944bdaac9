#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "TervaleWindow/Shell/ApplicationIcon.h"
#include "TervaleWindow/Shell/CommandLine.h"
#include "TervaleWindow/Shell/SystemAppearance.h"
#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <QApplication>
#include <QSysInfo>

#include <clocale>
#include <cstdio>
#include <tervale/Version.h>
#include <variant>

using namespace tervale;

namespace {

constexpr int failure = 1;
constexpr int wrongUsage = 2;

QStringList argumentsOf(int count, char** arguments) {
    QStringList list;
    for (int i = 0; i < count; ++i)
        list << QString::fromLocal8Bit(arguments[i]);
    return list;
}

int complain(const QString& line, int status) {
    const std::string text = "tervale-window: " + printable(line.toStdString()) + '\n';
    // The exit status reports the error even if printing fails.
    static_cast<void>(tervale::print(stderr, text));
    return status;
}

int print(const QString& text) {
    return tervale::print(stdout, text.toStdString())
               ? 0
               : complain(QStringLiteral("The output cannot be written."), failure);
}

CommandLine::System runningSystem() {
    return QSysInfo::kernelType() == QLatin1String("darwin") ? CommandLine::System::macOS
                                                             : CommandLine::System::other;
}

int openWindow(const CommandLine::OpenWindow& request, char** arguments) {
    // Only the program's name: the toolkit has options of its own, which are not ours to offer.
    int count = 1;
    QApplication application(count, arguments);
    // The toolkit takes over the user's locale for all of the process; numbers in JSON are the same
    // everywhere, and what people read is written by the toolkit.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(QStringLiteral("Tervale"));
    QApplication::setApplicationVersion(QString::fromLatin1(version::number));
    QApplication::setDesktopFileName(QString::fromLatin1(desktopEntry));
    // A bundle brings its own.
    if (const QIcon icon = applicationIcon(); !icon.isNull())
        QApplication::setWindowIcon(icon);
    useSystemAppearance(application);
    try {
        TervaleWindowApp app(makeMachine(request.machine));
        app.launch(request.pane);
        return QApplication::exec();
    } catch (const NoSuchMachine& error) {
        return complain(QString::fromUtf8(error.what()), failure);
    }
}

} // namespace

int main(int count, char** arguments) {
    return std::visit(
        overloaded{
            [&](const CommandLine::OpenWindow& request) { return openWindow(request, arguments); },
            [](const CommandLine::ShowHelp&) { return print(CommandLine::help()); },
            [](const CommandLine::ShowVersion&) {
                return print(
                    QStringLiteral("tervale-window %1\n").arg(QLatin1String(version::text)));
            },
            [](const CommandLine::Refuse& refusal) {
                return complain(refusal.line + QStringLiteral(" See --help."), wrongUsage);
            },
        },
        CommandLine::parse(argumentsOf(count, arguments), runningSystem()));
}
