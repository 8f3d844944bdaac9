#pragma once

#include <functional>

namespace tervale {

/// Whether the user asked the system for less motion: values are then simply there. False where the
/// system cannot be asked.
bool reducedMotion();

/// Asks `query` from now on, each time that something is about to move, so it must be quick. With
/// none, everything moves.
void askForReducedMotion(std::function<bool()> query);

} // namespace tervale
