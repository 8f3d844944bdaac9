#pragma once

#include <functional>

namespace tervale {

/// Follows the menus that the user holds open from now on, and cancels them when it is called:
/// while one is open, the system runs a loop of its own, which the toolkit cannot end. Main thread.
std::function<void()> openMenuCanceller();

} // namespace tervale
