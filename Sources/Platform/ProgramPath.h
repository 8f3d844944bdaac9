#pragma once

#include <string>

namespace tervale {

/// A path under which the running program can be started again, also after its file was replaced
/// where the system allows it.
std::string programPath();

} // namespace tervale
