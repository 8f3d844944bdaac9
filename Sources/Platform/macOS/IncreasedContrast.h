#pragma once

namespace tervale {

/// Whether "Increase contrast" is on in the system's accessibility settings. Main thread.
bool increasedContrast();

} // namespace tervale
