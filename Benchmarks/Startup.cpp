// Opens the window as the program itself does, on the simulated Mac unless this machine's is asked
// for, and tells what it took from the start of the process to the first paint.
//
// Usage: tervale-startup NANOSECONDS [--system]; NANOSECONDS is the time at which the process was
// started, since 1970.

#include "FirstPaint.h"
#include "TervaleWindow/Shell/ApplicationIcon.h"
#include "TervaleWindow/Shell/SystemAppearance.h"
#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <QApplication>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace tervale;

int main(int argumentCount, char** arguments) {
    const bool system = argumentCount == 3 && std::string_view(arguments[2]) == "--system";
    if (argumentCount != 2 && !system) {
        std::fputs("usage: tervale-startup NANOSECONDS [--system]\n", stderr);
        return 2;
    }
    const long long started = std::strtoll(arguments[1], nullptr, 10);
    int count = 1;
    QApplication application(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    if (const QIcon icon = applicationIcon(); !icon.isNull())
        QApplication::setWindowIcon(icon);
    useSystemAppearance(application);
    const MachineChoice choice =
        system ? MachineChoice(machineChoice::System{}) : MachineChoice(machineChoice::Simulated{});
    TervaleWindowApp app(makeMachine(choice));
    app.launch(Pane::overview);
    const FirstPaint watch(app.window(), started);
    return QApplication::exec();
}
