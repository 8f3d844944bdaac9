#include "Platform/Linux/DesktopMotion.h"

#include <utility>

namespace tervale {

namespace {

bool isBool(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<bool>();
}

bool gtkAnimates(const DesktopSettings& settings) {
    const QVariant animates = settings.gtkValue(QStringLiteral("gtk-enable-animations"));
    return !animates.isValid() || animates.toBool();
}

bool wantsLessMotion(const DesktopSettings& settings) {
    const QVariant appearance =
        settings.value(desktopGroup::appearance, QStringLiteral("reduced-motion"));
    const QVariant animations =
        settings.value(desktopGroup::interface, QStringLiteral("enable-animations"));
    if (!appearance.isValid() && !isBool(animations))
        return !gtkAnimates(settings);
    return appearance.toUInt() == 1 || (isBool(animations) && !animations.toBool());
}

} // namespace

DesktopMotion::DesktopMotion(std::shared_ptr<const DesktopSettings> asked)
    : settings(std::move(asked)) {
    connect(settings.get(), &DesktopSettings::changed, this, &DesktopMotion::follow);
    follow();
}

void DesktopMotion::follow() {
    reduced = wantsLessMotion(*settings);
}

} // namespace tervale
