#include "Platform/macOS/FoundationSession.h"

#include <fstream>

namespace tervale {

FoundationSession::FoundationSession() {
    for (const char* name : {"home", "defaults", "temporary"}) {
        std::filesystem::create_directory(path(name));
        std::filesystem::permissions(path(name), std::filesystem::perms::owner_all);
    }
    std::ofstream(path("configuration"))
        << "GNUSTEP_USER_DEFAULTS_DIR=" << path("defaults").string() << '\n';
    server.emplace(QStringLiteral(TERVALE_NOTIFICATION_SERVER),
                   QStringList{QStringLiteral("--no-fork")}, environment());
}

bool FoundationSession::serves() {
    // It registers under its name once it listens.
    const std::filesystem::path names = path("temporary") / "NSMessagePort" / "names";
    return eventually([&] {
        std::error_code error;
        return std::filesystem::exists(names, error) && !std::filesystem::is_empty(names, error);
    });
}

QProcessEnvironment FoundationSession::environment() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const auto set = [&](const char* name, const std::filesystem::path& value) {
        environment.insert(QString::fromLatin1(name), QString::fromStdString(value.string()));
    };
    set("HOME", path("home"));
    set("GNUSTEP_CONFIG_FILE", path("configuration"));
    // Here lie the sockets.
    set("TMP", path("temporary"));
    set("TMPDIR", path("temporary"));
    // What the library keeps until its end counts as leaked.
    set("ASAN_OPTIONS", "detect_leaks=0");
    return environment;
}

QStringList FoundationSession::run(const QString& program, const QStringList& arguments) const {
    ChildProcess process(program, arguments, environment());
    if (!process.ends())
        return {QStringLiteral("does not end")};
    QString text = QString::fromUtf8(process.output());
    if (process.status() != 0 || !process.errors().isEmpty())
        text += QStringLiteral("status %1: ").arg(process.status()) +
                QString::fromUtf8(process.errors());
    return text.split(u'\n', Qt::SkipEmptyParts);
}

QStringList FoundationSession::run(const QStringList& arguments) const {
    return run(QStringLiteral(TERVALE_FOUNDATION_PROGRAM), arguments);
}

} // namespace tervale
