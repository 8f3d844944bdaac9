#include "tervalectl/Files.h"

#include <QFile>
#include <QSaveFile>

#include <iterator>

namespace tervale {

namespace {

constexpr const char* standardStream = "-";

Failure cannot(const char* what, const std::string& path, const QFileDevice& file) {
    return refusal(std::string("Cannot ") + what + " " + path + ": " +
                   file.errorString().toStdString());
}

} // namespace

std::string files::read(const std::string& path, Context& context) {
    if (path == standardStream)
        return {std::istreambuf_iterator<char>(context.in), {}};
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        throw cannot("read", path, file);
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw cannot("read", path, file);
    return text.toStdString();
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
