#include "tervalectl/Files.h"

#include "JSON/JSON.h"
#include "Platform/FileSync.h"
#include "Profiles/Bridge.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tervale {

namespace {

constexpr const char* standardStream = "-";

Failure cannotRead(const std::string& path, int error) {
    return refusal("Cannot read " + files::nameOf(path) + ": " +
                   std::generic_category().message(error));
}

Failure cannotWrite(const std::string& path, const std::string& reason) {
    return refusal("Cannot write " + path + ": " + reason);
}

/// The toolkit does not always tell why a buffer could not be written; the system does.
Failure cannotWrite(const std::string& path, const QFileDevice& file, int error) {
    return cannotWrite(path, error != 0 ? std::generic_category().message(error)
                                        : file.errorString().toStdString());
}

/// Whether the path leads to an open file of this process. Whoever opened it waits for the text in
/// that file, not in another of the same name.
bool isOpenFile(const std::string& path) {
    for (const char* folder : {"/dev/std", "/dev/fd/", "/proc/"}) {
        if (path.starts_with(folder))
            return true;
    }
    return false;
}

/// The second name serves also where standard output is a socket, which cannot be opened.
bool isStandardOutput(const std::string& path) {
    return path == standardStream || path == "/dev/stdout";
}

/// Whether another file takes its place, rather than the text being written into it. What cannot be
/// looked at may be a pipe or a device, and is not replaced.
bool isReplaced(const std::string& path) {
    if (isOpenFile(path))
        return false;
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::status_known(status))
        throw cannotWrite(path, error.message());
    return std::filesystem::is_regular_file(status) || !std::filesystem::exists(status);
}

void replace(const std::string& path, const QByteArray& text) {
    QSaveFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::WriteOnly))
        throw cannotWrite(path, file.errorString().toStdString());
    errno = 0;
    // `commit` would write what is left in the buffer without looking at the result.
    if (file.write(text) != text.size() || !file.flush() || !syncToDisk(file.handle()))
        throw cannotWrite(path, file, errno);
    if (!file.commit())
        throw cannotWrite(path, file.errorString().toStdString());
}

void writeInto(const std::string& path, const QByteArray& text) {
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::WriteOnly | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        throw cannotWrite(path, file.errorString().toStdString());
    errno = 0;
    if (file.write(text) != text.size())
        throw cannotWrite(path, file, errno);
}

} // namespace

std::istream& files::open(const std::string& path, std::ifstream& file, Context& context) {
    if (path == standardStream)
        return context.in;
    std::error_code unknown;
    if (std::filesystem::is_directory(path, unknown))
        throw cannotRead(path, EISDIR);
    errno = 0;
    file.open(path, std::ios::binary);
    if (!file)
        throw cannotRead(path, errno);
    return file;
}

std::string files::read(const std::string& path, Context& context) {
    std::ifstream file;
    std::istream& in = open(path, file, context);
    std::string text(largest + 1, '\0');
    errno = 0;
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (in.bad())
        throw cannotRead(path, errno);
    text.resize(static_cast<std::size_t>(in.gcount()));
    if (text.size() > largest)
        throw refusal("There are more than 16 MiB in " + nameOf(path) + ".");
    return text;
}

std::optional<std::string> files::readLine(std::istream& in) {
    std::string line;
    for (auto next = in.get(); next != std::istream::traits_type::eof(); next = in.get()) {
        if (next == '\n')
            return line;
        if (line.size() == largest)
            throw refusal("A line is longer than 16 MiB.");
        line += static_cast<char>(next);
    }
    if (in.bad())
        throw refusal("The line cannot be read.");
    return line.empty() ? std::nullopt : std::optional(std::move(line));
}

std::vector<Profile> files::readProfiles(const std::string& path, Context& context) {
    auto decoded = decode<std::vector<Profile>>(read(path, context));
    if (const auto* error = std::get_if<DecodingError>(&decoded))
        throw refusal("No list of profiles is in " + nameOf(path) + ": " + error->text());
    return std::get<std::vector<Profile>>(std::move(decoded));
}

void files::write(const std::string& path, std::string_view text, Context& context) {
    if (isStandardOutput(path)) {
        context.out << text;
        return;
    }
    const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    isReplaced(path) ? replace(path, bytes) : writeInto(path, bytes);
}

void files::requireWritable(const std::string& path) {
    if (isStandardOutput(path))
        return;
    const QString name = QFile::decodeName(path.c_str());
    if (isReplaced(path)) {
        // What would take its place goes again, unless it is committed.
        QSaveFile file(name);
        if (!file.open(QIODevice::WriteOnly))
            throw cannotWrite(path, file.errorString().toStdString());
        return;
    }
    // Anything else is not opened: a pipe would wait for its reader, and then lose it.
    const QFileInfo info(name);
    if (info.isDir())
        throw cannotWrite(path, std::generic_category().message(EISDIR));
    if (!info.isWritable())
        throw cannotWrite(path, std::generic_category().message(EACCES));
}

std::string files::nameOf(const std::string& path) {
    return path == standardStream ? "standard input" : path;
}

} // namespace tervale
