#pragma once

#include <optional>
#include <string>

namespace tervale {

/// Whether the running program lies in a bundle that says what it is.
bool programHasBundle();

/// The text under a key of that bundle's information dictionary, such as "CFBundleVersion"; nothing
/// for a key that is missing and for a value of another type.
std::optional<std::string> bundleText(const std::string& key);

} // namespace tervale
