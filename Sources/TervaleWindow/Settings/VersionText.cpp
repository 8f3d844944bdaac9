#include "TervaleWindow/Settings/VersionText.h"

namespace tervale {

namespace {

QString textOf(const ApplicationMetadata& metadata, const char* key) {
    const auto value = metadata.value(key);
    const auto* text = value ? std::get_if<std::string>(&*value) : nullptr;
    return text ? QString::fromStdString(*text) : QStringLiteral("?");
}

} // namespace

QString versionText(const ApplicationMetadata& metadata) {
    return textOf(metadata, "CFBundleShortVersionString") + QStringLiteral(" (") +
           textOf(metadata, "CFBundleVersion") + QLatin1Char(')');
}

} // namespace tervale
