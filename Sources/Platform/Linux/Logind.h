#pragma once

#include <QLatin1String>

/// Where systemd's login manager is on the system bus.
namespace tervale::logind {

inline constexpr QLatin1String name("org.freedesktop.login1");
inline constexpr QLatin1String path("/org/freedesktop/login1");
inline constexpr QLatin1String manager("org.freedesktop.login1.Manager");
inline constexpr QLatin1String session("org.freedesktop.login1.Session");

} // namespace tervale::logind
