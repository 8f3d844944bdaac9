#pragma once

#include "TervaleWindow/Appearance/Symbol.h"

#include <QString>

#include <array>
#include <optional>

namespace tervale {

/// The pages of the window, in the order of the sidebar.
enum class Pane { overview, sensors, profiles, settings };

inline constexpr std::array<Pane, 4> allPanes{Pane::overview, Pane::sensors, Pane::profiles,
                                              Pane::settings};

/// The title in the sidebar, which also names the pane on the command line.
QString title(Pane pane);
Symbol symbol(Pane pane);
/// The pane with this title, in upper or lower case.
std::optional<Pane> paneTitled(const QString& title);

} // namespace tervale
