#include "Base/Overloaded.h"
#include "Platform/Platform.h"
#include "tervalectl/CommandLine.h"
#include "tervalectl/Run.h"

#include <QCoreApplication>

#include <clocale>
#include <iostream>
#include <tervale/Version.h>

using namespace tervale;

namespace {

ExitStatus run(const ctl::CommandLine::Run& run) {
    const SystemClock clock;
    Context context{std::cin, std::cout,   clock,
                    run.json, run.timeout, [&run] { return makeMachine(run.machine); }};
    return carryOut(run, context, std::cerr);
}

ExitStatus print(const std::string& text) {
    std::cout << text << std::flush;
    if (std::cout)
        return ExitStatus::done;
    complain(std::cerr, "The output cannot be written.");
    return ExitStatus::refused;
}

} // namespace

int main(int count, char** arguments) {
    std::ios::sync_with_stdio(false);
    prepareEventLoop();
    const QCoreApplication application(count, arguments);
    // The toolkit takes over the user's locale for all of the process; numbers are the same
    // everywhere.
    std::setlocale(LC_NUMERIC, "C");
    return static_cast<int>(
        std::visit(overloaded{
                       [](const ctl::CommandLine::Run& chosen) { return run(chosen); },
                       [](const ctl::CommandLine::Print& help) { return print(help.text); },
                       [](const ctl::CommandLine::ShowVersion&) {
                           return print(std::string("tervalectl ") + version::text + "\n");
                       },
                       [](const ctl::CommandLine::Refuse& refusal) {
                           complain(std::cerr, refusal.line + " See --help.");
                           return ExitStatus::wrongUsage;
                       },
                   },
                   ctl::CommandLine::parse(QCoreApplication::arguments())));
}
