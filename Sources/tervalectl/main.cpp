#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "Platform/Platform.h"
#include "tervalectl/ChartFile.h"
#include "tervalectl/CommandLine.h"
#include "tervalectl/Run.h"

#include <QCoreApplication>

#include <clocale>
#include <iostream>
#include <string>
#include <tervale/Version.h>

using namespace tervale;

namespace {

int run(const ctl::CommandLine::Run& run) {
    const SystemClock clock;
    Context context{std::cin,
                    std::cout,
                    clock,
                    run.json,
                    run.timeout,
                    [&run] { return makeMachine(run.machine); },
                    sessionOf(run.machine),
                    textStyle(),
                    [](const std::string& svg) {
                        return drawByWindow(svg,
                                            QCoreApplication::applicationDirPath().toStdString());
                    }};
    return static_cast<int>(perform(run, context, std::cerr));
}

/// Where the program writes before any command runs.
Terminal terminal() {
    return Terminal("tervalectl");
}

} // namespace

int main(int count, char** arguments) {
    std::ios::sync_with_stdio(false);
    prepareEventLoop();
    const QCoreApplication application(count, arguments);
    // The toolkit takes over the user's locale for all of the process; numbers are the same
    // everywhere.
    std::setlocale(LC_NUMERIC, "C");
    return std::visit(
        overloaded{
            [](const ctl::CommandLine::Run& chosen) { return run(chosen); },
            [](const ctl::CommandLine::Print& help) { return terminal().print(help.text); },
            [](const ctl::CommandLine::ShowVersion&) {
                return terminal().print(std::string("tervalectl ") + version::text + "\n");
            },
            [](const ctl::CommandLine::Refuse& refusal) {
                return terminal().complain(refusal.line + " See --help.", exitStatus::wrongUsage);
            },
        },
        ctl::CommandLine::parse(QCoreApplication::arguments()));
}
