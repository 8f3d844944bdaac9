#pragma once

namespace tervale {

/// Whether "Reduce motion" is on in the system's accessibility settings. Main thread.
bool reducedMotionWanted();

} // namespace tervale
