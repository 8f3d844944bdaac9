#pragma once

#include <optional>

namespace tervale {

/// What the user asked the desktop's windows to look like.
struct DesktopLook {
    enum class Scheme { light, dark };

    /// Nothing where nobody says.
    std::optional<Scheme> scheme{};
    bool highContrast = false;

    bool operator==(const DesktopLook&) const = default;
};

} // namespace tervale
