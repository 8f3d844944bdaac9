#include "Platform/Linux/DesktopAppearance.h"

#include <optional>
#include <utility>

namespace tervale {

namespace {

using Scheme = DesktopLook::Scheme;

bool hasHighContrast(const QString& theme) {
    return theme.startsWith(QLatin1String("HighContrast"), Qt::CaseInsensitive);
}

/// The dark themes are named so, as "Adwaita-dark" and "HighContrastInverse" are.
bool isDark(const QString& theme) {
    return theme.endsWith(QLatin1String("dark"), Qt::CaseInsensitive) ||
           theme.endsWith(QLatin1String("inverse"), Qt::CaseInsensitive);
}

std::optional<Scheme> preferredScheme(const DesktopSettings& settings) {
    switch (settings.value(desktopGroup::appearance, QStringLiteral("color-scheme")).toUInt()) {
    case 1:
        return Scheme::dark;
    case 2:
        return Scheme::light;
    default:
        return std::nullopt;
    }
}

/// Empty where the desktop names none.
QString desktopTheme(const DesktopSettings& settings) {
    return settings.value(desktopGroup::interface, QStringLiteral("gtk-theme")).toString();
}

/// Empty where GTK's file names none.
QString gtkTheme(const DesktopSettings& settings) {
    return settings.gtkValue(QStringLiteral("gtk-theme-name")).toString();
}

Scheme schemeOfTheme(const QString& theme) {
    return isDark(theme) ? Scheme::dark : Scheme::light;
}

std::optional<Scheme> schemeOf(const DesktopSettings& settings) {
    if (const std::optional<Scheme> preferred = preferredScheme(settings))
        return preferred;
    const QString named = desktopTheme(settings);
    if (!named.isEmpty())
        return schemeOfTheme(named);
    const QString theme = gtkTheme(settings);
    const QVariant prefersDark =
        settings.gtkValue(QStringLiteral("gtk-application-prefer-dark-theme"));
    if (prefersDark.toBool())
        return Scheme::dark;
    return theme.isEmpty() && !prefersDark.isValid() ? std::nullopt
                                                     : std::optional(schemeOfTheme(theme));
}

bool wantsHighContrast(const DesktopSettings& settings) {
    const QString named = desktopTheme(settings);
    return settings.value(desktopGroup::appearance, QStringLiteral("contrast")).toUInt() == 1 ||
           settings.value(desktopGroup::accessibility, QStringLiteral("high-contrast")).toBool() ||
           hasHighContrast(named.isEmpty() ? gtkTheme(settings) : named);
}

DesktopLook lookOf(const DesktopSettings& settings) {
    return {schemeOf(settings), wantsHighContrast(settings)};
}

} // namespace

DesktopAppearance::DesktopAppearance(std::shared_ptr<const DesktopSettings> asked,
                                     std::function<void()> changed)
    : settings(std::move(asked)),
      tell(std::move(changed)),
      current(lookOf(*settings)) {
    connect(settings.get(), &DesktopSettings::changed, this, &DesktopAppearance::follow);
}

void DesktopAppearance::follow() {
    const DesktopLook before = std::exchange(current, lookOf(*settings));
    if (before != current && tell)
        tell();
}

} // namespace tervale
