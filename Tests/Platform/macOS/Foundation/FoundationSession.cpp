#include "Platform/macOS/Foundation/FoundationSession.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tervale {

namespace {

QString text(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

void writePrivately(const std::filesystem::path& path, const std::string& content) {
    std::ofstream(path) << content;
    std::filesystem::permissions(path, std::filesystem::perms::owner_read |
                                           std::filesystem::perms::owner_write);
}

} // namespace

AdapterProgram::AdapterProgram(const QString& program, const QProcessEnvironment& environment)
    : process(program, {}, environment) {
    process.says("ready\n");
}

std::optional<QByteArray> AdapterProgram::does(const QByteArray& command) {
    const QByteArray done = "done " + command.split(' ').constFirst() + '\n';
    const auto before = process.output().size();
    process.write(command + '\n');
    const auto answer = [&] { return process.output().mid(before); };
    if (!eventually([&] { return answer().contains(done) || !process.runs(); }) ||
        !answer().contains(done))
        return std::nullopt;
    return answer().left(answer().indexOf(done));
}

QList<QByteArray> AdapterProgram::received(const QByteArray& name) {
    const QByteArray start = "received " + name + ' ';
    QList<QByteArray> objects;
    QList<QByteArray> lines = process.output().split('\n');
    // Not yet whole.
    lines.removeLast();
    for (const QByteArray& line : lines)
        if (line.startsWith(start))
            objects << line.mid(start.size());
    return objects;
}

bool AdapterProgram::receives(const QByteArray& name, const QList<QByteArray>& expected) {
    return eventually([&] { return received(name).size() >= expected.size(); }) &&
           received(name) == expected;
}

bool AdapterProgram::ends() {
    process.closeInput();
    return process.ends() && process.status() == 0;
}

FoundationSession::FoundationSession() {
    writePrivately(folder.path / "GNUstep.conf",
                   "GNUSTEP_USER_DIR=" + (folder.path / "user").string() +
                       "\nGNUSTEP_USER_DEFAULTS_DIR=" + (folder.path / "defaults").string() + '\n');
    server.emplace(QStringLiteral("gdnc"), QStringList{QStringLiteral("--no-fork")}, environment());
}

bool FoundationSession::serves() {
    // It can be found once it has entered its name; before, programs would start another one.
    return eventually([this] {
        const std::filesystem::recursive_directory_iterator files(folder.path);
        return std::any_of(begin(files), end(files), [](const auto& file) {
            return file.path().parent_path().filename() == "names";
        });
    });
}

std::unique_ptr<AdapterProgram> FoundationSession::start() const {
    return std::make_unique<AdapterProgram>(QStringLiteral(TERVALE_ADAPTER_PROGRAM), environment());
}

std::unique_ptr<AdapterProgram>
FoundationSession::startBundled(const QByteArray& information) const {
    const auto bundle = folder.path / "Tervale.app";
    const auto program = bundle / "adapter-program";
    std::filesystem::create_directories(bundle / "Resources");
    std::filesystem::copy_file(TERVALE_ADAPTER_PROGRAM, program,
                               std::filesystem::copy_options::overwrite_existing);
    std::ofstream(bundle / "Resources" / "Info.plist") << information.toStdString();
    return std::make_unique<AdapterProgram>(text(program), environment());
}

bool FoundationSession::writeDefault(const QString& domain, const QString& key,
                                     const QString& value) const {
    ChildProcess tool(QStringLiteral("defaults"), {QStringLiteral("write"), domain, key, value},
                      environment());
    return tool.ends() && tool.status() == 0;
}

QProcessEnvironment FoundationSession::environment() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), text(folder.path));
    for (const char* temporary : {"TMP", "TEMP", "TMPDIR"})
        environment.insert(QString::fromLatin1(temporary), text(folder.path));
    environment.insert(QStringLiteral("GNUSTEP_CONFIG_FILE"), text(folder.path / "GNUstep.conf"));
    environment.insert(QStringLiteral("LSAN_OPTIONS"),
                       QStringLiteral("print_suppressions=0:suppressions=" TERVALE_LEAKS));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}

} // namespace tervale
