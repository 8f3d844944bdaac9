#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "Platform/AgentLock.h"
#include "TervaleWindow/Shell/ApplicationIcon.h"
#include "TervaleWindow/Shell/CommandLine.h"
#include "TervaleWindow/Shell/PictureDrawing.h"
#include "TervaleWindow/Shell/StartHint.h"
#include "TervaleWindow/Shell/SystemAppearance.h"
#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <QApplication>
#include <QSysInfo>

#include <clocale>
#include <string>
#include <string_view>
#include <tervale/Version.h>
#include <variant>

using namespace tervale;

namespace {

/// Where this program writes.
Terminal terminal() {
    return Terminal("tervale-window");
}

QStringList argumentsOf(int count, char** arguments) {
    QStringList list;
    for (int i = 0; i < count; ++i)
        list << QString::fromLocal8Bit(arguments[i]);
    return list;
}

CommandLine::System runningSystem() {
    return QSysInfo::kernelType() == QLatin1String("darwin") ? CommandLine::System::macOS
                                                             : CommandLine::System::other;
}

/// Where the machine and the agent are programs that people start, says which are missing.
void hintAtWhatIsMissing(const TervaleWindowApp& app, const MachineChoice& machine) {
    if (runningSystem() == CommandLine::System::macOS ||
        !std::holds_alternative<machineChoice::System>(machine))
        return;
    const auto hint = startHint(app.hasMachine() ? Presence::there : Presence::missing,
                                AgentLock::holder() ? Presence::there : Presence::missing);
    if (hint)
        static_cast<void>(terminal().complain(*hint, exitStatus::done));
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
        hintAtWhatIsMissing(app, request.machine);
        return QApplication::exec();
    } catch (const NoSuchMachine& error) {
        return terminal().complain(error.what(), exitStatus::failure);
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count == 2 && std::string_view(arguments[1]) == drawPictureArgument)
        return drawPicture(count, arguments);
    return std::visit(
        overloaded{
            [&](const CommandLine::OpenWindow& request) { return openWindow(request, arguments); },
            [](const CommandLine::ShowHelp&) {
                return terminal().print(CommandLine::help().toStdString());
            },
            [](const CommandLine::ShowVersion&) {
                return terminal().print(std::string("tervale-window ") + version::text + "\n");
            },
            [](const CommandLine::Refuse& refusal) {
                return terminal().complain(refusal.line.toStdString() + " See --help.",
                                           exitStatus::wrongUsage);
            },
        },
        CommandLine::parse(argumentsOf(count, arguments), runningSystem()));
}
