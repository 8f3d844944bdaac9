#include "TervaleWindow/Shell/ApplicationIcon.h"
#include "TervaleWindow/Shell/CommandLine.h"
#include "TervaleWindow/Shell/SystemAppearance.h"
#include "TervaleWindow/Shell/TervaleWindowApp.h"

#include <QApplication>

#include <clocale>
#include <cstdio>

using namespace tervale;

namespace {

constexpr int wrongUsage = 2;

QStringList argumentsOf(int count, char** arguments) {
    QStringList list;
    for (int i = 0; i < count; ++i)
        list << QString::fromLocal8Bit(arguments[i]);
    return list;
}

int print(std::FILE* stream, const QString& text, int status) {
    std::fputs(text.toLocal8Bit().constData(), stream);
    return status;
}

int openWindow(const CommandLine::OpenWindow& request, char** arguments) {
    // Only the program's name: the toolkit has options of its own, which are not ours to offer.
    int count = 1;
    QApplication application(count, arguments);
    // The toolkit takes over the user's locale for all of the process; numbers in JSON are the same
    // everywhere, and what people read is written by the toolkit.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(QStringLiteral("Tervale"));
    QApplication::setApplicationVersion(QStringLiteral(TERVALE_VERSION));
    QApplication::setDesktopFileName(QString::fromLatin1(desktopEntry));
    QApplication::setWindowIcon(applicationIcon());
    useSystemAppearance(application);
    TervaleWindowApp app(request.simulate ? Backend::simulation() : Backend::system());
    app.launch(request.pane);
    return QApplication::exec();
}

} // namespace

int main(int count, char** arguments) {
    return std::visit(
        overloaded{
            [&](const CommandLine::OpenWindow& request) { return openWindow(request, arguments); },
            [](const CommandLine::ShowHelp&) { return print(stdout, CommandLine::help(), 0); },
            [](const CommandLine::ShowVersion&) {
                return print(
                    stdout,
                    QStringLiteral("tervale-window " TERVALE_VERSION " (" TERVALE_BUILD ")\n"), 0);
            },
            [](const CommandLine::Refuse& refusal) {
                return print(stderr,
                             QStringLiteral("tervale-window: %1 See --help.\n").arg(refusal.line),
                             wrongUsage);
            },
        },
        CommandLine::parse(argumentsOf(count, arguments)));
}
