#include "tervalectl/Files.h"

#include "Profiles/Bridge.h"
#include "Profiles/JSONCoding.h"

#include <QFile>
#include <QSaveFile>

#include <utility>

namespace tervale {

namespace {

constexpr const char* standardStream = "-";

Failure cannot(const char* what, const std::string& path, const QFileDevice& file) {
    return refusal(std::string("Cannot ") + what + " " + path + ": " +
                   file.errorString().toStdString());
}

std::string notTooLarge(std::string text, const std::string& path) {
    if (text.size() > files::largest)
        throw refusal("There are more than 16 MiB in " + files::nameOf(path) + ".");
    return text;
}

} // namespace

std::string files::read(const std::string& path, Context& context) {
    if (path == standardStream) {
        std::string text(largest + 1, '\0');
        context.in.read(text.data(), static_cast<std::streamsize>(text.size()));
        text.resize(static_cast<std::size_t>(context.in.gcount()));
        return notTooLarge(std::move(text), path);
    }
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        throw cannot("read", path, file);
    const QByteArray text = file.read(largest + 1);
    if (file.error() != QFileDevice::NoError)
        throw cannot("read", path, file);
    return notTooLarge(text.toStdString(), path);
}

std::vector<Profile> files::readProfiles(const std::string& path, Context& context) {
    auto decoded = decode<std::vector<Profile>>(read(path, context));
    if (const auto* error = std::get_if<DecodingError>(&decoded))
        throw refusal("No list of profiles is in " + nameOf(path) + ": " + error->text());
    return std::get<std::vector<Profile>>(std::move(decoded));
}

void files::requireReadable(const std::string& path) {
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        throw cannot("read", path, file);
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
    return line.empty() ? std::nullopt : std::optional(std::move(line));
}

void files::write(const std::string& path, std::string_view text, Context& context) {
    if (path == standardStream) {
        context.out << text;
        return;
    }
    QSaveFile file(QFile::decodeName(path.c_str()));
    // Such as a pipe, or a file in a folder that is not ours, which no other can take the place of.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(text.data(), static_cast<qint64>(text.size())) < 0 || !file.commit())
        throw cannot("write", path, file);
}

std::string files::nameOf(const std::string& path) {
    return path == standardStream ? "standard input" : path;
}

} // namespace tervale
